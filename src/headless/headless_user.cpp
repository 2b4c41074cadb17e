// SPDX-License-Identifier: GPL-3.0-or-later
#include "headless/headless_user.h"

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
  form.select_eleven();
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
