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
#include "ui/match_play.h"

namespace velorin {

namespace {

/// What lives in one press of the over button only.
struct over_in_progress {
  explicit over_in_progress(match_state& match) : match_(match) {}

  int ball_no = 1;         ///< 1 to 6: the loop counter, and the slot of this ball in the log
  bool free_ball = false;  ///< the delivery just handled is not to be counted

  short_text& log_entry() const { return match_.ball_log[match_.over_no][ball_no]; }
  short_text& symbol() const { return match_.over_symbols[ball_no - 1]; }

  /// Writes one character to the log and the symbols.
  void note(char what) const {
    log_entry().set(what);
    symbol().set(what);
  }

 private:
  match_state& match_;
};

void require_position(int position, const char* field) {
  if (position >= 1 && position <= men_in_eleven) return;
  throw run_time_error(failure::subscript, "Subscript out of range: nobody was chosen",
                       {.file = {}, .record = 0, .field = field, .player = {}});
}

/// The log has fifty overs. Only an innings that began with the balls of an earlier one can go past them.
void require_place_in_log(const match_state& match) {
  if (match.over_no <= overs_of_innings) return;
  throw run_time_error(failure::subscript, "Subscript out of range: an innings of more than 50 overs",
                       {.file = {}, .record = 0, .field = "ball_log", .player = match.team1_name});
}

void say(match_state& match, ball_text text, int number) {
  match.ball_commentary.add_ball({text, number, match.bowler, match.striker});
}

/// After an odd number of runs the batsmen have changed ends. Written without a branch: nobody can foresee it.
void change_ends(match_state& match, int runs) {
  const std::array<integer, 2> ends = {match.striker, match.non_striker};
  const std::size_t odd = static_cast<std::size_t>(runs) & 1U;
  match.striker = ends[odd];
  match.non_striker = ends[1 - odd];
}

void off_the_bat(match_state& match, over_in_progress& over) {
  const int runs = match.ball_outcome;
  over.note(static_cast<char>('0' + runs));
  match.score_runs += runs;
  say(match, ball_text::runs, runs);
  change_ends(match, runs);
}

/// A ball faced without a run off the bat.
void book_dot(batting_card_rec& batsman) {
  book(batsman.balls, 1, "batting_card.balls", batsman.name);
  book(batsman.dots, 1, "batting_card.dots", batsman.name);
}

void extras_off_the_body(match_state& match, random_source& chance, over_in_progress& over) {
  book_dot(match.batting_card[match.striker]);
  const int runs = die(chance, 4);
  change_ends(match, runs);
  match.score_runs += runs;
  over.note(static_cast<char>('0' + runs));
  if (match.ball_outcome == leg_byes) {
    say(match, ball_text::leg_byes, runs);
    book(match.innings_leg_byes, runs, "innings_leg_byes", match.team1_name);
    over.symbol() += "lb";
  } else {
    say(match, ball_text::byes, runs);
    book(match.innings_byes, runs, "innings_byes", match.team1_name);
    over.symbol() += "b";
  }
}

/// No balls and wides stand on the log entry of the ball before; where that is no number, the ball counts and leaves no
/// other trace. Deliveries that do not count have no end but that of the figure.
void no_ball_or_wide(match_state& match, over_in_progress& over) {
  if (over.ball_no > 1) over.ball_no -= 1;
  short_text& entry = over.log_entry();
  const int number = symbol_number(entry);
  if (number < 0) return;
  entry = number_text(number + 1);
  over.free_ball = true;
  if (match.ball_outcome == no_ball) {
    say(match, ball_text::no_ball, 0);
    book(match.innings_no_balls, 1, "innings_no_balls", match.bowling_card[match.bowler].name);
  } else {
    say(match, ball_text::wide, 0);
    book(match.innings_wides, 1, "innings_wides", match.bowling_card[match.bowler].name);
  }
}

void show_fall_of_wicket(front_end& user, const batting_card_rec& out) {
  batsman_details_form form;
  form.title = "Fall Of Wicket";
  form.figures = figures_of(out);
  form.figures.title = form.title;
  form.figures.headline = out.name + " " + out.fielder + " " + out.how_out + "  " + number_text(int(out.runs)) + " (" +
                          number_text(int(out.balls)) + ").";
  user.show(form);
}

void bring_in_next_batsman(match_state& match, front_end& user) {
  if (match.computer_bats) {
    choose_next_batsman(match);
  } else {
    next_batsman_form form(match, "Select Next Batsman");
    user.show(form);
  }
  match.striker = match.next_batsman_slot + 1;
  match.batting_card[match.striker].name = match.batting_xi[match.striker].name;
}

void fall_of_a_wicket(const match_play& play, over_in_progress& over) {
  batting_card_rec& out = play.match.batting_card[play.match.striker];
  over.note('W');
  play.match.score_wickets += 1;
  book_dot(out);
  record_fall_of_wicket(play.match);
  bool run_out = false;
  record_dismissal(play.match, play.chance, run_out);
  bowling_card_rec& bowler = play.match.bowling_card[play.match.bowler];
  if (!run_out) book(bowler.wickets, 1, "bowling_card.wickets", bowler.name);
  play.match.ball_commentary.add_wicket(play.match.bowler, play.match.striker);
  play.match.last_wicket = {play.match.striker, play.match.innings_number, play.match.score_runs};
  if (play.match.human_involved()) show_fall_of_wicket(play.user, out);
  if (play.match.striker >= men_in_eleven || play.match.non_striker >= men_in_eleven) {
    play.match.innings_over_flag = true;
    play.match.innings_changed = true;
    return;
  }
  bring_in_next_batsman(play.match, play.user);
}

void act_on_outcome(const match_play& play, over_in_progress& over) {
  if (play.match.ball_outcome <= six_runs) {
    off_the_bat(play.match, over);
    return;
  }
  switch (play.match.ball_outcome) {
    case wicket:
      fall_of_a_wicket(play, over);
      break;
    case no_ball:
    case wide_ball:
      no_ball_or_wide(play.match, over);
      break;
    default:
      extras_off_the_body(play.match, play.chance, over);
  }
}

#ifndef NDEBUG
void verify_match(const match_state& match) {
  if (const std::string broken = check_match(match); !broken.empty()) throw std::logic_error(broken);
}
#else
void verify_match(const match_state& /*match*/) {}
#endif

/// One delivery with all that it causes. False if the innings or the match ended with it.
bool bowl_ball(const match_play& play, over_in_progress& over) {
  deliver_ball(play.match, play.chance);
  act_on_outcome(play, over);
  record_runs(play.match);
  if (over.free_ball) {
    over.free_ball = false;
  } else {
    bowling_card_rec& bowler = play.match.bowling_card[play.match.bowler];
    book(play.match.innings_balls, 1, "innings_balls", play.match.team1_name);
    book(bowler.balls, 1, "bowling_card.balls", bowler.name);
  }
  feed_worms(play.match);
  refresh_batsmen(play.match);
  refresh_bowling_card(play.match);
  verify_match(play.match);
  play.user.ball_bowled();
  end_of_ball_check(play);
  if (play.match.innings_changed) {
    play.match.innings_changed = false;
    return false;
  }
  check_milestones(play.match, play.user);
  if (play.match.computer_bats) set_batting_aggression(play.match);
  return true;
}

void enforce_quota(match_state& match, front_end& user) {
  while (match.bowling_card[match.bowler].balls >= balls_of_quota) {
    user.show(message_box{
        "Full Quota Bowled",
        match.bowling_xi[match.bowler].name + " has bowled his full quota of 10 overs.Please select a new bowler"});
    bowler_choice_form form(match, bowler_choice_form::use::quota, "Change Bowler");
    user.show(form);
    require_position(match.bowler, "bowler");
  }
}

/// The over browser stands on the over just completed.
void browse_last_over(const match_play& play) {
  play.match.browser_maximum = play.match.over_no - 1;
  console_form(play).browse_over(play.match.browser_maximum);
}

void end_over(const match_play& play) {
  bowling_card_rec& bowler = play.match.bowling_card[play.match.bowler];
  play.match.ball_log[play.match.over_no][balls_of_over + 1] = bowler.name;
  if (play.match.maiden_flag) book(bowler.maidens, 1, "bowling_card.maidens", bowler.name);
  log_over(play.match);
  advance_clock(play.match);
  play.match.over_no += 1;
  browse_last_over(play);
  std::swap(play.match.bowler, play.match.next_bowler);
  std::swap(play.match.striker, play.match.non_striker);
  if (play.match.computer_bowls) review_bowler(play.match, play.user);
  refresh_rates(play.match);
}

void start_clock(match_state& match) {
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

void play_unattended(const match_play& play) {
  for (int over = 1; over <= 2 * overs_of_innings; ++over) {
    play.user.progress(over);
    next_over(play);
    if (play.match.innings_balls == 0 && play.match.first_total == 0) break;
  }
  play.user.progress_done();
  if (play.match.over_no == 0) return;
  // Not reset, so not finished: the loop took a first innings of 0 for the end of the match.
  static_cast<match_result&>(play.match) = {};
  reset_match(play.match);
}

}  // namespace

void name_openers(match_state& match) {
  for (const int i : {1, 2}) match.batting_card[i].name = match.batting_xi[i].name;
}

void name_bowlers(match_state& match) {
  for (int i = 1; i <= men_in_eleven; ++i) match.bowling_card[i].name = match.bowling_xi[i].name;
}

void pick_opening_bowlers(const match_play& play) {
  if (play.match.computer_bowls) {
    choose_opening_bowlers(play.match, play.chance);
    return;
  }
  bowler_choice_form first(play.match, bowler_choice_form::use::first_opener, "Select 1st Opening Bowler");
  play.user.show(first);
  require_position(play.match.bowler, "bowler");
  bowler_choice_form second(play.match, bowler_choice_form::use::second_opener, "Select 2nd Opening Bowler");
  play.user.show(second);
  require_position(play.match.next_bowler, "next_bowler");
}

void pick_openers(match_state& match, front_end& user) {
  if (match.computer_bats) {
    choose_next_batsman(match);
    match.striker = 1;
    choose_next_batsman(match);
    match.non_striker = 2;
    set_batting_aggression(match);
    return;
  }
  next_batsman_form first(match, "Select 1st Opener");
  user.show(first);
  match.striker = 1;
  next_batsman_form second(match, "Select 2nd Opener");
  user.show(second);
  match.non_striker = 2;
}

void open_console(const match_play& play) {
  static const match_console fresh{};
  static_cast<match_console&>(play.match) = fresh;
  play.match.console_open = true;
  play.match.innings_number = 1;
  play.match.over_no = 1;
  play.match.bowler = play.match.next_bowler = play.match.striker = play.match.non_striker = 0;
  pick_opening_bowlers(play);
  if (play.match.computer_bowls && play.match.human_involved()) {
    play.user.show(message_box{"Opening Bowlers", play.match.bowling_xi[play.match.bowler].name + " and " +
                                                      play.match.bowling_xi[play.match.next_bowler].name +
                                                      " are the opening bowlers for " + play.match.team2_name});
  }
  pick_openers(play.match, play.user);
  name_openers(play.match);
  name_bowlers(play.match);
  refresh_batsmen(play.match);
  refresh_rates(play.match);
  start_clock(play.match);
  if (!play.match.human_involved()) play_unattended(play);
}

void next_over(const match_play& play) {
  require_position(play.match.bowler, "bowler");
  require_place_in_log(play.match);
  enforce_quota(play.match, play.user);
  play.match.maiden_flag = true;
  for (short_text& symbol : play.match.over_symbols) symbol.clear();
  over_in_progress over(play.match);
  for (; over.ball_no <= balls_of_over; ++over.ball_no) {
    if (!bowl_ball(play, over)) return;
  }
  end_over(play);
}

}  // namespace velorin
