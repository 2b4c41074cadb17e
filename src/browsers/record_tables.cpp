// SPDX-License-Identifier: GPL-3.0-or-later
#include "browsers/record_tables.h"

#include <string_view>

#include "database/lasting_records.h"
#include "model/texts.h"

namespace velorin {

namespace {

/// Runs and balls: "runs (balls)", with `mark` behind the runs.
std::string score_text(int runs, int balls, std::string_view mark = "") {
  return number_text(runs) + std::string(mark) + " (" + number_text(balls) + ")";
}

std::string pair_text(int first, int second) { return number_text(first) + " - " + number_text(second); }

void fill_scores(shown_table& table, const top_score_list& list) {
  table.title = "Highest Induvidual Scores";
  table.columns = {{"Score"}, {"Player"}, {"For"}, {"Against"}, {"Venue"}};
  for (int place = 1; place <= 15; ++place) {
    const top_score_rec& line = list[place];
    if (line.player.empty()) continue;
    table.rows.push_back({place,
                          {score_text(line.runs, line.balls), line.player, line.team, line.against, line.venue},
                          line.team,
                          line.player});
  }
}

void fill_bowling(shown_table& table, const top_bowling_list& list) {
  table.title = "Best Bowling Figures";
  table.columns = {{"Analysis"}, {"Player"}, {"For"}, {"Against"}, {"Venue"}};
  for (int place = 1; place <= 15; ++place) {
    const top_bowling_rec& line = list[place];
    if (line.player.empty()) continue;
    table.rows.push_back({place,
                          {pair_text(line.wickets, line.runs), line.player, line.team, line.against, line.venue},
                          line.team,
                          line.player});
  }
}

}  // namespace

void best_performances_form::open(int record_mode) {
  static_cast<table_form&>(*this) = {};
  const record_lists lists = read_record_lists(data_);
  if (record_mode == 1) {
    fill_scores(table, lists.top_scores);
  } else {
    fill_bowling(table, lists.top_bowling);
  }
}

void total_records_form::open(int record_mode) {
  static_cast<table_form&>(*this) = {};
  const record_lists lists = read_record_lists(data_);
  table.title = record_mode == 1 ? "Highest Totals in ODI's" : "Lowest Totals in ODI's";
  table.columns = {{"Score"}, {"For"}, {"Against"}};
  const top_total_list& list = record_mode == 1 ? lists.highest_totals : lists.lowest_totals;
  for (int place = 1; place <= 15; ++place) {
    const top_total_rec& line = list[place];
    if (line.team.empty()) continue;
    table.rows.push_back({place, {pair_text(line.total, line.wickets), line.team, line.against}, line.team});
  }
}

void stand_records_form::open() {
  static_cast<table_form&>(*this) = {};
  const record_lists lists = read_record_lists(data_);
  table.title = "Record Partnerships";
  table.columns = {{"Score"}, {"Players"}, {"For"}, {"Against"}};
  constexpr std::string_view unbroken = " * ";
  for (int wicket = 1; wicket <= 10; ++wicket) {
    const top_partnership_rec& line = lists.partnerships[wicket];
    if (line.batsman_a.empty()) continue;
    const bool stood = line.batsman_b.ends_with(unbroken);
    const std::string second = line.batsman_b.substr(0, line.batsman_b.size() - (stood ? unbroken.size() : 0));
    table.rows.push_back({wicket,
                          {score_text(line.partner_runs, line.partner_balls, stood ? "*" : ""),
                           line.batsman_a + " && " + second, line.team, line.against},
                          line.team,
                          line.batsman_a,
                          second});
  }
}

}  // namespace velorin
