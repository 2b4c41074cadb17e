// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/menu_actions.h"

#include "browsers/allrecs.h"
#include "browsers/centurytop.h"
#include "browsers/forms/allrecs_window.h"
#include "browsers/forms/centurytop_window.h"
#include "browsers/forms/highinduv_window.h"
#include "browsers/forms/partnrec_window.h"
#include "browsers/forms/sqdet_window.h"
#include "browsers/forms/teamdet_window.h"
#include "browsers/forms/totrecords_window.h"
#include "browsers/forms/wldrank_window.h"
#include "browsers/record_tables.h"
#include "browsers/sqdet.h"
#include "browsers/teamdet.h"
#include "browsers/wldrank.h"
#include "competitions/forms/series1_window.h"
#include "competitions/forms/series2_window.h"
#include "competitions/forms/wctable_window.h"
#include "competitions/series1.h"
#include "competitions/series2.h"
#include "competitions/wctable.h"
#include "database/forms/optfrm_window.h"
#include "database/optfrm.h"
#include "desktop/program_end.h"
#include "setup/forms/teamfrm_window.h"
#include "setup/teamfrm.h"
#include "shell/about_window.h"
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
  open_form<TeamfrmWindow, teamfrm>();
}

void new_series(QtFrontEnd& shown_by) {
  const UnderWay under_way(shown_by, Activity::series_of_two);
  open_form<Series1Window, series1>();
}

void tri_series(QtFrontEnd& shown_by) {
  const UnderWay under_way(shown_by, Activity::series_of_three);
  open_form<Series2Window, series2>();
}

void world_cup(QtFrontEnd& shown_by) {
  const UnderWay under_way(shown_by, Activity::cup);
  wctable& form = shown_by.cup_form();
  form.show_again();
  if (form.closed) return;  // it has closed itself as it opened
  WctableWindow window(form);
  run_modal(window);
}

void player_profiles() { open_form<SqdetWindow, sqdet>(); }
void team_records() { open_form<TeamdetWindow, teamdet>(); }
void world_rankings() { open_form<WldrankWindow, wldrank>(); }

void totals(int record_mode) { open_form<TotrecordsWindow, totrecords>(record_mode); }
void individual(int record_mode) { open_form<HighinduvWindow, highinduv>(record_mode); }
void players(int record_mode) { open_form<AllrecsWindow, allrecs>(record_mode); }
void century_makers() { open_form<CenturytopWindow, centurytop>(); }
void partnerships() { open_form<PartnrecWindow, partnrec>(); }

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

void configurations() { open_form<OptfrmWindow, optfrm>(); }

void credits() {
  AboutWindow window;
  run_modal(window);
}

}  // namespace velorin::menu
