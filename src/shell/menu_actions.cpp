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
#include "setup/new_match.h"
#include "shell/credits_window.h"
#include "shell/qt_front_end.h"

namespace velorin::menu {

namespace {

template <class Window, class CoreForm, class... Given>
void open_form(Given... given) {
  CoreForm form;
  form.open(given...);
  if constexpr (requires { form.closed; }) {
    if (form.closed) return;  // it has closed itself as it opened
  }
  Window window(form);
  // A form whose competition was left before its first match was over stands open again.
  do {
    run_modal(window);
  } while (window.isVisible());
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
  open_form<NewMatchWindow, new_match_form>();
}

void new_series(QtFrontEnd& shown_by) {
  const UnderWay under_way(shown_by, Activity::series_of_two);
  open_form<SeriesWindow, series_form>();
}

void tri_series(QtFrontEnd& shown_by) {
  const UnderWay under_way(shown_by, Activity::series_of_three);
  open_form<TriSeriesWindow, tri_series_form>();
}

void world_cup(QtFrontEnd& shown_by) {
  const UnderWay under_way(shown_by, Activity::cup);
  world_cup_form& form = shown_by.cup_form();
  form.show_again();
  if (form.closed) return;  // it has closed itself as it opened
  WorldCupWindow window(form);
  run_modal(window);
}

void player_profiles() { open_form<PlayerProfileWindow, player_profile_form>(); }
void team_records() { open_form<TeamRecordsWindow, team_records_form>(); }
void world_rankings() { open_form<WorldRankingsWindow, world_rankings_form>(); }

void totals(int record_mode) { open_form<TotalRecordsWindow, total_records_form>(record_mode); }
void individual(int record_mode) { open_form<BestPerformancesWindow, best_performances_form>(record_mode); }
void players(int record_mode) { open_form<PlayerRankingsWindow, player_rankings_form>(record_mode); }
void century_makers() { open_form<CenturyMakersWindow, century_makers_form>(); }
void partnerships() { open_form<StandRecordsWindow, stand_records_form>(); }

void all_batting() {
  totals(1);
  totals(0);
  individual(1);
  players(2);
  players(1);
  players(3);
  players(4);
  century_makers();
  partnerships();
}

void all_bowling() {
  players(5);
  players(7);
  players(6);
  individual(0);
}

void configurations() { open_form<SettingsWindow, settings_form>(); }

void credits() {
  CreditsWindow window;
  run_modal(window);
}

}  // namespace velorin::menu
