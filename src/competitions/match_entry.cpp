// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/match_entry.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "database/open_database.h"
#include "database/teams_file.h"
#include "model/match_state.h"
#include "model/random.h"
#include "model/run_time_error.h"
#include "model/texts.h"
#include "ui/match_play.h"

namespace velorin {

bool enter_walkover(match_state& match, const entered_side& first, const entered_side& second) {
  if (!first.team.empty() && !second.team.empty()) return false;
  match.result_winner = first.team + second.team;
  match.decided = match.result_winner.empty() ? match_decision::none : match_decision::walkover;
  match.result_margin = match.result_winner.empty() ? "" : "  by a walkover";
  return true;
}

void enter_match(const match_play& play, const entered_side& first, const entered_side& second,
                 const std::string& ground) {
  play.match.step = match_step::none;
  match_result& result = play.match;
  match_result before = std::exchange(result, match_result());
  if (enter_walkover(play.match, first, second)) return;
  new_match_form form(play);
  form.open();
  form.enter(first.team, second.team, ground);
  form.computer_captains_first = !first.human;
  form.computer_captains_second = !second.human;
  form.begin();
  play.match.result_before = std::move(before);
}

void clear_result(match_state& match) {
  match.decided = match_decision::none;
  match.result_winner.clear();
  match.result_margin.clear();
  match.result_ground.clear();
  match.rate_first = {};
  match.rate_second = {};
}

std::vector<team_entry> list_teams(open_database& data) {
  std::vector<team_entry> list;
  for (const team_rec& team : read_team_list(data)) list.push_back({team.team_name, static_cast<int>(list.size()) + 2});
  return list;
}

std::vector<std::string> list_grounds(open_database& data, const std::vector<std::string>& countries) {
  std::vector<std::string> names;
  scan_grounds(data, [&](const ground_rec& ground) {
    const bool listed = std::find(countries.begin(), countries.end(), ground.country) != countries.end();
    if (listed && !ground.country.empty()) names.push_back(ground.ground_name);
  });
  return names;
}

std::vector<std::string> countries_without_ground(open_database& data, const std::vector<std::string>& countries) {
  std::vector<std::string> without;
  for (const std::string& country : countries) {
    const bool told = std::find(without.begin(), without.end(), country) != without.end();
    if (!country.empty() && !told && list_grounds(data, {country}).empty()) without.push_back(country);
  }
  return without;
}

std::string draw_ground(random_source& chance, const std::vector<std::string>& grounds) {
  const int length = static_cast<int>(grounds.size());
  const double index = std::floor(length * chance.rnd() + 1) - 1;
  if (grounds.empty()) return {};
  return grounds[std::min(static_cast<std::size_t>(index), grounds.size() - 1)];
}

std::string entry_text(const std::vector<team_entry>& list, int index) {
  return index < 0 ? std::string() : list[static_cast<std::size_t>(index)].name;
}

entered_team entered_team_of(const std::vector<team_entry>& list, int index, bool human) {
  if (index < 0) return {{}, 0, human};
  const team_entry& entry = list[static_cast<std::size_t>(index)];
  return {entry.name, entry.record, human};
}

int typed_number(const std::string& text, int most, const char* field) {
  const auto number = number_in(text);
  if (!number || *number != std::floor(*number) || *number < 1 || *number > most) {
    throw run_time_error(failure::type,
                         "Type mismatch: \"" + text + "\" is no whole number from 1 to " + number_text(most),
                         {.file = {}, .record = 0, .field = field, .player = {}});
  }
  return static_cast<int>(*number);
}

std::string match_progress::title() const { return "Simming Match... (" + number_text(over) + "% finished )"; }

}  // namespace velorin
