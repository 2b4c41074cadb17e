// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "model/match_state.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"
#include "support/scripted_user.h"

// The fixture of the tests that play matches ball by ball, with chosen outcomes.

namespace velorin::testing {

/// A ball to be bowled.
struct ball {
  int outcome = 0;
  std::vector<double> then;   ///< draws that follow the delivery's own
  std::vector<double> after;  ///< draws once the ball is booked: what the change of innings needs
};

/// A ball of runs off the bat, a no ball or a wide.
ball hit(int outcome);
/// Leg byes or byes, `runs` of them.
ball off_the_pad(int outcome, int runs);
/// A wicket by the dismissal draw `kind` (1 to 110; the man is bowled unless told) and, where there is a second draw,
/// the man at position `fielder`.
ball out(int kind = 1, int fielder = 0);
/// The entries that the log of an innings holds for an over, and the bowler's name once the over has come to its end.
std::vector<std::string> log_of_over(const told_innings& innings, int over);

/// `count` times the same ball.
std::vector<ball> times(int count, const ball& one);
/// One list behind the other.
std::vector<ball> operator+(std::vector<ball> first, const std::vector<ball>& second);

/// Starts each test with a scripted user, no draws and the sample match.
class match_test : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  /// Sets the sample match up and opens the console. Human sides are answered by the user's lists, then as the headless
  /// user does. The bowlers' offset of a computer side is 0.
  void open(bool computer_bats, bool computer_bowls);

  /// Bowls exactly these deliveries, pressing for one over after another; fails the test if the match ends before they
  /// are used up. Where the list ends within an over, the match is left as it stands before the next delivery.
  void play(const std::vector<ball>& balls);

  /// Makes `over` the over about to begin: the balls before it are booked to the bowlers of positions 3 to 7 and to
  /// nobody's batting. For the start of an innings, and overs up to 50.
  static void skip_to_over(int over);

  /// Opens the match and plays the last two overs of its first innings: 12 off the 49th, in the 50th 4, a wicket, 2 leg
  /// byes, 2, no ball, 2 and nothing. 22 for 1, the men at 1 and 3 not out, the latter on strike.
  void play_first_innings(bool computer_bats, bool computer_bowls);

  /// The messages of the user with this title.
  std::vector<std::string> texts_of(const std::string& title) const;

  scripted_user user;
  bool note_balls = false;  ///< each booked ball leaves "ball" among the requests

 private:
  front_end_scope scope_{user};
};

}  // namespace velorin::testing
