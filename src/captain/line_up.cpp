// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <array>
#include <cmath>

#include "captain/computer_captain.h"
#include "model/booking.h"
#include "model/match_state.h"
#include "model/random.h"
#include "model/rounding.h"
#include "model/rules.h"
#include "model/run_time_error.h"

namespace velorin {

namespace {

/// Position of the man to come in among `first` to 11, or 0 if no one has a known role.
int next_man(const match_state& match, int first) {
  int best_middle = 0;
  int best_lower = 0;
  int middle_skill = 0;
  int lower_skill = 0;
  for (int p = first; p <= men_in_eleven; ++p) {
    const player_rec& man = match.batting_xi[p];
    const std::string_view role = man.role();
    if (role == "Opener") return p;
    if (role == "Middle Order" && man.bat_skill > middle_skill) {
      middle_skill = man.bat_skill;
      best_middle = p;
    } else if (role == "Lower Order" && man.bat_skill > lower_skill) {
      lower_skill = man.bat_skill;
      best_lower = p;
    }
  }
  return best_middle != 0 ? best_middle : best_lower;
}

/// A man of the bowling side on his way into the pool.
struct candidate {
  double key;
  double rating;
  integer econ_class;
  int position;
};

candidate candidate_at(const match_state& match, int position, int offset) {
  const player_rec& man = match.bowling_xi[position];
  const double rating = static_cast<double>(man.bowl_sr) + offset;
  if (std::isnan(man.econ)) {
    throw run_time_error(failure::type, "Type mismatch: an economy rate that is no number",
                         {.file = {}, .record = 0, .field = "econ", .player = man.name});
  }
  // A rate beyond every figure is an overflow like any other.
  const double rounded = std::clamp(round_half_even(static_cast<double>(man.econ)), -1e6, 1e6);
  integer econ_class;
  book_as(econ_class, static_cast<long>(rounded), "econ_class", man.name);
  constexpr double economy_weight = 18;
  return {(economy_weight * econ_class + rating) / 2, rating, econ_class, position};
}

/// Place in bowler_pool of the first man of `kind` whose position is not `other`, or 0.
int first_of_kind(const match_state& match, std::string_view kind, int other) {
  for (int i = 1; i <= men_in_eleven; ++i) {
    const bowler_pool_rec& man = match.bowler_pool[i];
    if (man.bowler_type == kind && man.position != other) return i;
  }
  return 0;
}

/// Position of the opening bowler: a fast one, else a medium pacer, else the man at `fallback` in the pool.
int opener(const match_state& match, int other, int fallback) {
  for (const std::string_view kind : {"Fast Bowler", "Medium Pacer"}) {
    if (const int place = first_of_kind(match, kind, other); place != 0) return match.bowler_pool[place].position;
  }
  return match.bowler_pool[fallback].position;
}

}  // namespace

toss_outcome decide_toss(const match_state& match, random_source& chance) {
  toss_outcome outcome;
  outcome.deciding_line = match.team2_name;
  outcome.other_line = match.team1_name;
  chance.reseed();
  if (coin(chance) == 2) {
    outcome.headline = match.team2_name + " have won the toss.";
    return outcome;
  }
  const bool fields = coin(chance) == 1;
  outcome.headline =
      match.team1_name + " have won the toss.They have elected to " + (fields ? "field" : "bat") + " first.";
  (fields ? outcome.bowl_enabled : outcome.bat_enabled) = false;
  return outcome;
}

void choose_next_batsman(match_state& match) {
  match.next_batsman_slot = match.higher_batsman();
  const int place = match.next_batsman_slot + 1;
  const int chosen = next_man(match, place);
  if (chosen > place) {
    const auto men = match.batting_xi.begin();
    std::rotate(men + place, men + chosen, men + chosen + 1);
  }
}

void rank_bowlers(match_state& match, int offset) {
  // A stable sort by the key: what full bubble passes with a strict comparison give.
  std::array<candidate, men_in_eleven + 1> order;
  for (int i = 1; i <= men_in_eleven; ++i) {
    const candidate next = candidate_at(match, i, offset);
    int place = i;
    for (; place > 1 && next.key < order[place - 1].key; --place) order[place] = order[place - 1];
    order[place] = next;
  }
  for (int i = 1; i <= men_in_eleven; ++i) {
    const player_rec& man = match.bowling_xi[order[i].position];
    bowler_pool_rec& line = match.bowler_pool[i];
    line.name = man.name;
    line.rating = order[i].rating;
    line.position = order[i].position;
    line.econ_class = order[i].econ_class;
    line.bowler_type = man.bowler_type;
  }
}

void choose_opening_bowlers(match_state& match, random_source& chance) {
  chance.reseed();
  constexpr int most_offset = 10;
  rank_bowlers(match, static_cast<int>(std::floor((2 * most_offset + 1) * chance.rnd() - most_offset)));
  match.bowler = opener(match, 0, 1);
  choose_second_opening_bowler(match);
}

void choose_second_opening_bowler(match_state& match) { match.next_bowler = opener(match, match.bowler, 2); }

}  // namespace velorin
