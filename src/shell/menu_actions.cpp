// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/menu_actions.h"

#include "browsers/century_makers.h"
#include "browsers/forms/best_performances_window.h"
#include "browsers/forms/century_makers_window.h"
#include "browsers/forms/player_profile_window.h"
#include "browsers/forms/player_rankings_window.h"
#include "browsers/forms/stand_records_window.h"
#include "browsers/forms/team_records_window.h"
#include "browsers/forms/total_records_window.h"
#include "browsers/forms/world_rankings_window.h"
#include "browsers/player_profile.h"
#include "browsers/player_rankings.h"
#include "browsers/record_tables.h"
#include "browsers/team_records.h"
#include "browsers/world_rankings.h"
#include "competitions/forms/series_window.h"
#include "competitions/forms/tri_series_window.h"
#include "competitions/forms/world_cup_window.h"
#include "competitions/series.h"
#include "competitions/tri_series.h"
#include "competitions/world_cup_form.h"
#include "database/forms/settings_window.h"
#include "database/settings_form.h"
#include "desktop/program_end.h"
#include "setup/forms/new_match_window.h"
#include "setup/forms/quick_match_window.h"
#include "setup/new_match.h"
#include "shell/credits_window.h"
#include "shell/qt_front_end.h"

namespace velorin::menu {

namespace {

/// Shows an open form in its window, unless it has closed itself as it opened. `given`: what the window takes before
/// the form.
template <class Window, class CoreForm, class... Given>
void show_form(CoreForm& form, Given&&... given) {
  if constexpr (requires { form.closed; }) {
    if (form.closed) return;
  }
  Window window(given..., form);
  // A form whose competition was left before its first match was over stands open again.
  do {
    run_modal(window);
  } while (window.isVisible());
}

/// A list of records.
template <class Window, class CoreForm, class... Mode>
void show_list(QtFrontEnd& shown_by, Mode... mode) {
  CoreForm form(shown_by.game().data);
  form.open(mode...);
  show_form<Window>(form, shown_by, shown_by.game().data);
}

/// Tells the front end that an activity is under way.
class UnderWay {
 public:
  UnderWay(QtFrontEnd& shown_by, Activity activity) : shown_by_(shown_by) { shown_by_.activity_begins(activity); }
  ~UnderWay() { shown_by_.activity_over(); }
  UnderWay(const UnderWay&) = delete;
  UnderWay& operator=(const UnderWay&) = delete;

 private:
  QtFrontEnd& shown_by_;
};

}  // namespace

void new_match(QtFrontEnd& shown_by) {
  const UnderWay under_way(shown_by, Activity::single_match);
  new_match_form form(shown_by.play());
  form.open();
  show_form<NewMatchWindow>(form, shown_by.game().match);
}

void quick_match(QtFrontEnd& shown_by) {
  const UnderWay under_way(shown_by, Activity::single_match);
  new_match_form form(shown_by.play());
  form.open();
  QuickMatchWindow window(shown_by.game().match, form,
                          [&shown_by](QuickAnswers answers) { shown_by.answer_set_up(answers); });
  run_modal(window);
}

void new_series(QtFrontEnd& shown_by) {
  const UnderWay under_way(shown_by, Activity::series_of_two);
  game_state& game = shown_by.game();
  series_form form(shown_by.play(), game.series);
  form.open();
  show_form<SeriesWindow>(form, game.match, game.data);
}

void tri_series(QtFrontEnd& shown_by) {
  const UnderWay under_way(shown_by, Activity::series_of_three);
  game_state& game = shown_by.game();
  tri_series_form form(shown_by.play(), game.tri);
  form.open();
  show_form<TriSeriesWindow>(form, game.match, game.data);
}

void world_cup(QtFrontEnd& shown_by) {
  const UnderWay under_way(shown_by, Activity::cup);
  world_cup_form& form = shown_by.cup_form();
  form.show_again();
  if (form.closed) return;  // it has closed itself as it opened
  game_state& game = shown_by.game();
  WorldCupWindow window(game.match, game.data, game.world_cup, form);
  run_modal(window);
}

void player_profiles(QtFrontEnd& shown_by) {
  player_profile_form form(shown_by.game().data);
  form.open();
  show_form<PlayerProfileWindow>(form);
}

void team_records(QtFrontEnd& shown_by) { show_list<TeamRecordsWindow, team_records_form>(shown_by); }
void world_rankings(QtFrontEnd& shown_by) { show_list<WorldRankingsWindow, world_rankings_form>(shown_by); }

void totals(QtFrontEnd& shown_by, int record_mode) {
  show_list<TotalRecordsWindow, total_records_form>(shown_by, record_mode);
}
void individual(QtFrontEnd& shown_by, int record_mode) {
  show_list<BestPerformancesWindow, best_performances_form>(shown_by, record_mode);
}
void players(QtFrontEnd& shown_by, int record_mode) {
  show_list<PlayerRankingsWindow, player_rankings_form>(shown_by, record_mode);
}
void century_makers(QtFrontEnd& shown_by) { show_list<CenturyMakersWindow, century_makers_form>(shown_by); }
void partnerships(QtFrontEnd& shown_by) { show_list<StandRecordsWindow, stand_records_form>(shown_by); }

void all_batting(QtFrontEnd& shown_by) {
  totals(shown_by, 1);
  totals(shown_by, 0);
  individual(shown_by, 1);
  players(shown_by, 2);
  players(shown_by, 1);
  players(shown_by, 3);
  players(shown_by, 4);
  century_makers(shown_by);
  partnerships(shown_by);
}

void all_bowling(QtFrontEnd& shown_by) {
  players(shown_by, 5);
  players(shown_by, 7);
  players(shown_by, 6);
  individual(shown_by, 0);
}

void configurations(QtFrontEnd& shown_by) {
  settings_form form(shown_by.game().data);
  form.open();
  show_form<SettingsWindow>(form, shown_by.game().data);
}

void credits() {
  CreditsWindow window;
  run_modal(window);
}

}  // namespace velorin::menu
