// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/scorecard.h"

#include "model/match_state.h"
#include "model/rounding.h"
#include "model/rules.h"
#include "model/texts.h"
#include "ui/front_end.h"

namespace velorin {

namespace {

void fill_batsmen(batting_screen& screen, const batting_card_table& card, const eleven& men) {
  for (int i = 1; i <= men_in_eleven; ++i) {
    const batting_card_rec& batsman = card[i];
    const bool has_batted = !batsman.name.empty();
    screen.fielders[i] = batsman.fielder;
    screen.how_out[i] = batsman.how_out;
    screen.names[i] = batsman.name;
    screen.details_buttons[i] = {batsman.name, has_batted};
    if (!has_batted && !men[i].name.empty()) screen.to_come.push_back(men[i].name);
    if (!has_batted) continue;
    screen.fours[i] = number_text(batsman.fours);
    screen.sixes[i] = number_text(batsman.sixes);
    if (batsman.balls != 0) {
      screen.strike_rates[i] = number_text(round_to(static_cast<double>(batsman.runs) / batsman.balls * 100, 2));
    }
    screen.runs[i] = number_text(batsman.runs);
    screen.balls_faced[i] = "(" + number_text(batsman.balls) + ")";
  }
}

/// The total, what it was made in, and its rate. `opening` is the bracket ahead of the wickets.
void fill_total(batting_screen& screen, int total, int wickets, int balls, std::string_view opening) {
  screen.total = number_text(total);
  screen.wickets_and_overs =
      std::string(opening) + number_text(wickets) + " wickets , " + overs_from_balls(balls) + "  Overs)";
  if (balls != 0) screen.run_rate = number_text(runs_per_over(total, balls));
}

std::string counted(int number, std::string_view what) {
  return number_text(number) + " " + std::string(what) + (number == 1 ? "" : "s");
}

/// No balls and wides stand among the extras, but no run of them is in the total.
std::string left_out(int no_balls, int wides) {
  std::string which;
  if (no_balls > 0) which = counted(no_balls, "no ball");
  if (wides > 0) which += (which.empty() ? "" : " and ") + counted(wides, "wide");
  return which.empty() ? which : "The total does not count " + which + ".";
}

batsman_figures details_of(const batting_card_rec& card, bool not_out) {
  batsman_figures figures = figures_of(card);
  // The cards divide first, as they do for the run rate; the last digit can differ from the console's.
  if (card.balls != 0) {
    figures.strike_rate = number_text(round_to(static_cast<double>(card.runs) / card.balls * 100, 2));
  }
  const std::string dismissal = not_out ? "  Not Out         " : " " + card.fielder + " " + card.how_out + "  ";
  figures.headline = card.name + dismissal + number_text(card.runs) + " (" + number_text(card.balls) + ").";
  return figures;
}

bool at_the_crease(const match_state& match, int position) {
  return position == match.striker || position == match.non_striker;
}

/// All out, all overs bowled, or the target passed.
bool innings_is_over(const match_state& match) {
  const bool passed = match.first_total != 0 && match.score_runs > match.first_total;
  return passed || match.score_wickets >= men_in_eleven - 1 || match.innings_balls >= balls_of_innings;
}

}  // namespace

double runs_per_over(int runs, int balls) { return round_to(static_cast<double>(runs) / balls * balls_of_over, 2); }

void scorecard_form::open() {
  static_cast<batting_screen&>(*this) = {};
  ground = match_.venue_name();
  batting_side = match_.team1_name;
  to_come_words = innings_is_over(match_) ? "did not bat" : "to come";
  fill_batsmen(*this, match_.batting_card, match_.batting_xi);
  fill_total(*this, match_.score_runs, match_.score_wickets, match_.innings_balls, "(");
  for (int i = 1; i <= men_in_eleven; ++i) {
    if (at_the_crease(match_, i) && match_.batting_card[i].how == dismissal::none) how_out[i] = "  Not Out   ";
  }
  extras_line = "Extras ( No Balls " + number_text(match_.innings_no_balls) + " Wides " +
                number_text(match_.innings_wides) + " Leg Byes " + number_text(match_.innings_leg_byes) + " Byes " +
                number_text(match_.innings_byes) + " ) ";
  extras_total =
      number_text(match_.innings_no_balls + match_.innings_wides + match_.innings_leg_byes + match_.innings_byes);
  not_counted = left_out(match_.innings_no_balls, match_.innings_wides);
  first_innings_enabled = match_.first_total != 0;
}

void scorecard_form::show_first_innings(front_end& user) const {
  if (first_innings_enabled) user.open(report::first_scorecard);
}
void scorecard_form::show_bowling(front_end& user) const { user.open(report::bowling_card); }
void scorecard_form::show_partnerships(front_end& user) const { user.open(report::partnerships); }
void scorecard_form::show_overs_graph(front_end& user) const { user.open(report::overs_graph); }
void scorecard_form::show_worm_graph(front_end& user) const { user.open(report::worm_graph); }

batsman_figures scorecard_form::details(int i) const {
  const batting_card_rec& card = match_.batting_card[i];
  return details_of(card, card.how == dismissal::none && at_the_crease(match_, i));
}

void first_scorecard_form::open() {
  static_cast<batting_screen&>(*this) = {};
  ground = match_.venue_name();
  batting_side = match_.team2_name;
  to_come_words = "did not bat";
  fill_batsmen(*this, match_.first_batting_card, match_.bowling_xi);
  fill_total(*this, match_.first_total, match_.first_wickets, match_.first_balls, " (");
  extras_line = "Extras ( No Balls " + number_text(match_.first_no_balls) + ",Wides " +
                number_text(match_.first_wides) + " Leg Byes " + number_text(match_.first_leg_byes) + ",Byes " +
                number_text(match_.first_byes) + " ) ";
  extras_total = number_text(match_.first_no_balls + match_.first_wides + match_.first_leg_byes + match_.first_byes);
  not_counted = left_out(match_.first_no_balls, match_.first_wides);
}

void first_scorecard_form::show_bowling(front_end& user) const { user.open(report::first_bowling_card); }
void first_scorecard_form::show_partnerships(front_end& user) const { user.open(report::first_partnerships); }

batsman_figures first_scorecard_form::details(int i) const {
  const batting_card_rec& card = match_.first_batting_card[i];
  return details_of(card, card.how == dismissal::not_out);
}

}  // namespace velorin
