// SPDX-License-Identifier: GPL-3.0-or-later
#include "browsers/player_rankings.h"

#include <array>

#include "browsers/player_pool.h"
#include "model/texts.h"

namespace velorin {

namespace {

constexpr int fifty_plus = 4;
constexpr std::string_view no_rate = " - ";

career_rate runs_key(const career_rec& career) { return career.runs; }
career_rate wickets_key(const career_rec& career) { return career.wickets; }

/// One member of the family.
struct ranking {
  std::string_view title;  ///< behind the team in modes 8 and 9
  career_key key;
  sort_order order;
  bool batting;
};

constexpr std::array<ranking, 10> rankings = {{
    {},
    {"Records - Highest Averages", batting_average, sort_order::descending, true},
    {"Records - Most Runs", runs_key, sort_order::descending, true},
    {"Records - Highest Strike Rate", batting_strike_rate, sort_order::descending, true},
    {"Records - Innings% (50 or more)", fifty_plus_rate, sort_order::descending, true},
    {"Bowling Records - Most Wickets", wickets_key, sort_order::descending, false},
    {"Bowling Records - Best Economy Rate", economy_rate, sort_order::ascending, false},
    {"Bowling Records - Best Average", bowling_average, sort_order::ascending, false},
    {" - Career Batting Records", batting_average, sort_order::descending, true},
    {" - Career Bowling Records", wickets_key, sort_order::descending, false},
}};

/// "Player" and then columns of numbers.
std::vector<shown_column> columns_of(const std::array<std::string_view, 9>& headings) {
  std::vector<shown_column> columns = {{"Player"}};
  for (const std::string_view heading : headings) columns.push_back({heading, alignment::right});
  return columns;
}

std::vector<shown_column> batting_columns(int record_mode) {
  return columns_of({"M", "I", "NO", "Avge", "HS", "100s", "50s", "Runs", record_mode == fifty_plus ? "% Inns" : "SR"});
}

std::vector<shown_column> bowling_columns() {
  return columns_of({"M", "Ovr", "Mdn", "Runs", "Wkts", "Avg", "Econ.", "5 wkt", "Best"});
}

std::vector<std::string> batting_texts(const career_rec& career, int record_mode) {
  const career_rate last = record_mode == fifty_plus ? fifty_plus_rate(career) : batting_strike_rate(career);
  return {career.name,
          number_text(career.matches),
          number_text(career.innings),
          number_text(career.not_outs),
          rate_text(batting_average(career), no_rate),
          high_score_text(career),
          number_text(career.hundreds),
          number_text(career.fifties),
          number_text(career.runs),
          rate_text(last, no_rate)};
}

std::vector<std::string> bowling_texts(const career_rec& career) {
  return {career.name,
          number_text(career.matches),
          overs_from_balls(career.balls_bowled),
          number_text(career.maidens),
          number_text(career.runs_given),
          number_text(career.wickets),
          rate_text(bowling_average(career), no_rate),
          rate_text(economy_rate(career), no_rate),
          number_text(career.five_wickets),
          best_bowling_text(career)};
}

}  // namespace

void player_rankings_form::open(int record_mode, const std::string& team) {
  static_cast<table_form&>(*this) = {};
  const bool one_team = record_mode == career_batting || record_mode == career_bowling;
  const ranking& shown = rankings.at(static_cast<std::size_t>(record_mode));
  const career_table careers = read_career_table(data_);
  player_pool pool = one_team ? players_of(careers, team) : all_players(careers);
  sort_by_held_keys(pool, shown.key, shown.order);
  table.title = (one_team ? team : std::string()) + std::string(shown.title);
  table.columns = shown.batting ? batting_columns(record_mode) : bowling_columns();
  int place = 0;
  for (const career_rec* career : pool) {
    if (++place > table_rows) break;
    if (career->name.empty()) continue;
    table.rows.push_back({place, shown.batting ? batting_texts(*career, record_mode) : bowling_texts(*career),
                          team_of(careers, *career), career->name});
  }
}

}  // namespace velorin
