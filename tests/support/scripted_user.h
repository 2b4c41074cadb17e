// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "competitions/series1.h"
#include "competitions/series2.h"
#include "competitions/wc_fix.h"
#include "competitions/wcsstab.h"
#include "headless/headless_user.h"
#include "ui/front_end.h"

namespace velorin::testing {

/// A user for tests: records every request in order and answers from lists; where a list is empty it answers as the
/// headless user does.
class scripted_user : public headless_user {
 public:
  /// Every request as a line: "message TITLE | TEXT", "wecond", "teamsel TEAM", "toss HEADLINE", "batorder TITLE",
  /// "chgbowler TITLE", "aggr NAME", "batsmandetails HEADLINE", "console", "report N", "sri_result", "triserresult",
  /// "wc_fix", "wcsstab", "failed save CAUSE".
  std::vector<std::string> requests;
  std::vector<message_box> messages;
  /// Each showing of a competition's windows, as it opened.
  std::vector<sri_result> series_results;
  std::vector<triserresult> tri_tables;
  std::vector<wc_fix> fixture_lists;
  std::vector<wcsstab> cup_tables;
  int balls_bowled = 0;
  int progress_calls = 0;
  bool progress_open = false;

  /// Answers in turn; each must close its form.
  std::deque<std::function<void(wecond&)>> on_wecond;
  std::deque<std::function<void(teamsel&)>> on_teamsel;
  std::deque<std::function<void(toss&)>> on_toss;
  std::deque<std::function<void(batorder&)>> on_batorder;
  std::deque<std::function<void(chgbowler&)>> on_chgbowler;
  std::deque<std::function<void(aggr&)>> on_aggr;
  std::deque<std::function<void(sri_result&)>> on_sri_result;
  std::deque<std::function<void(triserresult&)>> on_triserresult;
  std::deque<std::function<void(wc_fix&)>> on_wc_fix;
  std::deque<std::function<void(wcsstab&)>> on_wcsstab;
  std::deque<std::function<save_answer(const failed_save&)>> on_failed_save;
  std::function<void(const message_box&)> on_message;
  std::function<void(batsmandetails&)> on_batsmandetails;  ///< looks at the form before it is closed
  std::function<void(main_console&)> on_console;           ///< instead of pressing Next Over to the end
  std::function<void()> on_ball;
  std::function<void(report)> on_report;

  using headless_user::show;
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
  void show(sri_result& form) override;
  void show(triserresult& form) override;
  void show(wc_fix& form) override;
  void show(wcsstab& form) override;

  /// The requests that begin with `kind`.
  std::vector<std::string> requests_of(const std::string& kind) const;
};

}  // namespace velorin::testing
