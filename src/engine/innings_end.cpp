// SPDX-License-Identifier: GPL-3.0-or-later
#include <string>
#include <utility>

#include "console/console_figures.h"
#include "database/career_update.h"
#include "database/open_database.h"
#include "engine/match_reset.h"
#include "engine/over_play.h"
#include "engine/play_steps.h"
#include "model/booking.h"
#include "model/match_state.h"
#include "model/rules.h"
#include "model/run_time_error.h"
#include "model/texts.h"
#include "reports/match_report.h"
#include "reports/worm_graph.h"
#include "ui/front_end.h"
#include "ui/match_play.h"
#include "ui/saving.h"

namespace velorin {

namespace {

/// Winner, loser and margin; empty names for a tie.
struct verdict {
  match_decision decided = match_decision::none;
  std::string winner;
  std::string loser;
  std::string margin;
  std::string message;
  double first_delta = 0;  ///< of the side that batted first; the other's is its negative
};

bool is_closed(const match_state& match) { return match.innings_balls == balls_of_innings || match.innings_over_flag; }

verdict verdict_on_closed_innings(const match_state& match, match_decision decided) {
  if (decided == match_decision::tie) {
    return {decided, "", "", "Match tied.", "The match was a tie.", rate_gain(match)};
  }
  const std::string runs = number_text(match.first_total - match.score_runs);
  return {decided,
          match.team2_name,
          match.team1_name,
          "  won by  " + runs + "  runs",
          match.team2_name + "  wins by  " + runs + "  runs",
          rate_gain(match)};
}

verdict verdict_on_chase(const match_state& match) {
  const std::string wickets = number_text(wickets_of_innings - match.score_wickets);
  return {decision_on(match),
          match.team1_name,
          match.team2_name,
          "  won by  " + wickets + "  wickets ",
          match.team1_name + "   wins by  " + wickets + "  wickets ",
          rate_gain(match)};
}

verdict verdict_on(const match_state& match) {
  const match_decision decided = decision_on(match);
  return decided == match_decision::wickets ? verdict_on_chase(match) : verdict_on_closed_innings(match, decided);
}

void store_commentary(match_state& match) {
  if (has_too_many_lines(match.deliveries, overs_closed(match))) {
    throw run_time_error(failure::subscript, "Subscript out of range: the commentary has more than 1498 lines",
                         {.file = {}, .record = 0, .field = "commentary_store", .player = {}});
  }
  match.commentary_stored = true;
}

void swap_sides(match_state& match) {
  std::swap(match.team1_name, match.team2_name);
  std::swap(match.computer_bats, match.computer_bowls);
  std::swap(match.batting_xi, match.bowling_xi);
}

void swap_cards(match_state& match) {
  std::swap(match.batting_card, match.first_batting_card);
  if (match.innings_wickets < wickets_of_innings) {
    for (const int position : {match.striker, match.non_striker}) {
      match.first_batting_card[position].how = dismissal::not_out;
      match.first_batting_card[position].how_out = "not out";
    }
  }
  std::swap(match.bowling_card, match.first_bowling_card);
}

void move_logs(match_state& match) {
  match.first_falls_shown = std::exchange(match.falls_shown, -1);
  std::swap(match.first_deliveries, match.deliveries);
  match.deliveries.clear();
  match.over_on_show.of_innings_before = true;
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

}  // namespace

match_decision decision_on(const match_state& match) {
  // An innings that is closed is judged before a chase that has succeeded.
  if (!is_closed(match)) return match_decision::wickets;
  return match.score_runs == match.first_total ? match_decision::tie : match_decision::runs;
}

double rate_gain(const match_state& match) {
  // The side that batted first is rated over 50 overs, and so is a chase that failed.
  if (is_closed(match)) return (match.first_total - match.score_runs) / double{overs_of_innings};
  return match.first_total / double{overs_of_innings} - double{balls_of_over} * match.score_runs / match.innings_balls;
}

play_step judge_innings(const match_state& match) {
  if (is_closed(match)) return match.human_involved() ? play_step::innings_end_told : play_step::innings_over;
  if (match.first_total != 0 && match.score_runs > match.first_total) return play_step::match_reported;
  return play_step::milestones;
}

play_step close_innings(match_state& match) {
  if (match.first_total != 0) return play_step::match_reported;
  match.innings_over_flag = false;
  book_as(match.innings_total, match.score_runs, "innings_total", match.team1_name);
  match.innings_wickets = match.score_wickets;
  return play_step::innings_card_shown;
}

void conclude(match_state& match) {
  const verdict outcome = verdict_on(match);
  match.result_ground = match.venue_name();
  match.decided = outcome.decided;
  match.result_winner = outcome.winner;
  match.result_loser = outcome.loser;
  match.result_margin = outcome.margin;
  match.rate_first = {match.team2_name, outcome.first_delta};
  match.rate_second = {match.team1_name, outcome.first_delta == 0 ? 0 : -outcome.first_delta};
}

void show_match_report(const match_play& play) {
  match_report_form form(play.match, play.data);
  play.user.show(form);
}

void tell_match_end(const match_state& match, front_end& user) {
  user.show(message_box{"End of Match", verdict_on(match).message, message_kind::end_of_match});
}

template <keeping Kept>
void change_innings(match_state& match) {
  store_commentary(match);
  if constexpr (Kept == keeping::everything) keep_worms(match);
  swap_sides(match);
  swap_cards(match);
  move_logs(match);
  swap_totals(match);
  prepare_chase_display(match);
  book(match.innings_number, 1, "innings_number", match.team1_name);
  static_cast<match_known_achievements&>(match) = {};
  match.over_no = 1;
  name_openers(match);
  name_bowlers(match);
  match.bowler = match.next_bowler = match.striker = match.non_striker = 0;
}

template void change_innings<keeping::everything>(match_state& match);
template void change_innings<keeping::rules>(match_state& match);

void close_books(match_state& match) {
  match.last_stand_closed = true;
  keep_worms(match);
}

void save_match(const match_play& play) {
  if (play.match.practice) return;
  const std::string name = play.user.saves_match();
  const bool kept = play.data.files.updates && play.data.files.keeper != nullptr;
  match_update update(play.match, play.data, play.match.update_added, name,
                      kept ? play.user.match_recording() : std::string());
  saved(play.user, "If you go on without saving, this match is missing from the careers and records.",
        [&] { update.run(); });
  play.user.match_saved();
}

play_step close_match(match_state& match) {
  match.score_runs = 0;
  match.score_wickets = 0;
  if (match.human_involved()) match.console_open = false;
  reset_match(match);
  return play_step::closed;
}

}  // namespace velorin
