// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "competitions/game_state.h"
#include "headless/headless_user.h"

// Games that are stopped at their questions: a copy, taken while a question is open, goes on in a game of its own and
// has to end as the first does.

namespace velorin::testing {

/// What a front end is asked for, a kind for each request of the seam.
enum class request {
  message,
  failed_save,
  conditions,
  selection,
  toss,
  next_batsman,
  bowler_choice,
  aggression,
  batsman_details,
  console,
  ball,
  progress,
  progress_done,
  report,
  match_report,
  profile,
  rankings,
  results,
  tri_table,
  fixtures,
  tables
};

/// Tells at which requests a game is stopped, by their kind and the game as it stands.
using stop_filter = std::function<bool(request, const game_state&)>;

/// Every request but those of play itself: the set-up and the competitions.
bool outside_play(request kind, const game_state& game);

/// Every request but the one that follows on the end of an unattended match: play itself too.
bool anywhere(request kind, const game_state& game);

/// A user whose answers follow from the question and the number that would be drawn next alone, so that a copy of the
/// game is answered alike: at times he leaves a match, quits a World Cup or looks at the averages.
class stopping_user : public headless_user {
 public:
  /// Calls `at_stop` at each request that the filter lets through, before it is answered. `game` outlives the user.
  stopping_user(game_state& game, stop_filter filter, std::function<void()> at_stop);

  int leaves_one_in = 0;  ///< of the questions of a set-up; 0 for never
  int quits_one_in = 0;   ///< of the fixture lists

  /// What has been asked, a line each with what was shown. Balls, overs and the console have none.
  const std::vector<std::string>& lines() const { return lines_; }
  /// The line with which the open question begins: where a copy goes on.
  std::size_t open_line() const { return open_line_; }

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
  void show(match_report_form& form) override;
  void show(player_profile_form& form) override;
  void show(player_rankings_form& form) override;
  void show(series_results_form& form) override;
  void show(tri_series_table_form& form) override;
  void show(world_cup_fixtures_form& form) override;
  void show(world_cup_tables_form& form) override;

 private:
  void asked(request kind, const std::string& line);
  bool chance_of(int one_in, std::uint64_t salt) const;

  game_state& game_;
  stop_filter filter_;
  std::function<void()> at_stop_;
  std::vector<std::string> lines_;
  std::size_t open_line_ = 0;
  bool selecting_ = false;  // a selection is open: what it opens belongs to it
};

/// A game to be played and stopped.
struct stopped_game {
  std::function<void(game_state&, front_end&)> start;  ///< plays it to its end
  std::uint64_t seed = 1;
  stop_filter filter = outside_play;
  int leaves_one_in = 0;
  int quits_one_in = 0;
  int one_stop_in = 1;         ///< so many of the requests that the filter lets through are gone on from
  bool through_files = false;  ///< the elevens travel through files, and matches change careers and records
};

/// All of the game that outlives it: the result, the competitions, the next numbers of its chance.
std::string end_of(const game_state& game);

/// Plays the game on the database in use, and every copy that was taken at a stop in a game of its own, on files of its
/// own. Fails the test where one of them ends otherwise, or is asked something else on its way. The number of copies
/// taken.
int expect_copies_to_end_alike(const stopped_game& played);

}  // namespace velorin::testing
