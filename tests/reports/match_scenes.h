// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <vector>

#include "model/match_state.h"
#include "ui/front_end.h"

// Hand-built states of a match for the tests of its reports.

namespace velorin {

/// Starts each test from a fresh match and known settings.
class reports_test : public testing::Test {
 protected:
  void SetUp() override;
};

/// South Isles against Northland at Lake End. South Isles bat: 131/3 after 22.5 overs, the men at places 3 and 5 in.
/// Four men have bowled; the second over's bowler is the eighth of the eleven.
void set_first_innings_in_play();

/// Northland were all out for 261 in 48.2 overs; South Isles bat as above.
void set_second_innings_in_play();
/// Changes the above: Northland's last pair were still in after 50 overs, 261 for 9.
void leave_the_last_pair_in();

/// A front end that notes which reading screens were opened and knows nothing else.
class opened_reports : public front_end {
 public:
  std::vector<report> opened;

  void open(report which) override { opened.push_back(which); }
  void show(const message_box&) override { refuse(); }
  save_answer answer(const failed_save&) override {
    refuse();
    return save_answer::give_up;
  }
  void show(conditions_form&) override { refuse(); }
  void show(team_selection_form&) override { refuse(); }
  void show(toss_form&) override { refuse(); }
  void show(next_batsman_form&) override { refuse(); }
  void show(bowler_choice_form&) override { refuse(); }
  void show(aggression_form&) override { refuse(); }
  void show(batsman_details_form&) override { refuse(); }
  void show(console_form&) override { refuse(); }
  void ball_bowled() override { refuse(); }
  void progress(int) override { refuse(); }
  void progress_done() override { refuse(); }
  void show(match_report_form&) override { refuse(); }
  void show(player_profile_form&) override { refuse(); }
  void show(player_rankings_form&) override { refuse(); }
  void show(series_results_form&) override { refuse(); }
  void show(tri_series_table_form&) override { refuse(); }
  void show(world_cup_fixtures_form&) override { refuse(); }
  void show(world_cup_tables_form&) override { refuse(); }

 private:
  static void refuse() { ADD_FAILURE() << "a report asks for reading screens only"; }
};

}  // namespace velorin
