// SPDX-License-Identifier: GPL-3.0-or-later
#include "headless/headless_user.h"

#include <algorithm>

#include "competitions/series.h"
#include "competitions/tri_series.h"
#include "competitions/world_cup_fixtures.h"
#include "competitions/world_cup_tables.h"
#include "console/captain_forms.h"
#include "engine/over_play.h"
#include "model/match_state.h"
#include "model/rules.h"
#include "model/run_time_error.h"
#include "setup/conditions.h"
#include "setup/team_selection.h"
#include "setup/toss.h"

namespace velorin {

namespace {

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

void headless_user::show(conditions_form& form) {
  if (conditions) {
    form.weather = (*conditions)[0];
    form.pitch_surface = (*conditions)[1];
    form.pitch_bounce = (*conditions)[2];
    form.outfield = (*conditions)[3];
  }
  form.accept();
}

void headless_user::show(team_selection_form& form) {
  form.auto_select();
  while (form.ticked() > men_in_eleven) {
    const int place = man_to_leave_out(form);
    if (place == 0) break;
    form.toggle(place);
  }
  if (form.ticked() != men_in_eleven) {
    throw run_time_error(failure::endless, "Endless search: no eleven can be selected from the squad",
                         {.file = {}, .record = 0, .field = "squad", .player = form.heading()});
  }
  form.accept();
}

void headless_user::show(toss_form& form) {
  if (form.coin_visible) form.call_coin(0);
  if (form.bat_enabled) {
    form.choose_to_bat();
  } else {
    form.choose_to_bowl();
  }
}

void headless_user::show(next_batsman_form& form) {
  for (int row = 1; row <= men_in_eleven && form.chosen == 0; ++row) form.choose(row);
  form.accept();
}

void headless_user::show(bowler_choice_form& form) {
  if (const int row = form.first_row(); row != 0) {
    form.choose(row);
    form.accept();
    return;
  }
  throw run_time_error(failure::endless, "Endless search: nobody who may bowl has overs left",
                       {.file = {}, .record = 0, .field = "bowling_card", .player = match_->team2_name});
}

void headless_user::show(console_form& form) {
  while (!form.closed()) form.bowl_next_over();
}

void headless_user::show(series_results_form& form) { form.accept(); }

void headless_user::show(tri_series_table_form& form) { form.accept(); }

void headless_user::show(world_cup_fixtures_form& form) { form.accept(); }

void headless_user::show(world_cup_tables_form& form) { form.accept(); }

}  // namespace velorin
