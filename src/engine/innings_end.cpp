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
#include "ui/match_play.h"
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
double delta_over_fifty(const match_state& match) {
  return (match.first_total - match.score_runs) / double{overs_of_innings};
}

void conclude(const match_play& play, const verdict& outcome) {
  play.match.result_ground = play.match.venue_name();
  play.match.result_winner = outcome.winner;
  play.match.result_loser = outcome.loser;
  play.match.result_margin = outcome.margin;
  play.match.rate_first = {play.match.team2_name, outcome.first_delta};
  play.match.rate_second = {play.match.team1_name, outcome.first_delta == 0 ? 0 : -outcome.first_delta};
  play.user.show(message_box{"End of Match", outcome.message});
  play.user.open(report::scorecard);
  finish_match(play);
  play.match.innings_changed = true;
}

void conclude_closed_innings(const match_play& play) {
  if (play.match.score_runs == play.match.first_total) {
    conclude(play, {"", "", "Match tied.", "The match was a tie.", delta_over_fifty(play.match)});
    return;
  }
  const std::string runs = number_text(play.match.first_total - play.match.score_runs);
  conclude(play, {play.match.team2_name, play.match.team1_name, "  won by  " + runs + "  runs",
                  play.match.team2_name + "  wins by  " + runs + "  runs", delta_over_fifty(play.match)});
}

void conclude_chase(const match_play& play) {
  const std::string wickets = number_text(wickets_of_innings - play.match.score_wickets);
  const double delta = play.match.first_total / double{overs_of_innings} -
                       double{balls_of_over} * play.match.score_runs / play.match.innings_balls;
  conclude(play, {play.match.team1_name, play.match.team2_name, "  won by  " + wickets + "  wickets ",
                  play.match.team1_name + "   wins by  " + wickets + "  wickets ", delta});
}

void end_innings(const match_play& play) {
  play.match.innings_over_flag = false;
  if (play.match.human_involved()) play.user.show(message_box{"End of Innings", "End of Innings"});
  if (play.match.first_total != 0) {
    conclude_closed_innings(play);
    return;
  }
  book_as(play.match.innings_total, play.match.score_runs, "innings_total", play.match.team1_name);
  play.match.innings_wickets = play.match.score_wickets;
  play.user.open(report::scorecard);
  change_innings(play);
}

void store_commentary(match_state& match) {
  if (match.ball_commentary.size() > most_stored_lines) {
    throw run_time_error(failure::subscript, "Subscript out of range: the commentary has more than 1498 lines",
                         {.file = {}, .record = 0, .field = "commentary_store", .player = {}});
  }
  std::swap(match.commentary_store, match.ball_commentary);
  match.commentary_stored = true;
}

void swap_sides(match_state& match) {
  std::swap(match.team1_name, match.team2_name);
  std::swap(match.computer_bats, match.computer_bowls);
  std::swap(match.batting_xi, match.bowling_xi);
}

void record_unbroken_stand(match_state& match, int wickets, const eleven& men) {
  if (wickets >= wickets_of_innings) return;
  const fall_of_wicket_rec& before = match.fall_of_wicket[wickets];
  fall_of_wicket_rec& stand = match.fall_of_wicket[wickets + 1];
  stand.batsman_a = men[match.lower_batsman()].name;
  const std::string& striker = men[match.striker].name;
  stand.batsman_b = striker + " * ";
  book_as(stand.partner_runs, match.score_runs - before.score, "fall_of_wicket.partner_runs", striker);
  book_as(stand.partner_balls, match.innings_balls - before.balls, "fall_of_wicket.partner_balls", striker);
}

void swap_cards(match_state& match) {
  std::swap(match.batting_card, match.first_batting_card);
  if (match.innings_wickets < wickets_of_innings) {
    match.first_batting_card[match.striker].how_out = "not out";
    match.first_batting_card[match.non_striker].how_out = "not out";
  }
  std::swap(match.bowling_card, match.first_bowling_card);
}

void move_logs(match_state& match) {
  static const fall_of_wicket_table no_falls{};
  std::swap(match.first_fall_of_wicket, match.fall_of_wicket);
  match.fall_of_wicket = no_falls;
  std::swap(match.first_ball_log, match.ball_log);
  for (auto& over : match.ball_log) {
    for (short_text& ball : over) ball.clear();
  }
}

void swap_totals(match_state& match) {
  std::swap(match.innings_total, match.first_total);
  std::swap(match.innings_balls, match.first_balls);
  std::swap(match.innings_wickets, match.first_wickets);
  std::swap(match.innings_no_balls, match.first_no_balls);
  std::swap(match.innings_wides, match.first_wides);
  std::swap(match.innings_byes, match.first_byes);
  std::swap(match.innings_leg_byes, match.first_leg_byes);
}

void save_match(const match_play& play) {
  match_update update(play.match, play.data);
  saved(play.user, "If you go on without saving, this match is missing from the careers and records.",
        [&] { update.run(); });
}

void open_second_innings(const match_play& play) {
  play.match.over_no = 1;
  name_openers(play.match);
  name_bowlers(play.match);
  play.match.bowler = play.match.next_bowler = play.match.striker = play.match.non_striker = 0;
  pick_opening_bowlers(play);
  pick_openers(play.match, play.user);
  name_openers(play.match);
  refresh_batsmen(play.match);
  name_bowlers(play.match);
}

}  // namespace

void end_of_ball_check(const match_play& play) {
  if (play.match.innings_balls == balls_of_innings || play.match.innings_over_flag) end_innings(play);
  if (play.match.first_total != 0 && play.match.score_runs > play.match.first_total) conclude_chase(play);
}

void change_innings(const match_play& play) {
  store_commentary(play.match);
  swap_sides(play.match);
  swap_cards(play.match);
  record_unbroken_stand(play.match, play.match.innings_wickets, play.match.bowling_xi);
  move_logs(play.match);
  swap_totals(play.match);
  prepare_chase_display(play.match);
  book(play.match.innings_number, 1, "innings_number", play.match.team1_name);
  static_cast<match_known_achievements&>(play.match) = {};
  open_second_innings(play);
  play.match.innings_changed = true;
}

void finish_match(const match_play& play) {
  record_unbroken_stand(play.match, play.match.score_wickets, play.match.batting_xi);
  save_match(play);
  play.match.score_runs = 0;
  play.match.score_wickets = 0;
  if (play.match.human_involved()) play.match.console_open = false;
  reset_match(play.match);
}

}  // namespace velorin
