// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/qt_front_end.h"

#include <QCoreApplication>

#include "browsers/allrecs.h"
#include "browsers/forms/allrecs_window.h"
#include "browsers/forms/sqdet_window.h"
#include "competitions/forms/progressbar_window.h"
#include "competitions/forms/sri_result_window.h"
#include "competitions/forms/triserresult_window.h"
#include "competitions/forms/wc_fix_window.h"
#include "competitions/forms/wcsstab_window.h"
#include "competitions/series1.h"
#include "competitions/series2.h"
#include "competitions/wc_fix.h"
#include "competitions/wcsstab.h"
#include "console/captain_forms.h"
#include "console/forms/aggr_window.h"
#include "console/forms/batorder_window.h"
#include "console/forms/batsmandetails_window.h"
#include "console/forms/chgbowler_window.h"
#include "desktop/message_window.h"
#include "desktop/program_end.h"
#include "engine/driver.h"
#include "engine/forms/console_window.h"
#include "reports/bowling_figures.h"
#include "reports/forms/bowlcard2nd_window.h"
#include "reports/forms/bowlcard_window.h"
#include "reports/forms/graphs_window.h"
#include "reports/forms/partners2_window.h"
#include "reports/forms/partners_window.h"
#include "reports/forms/scorecard2_window.h"
#include "reports/forms/scorecard_window.h"
#include "reports/forms/worms_window.h"
#include "reports/graphs.h"
#include "reports/partnerships.h"
#include "reports/scorecard.h"
#include "reports/worms.h"
#include "setup/forms/teamsel_window.h"
#include "setup/forms/toss_window.h"
#include "setup/forms/wecond_window.h"
#include "setup/teamsel.h"
#include "setup/toss.h"
#include "setup/wecond.h"

namespace velorin {

namespace {

template <class Window, class CoreForm>
void show_modally(CoreForm& form) {
  Window window(form);
  run_modal(window);
}

template <class Window, class CoreForm>
void open_modally() {
  CoreForm form;
  form.open();
  show_modally<Window>(form);
}

}  // namespace

QtFrontEnd::QtFrontEnd() = default;
QtFrontEnd::~QtFrontEnd() { progress_done(); }

void QtFrontEnd::activity_over() {
  unstopped_.end();
  play_over();
}

void QtFrontEnd::refresh_console() {
  if (console_ != nullptr) console_->refresh();
}

void QtFrontEnd::show(const message_box& message) {
  if (unstopped_.answers_match()) return;
  refresh_console();
  MessageWindow window(message);
  run_modal(window);
}

save_answer QtFrontEnd::answer(const failed_save& failed) {
  refresh_console();
  SaveFailedWindow window(failed);
  run_modal(window);
  return window.answer();
}

void QtFrontEnd::show(wecond& form) {
  play_begins();
  unstopped_.match_begins();
  if (unstopped_.answers_match()) return unstopped_.user().show(form);
  show_modally<WecondWindow>(form);
}

void QtFrontEnd::show(teamsel& form) {
  if (unstopped_.answers_match()) return unstopped_.user().show(form);
  show_modally<TeamselWindow>(form);
}

void QtFrontEnd::show(toss& form) { show_modally<TossWindow>(form); }

void QtFrontEnd::show(batorder& form) {
  refresh_console();
  show_modally<BatorderWindow>(form);
}

void QtFrontEnd::show(chgbowler& form) {
  if (unstopped_.answers_match()) return unstopped_.user().show(form);
  refresh_console();
  show_modally<ChgbowlerWindow>(form);
}

void QtFrontEnd::show(aggr& form) {
  refresh_console();
  show_modally<AggrWindow>(form);
}

void QtFrontEnd::show(batsmandetails& form) {
  refresh_console();
  show_modally<BatsmandetailsWindow>(form);
}

void QtFrontEnd::show(main_console& form) {
  ConsoleWindow window(form);
  struct Shown {
    ConsoleWindow*& console;
    ~Shown() { console = nullptr; }
  } shown_console{console_ = &window};
  run_modal(window);
}

void QtFrontEnd::ball_bowled() {
  if (console_ != nullptr) {
    console_->ball_bowled();
  } else {
    unstopped_.ball_bowled();
  }
}

void QtFrontEnd::progress(int over) {
  if (unstopped_.answers_match()) return;
  if (!progress_) {
    busy_ = qobject_cast<Form*>(front_window());
    progress_ = new ProgressbarWindow;
    if (busy_) busy_->set_busy(true);
  }
  progress_->show_over(over);
  if (program_is_ending()) throw ProgramEnds{};
}

void QtFrontEnd::progress_done() {
  delete progress_.data();
  if (busy_) busy_->set_busy(false);
  busy_ = nullptr;
}

void QtFrontEnd::open(report which) {
  if (unstopped_.answers_match()) return;
  refresh_console();
  switch (which) {
    case report::scorecard:
      return open_modally<ScorecardWindow, scorecard>();
    case report::scorecard2:
      return open_modally<Scorecard2Window, scorecard2>();
    case report::bowlcard:
      return open_modally<BowlcardWindow, bowlcard>();
    case report::bowlcard2nd:
      return open_modally<Bowlcard2ndWindow, bowlcard2nd>();
    case report::partners:
      return open_modally<PartnersWindow, partners>();
    case report::partners2:
      return open_modally<Partners2Window, partners2>();
    case report::graphs:
      return open_modally<GraphsWindow, graphs>();
    case report::worms:
      // The lines themselves live in the match record and outlast every showing.
      return open_modally<WormsWindow, worms>();
  }
}

void QtFrontEnd::show(sqdet& form) { show_modally<SqdetWindow>(form); }

void QtFrontEnd::show(allrecs& form) { show_modally<AllrecsWindow>(form); }

void QtFrontEnd::show(sri_result& form) {
  if (unstopped_.passes_standings()) return unstopped_.user().show(form);
  show_modally<SriResultWindow>(form);
}

void QtFrontEnd::show(triserresult& form) {
  if (unstopped_.passes_standings()) return unstopped_.user().show(form);
  show_modally<TriserresultWindow>(form);
}

void QtFrontEnd::show(wc_fix& form) {
  if (unstopped_.passes_standings()) return unstopped_.user().show(form);
  show_modally<WcFixWindow>(form);
}

void QtFrontEnd::show(wcsstab& form) {
  if (unstopped_.passes_standings()) return unstopped_.user().show(form);
  show_modally<WcsstabWindow>(form);
}

}  // namespace velorin
