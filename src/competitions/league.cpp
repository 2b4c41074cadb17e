// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/league.h"

#include "model/booking.h"
#include "model/match_state.h"
#include "model/rounding.h"
#include "model/texts.h"

namespace velorin {

namespace {

void book_win(league_row& winner, const std::string& winner_name, league_row& loser, const std::string& loser_name) {
  book(winner.won, 1, "won", winner_name);
  book(winner.points, 2, "points", winner_name);
  book(loser.lost, 1, "lost", loser_name);
}

void book_tie(league_row& row, const std::string& name) {
  book(row.tied, 1, "tied", name);
  book(row.points, 1, "points", name);
}

}  // namespace

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

void book_outcome(const match_state& match, league_row& first, league_row& second, const std::string& first_name,
                  const std::string& second_name) {
  if (match.result_winner == first_name) {
    book_win(first, first_name, second, second_name);
  } else if (match.result_winner == second_name) {
    book_win(second, second_name, first, first_name);
  } else {
    book_tie(first, first_name);
    book_tie(second, second_name);
  }
}

void book_played(league_row& row, const std::string& name) { book(row.played, 1, "played", name); }

void add_row(league_row& row, const league_row& other) {
  book(row.played, other.played, "played", row.team);
  book(row.won, other.won, "won", row.team);
  book(row.lost, other.lost, "lost", row.team);
  book(row.tied, other.tied, "tied", row.team);
  book(row.points, other.points, "points", row.team);
  row.net_run_rate += other.net_run_rate;
}

void book_league_match(const match_state& match, league_row* rows, int count, const std::string& first_name,
                       const std::string& second_name) {
  league_row* first = nullptr;
  league_row* second = nullptr;
  for (league_row* row = rows; row != rows + count; ++row) {
    if (row->team == first_name) {
      book_played(*row, row->team);
      first = row;
    }
    if (row->team == second_name) {
      book_played(*row, row->team);
      second = row;
    }
  }
  if (first != nullptr && second != nullptr) book_outcome(match, *first, *second, first_name, second_name);
  for (league_row* row = rows; row != rows + count; ++row) {
    if (row->team == match.rate_first.team) row->net_run_rate += match.rate_first.delta;
    if (row->team == match.rate_second.team) row->net_run_rate += match.rate_second.delta;
  }
}

}  // namespace velorin
