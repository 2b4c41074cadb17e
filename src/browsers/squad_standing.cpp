// SPDX-License-Identifier: GPL-3.0-or-later
#include "browsers/squad_standing.h"

#include <fmt/format.h>

#include "database/open_database.h"
#include "database/teams_file.h"
#include "model/run_time_error.h"
#include "model/texts.h"

namespace velorin {

namespace {

/// A rating as a number, and whether the higher one is the better.
struct rating {
  std::string_view caption;
  std::string_view meaning;
  double (*value)(const player_rec& man);
  std::string (*text)(const player_rec& man);
  bool high_is_good;
};

constexpr std::array<rating, 3> ratings = {{
    {"Batting skill", "Balls he lasts for each dismissal; the more, the better",
     [](const player_rec& man) -> double { return man.bat_skill; },
     [](const player_rec& man) { return number_text(static_cast<int>(man.bat_skill)); }, true},
    {"Bowling strike rate", "Balls he bowls for each wicket; the fewer, the better",
     [](const player_rec& man) -> double { return man.bowl_sr; },
     [](const player_rec& man) { return number_text(man.bowl_sr); }, false},
    {"Economy", "Runs he gives an over; the fewer, the better",
     [](const player_rec& man) -> double { return man.econ; },
     [](const player_rec& man) { return number_text(man.econ); }, false},
}};

std::string hand_text(const player_rec& man) {
  std::string hand = man.bat_type.substr(0, 3);
  hand.erase(hand.find_last_not_of(' ') + 1);
  if (hand == "RH") return "Right-handed";
  return hand == "LH" ? "Left-handed" : hand;
}

/// The men of a role, as many.
std::string men_of_role(std::string_view role, int men) {
  if (role == "Opener") return men == 1 ? "opener" : "openers";
  if (role == "Middle Order") return men == 1 ? "middle order batsman" : "middle order batsmen";
  if (role == "Lower Order") return men == 1 ? "lower order batsman" : "lower order batsmen";
  return men == 1 ? "man" : "men";
}

template <class Visit>
void visit_role(const std::vector<team_rec>& squads, std::string_view role, Visit visit) {
  for (const team_rec& team : squads) {
    for (const player_rec& other : team.squad) {
      if (!other.name.empty() && other.role() == role) visit(other);
    }
  }
}

rated_skill skill_of(const std::vector<team_rec>& squads, const player_rec& man, const rating& by) {
  rated_skill skill{by.caption, by.meaning, by.text(man), 1, 0, false, {}};
  const double own = by.value(man);
  int equals = 0;
  visit_role(squads, man.role(), [&](const player_rec& other) {
    ++skill.men;
    const double value = by.value(other);
    if (value == own) {
      ++equals;
    } else if ((value > own) == by.high_is_good) {
      ++skill.place;
    }
  });
  skill.shared = equals > 1;
  skill.place_text = fmt::format("{}{} of {} {}", skill.shared ? "joint " : "", ordinal_text(skill.place), skill.men,
                                 men_of_role(man.role(), skill.men));
  return skill;
}

}  // namespace

std::vector<team_rec> squads_on_hand(const open_database& data) {
  open_database own = data;  // what is kept of the files stays as it is
  try {
    return read_team_list(own);
  } catch (const run_time_error&) {
    return {};
  }
}

squad_standing standing_of(const std::vector<team_rec>& squads, const player_rec& man) {
  squad_standing standing{std::string(man.role()), hand_text(man), man.bowler_type, man.is_keeper != 0, {}};
  for (std::size_t i = 0; i < ratings.size(); ++i) standing.skills[i] = skill_of(squads, man, ratings[i]);
  return standing;
}

const player_rec* squad_man(const std::vector<team_rec>& squads, const std::string& team, const std::string& name) {
  if (name.empty()) return nullptr;
  for (const team_rec& listed : squads) {
    if (listed.team_name != team) continue;
    for (const player_rec& man : listed.squad) {
      if (man.name == name) return &man;
    }
  }
  return nullptr;
}

std::string ordinal_text(int number) {
  const bool teens = number / 10 % 10 == 1;
  const int last = teens ? 0 : number % 10;
  return fmt::format("{}{}", number, last == 1 ? "st" : last == 2 ? "nd" : last == 3 ? "rd" : "th");
}

}  // namespace velorin
