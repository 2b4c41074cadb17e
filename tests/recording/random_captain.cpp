// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/random_captain.h"

#include "cli/match_json.h"
#include "competitions/series.h"
#include "competitions/tri_series.h"
#include "competitions/world_cup_fixtures.h"
#include "competitions/world_cup_tables.h"
#include "console/captain_forms.h"
#include "engine/over_play.h"
#include "reports/export.h"
#include "reports/partnerships.h"
#include "reports/scorecard.h"
#include "reports/worm_graph.h"
#include "setup/conditions.h"
#include "setup/team_selection.h"
#include "setup/toss.h"

namespace velorin::testing {

namespace {

bool is_card_of_play(const match_state& match, report which) {
  const bool stops = match.next_step == play_step::innings_card_shown || match.next_step == play_step::match_card_shown;
  return stops && which == report::scorecard;
}

}  // namespace

std::string match_as_read(const game_state& game) {
  scorecard_form card(game.match);
  card.open();
  return cli::state_text(game.match) + cli::result_json(game.match).dump() +
         html_scorecard(game.match, game.data, card) + text_scorecard(game.match, card) +
         ball_by_ball(game.match, card);
}

void random_captain::show(const message_box&) {
  asked("message box");
  ++answers_;
}

void random_captain::show(conditions_form& form) {
  asked("conditions");
  ++answers_;
  if (one_in(leaves_one_in)) return form.leave();
  for (int* slider : {&form.weather, &form.pitch_surface, &form.pitch_bounce, &form.outfield}) *slider = from_to(1, 4);
  form.accept();
}

void random_captain::show(team_selection_form& form) {
  asked("team selection");
  ++answers_;
  if (one_in(leaves_one_in)) return form.leave();
  form.auto_select();
  // One man more or less of a role makes no difference to who can bowl; the keeper stays.
  const int out = from_to(1, men_in_squad);
  const int in = from_to(1, men_in_squad);
  const auto role = [&](int place) { return form.row_visible(place) ? form.man(place).role() : std::string_view(); };
  if (form.ticks[out] && !form.ticks[in] && form.row_visible(in) && role(out) == role(in) &&
      form.man(out).is_keeper == 0) {
    form.toggle(out);
    form.toggle(in);
  }
  if (form.ticked() == men_in_eleven) return form.accept();
  form.clear_selection();
  headless_user::show(form);
}

void random_captain::show(toss_form& form) {
  while (!form.closed) {
    asked("toss");
    ++answers_;
    if (one_in(leaves_one_in)) return form.leave();
    const bool bats = from_to(0, 1) == 0;
    if (form.coin_visible) {
      form.call_coin(bats ? 0 : 1);
    } else if (form.bat_enabled && (bats || !form.bowl_enabled)) {
      form.choose_to_bat();
    } else {
      form.choose_to_bowl();
    }
  }
}

void random_captain::show(next_batsman_form& form) {
  asked("next batsman");
  ++answers_;
  while (form.chosen == 0) form.choose(from_to(1, men_in_eleven));
  form.aggression = from_to(1, 5);
  form.accept();
}

void random_captain::show(bowler_choice_form& form) {
  asked(form.shown_for == bowler_choice_form::use::change ? opened_by_himself : "bowler choice");
  ++answers_;
  if (form.shown_for == bowler_choice_form::use::change && one_in(4)) return;
  for (int tries = 0; tries < 40; ++tries) {
    const int row = from_to(1, men_in_eleven);
    if (!form.enabled[row] || game_.match.bowling_card[row].balls >= balls_of_quota) continue;
    form.choose(row);
    return form.accept();
  }
  form.choose(form.best_row());
  form.accept();
}

void random_captain::show(aggression_form& form) {
  asked(opened_by_himself);
  ++answers_;
  if (one_in(3)) return;
  form.aggression = from_to(least_aggression, most_aggression);
  form.accept();
}

void random_captain::show(batsman_details_form& form) {
  asked("batsman details");
  ++answers_;
  form.accept();
}

void random_captain::show(console_form& form) {
  while (!form.closed()) {
    // An over that was left on its way goes on by itself.
    if (form.has_over_in_play()) {
      form.bowl_next_over();
      continue;
    }
    asked("console");
    ++answers_;
    act(form);
  }
}

void random_captain::act(console_form& form) {
  switch (from_to(1, 22)) {
    case 1:
      return form.change_bowler();
    case 2:
      return form.change_batsman_aggression(from_to(0, 1));
    case 3:
      return form.change_bowler_aggression(from_to(0, 1));
    case 4: {
      const int slot = from_to(0, 1);
      return form.set_batsman_aggression(slot, from_to(0, 6));
    }
    case 5: {
      const int slot = from_to(0, 1);
      return form.set_bowler_aggression(slot, from_to(0, 6));
    }
    case 6:
      return form.choose_bowler(from_to(1, men_in_eleven));
    case 7:
      return form.browse_over(from_to(0, 51));
    case 8:
      return look_at_stands();
    case 9:
      return form.show_scorecard();
    case 10:
      return form.show_worm();
    default:
      return form.bowl_next_over();
  }
}

void random_captain::progress(int over) {
  asked("progress");
  headless_user::progress(over);
}

void random_captain::look_at_stands() {
  if (asks_through == nullptr) return;
  asks_through->open(game_.match.innings_number == 2 && one_in(2) ? report::first_partnerships : report::partnerships);
}

void random_captain::open(report which) {
  if (which == report::partnerships) return partnerships_form(game_.match).open();
  if (which == report::first_partnerships) return first_partnerships_form(game_.match).open();
  if (which == report::worm_graph) return worm_graph_form(game_.match).open();
  if (!is_card_of_play(game_.match, which)) return;
  asked("open");
  ++answers_;
  read_.push_back(match_as_read(game_));
  if (one_in(3)) look_at_stands();
}

void random_captain::show(match_report_form&) {
  asked("match report");
  ++answers_;
}

void random_captain::show(series_results_form& form) {
  asked("series results");
  ++answers_;
  form.accept();
}

void random_captain::show(tri_series_table_form& form) {
  asked("tri series table");
  ++answers_;
  form.accept();
}

void random_captain::show(world_cup_fixtures_form& form) {
  asked("world cup fixtures");
  ++answers_;
  if (one_in(quits_one_in)) return form.quit();
  if (one_in(4)) form.open_tables();
  form.accept();
}

void random_captain::show(world_cup_tables_form& form) {
  // From the fixture list he opened them of himself: no question of the game's.
  if (game_.world_cup.step != cup_step::list) asked("world cup tables");
  form.accept();
}

void reading_watcher::open(report which) {
  if (is_card_of_play(game_.match, which)) read.push_back(match_as_read(game_));
}

}  // namespace velorin::testing
