// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/innings_end.h"

#include <string>
#include <utility>

#include "console/console_figures.h"
#include "database/career_update.h"
#include "engine/match_reset.h"
#include "engine/over_play.h"
#include "model/booking.h"
#include "model/match_state.h"
#include "model/rules.h"
#include "model/run_time_error.h"
#include "model/texts.h"
#include "ui/front_end.h"
#include "ui/saving.h"

namespace velorin {

namespace {

/// Winner, loser and margin; empty names for a tie.
struct verdict {
  std::string winner;
  std::string loser;
  std::string margin;
  std::string message;
  double first_delta = 0;  ///< of the side that batted first; the other's is its negative
};

/// The side that batted first is rated over 50 overs, and so is a chase that failed.
double delta_over_fifty() { return (match.first_total - match.score_runs) / double{overs_of_innings}; }

void conclude(const verdict& outcome) {
  match.result_ground = match.venue_name();
  match.result_winner = outcome.winner;
  match.result_loser = outcome.loser;
  match.result_margin = outcome.margin;
  match.rate_first = {match.team2_name, outcome.first_delta};
  match.rate_second = {match.team1_name, outcome.first_delta == 0 ? 0 : -outcome.first_delta};
  user().show(message_box{"End of Match", outcome.message});
  user().open(report::scorecard);
  finish_match();
  match.innings_changed = true;
}

void conclude_closed_innings() {
  if (match.score_runs == match.first_total) {
    conclude({"", "", "Match tied.", "The match was a tie.", delta_over_fifty()});
    return;
  }
  const std::string runs = number_text(match.first_total - match.score_runs);
  conclude({match.team2_name, match.team1_name, "  won by  " + runs + "  runs",
            match.team2_name + "  wins by  " + runs + "  runs", delta_over_fifty()});
}

void conclude_chase() {
  const std::string wickets = number_text(wickets_of_innings - match.score_wickets);
  const double delta =
      match.first_total / double{overs_of_innings} - double{balls_of_over} * match.score_runs / match.innings_balls;
  conclude({match.team1_name, match.team2_name, "  won by  " + wickets + "  wickets ",
            match.team1_name + "   wins by  " + wickets + "  wickets ", delta});
}

void end_innings() {
  match.innings_over_flag = false;
  if (match.human_involved()) user().show(message_box{"End of Innings", "End of Innings"});
  if (match.first_total != 0) {
    conclude_closed_innings();
    return;
  }
  book_as(match.innings_total, match.score_runs, "innings_total", match.team1_name);
  match.innings_wickets = match.score_wickets;
  user().open(report::scorecard);
  change_innings();
}

void store_commentary() {
  if (match.ball_commentary.size() > most_stored_lines) {
    throw run_time_error(failure::subscript, "Subscript out of range: the commentary has more than 1498 lines",
                         {.file = {}, .record = 0, .field = "commentary_store", .player = {}});
  }
  std::swap(match.commentary_store, match.ball_commentary);
  match.commentary_stored = true;
}

void swap_sides() {
  std::swap(match.team1_name, match.team2_name);
  std::swap(match.computer_bats, match.computer_bowls);
  std::swap(match.batting_xi, match.bowling_xi);
}

void record_unbroken_stand(int wickets, const eleven& men) {
  if (wickets >= wickets_of_innings) return;
  const fall_of_wicket_rec& before = match.fall_of_wicket[wickets];
  fall_of_wicket_rec& stand = match.fall_of_wicket[wickets + 1];
  stand.batsman_a = men[match.lower_batsman()].name;
  const std::string& striker = men[match.striker].name;
  stand.batsman_b = striker + " * ";
  book_as(stand.partner_runs, match.score_runs - before.score, "fall_of_wicket.partner_runs", striker);
  book_as(stand.partner_balls, match.innings_balls - before.balls, "fall_of_wicket.partner_balls", striker);
}

void swap_cards() {
  std::swap(match.batting_card, match.first_batting_card);
  if (match.innings_wickets < wickets_of_innings) {
    match.first_batting_card[match.striker].how_out = "not out";
    match.first_batting_card[match.non_striker].how_out = "not out";
  }
  std::swap(match.bowling_card, match.first_bowling_card);
}

void move_logs() {
  static const fall_of_wicket_table no_falls{};
  std::swap(match.first_fall_of_wicket, match.fall_of_wicket);
  match.fall_of_wicket = no_falls;
  std::swap(match.first_ball_log, match.ball_log);
  for (auto& over : match.ball_log) {
    for (short_text& ball : over) ball.clear();
  }
}

void swap_totals() {
  std::swap(match.innings_total, match.first_total);
  std::swap(match.innings_balls, match.first_balls);
  std::swap(match.innings_wickets, match.first_wickets);
  std::swap(match.innings_no_balls, match.first_no_balls);
  std::swap(match.innings_wides, match.first_wides);
  std::swap(match.innings_byes, match.first_byes);
  std::swap(match.innings_leg_byes, match.first_leg_byes);
}

void save_match() {
  match_update update;
  saved("If you go on without saving, this match is missing from the careers and records.", [&] { update.run(); });
}

void open_second_innings() {
  match.over_no = 1;
  name_openers();
  name_bowlers();
  match.bowler = match.next_bowler = match.striker = match.non_striker = 0;
  pick_opening_bowlers();
  pick_openers();
  name_openers();
  refresh_batsmen();
  name_bowlers();
}

}  // namespace

void end_of_ball_check() {
  if (match.innings_balls == balls_of_innings || match.innings_over_flag) end_innings();
  if (match.first_total != 0 && match.score_runs > match.first_total) conclude_chase();
}

void change_innings() {
  store_commentary();
  swap_sides();
  swap_cards();
  record_unbroken_stand(match.innings_wickets, match.bowling_xi);
  move_logs();
  swap_totals();
  prepare_chase_display();
  book(match.innings_number, 1, "innings_number", match.team1_name);
  static_cast<match_known_achievements&>(match) = {};
  open_second_innings();
  match.innings_changed = true;
}

void finish_match() {
  record_unbroken_stand(match.score_wickets, match.batting_xi);
  save_match();
  match.score_runs = 0;
  match.score_wickets = 0;
  if (match.human_involved()) match.console_open = false;
  reset_match();
}

}  // namespace velorin
