// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "model/match_records.h"

namespace velorin {

/// How one batsman made his runs, as the details window shows it.
struct batsman_figures {
  std::string title;     ///< window title; empty keeps the window's own
  std::string headline;  ///< the dismissal in one line
  int runs = 0;
  int balls = 0;
  int dots = 0;
  int singles = 0;
  int twos = 0;
  int threes = 0;
  int fours = 0;
  int sixes = 0;
  std::string strike_rate;  ///< 100 x runs / balls to two places; empty before his first ball
};

/// The figures of a line of a batting card; title and headline are left empty.
batsman_figures figures_of(const batting_card_rec& card);

/// 100 x runs / balls to two places. `balls` above 0.
double strike_rate(int runs, int balls);

}  // namespace velorin
