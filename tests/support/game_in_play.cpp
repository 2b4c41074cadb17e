// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/game_in_play.h"

#include <stdexcept>

namespace velorin {

namespace {

front_end& asked() {
  if (installed_front_end == nullptr) throw std::logic_error("no front end is installed");
  return *installed_front_end;
}

class user_of_tests : public front_end {
 public:
  void show(const message_box& message) override { asked().show(message); }
  save_answer answer(const failed_save& failed) override { return asked().answer(failed); }
  void show(conditions_form& form) override { asked().show(form); }
  void show(team_selection_form& form) override { asked().show(form); }
  void show(toss_form& form) override { asked().show(form); }
  void show(next_batsman_form& form) override { asked().show(form); }
  void show(bowler_choice_form& form) override { asked().show(form); }
  void show(aggression_form& form) override { asked().show(form); }
  void show(batsman_details_form& form) override { asked().show(form); }
  void show(console_form& form) override { asked().show(form); }
  void ball_bowled() override { asked().ball_bowled(); }
  void progress(int over) override { asked().progress(over); }
  void progress_done() override { asked().progress_done(); }
  void open(report which) override { asked().open(which); }
  void show(match_report_form& form) override { asked().show(form); }
  void show(player_profile_form& form) override { asked().show(form); }
  void show(player_rankings_form& form) override { asked().show(form); }
  void show(series_results_form& form) override { asked().show(form); }
  void show(tri_series_table_form& form) override { asked().show(form); }
  void show(world_cup_fixtures_form& form) override { asked().show(form); }
  void show(world_cup_tables_form& form) override { asked().show(form); }
};

}  // namespace

front_end& user_in_use() {
  static user_of_tests user;
  return user;
}

}  // namespace velorin
