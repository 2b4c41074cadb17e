// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "model/commentary.h"

namespace velorin {

struct match_state;

/// One row of the commentary: a ball with all that is told of it, or the end of an over.
struct commentary_row {
  line_kind kind = line_kind::ball;  ///< never wicket_card
  int over = 0;                      ///< 1 to 50
  int ball = 0;                      ///< its place in the over; 0 for the end of one
  std::string bowler;
  std::string batsman;             ///< whom the line names
  std::string symbol;              ///< of the ball, as ball_symbol() has it
  std::string brief;               ///< a wicket: how he was out; the end of an over: its runs and the score
  std::vector<std::string> lines;  ///< as they are told; all rows' lines together are the commentary
};

/// The commentary of the innings in play, from its first line on. Every line stands in one row.
std::vector<commentary_row> view_commentary(const match_state& match);

}  // namespace velorin
