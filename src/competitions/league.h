// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>
#include <utility>

#include "model/integer.h"

namespace velorin {

struct match_state;

/// One team's row of a league table.
struct league_row {
  std::string team;
  integer played;
  integer won;
  integer lost;
  integer tied;
  integer points;           ///< 2 for a win, 1 for a tie
  double net_run_rate = 0;  ///< plain sum of the team's gains in runs an over
  std::string note;         ///< free for the table's owner
};

/// A row as shown: team, played, won, lost, tied, points, net run rate to two places.
using league_texts = std::array<std::string, 7>;
league_texts shown_row(const league_row& row);

/// True if `after` must stand ahead of `before`: more points, or as many and a higher net run rate.
bool stands_ahead(const league_row& after, const league_row& before);

// A figure of a row that overflows is a run_time_error (overflow) that names it and the team; nothing is changed in it.

/// Books the last match in two rows from the result block: won, lost, tied, points; a tie for a match without a winner
/// of either name. Both may be the same row.
void book_outcome(const match_state& match, league_row& first, league_row& second, const std::string& first_name,
                  const std::string& second_name);

/// One match more for the team of this name.
void book_played(league_row& row, const std::string& name);

/// Adds the figures of another row.
void add_row(league_row& row, const league_row& other);

/// Books the last match in a league of `count` rows, found by name: each row of either name has played one more, and
/// the last row of each name takes the outcome; every row takes the gains of its team. Nothing is booked but the gains
/// if a name stands in no row.
void book_league_match(const match_state& match, league_row* rows, int count, const std::string& first_name,
                       const std::string& second_name);

/// Sorts table[1..last] by bubble passes, `swap_also(j)` being called whenever rows j and j + 1 are exchanged: first on
/// fewer points, then on equal points and a lower net run rate. Level rows keep their order.
template <class Table, class SwapAlso>
void sort_league(Table& table, int last, SwapAlso swap_also) {
  for (int i = last - 1; i >= 1; --i) {
    for (int j = 1; j <= i; ++j) {
      if (!stands_ahead(table[j + 1], table[j])) continue;
      std::swap(table[j], table[j + 1]);
      swap_also(j);
    }
  }
}

}  // namespace velorin
