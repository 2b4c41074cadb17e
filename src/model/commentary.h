// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "model/match_records.h"

namespace velorin {

/// What a commentary line says of a ball.
enum class ball_text : std::uint8_t { runs, leg_byes, byes, no_ball, wide };

/// One ball's line.
struct ball_note {
  ball_text text = ball_text::runs;
  integer number;   ///< runs, where the text has a number
  integer bowler;   ///< position
  integer striker;  ///< position of the batsman named
};

/// The figures in the block of lines at the end of an over.
struct over_note {
  integer over_no;
  int over_runs = 0;  ///< sum of the over's numeric symbols
  int score_runs = 0;
  int score_wickets = 0;
  integer innings_balls;
  integer first_batsman;  ///< the lower position at the crease
  integer first_runs;
  integer first_balls;
  integer second_batsman;
  integer second_runs;
  integer second_balls;
  integer bowler;  ///< position of the man who bowled the over, and his figures as they stood
  integer bowler_balls;
  integer bowler_maidens;
  integer bowler_runs;
  integer bowler_wickets;
};

/// Places of the store that keeps the commentary of the first innings, and the lines that fit: the end marker stands
/// two places behind the last.
inline constexpr int commentary_places = 1500;
inline constexpr int most_stored_lines = commentary_places - 2;

/// The commentary of one innings. Notes are kept as figures and become lines when somebody reads them, with the cards
/// of the innings they belong to.
class commentary_log {
 public:
  /// Appends the line of a ball.
  void add_ball(const ball_note& note) {
    entries_.push_back({kind::ball, note.text, note.number, note.bowler, note.striker});
    ++lines_;
  }
  /// Appends the five lines of a wicket: the ball's line, the dismissal between two rules, the boundaries.
  void add_wicket(int bowler, int striker) {
    entries_.push_back({kind::wicket, ball_text::runs, 0, bowler, striker});
    lines_ += 5;
  }
  /// Appends the twelve lines of the end of an over.
  void add_over(const over_note& note) {
    entries_.push_back({kind::over, ball_text::runs, static_cast<int>(overs_.size()), 0, 0});
    overs_.push_back(note);
    lines_ += 12;
  }

  void clear() {
    entries_.clear();
    overs_.clear();
    lines_ = 0;
  }

  /// Number of lines.
  int size() const { return lines_; }
  /// Legal balls of the innings at the end of the last over noted, 0 before the first.
  int balls_at_last_over() const { return overs_.empty() ? 0 : int(overs_.back().innings_balls); }

  /// All lines, in order. `batting` and `bowling` are the cards of this innings, `team` its batting side.
  std::vector<std::string> lines(const batting_card_table& batting, const bowling_card_table& bowling,
                                 std::string_view team) const;

 private:
  enum class kind : std::uint8_t { ball, wicket, over };
  struct entry {
    kind what;
    ball_text text;
    integer number;
    integer bowler;
    integer striker;
  };

  std::vector<entry> entries_;
  std::vector<over_note> overs_;
  int lines_ = 0;
};

}  // namespace velorin
