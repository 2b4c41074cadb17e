// SPDX-License-Identifier: GPL-3.0-or-later
#include "headless/headless_user.h"

#include <algorithm>

#include "competitions/series1.h"
#include "competitions/series2.h"
#include "competitions/wc_fix.h"
#include "competitions/wcsstab.h"
#include "console/captain_forms.h"
#include "engine/driver.h"
#include "model/rules.h"
#include "model/run_time_error.h"
#include "model/teams.h"
#include "setup/teamsel.h"
#include "setup/toss.h"
#include "setup/wecond.h"

namespace velorin {

namespace {

/// The ticked man to leave out of twelve: no keeper, not among the best bowlers, not the bowler who can bat; of these
/// the one of least batting skill, the later place on a tie. 0 if there is none.
int man_to_leave_out(const teamsel& form) {
  int least = 0;
  for (int place = 1; place <= men_in_squad; ++place) {
    const player_rec& man = form.man(place);
    const auto& best = form.best_bowlers();
    const bool kept = man.is_keeper != 0 || place == form.batting_bowler() ||
                      std::find(best.begin(), best.end(), place) != best.end();
    if (!form.check1[place] || kept) continue;
    if (least == 0 || man.bat_skill <= form.man(least).bat_skill) least = place;
  }
  return least;
}

}  // namespace

void headless_user::show(wecond& form) {
  if (conditions) {
    form.hscroll1 = (*conditions)[0];
    form.hscroll2 = (*conditions)[1];
    form.hscroll3 = (*conditions)[2];
    form.hscroll4 = (*conditions)[3];
  }
  form.command1_click();
}

void headless_user::show(teamsel& form) {
  form.command3_click();
  while (form.ticked() > men_in_eleven) {
    const int place = man_to_leave_out(form);
    if (place == 0) break;
    form.check1_click(place);
  }
  if (form.ticked() != men_in_eleven) {
    throw run_time_error(failure::endless, "Endless search: no eleven can be selected from the squad",
                         {.file = {}, .record = 0, .field = "squad", .player = form.heading()});
  }
  form.ok_click();
}

void headless_user::show(toss& form) {
  if (form.coin_visible) form.command1_click(0);
  if (form.command2_enabled) {
    form.command2_click();
  } else {
    form.command3_click();
  }
}

void headless_user::show(batorder& form) {
  for (int row = 1; row <= men_in_eleven && form.chosen == 0; ++row) form.option1_click(row);
  form.command1_click();
}

void headless_user::show(chgbowler& form) {
  for (int row = 1; row <= men_in_eleven; ++row) {
    if (!form.enabled[row] || match.bowling_card[row].balls >= balls_of_quota) continue;
    form.option1_click(row);
    form.command_click();
    return;
  }
  throw run_time_error(failure::endless, "Endless search: nobody who may bowl has overs left",
                       {.file = {}, .record = 0, .field = "bowling_card", .player = match.team2_name});
}

void headless_user::show(main_console& form) {
  while (!form.closed()) form.command1_click();
}

void headless_user::show(sri_result& form) { form.command1_click(); }

void headless_user::show(triserresult& form) { form.command1_click(); }

void headless_user::show(wc_fix& form) { form.command1_click(); }

void headless_user::show(wcsstab& form) { form.command1_click(); }

}  // namespace velorin
