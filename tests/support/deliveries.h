// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "model/delivery.h"

// Deliveries as a test needs them, made from what a log shows of them.

namespace velorin {

/// The men of a delivery.
struct men_at_work {
  int bowler = 1;
  int striker = 1;
  int non_striker = 2;
};

/// A counted ball of 0 to 6 runs off the bat; more are written likewise.
delivery ball_of_runs(int runs, men_at_work men = {}, int over = 1, int ball = 1);
/// A ball of 1 to 4 leg byes or byes.
delivery ball_of_leg_byes(int runs, men_at_work men = {}, int over = 1, int ball = 1);
delivery ball_of_byes(int runs, men_at_work men = {}, int over = 1, int ball = 1);
/// A no ball or wide that does not count, on the entry of the ball before.
delivery no_ball_on(int ball, men_at_work men = {}, int over = 1);
delivery wide_on(int ball, men_at_work men = {}, int over = 1);
/// A wicket; the man who comes in next, 0 for none.
delivery ball_of_wicket(dismissal how, men_at_work men = {}, int next_batsman = 0, int over = 1, int ball = 1);

/// The two at the crease and what they added.
struct stand_made {
  int runs = 0;
  int balls = 0;
  int non_striker = 2;  ///< at its end
  int striker = 1;      ///< likewise
};

/// Adds a stand that ends with the wicket of its striker, from the ball on that follows those that count already. The
/// runs are made with as few balls as they can be; the last ball brings none.
void add_stand(delivery_list& deliveries, stand_made stand, int bowler = 1);
/// Likewise a stand that is unbroken.
void add_unbroken_stand(delivery_list& deliveries, stand_made stand, int bowler = 1);

/// Adds an over whose entries in the log read so, from the first ball on: "" for a ball without an entry, "W", a number
/// (what a ball cannot bring stands on it as wides), or a number followed by "lb" or "b".
void add_over(delivery_list& deliveries, int over, std::initializer_list<std::string_view> entries,
              men_at_work men = {});

}  // namespace velorin
