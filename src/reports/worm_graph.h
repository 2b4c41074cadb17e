// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>
#include <vector>

// The running scores of the two sides against the overs. The lines live in match.worm for as long as the program runs;
// the match that first touches them gives them their names, and later matches write into them only under those names.

namespace velorin {

struct match_state;
struct match_worms;

/// Names the two lines after the sides of the match: first the one batting, then the other. Only the first call in a
/// run of the program does anything.
void load_worms(match_state& match);

/// A sentence that tells whose names the lines bear; "" while they have none.
std::string standing_worms(const match_state& match);
/// Lines without names and rows, as at the start of the program.
void start_worms_afresh(match_state& match);

/// Writes the innings in play into the line of its side, the first that bears its name: the rows of its overs, and the
/// score beside the name. Loads the lines if need be; nothing happens for a side that has none. Called before the
/// deliveries of an innings go: at its end, and where a match breaks off. Writing it again changes nothing.
void keep_worms(match_state& match);

/// The lines with the innings in play up to its last ball.
match_worms worms_with_this_innings(const match_state& match);

/// The place of a side in every chart, 0 or 1, by which it has its colour: that of its line; without one the other, or
/// that of its innings.
int chart_place(const match_state& match, const std::string& team);

/// A point of a line.
struct worm_point {
  int row = 0;    ///< 1..51; the end of over n stands on row n + 1
  int value = 0;  ///< the side's runs
};

/// The window that shows the lines.
struct worm_graph_form {
  explicit worm_graph_form(match_state& match) : match_(match) {}

  std::string first_side;                         ///< the side of the first line
  std::string second_side;                        ///< the side of the second line
  std::string first_score;                        ///< score of the first line as last written, "" before
  std::string second_score;                       ///< score of the second line, likewise
  std::array<std::vector<worm_point>, 2> series;  ///< the rows written so far, by rows
  /// Those of them that the match in play has written; rows of an earlier match may stand behind them.
  std::array<std::vector<worm_point>, 2> of_match;

  /// A line holds rows that are not of this match, or is called after a side that does not play in it.
  bool has_old_rows() const { return has_old_rows_; }

  /// Fills the window afresh, and loads the lines if need be, into match.worm.
  void open();

 private:
  bool has_old_rows_ = false;
  match_state& match_;
};

}  // namespace velorin
