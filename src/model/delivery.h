// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <vector>

// What happened with a ball, as figures. It is written once; the log, the commentary, the graphs and the exports are
// made from it when somebody reads them.

namespace velorin {

/// Codes of ball_outcome. 5 does not occur.
enum outcome : int {
  dot_ball = 0,
  one_run = 1,
  two_runs = 2,
  three_runs = 3,
  four_runs = 4,
  six_runs = 6,
  wicket = 7,
  no_ball = 8,
  wide_ball = 9,
  leg_byes = 10,
  byes = 11,
};

/// How a batsman's innings ended, or `none` while it has not. `not_out` is written for the two men whom the end of the
/// first innings leaves at the crease.
enum class dismissal : std::uint8_t {
  none,
  not_out,
  bowled,
  caught,
  caught_and_bowled,
  stumped,
  leg_before,
  run_out,
};

/// What a card tells of a fielder besides.
enum class fielding : std::uint8_t { none, caught, stumped };

/// One delivery. Men are positions 1 to 11 in their elevens, which no later change moves.
struct delivery {
  std::int16_t innings = 0;  ///< of the match, from 1
  std::uint8_t over = 0;     ///< 1 to 50
  std::uint8_t ball = 0;     ///< 1 to 6, the place in the over; that of the ball before for a no ball or wide
  std::uint8_t bowler = 0;
  std::uint8_t striker = 0;  ///< when the ball was bowled
  std::uint8_t non_striker = 0;
  std::uint8_t batting_aggression = 0;  ///< 1 to 5, of the striker
  std::uint8_t bowling_aggression = 0;  ///< 1 to 5
  std::uint8_t outcome = dot_ball;      ///< a code of `outcome`
  std::uint8_t runs = 0;                ///< off the bat: 0 to 6
  std::uint8_t extras = 0;              ///< byes or leg byes 1 to 4; 1 for a no ball or a wide that does not count
  dismissal how = dismissal::none;      ///< of the striker
  std::uint8_t fielder = 0;             ///< who caught, stumped or threw; 0 nobody
  std::uint8_t next_batsman = 0;        ///< who came in for the striker; 0 nobody
  bool counted = true;                  ///< one of the six of the over and of the three hundred of the innings

  bool operator==(const delivery&) const = default;

  bool is_off_the_bat() const { return outcome <= six_runs; }
  bool is_wicket() const { return outcome == wicket; }
  bool is_body_extra() const { return outcome == leg_byes || outcome == byes; }
  bool is_no_ball_or_wide() const { return outcome == no_ball || outcome == wide_ball; }
  /// The striker has faced it.
  bool is_faced() const { return !is_no_ball_or_wide(); }
  /// What it added to the side's total: no ball and wide add nothing.
  int score() const { return is_no_ball_or_wide() ? 0 : runs + extras; }
};

/// The deliveries of an innings, in order.
using delivery_list = std::vector<delivery>;

}  // namespace velorin
