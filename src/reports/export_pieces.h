// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>

#include "model/match_records.h"
#include "model/rules.h"
#include "reports/line_printer.h"
#include "reports/scorecard.h"

// The pieces that the three exported files share. "First" means the first innings of a match that is in its second;
// everything else is the innings in play. All of them read match.

namespace velorin {

struct match_state;

/// The columns of a batting table: where the header's four last places begin, and the figures under them. Runs stand at
/// 60 in both.
struct batting_columns {
  int header_balls;
  int header_fours;
  int header_sixes;
  int balls;
  int fours;
  int sixes;
};

inline constexpr batting_columns html_columns = {66, 72, 78, 66, 71, 77};
inline constexpr batting_columns text_columns = {65, 70, 74, 65, 69, 73};

/// The header and a row for each man who has come in.
void print_first_batting(const match_state& match, line_printer& out, const batting_columns& columns);
/// Likewise. The dismissals are those shown on the card.
void print_batting(const match_state& match, line_printer& out, const scorecard_form& card,
                   const batting_columns& columns);

void print_first_total(const match_state& match, line_printer& out);
void print_total(line_printer& out, const scorecard_form& card);

/// The header and a row for each man who has bowled, the eleventh first.
void print_first_bowling(const match_state& match, line_printer& out);
/// The header and a row for each man in the console's running table of bowlers, in its order.
void print_bowling(const match_state& match, line_printer& out);

/// The list of the wickets that fell. One list serves both innings of a file: what an innings with fewer wickets leaves
/// standing at the higher places is printed again.
class wicket_list {
 public:
  /// Takes the wickets of an innings over those it holds at the same places, and prints the whole list.
  void print(line_printer& out, const fall_of_wicket_table& falls);

 private:
  std::array<std::string, wickets_of_innings + 1> entries_;  // [1..10]
};

}  // namespace velorin
