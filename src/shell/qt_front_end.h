// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>

#include "competitions/wctable.h"
#include "shell/turn_waiting.h"
#include "shell/unstopped_play.h"
#include "ui/front_end.h"

namespace velorin {

class ConsoleWindow;
class Form;
class ProgressbarWindow;

/// Shows the game in windows: each form modally, in the order in which the game asks. Every request raises ProgramEnds
/// once the program is ending.
class QtFrontEnd : public front_end {
 public:
  QtFrontEnd();
  ~QtFrontEnd() override;

  void show(const message_box& message) override;
  save_answer answer(const failed_save& failed) override;
  void show(wecond& form) override;
  void show(teamsel& form) override;
  void show(toss& form) override;
  void show(batorder& form) override;
  void show(chgbowler& form) override;
  void show(aggr& form) override;
  void show(batsmandetails& form) override;
  void show(main_console& form) override;
  void ball_bowled() override;
  void progress(int over) override;
  void progress_done() override;
  void open(report which) override;
  void show(sqdet& form) override;
  void show(allrecs& form) override;
  void show(sri_result& form) override;
  void show(triserresult& form) override;
  void show(wc_fix& form) override;
  void show(wcsstab& form) override;

  /// The menu opens an activity, or the one it had opened is over.
  void activity_begins(Activity activity) { unstopped_.begin(activity); }
  void activity_over();
  /// The form of the World Cup, which may stay loaded from one tournament to the next.
  wctable& cup_form() { return cup_form_; }

 private:
  /// Brings the console up to date before a window opens over it.
  void refresh_console();

  ConsoleWindow* console_ = nullptr;      // the one console, while a match is on
  QPointer<Form> busy_;                   // the window below the progress: it takes no input meanwhile
  QPointer<ProgressbarWindow> progress_;  // while an unattended match runs; the window below it owns it
  UnstoppedPlay unstopped_;
  TurnWaiting turns_;
  wctable cup_form_;
};

}  // namespace velorin
