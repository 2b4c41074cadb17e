// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/league.h"

#include "model/rounding.h"
#include "model/teams.h"
#include "model/texts.h"

namespace velorin {

league_texts shown_row(const league_row& row) {
  return {row.team,
          number_text(int(row.played)),
          number_text(int(row.won)),
          number_text(int(row.lost)),
          number_text(int(row.tied)),
          number_text(int(row.points)),
          number_text(round_to(row.net_run_rate, 2))};
}

bool stands_ahead(const league_row& after, const league_row& before) {
  if (after.points != before.points) return after.points > before.points;
  return after.net_run_rate > before.net_run_rate;
}

void book_outcome(league_row& first, league_row& second, const std::string& first_name,
                  const std::string& second_name) {
  if (match.result_winner == first_name) {
    first.won += 1;
    first.points += 2;
    second.lost += 1;
  } else if (match.result_winner == second_name) {
    second.won += 1;
    second.points += 2;
    first.lost += 1;
  } else {
    for (league_row* row : {&first, &second}) {
      row->tied += 1;
      row->points += 1;
    }
  }
}

void book_league_match(league_row* rows, int count, const std::string& first_name, const std::string& second_name) {
  league_row* first = nullptr;
  league_row* second = nullptr;
  for (league_row* row = rows; row != rows + count; ++row) {
    if (row->team == first_name) {
      row->played += 1;
      first = row;
    }
    if (row->team == second_name) {
      row->played += 1;
      second = row;
    }
  }
  if (first != nullptr && second != nullptr) book_outcome(*first, *second, first_name, second_name);
  for (league_row* row = rows; row != rows + count; ++row) {
    if (row->team == match.rate_first.team) row->net_run_rate += match.rate_first.delta;
    if (row->team == match.rate_second.team) row->net_run_rate += match.rate_second.delta;
  }
}

}  // namespace velorin
