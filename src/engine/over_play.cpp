// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/over_play.h"

#include <array>
#include <cstddef>
#include <stdexcept>
#include <utility>

#include "captain/computer_captain.h"
#include "console/captain_forms.h"
#include "console/console_figures.h"
#include "engine/ball_books.h"
#include "engine/delivery_model.h"
#include "engine/innings_end.h"
#include "engine/match_reset.h"
#include "model/booking.h"
#include "model/check_match.h"
#include "model/match_state.h"
#include "model/random.h"
#include "model/rules.h"
#include "model/run_time_error.h"
#include "model/texts.h"
#include "reports/worm_graph.h"
#include "ui/front_end.h"

namespace velorin {

namespace {

/// What lives in one press of the over button only.
struct over_in_progress {
  int ball_no = 1;         ///< 1 to 6: the loop counter, and the slot of this ball in the log
  bool free_ball = false;  ///< the delivery just handled is not to be counted

  short_text& log_entry() const { return match.ball_log[match.over_no][ball_no]; }
  short_text& symbol() const { return match.over_symbols[ball_no - 1]; }

  /// Writes one character to the log and the symbols.
  void note(char what) const {
    log_entry().set(what);
    symbol().set(what);
  }
};

void require_position(int position, const char* field) {
  if (position >= 1 && position <= men_in_eleven) return;
  throw run_time_error(failure::subscript, "Subscript out of range: nobody was chosen",
                       {.file = {}, .record = 0, .field = field, .player = {}});
}

/// The log has fifty overs. Only an innings that began with the balls of an earlier one can go past them.
void require_place_in_log() {
  if (match.over_no <= overs_of_innings) return;
  throw run_time_error(failure::subscript, "Subscript out of range: an innings of more than 50 overs",
                       {.file = {}, .record = 0, .field = "ball_log", .player = match.team1_name});
}

void say(ball_text text, int number) { match.ball_commentary.add_ball({text, number, match.bowler, match.striker}); }

/// After an odd number of runs the batsmen have changed ends. Written without a branch: nobody can foresee it.
void change_ends(int runs) {
  const std::array<integer, 2> ends = {match.striker, match.non_striker};
  const std::size_t odd = static_cast<std::size_t>(runs) & 1U;
  match.striker = ends[odd];
  match.non_striker = ends[1 - odd];
}

void off_the_bat(over_in_progress& over) {
  const int runs = match.ball_outcome;
  over.note(static_cast<char>('0' + runs));
  match.score_runs += runs;
  say(ball_text::runs, runs);
  change_ends(runs);
}

/// A ball faced without a run off the bat.
void book_dot(batting_card_rec& batsman) {
  book(batsman.balls, 1, "batting_card.balls", batsman.name);
  book(batsman.dots, 1, "batting_card.dots", batsman.name);
}

void extras_off_the_body(over_in_progress& over) {
  book_dot(match.batting_card[match.striker]);
  const int runs = die(4);
  change_ends(runs);
  match.score_runs += runs;
  over.note(static_cast<char>('0' + runs));
  if (match.ball_outcome == leg_byes) {
    say(ball_text::leg_byes, runs);
    book(match.innings_leg_byes, runs, "innings_leg_byes", match.team1_name);
    over.symbol() += "lb";
  } else {
    say(ball_text::byes, runs);
    book(match.innings_byes, runs, "innings_byes", match.team1_name);
    over.symbol() += "b";
  }
}

/// No balls and wides stand on the log entry of the ball before; where that is no number, the ball counts and leaves no
/// other trace. Deliveries that do not count have no end but that of the figure.
void no_ball_or_wide(over_in_progress& over) {
  if (over.ball_no > 1) over.ball_no -= 1;
  short_text& entry = over.log_entry();
  const int number = symbol_number(entry);
  if (number < 0) return;
  entry = number_text(number + 1);
  over.free_ball = true;
  if (match.ball_outcome == no_ball) {
    say(ball_text::no_ball, 0);
    book(match.innings_no_balls, 1, "innings_no_balls", match.bowling_card[match.bowler].name);
  } else {
    say(ball_text::wide, 0);
    book(match.innings_wides, 1, "innings_wides", match.bowling_card[match.bowler].name);
  }
}

void show_fall_of_wicket(const batting_card_rec& out) {
  batsman_details_form form;
  form.title = "Fall Of Wicket";
  form.figures = figures_of(out);
  form.figures.title = form.title;
  form.figures.headline = out.name + " " + out.fielder + " " + out.how_out + "  " + number_text(int(out.runs)) + " (" +
                          number_text(int(out.balls)) + ").";
  user().show(form);
}

void bring_in_next_batsman() {
  if (match.computer_bats) {
    choose_next_batsman();
  } else {
    next_batsman_form form("Select Next Batsman");
    user().show(form);
  }
  match.striker = match.next_batsman_slot + 1;
  match.batting_card[match.striker].name = match.batting_xi[match.striker].name;
}

void fall_of_a_wicket(over_in_progress& over) {
  batting_card_rec& out = match.batting_card[match.striker];
  over.note('W');
  match.score_wickets += 1;
  book_dot(out);
  record_fall_of_wicket();
  bool run_out = false;
  record_dismissal(run_out);
  bowling_card_rec& bowler = match.bowling_card[match.bowler];
  if (!run_out) book(bowler.wickets, 1, "bowling_card.wickets", bowler.name);
  match.ball_commentary.add_wicket(match.bowler, match.striker);
  match.last_wicket = {match.striker, match.innings_number, match.score_runs};
  if (match.human_involved()) show_fall_of_wicket(out);
  if (match.striker >= men_in_eleven || match.non_striker >= men_in_eleven) {
    match.innings_over_flag = true;
    match.innings_changed = true;
    return;
  }
  bring_in_next_batsman();
}

void act_on_outcome(over_in_progress& over) {
  if (match.ball_outcome <= six_runs) {
    off_the_bat(over);
    return;
  }
  switch (match.ball_outcome) {
    case wicket:
      fall_of_a_wicket(over);
      break;
    case no_ball:
    case wide_ball:
      no_ball_or_wide(over);
      break;
    default:
      extras_off_the_body(over);
  }
}

#ifndef NDEBUG
void verify_match() {
  if (const std::string broken = check_match(); !broken.empty()) throw std::logic_error(broken);
}
#else
void verify_match() {}
#endif

/// One delivery with all that it causes. False if the innings or the match ended with it.
bool bowl_ball(over_in_progress& over) {
  deliver_ball();
  act_on_outcome(over);
  record_runs();
  if (over.free_ball) {
    over.free_ball = false;
  } else {
    bowling_card_rec& bowler = match.bowling_card[match.bowler];
    book(match.innings_balls, 1, "innings_balls", match.team1_name);
    book(bowler.balls, 1, "bowling_card.balls", bowler.name);
  }
  feed_worms();
  refresh_batsmen();
  refresh_bowling_card();
  verify_match();
  user().ball_bowled();
  end_of_ball_check();
  if (match.innings_changed) {
    match.innings_changed = false;
    return false;
  }
  check_milestones();
  if (match.computer_bats) set_batting_aggression();
  return true;
}

void enforce_quota() {
  while (match.bowling_card[match.bowler].balls >= balls_of_quota) {
    user().show(message_box{
        "Full Quota Bowled",
        match.bowling_xi[match.bowler].name + " has bowled his full quota of 10 overs.Please select a new bowler"});
    bowler_choice_form form(bowler_choice_form::use::quota, "Change Bowler");
    user().show(form);
    require_position(match.bowler, "bowler");
  }
}

/// The over browser stands on the over just completed.
void browse_last_over() {
  match.browser_maximum = match.over_no - 1;
  console_form().browse_over(match.browser_maximum);
}

void end_over() {
  bowling_card_rec& bowler = match.bowling_card[match.bowler];
  match.ball_log[match.over_no][balls_of_over + 1] = bowler.name;
  if (match.maiden_flag) book(bowler.maidens, 1, "bowling_card.maidens", bowler.name);
  log_over();
  advance_clock();
  match.over_no += 1;
  browse_last_over();
  std::swap(match.bowler, match.next_bowler);
  std::swap(match.striker, match.non_striker);
  if (match.computer_bowls) review_bowler();
  refresh_rates();
}

void start_clock() {
  const std::string digits = number_text(static_cast<long>(match.ground.start_time));
  const auto part = [&](const std::string& text) {
    const auto number = number_in(text);
    if (!number) {
      throw run_time_error(failure::type, "Type mismatch: the start of play is no time of day",
                           {.file = {}, .record = 0, .field = "start_time", .player = match.venue_name()});
    }
    return static_cast<int>(*number);
  };
  const std::string last = digits.size() > 2 ? digits.substr(digits.size() - 2) : digits;
  match.clock_minutes = 60 * part(digits.substr(0, 2)) + part(last);
}

void play_unattended() {
  for (int over = 1; over <= 2 * overs_of_innings; ++over) {
    user().progress(over);
    next_over();
    if (match.innings_balls == 0 && match.first_total == 0) break;
  }
  user().progress_done();
  if (match.over_no == 0) return;
  // Not reset, so not finished: the loop took a first innings of 0 for the end of the match.
  static_cast<match_result&>(match) = {};
  reset_match();
}

}  // namespace

void name_openers() {
  for (const int i : {1, 2}) match.batting_card[i].name = match.batting_xi[i].name;
}

void name_bowlers() {
  for (int i = 1; i <= men_in_eleven; ++i) match.bowling_card[i].name = match.bowling_xi[i].name;
}

void pick_opening_bowlers() {
  if (match.computer_bowls) {
    choose_opening_bowlers();
    return;
  }
  bowler_choice_form first(bowler_choice_form::use::first_opener, "Select 1st Opening Bowler");
  user().show(first);
  require_position(match.bowler, "bowler");
  bowler_choice_form second(bowler_choice_form::use::second_opener, "Select 2nd Opening Bowler");
  user().show(second);
  require_position(match.next_bowler, "next_bowler");
}

void pick_openers() {
  if (match.computer_bats) {
    choose_next_batsman();
    match.striker = 1;
    choose_next_batsman();
    match.non_striker = 2;
    set_batting_aggression();
    return;
  }
  next_batsman_form first("Select 1st Opener");
  user().show(first);
  match.striker = 1;
  next_batsman_form second("Select 2nd Opener");
  user().show(second);
  match.non_striker = 2;
}

void open_console() {
  static const match_console fresh{};
  static_cast<match_console&>(match) = fresh;
  match.console_open = true;
  match.innings_number = 1;
  match.over_no = 1;
  match.bowler = match.next_bowler = match.striker = match.non_striker = 0;
  pick_opening_bowlers();
  if (match.computer_bowls && match.human_involved()) {
    user().show(message_box{"Opening Bowlers", match.bowling_xi[match.bowler].name + " and " +
                                                   match.bowling_xi[match.next_bowler].name +
                                                   " are the opening bowlers for " + match.team2_name});
  }
  pick_openers();
  name_openers();
  name_bowlers();
  refresh_batsmen();
  refresh_rates();
  start_clock();
  if (!match.human_involved()) play_unattended();
}

void next_over() {
  require_position(match.bowler, "bowler");
  require_place_in_log();
  enforce_quota();
  match.maiden_flag = true;
  for (short_text& symbol : match.over_symbols) symbol.clear();
  over_in_progress over;
  for (; over.ball_no <= balls_of_over; ++over.ball_no) {
    if (!bowl_ball(over)) return;
  }
  end_over();
}

}  // namespace velorin
