// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "competitions/series.h"
#include "competitions/tri_series.h"
#include "competitions/world_cup_fixtures.h"
#include "competitions/world_cup_tables.h"
#include "reports/match_report.h"
#include "support/test_user.h"
#include "ui/front_end.h"

namespace velorin::testing {

/// A user for tests: records every request in order and answers from lists; where a list is empty it answers as the
/// headless user does.
class scripted_user : public test_user {
 public:
  /// Every request as a line: "message TITLE | TEXT", "wecond", "teamsel TEAM", "toss HEADLINE", "batorder TITLE",
  /// "chgbowler TITLE", "aggr NAME", "batsmandetails HEADLINE", "console", "report N", "sri_result", "triserresult",
  /// "wc_fix", "wcsstab", "failed save CAUSE". The short words are the ids of the windows.
  std::vector<std::string> requests;
  std::vector<message_box> messages;
  /// Each showing of a competition's windows, as it opened.
  std::vector<series_results_form> series_results;
  std::vector<tri_series_table_form> tri_tables;
  std::vector<world_cup_fixtures_form> fixture_lists;
  std::vector<world_cup_tables_form> cup_tables;
  int balls_bowled = 0;
  int progress_calls = 0;
  bool progress_open = false;

  /// Answers in turn; each must close its form.
  std::deque<std::function<void(conditions_form&)>> on_conditions;
  std::deque<std::function<void(team_selection_form&)>> on_team_selection;
  std::deque<std::function<void(toss_form&)>> on_toss;
  std::deque<std::function<void(next_batsman_form&)>> on_next_batsman;
  std::deque<std::function<void(bowler_choice_form&)>> on_bowler_choice;
  std::deque<std::function<void(aggression_form&)>> on_aggression;
  std::deque<std::function<void(series_results_form&)>> on_series_results;
  std::deque<std::function<void(tri_series_table_form&)>> on_tri_series_table;
  std::deque<std::function<void(world_cup_fixtures_form&)>> on_world_cup_fixtures;
  std::deque<std::function<void(world_cup_tables_form&)>> on_world_cup_tables;
  std::deque<std::function<save_answer(const failed_save&)>> on_failed_save;
  std::function<void(const message_box&)> on_message;
  std::function<void(batsman_details_form&)> on_batsman_details;  ///< looks at the form before it is closed
  std::function<void(console_form&)> on_console;                  ///< instead of pressing Next Over to the end
  std::function<void()> on_ball;
  std::function<void(report)> on_report;
  std::function<void(match_report_form&)> on_match_report;  ///< a report of the end leaves no line

  using test_user::show;
  void show(const message_box& message) override;
  save_answer answer(const failed_save& failed) override;
  void show(conditions_form& form) override;
  void show(team_selection_form& form) override;
  void show(toss_form& form) override;
  void show(next_batsman_form& form) override;
  void show(bowler_choice_form& form) override;
  void show(aggression_form& form) override;
  void show(batsman_details_form& form) override;
  void show(console_form& form) override;
  void ball_bowled() override;
  void progress(int over) override;
  void progress_done() override;
  void open(report which) override;
  void show(match_report_form& form) override {
    if (on_match_report) on_match_report(form);
  }
  void show(series_results_form& form) override;
  void show(tri_series_table_form& form) override;
  void show(world_cup_fixtures_form& form) override;
  void show(world_cup_tables_form& form) override;

  /// The requests that begin with `kind`.
  std::vector<std::string> requests_of(const std::string& kind) const;
};

}  // namespace velorin::testing
