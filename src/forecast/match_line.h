// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "forecast/forecast.h"
#include "model/delivery.h"

// The chance of winning ball by ball: where a match turned, and what each man has moved.

namespace velorin {

struct match_state;

/// A ball of the line.
struct line_point {
  delivery ball;           ///< the delivery that was bowled
  bool first_bats = true;  ///< the side that bats first is batting
  std::string striker;     ///< the men of it
  std::string bowler;
  double win_first = 0;  ///< chance of the side that bats first after the ball
  double swing = 0;      ///< what the ball has changed in it
  bool is_boundary() const { return ball.outcome == four_runs || ball.outcome == six_runs; }
};

/// What a man has moved for his own side, in chances of winning: the sum of his balls' swings.
struct man_impact {
  std::string man;
  bool of_first = true;  ///< he is of the side that bats first
  double with_bat = 0;
  double with_ball = 0;
  double total() const { return with_bat + with_ball; }
};

/// The line of a match, from its states after each ball. Every state is forecast with the same seed, so that runs alike
/// end alike and the line moves by what the balls have changed.
class match_line {
 public:
  /// Nobody has bowled yet: the line begins at the chance before the first ball. Requires can_be_forecast(). Raises
  /// what forecast_rest() does.
  match_line(const match_state& before, const forecast_options& options);

  /// A ball more: the state once it is booked, or when the man who comes in is known, or when the match is decided by
  /// it. A state of a delivery that the line has already is left alone. Raises what forecast_rest() does.
  void add(const match_state& after);

  const std::string& first() const { return first_; }
  const std::string& second() const { return second_; }
  double before() const { return before_; }  ///< chance of the side that bats first before the first ball
  const std::vector<line_point>& points() const { return points_; }

  /// The balls of the greatest swings, most first; of equal ones the earlier. At most `count`.
  std::vector<line_point> turning_points(std::size_t count = 5) const;

  /// Every man who faced or bowled a ball, the greatest impact first. A ball's swing counts for the striker with the
  /// bat and, turned round, for the bowler with the ball, whatever became of it: extras, too. A run out is none of the
  /// bowler's: as on the cards he has no part in it, and its swing counts for the man who is out, always the striker.
  std::vector<man_impact> impacts() const;

 private:
  forecast_options options_;
  std::string first_;
  std::string second_;
  double before_ = 0;
  std::vector<line_point> points_;
};

}  // namespace velorin
