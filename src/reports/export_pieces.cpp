// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/export_pieces.h"

#include "model/match_state.h"
#include "model/rules.h"
#include "model/texts.h"

namespace velorin {

namespace {

/// Only the boundaries are named: the places of the runs and the balls stay blank.
void print_batting_header(line_printer& out, const batting_columns& columns) {
  out.tab(20).tab(40).tab(60).tab(columns.header_balls);
  out.tab(columns.header_fours).text("4s").tab(columns.header_sixes).text("6s").end();
}

void print_batting_row(line_printer& out, const batting_card_rec& batsman, std::string_view fielder,
                       std::string_view bowler, const batting_columns& columns) {
  out.text(batsman.name).tab(20).text(fielder).tab(40).text(bowler).tab(60).number(batsman.runs);
  out.tab(columns.balls).number(batsman.balls);
  out.tab(columns.fours).number(batsman.fours).tab(columns.sixes).number(batsman.sixes).end();
}

void print_bowling_header(line_printer& out) {
  out.tab(21).text("O").tab(27).text("M").tab(32).text("R").tab(37).text("W").end();
}

void print_bowling_row(line_printer& out, const bowling_card_rec& bowler) {
  out.text(bowler.name).tab(20).text(overs_from_balls(bowler.balls)).tab(26).number(bowler.maidens);
  out.tab(31).number(bowler.runs).tab(36).number(bowler.wickets).end();
}

}  // namespace

void print_first_batting(const match_state& match, line_printer& out, const batting_columns& columns) {
  print_batting_header(out, columns);
  for (int i = 1; i <= men_in_eleven; ++i) {
    const batting_card_rec& batsman = match.first_batting_card[i];
    if (!batsman.name.empty()) print_batting_row(out, batsman, batsman.fielder, batsman.how_out, columns);
  }
}

void print_batting(const match_state& match, line_printer& out, const scorecard_form& card,
                   const batting_columns& columns) {
  print_batting_header(out, columns);
  for (int i = 1; i <= men_in_eleven; ++i) {
    const batting_card_rec& batsman = match.batting_card[i];
    if (!batsman.name.empty()) print_batting_row(out, batsman, card.fielders[i], card.how_out[i], columns);
  }
}

void print_first_total(const match_state& match, line_printer& out) {
  out.tab(34).text(" (").text(number_text(match.first_wickets)).text(" wickets , ");
  out.text(overs_from_balls(match.first_balls)).text("  Overs)").tab(60).number(match.first_total).end();
}

void print_total(line_printer& out, const scorecard_form& card) {
  out.tab(34).text(card.wickets_and_overs).tab(60).text(card.total).end();
}

void print_first_bowling(const match_state& match, line_printer& out) {
  print_bowling_header(out);
  for (int i = men_in_eleven; i >= 1; --i) {
    const bowling_card_rec& bowler = match.first_bowling_card[i];
    if (bowler.balls != 0) print_bowling_row(out, bowler);
  }
}

void print_bowling(const match_state& match, line_printer& out) {
  print_bowling_header(out);
  for (int k = 1; k <= 10; ++k) {
    // The list ends at the first row that shows no name.
    const int position = match.bowler_list[k].position;
    if (position == 0 || match.bowling_card[position].name.empty()) break;
    print_bowling_row(out, match.bowling_card[position]);
  }
}

void wicket_list::print(line_printer& out, const fall_of_wicket_table& falls) {
  for (int i = 1; i <= wickets_of_innings; ++i) {
    const fall_of_wicket_rec& fall = falls[i];
    if (fall.balls <= 0) continue;
    entries_[i] = number_text(fall.score) + " (" + overs_from_balls(fall.balls) + "," + fall.batsman_b + ")";
  }
  out.line("Fall of Wickets :");
  for (int i = 1; i <= 7; i += 3) {
    out.text(entries_[i]).tab(25).text(entries_[i + 1]).tab(50).text(entries_[i + 2]).end();
  }
  out.line(entries_[wickets_of_innings]);
}

}  // namespace velorin
