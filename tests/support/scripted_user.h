// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "headless/headless_user.h"
#include "ui/front_end.h"

namespace velorin::testing {

/// A user for tests: records every request in order and answers from lists; where a list is empty it answers as the
/// headless user does.
class scripted_user : public headless_user {
 public:
  /// Every request as a line: "message TITLE | TEXT", "wecond", "teamsel TEAM", "toss HEADLINE", "batorder TITLE",
  /// "chgbowler TITLE", "aggr NAME", "batsmandetails HEADLINE", "console", "report N".
  std::vector<std::string> requests;
  std::vector<message_box> messages;
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
  std::function<void(batsmandetails&)> on_batsmandetails;  ///< looks at the form before it is closed
  std::function<void(main_console&)> on_console;  ///< instead of pressing Next Over to the end
  std::function<void()> on_ball;
  std::function<void(report)> on_report;

  using headless_user::show;
  void show(const message_box& message) override;
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

  /// The requests that begin with `kind`.
  std::vector<std::string> requests_of(const std::string& kind) const;
};

}  // namespace velorin::testing
