// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <optional>

#include "ui/front_end.h"

namespace velorin {

struct match_state;

/// A user who shows nothing and answers at once: Auto Select, Heads, Bat, the first man who is free, OK.
class headless_user : public front_end {
 public:
  explicit headless_user(const match_state& match) : match_(&match) {}

  /// Weather, pitch surface, pitch bounce, outfield, 1 to 4 each, as if the sliders had been moved.
  std::optional<std::array<int, 4>> conditions;

  void show(const message_box&) override {}
  save_answer answer(const failed_save&) override { return save_answer::give_up; }
  void show(conditions_form& form) override;
  /// Raises run_time_error (endless) if no eleven can be made of the squad.
  void show(team_selection_form& form) override;
  void show(toss_form& form) override;
  void show(next_batsman_form& form) override;
  /// Raises run_time_error (endless) if no man who may bowl has balls left.
  void show(bowler_choice_form& form) override;
  void show(aggression_form&) override {}
  void show(batsman_details_form&) override {}
  void show(console_form& form) override;
  void ball_bowled() override {}
  void progress(int) override {}
  void progress_done() override {}
  void open(report) override {}
  void show(match_report_form&) override {}
  void show(player_profile_form&) override {}
  void show(player_rankings_form&) override {}
  void show(series_results_form& form) override;
  void show(tri_series_table_form& form) override;
  void show(world_cup_fixtures_form& form) override;
  void show(world_cup_tables_form& form) override;

 private:
  const match_state* match_;
};

}  // namespace velorin
