// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <array>
#include <string_view>

#include "model/rounding.h"
#include "model/rules.h"
#include "model/run_time_error.h"
#include "model/texts.h"
#include "setup/team_selection.h"

namespace velorin {

namespace {

constexpr int best_taken = 4;     ///< of the best batsmen and of the best bowlers
constexpr int can_bat_from = 20;  ///< a bowler of a higher batting skill can bat

/// A line of the two rankings.
struct ranked {
  integer key;
  double rate = 0;  ///< bowlers only
  int place = 0;

  double bowling_score() const { return key + economy_weight * rate; }

  static constexpr double economy_weight = 15;
};
using ranking = std::array<ranked, men_in_squad + 1>;  // 1..20

/// Ticks two men of the top order: openers, then the middle order, then the lower order until two have been counted. A
/// man of the lower order may be counted twice.
void tick_top_order(team_selection_form& form) {
  constexpr std::array<std::string_view, 3> roles = {"Opener", "Middle Order", "Lower Order"};
  int count = 0;
  for (std::size_t role = 0; count < 2; role = std::min(role + 1, roles.size() - 1)) {
    const int before = count;
    for (int place = 1; place <= men_in_squad && count < 2; ++place) {
      if (form.man(place).role() != roles[role]) continue;
      form.ticks[place] = true;
      ++count;
    }
    if (count == before && role == roles.size() - 1) {
      throw run_time_error(failure::endless, "Endless search: the squad has no man of a known batting role",
                           {.file = {}, .record = 0, .field = "bat_type", .player = form.heading()});
    }
  }
}

/// Sorts as the bubble sort with a strict comparison does: the earlier place wins a tie. By insertion, which takes no
/// memory for twenty men.
template <class Before>
void sort_stably(ranking& ranks, Before before) {
  for (std::size_t i = 2; i < ranks.size(); ++i) {
    const ranked next = ranks[i];
    std::size_t place = i;
    for (; place > 1 && before(next, ranks[place - 1]); --place) ranks[place] = ranks[place - 1];
    ranks[place] = next;
  }
}

ranking rank_batsmen(const team_selection_form& form) {
  ranking ranks;
  for (int i = 1; i <= men_in_squad; ++i) ranks[i] = {form.man(i).bat_skill, 0, i};
  sort_stably(ranks, [](const ranked& a, const ranked& b) { return a.key > b.key; });
  return ranks;
}

/// A strike rate as a whole number; one beyond the width of a figure, and what is no number, ranks like 0.
int strike_rate_key(float bowl_sr) {
  const double rounded = round_half_even(shown_value(bowl_sr));
  return rounded >= -32768 && rounded <= 32767 ? static_cast<int>(rounded) : 0;
}

ranking rank_bowlers(const team_selection_form& form) {
  ranking ranks;
  for (int i = 1; i <= men_in_squad; ++i) {
    const player_rec& man = form.man(i);
    if (form.row_visible(i)) {
      ranks[i] = {strike_rate_key(man.bowl_sr), shown_value(man.econ), i};
    } else {
      ranks[i] = {1000, 1000, i};
    }
  }
  sort_stably(ranks, [](const ranked& a, const ranked& b) { return a.bowling_score() < b.bowling_score(); });
  return ranks;
}

bool is_shown_as_keeper(const player_rec& man) { return man.is_keeper != 0 || man.bowler_type.ends_with("Wk"); }

/// The ticked man to leave out of twelve: no keeper, not among the best bowlers, not the bowler who can bat; of these
/// the one of least batting skill, the later place on a tie. 0 if there is none.
int man_to_leave_out(const team_selection_form& form) {
  int least = 0;
  for (int place = 1; place <= men_in_squad; ++place) {
    const player_rec& man = form.man(place);
    const auto& best = form.best_bowlers();
    const bool kept = man.is_keeper != 0 || place == form.batting_bowler() ||
                      std::find(best.begin(), best.end(), place) != best.end();
    if (!form.ticks[place] || kept) continue;
    if (least == 0 || man.bat_skill <= form.man(least).bat_skill) least = place;
  }
  return least;
}

}  // namespace

void team_selection_form::auto_select() {
  ticks.fill(false);
  counted_ = true;
  tick_top_order(*this);
  const ranking bat_rank = rank_batsmen(*this);
  const ranking bowl_rank = rank_bowlers(*this);
  for (int k = 1; k <= best_taken; ++k) {
    for (const ranking* ranks : {&bat_rank, &bowl_rank}) {
      const int place = (*ranks)[k].place;
      if (row_visible(place)) ticks[place] = true;
    }
    best_bowlers_[k - 1] = bowl_rank[k].place;
  }
  for (int k = 1; k <= men_in_squad; ++k) {
    if (!is_shown_as_keeper(man(bat_rank[k].place))) continue;
    ticks[bat_rank[k].place] = true;
    break;
  }
  batting_bowler_ = 0;
  for (int k = 1; k <= men_in_squad && batting_bowler_ == 0; ++k) {
    if (man(bowl_rank[k].place).bat_skill > can_bat_from) batting_bowler_ = bowl_rank[k].place;
  }
  if (batting_bowler_ != 0) ticks[batting_bowler_] = true;
  for (int k = 1; k <= men_in_squad && ticked() < men_in_eleven; ++k) ticks[bat_rank[k].place] = true;
}

void team_selection_form::select_eleven() {
  auto_select();
  while (ticked() > men_in_eleven) {
    const int place = man_to_leave_out(*this);
    if (place == 0) break;
    toggle(place);
  }
  if (ticked() == men_in_eleven) return;
  throw run_time_error(failure::endless, "Endless search: no eleven can be selected from the squad",
                       {.file = {}, .record = 0, .field = "squad", .player = heading()});
}

}  // namespace velorin
