// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "model/delivery.h"
#include "model/rules.h"
#include "reports/match_report.h"

// A match as those read it who look into it, running or decided: both cards, every delivery, every line of the
// commentary. Plain values, made once; they stay true when the match has gone. Texts are single bytes of Windows-1252.

namespace velorin {

struct match_state;

/// What is told of a delivery, or of the end of an over.
struct story_line {
  int over = 0;     ///< 1 to 50
  int ball = 0;     ///< its place in the over; 0 for the end of one
  int batsman = 0;  ///< who faced, 1 to 11; 0 for the end of an over
  int bowler = 0;   ///< 1 to 11
  bool wicket = false;
  bool boundary = false;
  std::string text = {};  ///< its lines, a line feed between two; those that only part others left out
};

/// An innings after one of its overs, which may still be in play.
struct story_over {
  int over = 0;
  int bowler = 0;
  int runs = 0;                              ///< of the over
  int wickets = 0;                           ///< in the over
  int score = 0;                             ///< of the side after it
  int down = 0;                              ///< wickets after it
  double run_rate = 0;                       ///< runs for six balls of the innings so far; 0 without a ball
  std::optional<double> required_rate = {};  ///< of a chase, from here on; nothing once it is made or lost
};

struct innings_story {
  reported_innings card;
  std::array<std::string, men_in_eleven + 1> batting = {};  ///< [1..11] the men by their positions
  std::array<std::string, men_in_eleven + 1> bowling = {};
  delivery_list deliveries = {};
  std::vector<story_line> commentary = {};
  std::vector<story_over> overs = {};
};

struct match_story {
  std::string ground;
  std::string result;                       ///< winner and margin in one line; "" while nobody has won
  bool practice = false;                    ///< it counts for no career and no record
  std::array<std::string, 2> teams = {};    ///< by their places in all charts of the match
  std::vector<innings_story> innings = {};  ///< one or two, in the order in which they are played
  std::vector<reported_milestone> milestones = {};
};

/// The match up to its last ball. Draws nothing, writes nothing.
match_story story_of(const match_state& match);

/// Which lines of the commentary are wanted; all that is set must hold.
struct story_filter {
  enum class kind { all, wickets, boundaries };
  kind which = kind::all;
  int batsman = 0;         ///< balls that he faced; 0 for anybody
  int bowler = 0;          ///< balls that he bowled; 0 for anybody
  std::string words = {};  ///< each of them stands in the text, in any case; blanks part them
};

/// The places of the lines that a filter lets through, in order. The end of an over passes only where no balls are
/// chosen: by the words alone.
std::vector<int> lines_with(const innings_story& innings, const story_filter& filter);

}  // namespace velorin
