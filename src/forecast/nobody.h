// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/front_end.h"

namespace velorin {

/// Sits before no match. Asked for a bowler in the place of one without overs left, he names the first who can bowl.
class nobody final : public front_end {
 public:
  /// Raises run_time_error (endless) where nobody can bowl.
  void show(bowler_choice_form& form) override;

  void show(const message_box&) override {}
  save_answer answer(const failed_save&) override { return save_answer::give_up; }
  void show(conditions_form&) override {}
  void show(team_selection_form&) override {}
  void show(toss_form&) override {}
  void show(next_batsman_form&) override {}
  void show(aggression_form&) override {}
  void show(batsman_details_form&) override {}
  void show(console_form&) override {}
  void ball_bowled() override {}
  void progress(int) override {}
  void progress_done() override {}
  void open(report) override {}
  void show(match_report_form&) override {}
  void show(player_profile_form&) override {}
  void show(player_rankings_form&) override {}
  void show(series_results_form&) override {}
  void show(tri_series_table_form&) override {}
  void show(world_cup_fixtures_form&) override {}
  void show(world_cup_tables_form&) override {}
};

}  // namespace velorin
