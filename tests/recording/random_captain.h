// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "competitions/game_state.h"
#include "headless/headless_user.h"
#include "model/random.h"

namespace velorin::testing {

/// The match in play as whoever reads it sees it: its object, its result and the three files that can be saved of it.
std::string match_as_read(const game_state& game);

inline constexpr const char* opened_by_himself = "opened by himself";

/// Answers at random what a front end is asked, by a generator of his own, and looks at the reports on the way. Two
/// with the same generator answer alike from any question on.
class random_captain : public headless_user {
 public:
  random_captain(game_state& game, std::uint64_t seed) : headless_user(game.match), game_(game) { own_.use_seed(seed); }
  /// One who answers as another does from here on.
  random_captain(game_state& game, const random_source& own) : headless_user(game.match), game_(game), own_(own) {}

  int leaves_one_in = 0;  ///< of the questions of a set-up he leaves so many; 0 for none
  int quits_one_in = 0;   ///< of the fixture lists of a World Cup likewise
  /// What he opens by himself is asked for through this one, where there is one.
  front_end* asks_through = nullptr;
  /// Called before each question, ball and over.
  std::function<void()> at_request = {};

  /// The generator at the question that is open.
  const random_source& own() const { return own_; }
  /// match_as_read() at each card at which play stopped, then at the end of each match.
  const std::vector<std::string>& read() const { return read_; }
  int answers() const { return answers_; }
  /// What the open request is, in a word: opened_by_himself for a dialog that the game does not ask for.
  const std::string& open_request() const { return open_; }

  using headless_user::show;
  void show(const message_box& message) override;
  void show(conditions_form& form) override;
  void show(team_selection_form& form) override;
  void show(toss_form& form) override;
  void show(next_batsman_form& form) override;
  void show(bowler_choice_form& form) override;
  void show(aggression_form& form) override;
  void show(batsman_details_form& form) override;
  void show(console_form& form) override;
  void ball_bowled() override { asked("ball"); }
  void progress(int over) override;
  void open(report which) override;
  void show(match_report_form& form) override;
  void show(series_results_form& form) override;
  void show(tri_series_table_form& form) override;
  void show(world_cup_fixtures_form& form) override;
  void show(world_cup_tables_form& form) override;

 private:
  void asked(const char* what) {
    open_ = what;
    if (at_request) at_request();
  }
  int from_to(int least, int most) { return least - 1 + die(own_, most - least + 1); }
  bool one_in(int n) { return n > 0 && die(own_, n) == 1; }
  void look_at_stands();
  void act(console_form& form);

  game_state& game_;
  random_source own_;
  std::vector<std::string> read_;
  std::string open_;
  int answers_ = 0;
};

/// Is shown a recording as it is played again, and keeps the same.
class reading_watcher : public headless_user {
 public:
  explicit reading_watcher(const game_state& game) : headless_user(game.match), game_(game) {}

  using headless_user::show;
  void open(report which) override;

  std::vector<std::string> read;

 private:
  const game_state& game_;
};

}  // namespace velorin::testing
