// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/over_play.h"

#include <cstddef>
#include <utility>

#include "captain/computer_captain.h"
#include "console/captain_forms.h"
#include "console/console_figures.h"
#include "engine/match_reset.h"
#include "engine/play_steps.h"
#include "model/booking.h"
#include "model/innings_log.h"
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

/// The over browser stands on the over just completed.
void browse_last_over(match_state& match) {
  match.browser_maximum = match.over_no - 1;
  show_past_over(match, match.browser_maximum);
}

void play_unattended(const match_play& play) {
  match_state& match = play.match;
  take_steps(play);
  while (match.next_step != play_step::unattended_over && !is_unattended_over(match)) {
    match.overs_begun += 1;
    match.next_step = play_step::over_told;
    take_steps(play);
  }
  match.next_step = play_step::unattended_over;
  play.user.progress_done();
  match.next_step = play_step::closed;
  if (match.over_no == 0) return;
  // Not reset, so not finished.
  static_cast<match_result&>(match) = {};
  keep_worms(match);
  reset_match(match);
}

/// The computer has ranked the bowlers of this side already.
bool is_ranked(const match_state& match) {
  for (int i = 1; i <= men_in_eleven; ++i) {
    const bowler_pool_rec& man = match.bowler_pool[i];
    if (man.position == 0 || man.name != match.bowling_xi[man.position].name) return false;
  }
  return true;
}

/// The opening pair as the reviews of the first two overs would have noted it: the man of the second over, then that of
/// the first.
void make_up_opening_pair(match_state& match) {
  const auto first = deliveries_of_over(match.deliveries, 1);
  if (first.empty() || overs_closed(match) == 0) return;
  const auto second = deliveries_of_over(match.deliveries, 2);
  match.opening_bowlers[0] = second.empty() ? match.bowler : integer(second.front().bowler);
  match.opening_bowlers[1] = first.front().bowler;
}

/// The steps of an over from its beginning to its first ball, and any later one that is to be bowled.
bool awaits_ball(play_step step) {
  return step == play_step::over_begins || step == play_step::quota_told || step == play_step::quota_choice ||
         step == play_step::ball_bowled;
}

/// While it lives, whoever sits before the match sees its console.
class ConsoleInSight {
 public:
  ConsoleInSight(const match_play& play, console_form& console) : user_(play.user), opened_(play.match.attended) {
    if (opened_) user_.console_opens(console);
  }
  ~ConsoleInSight() {
    if (opened_) user_.console_closes();
  }
  ConsoleInSight(const ConsoleInSight&) = delete;
  ConsoleInSight& operator=(const ConsoleInSight&) = delete;

 private:
  front_end& user_;
  bool opened_;
};

/// With somebody before the match the console is shown until it is over.
void show_console(const match_play& play, console_form& console) {
  if (play.match.console_open && play.match.human_involved()) {
    // However it is left, no later match plays with what is kept for one of practice.
    struct Kept {
      random_source& chance;
      ~Kept() { chance.forget_readings(); }
    } const kept{play.chance};
    play.user.show(console);
  }
  play.match.console_open = false;
}

}  // namespace

bool is_unattended_over(const match_state& match) {
  if (match.next_step == play_step::closed || match.overs_begun >= 2 * overs_of_innings) return true;
  return match.overs_begun > 0 && match.innings_balls == 0 && match.first_total == 0;
}

void name_openers(match_state& match) {
  for (const int i : {1, 2}) match.batting_card[i].name = match.batting_xi[i].name;
}

void name_bowlers(match_state& match) {
  for (int i = 1; i <= men_in_eleven; ++i) match.bowling_card[i].name = match.bowling_xi[i].name;
}

play_step open_bowling(const match_play& play) {
  match_state& match = play.match;
  const bool first_innings = match.innings_number == 1;
  if (match.computer_bowls) {
    choose_opening_bowlers(match, play.chance);
    return first_innings && match.human_involved() ? play_step::opening_bowlers_named : play_step::openers;
  }
  bowler_choice_form form(match, bowler_choice_form::use::first_opener, "Select 1st Opening Bowler");
  play.user.show(form);
  require_position(match.bowler, "bowler");
  return play_step::second_opening_bowler;
}

play_step ask_second_bowler(match_state& match, front_end& user) {
  if (match.computer_bowls) {
    choose_second_opening_bowler(match);
    return play_step::openers;
  }
  bowler_choice_form form(match, bowler_choice_form::use::second_opener, "Select 2nd Opening Bowler");
  user.show(form);
  require_position(match.next_bowler, "next_bowler");
  return play_step::openers;
}

void tell_opening_bowlers(const match_state& match, front_end& user) {
  user.show(message_box{"Opening Bowlers",
                        match.bowling_xi[match.bowler].name + " and " + match.bowling_xi[match.next_bowler].name +
                            " are the opening bowlers for " + match.team2_name,
                        message_kind::opening_bowlers});
}

play_step open_batting(match_state& match, front_end& user) {
  if (match.computer_bats) {
    choose_next_batsman(match);
    match.striker = 1;
    choose_next_batsman(match);
    match.non_striker = 2;
    set_batting_aggression(match);
    return play_step::innings_opens;
  }
  next_batsman_form form(match, next_batsman_form::use::first_opener);
  user.show(form);
  match.striker = 1;
  return play_step::second_opener;
}

play_step ask_second_opener(match_state& match, front_end& user) {
  if (match.computer_bats) {
    choose_next_batsman(match);
    match.non_striker = 2;
    set_batting_aggression(match);
    return play_step::innings_opens;
  }
  next_batsman_form form(match, next_batsman_form::use::second_opener);
  user.show(form);
  match.non_striker = 2;
  return play_step::innings_opens;
}

void open_innings(match_state& match) {
  name_openers(match);
  name_bowlers(match);
  refresh_batsmen(match);
  if (match.innings_number != 1) return;
  refresh_rates(match);
  start_clock(match);
}

play_step begin_over(match_state& match) {
  require_position(match.bowler, "bowler");
  require_place_in_log(match);
  if (match.bowling_card[match.bowler].balls >= balls_of_quota) return play_step::quota_told;
  match.maiden_flag = true;
  match.over_on_show = {match.over_no, true, false};
  match.ball_no = 1;
  return play_step::ball_bowled;
}

void tell_quota(const match_state& match, front_end& user) {
  user.show(message_box{
      "Full Quota Bowled",
      match.bowling_xi[match.bowler].name + " has bowled his full quota of 10 overs.Please select a new bowler",
      message_kind::full_quota});
}

void ask_bowler_for_quota(match_state& match, front_end& user) {
  bowler_choice_form form(match, bowler_choice_form::use::quota, "Change Bowler");
  user.show(form);
}

play_step end_over(match_state& match) {
  bowling_card_rec& bowler = match.bowling_card[match.bowler];
  if (match.maiden_flag) book(bowler.maidens, 1, "bowling_card.maidens", bowler.name);
  advance_clock(match);
  match.over_no += 1;
  browse_last_over(match);
  std::swap(match.bowler, match.next_bowler);
  std::swap(match.striker, match.non_striker);
  const bool tells = match.computer_bowls && has_bowler_change_to_tell(match);
  return tells ? play_step::change_told : play_step::bowler_reviewed;
}

void leave_play(match_state& match) {
  match.deliveries.clear();
  match.first_deliveries.clear();
  match.falls_shown = match.first_falls_shown = -1;
  match.last_stand_closed = false;
  static_cast<match_play_place&>(match) = {};
}

void begin_play(match_state& match) {
  static const match_console fresh_console{};
  leave_play(match);
  static_cast<match_console&>(match) = fresh_console;
  match.console_open = true;
  match.innings_number = 1;
  match.over_no = 1;
  match.bowler = match.next_bowler = match.striker = match.non_striker = 0;
  match.attended = match.human_involved();
  match.next_step = play_step::opening_bowlers;
}

void open_console(const match_play& play) {
  match_state& match = play.match;
  begin_play(match);
  if (match.attended) {
    take_steps(play);
  } else {
    play_unattended(play);
  }
}

void next_over(const match_play& play) {
  if (play.match.next_step == play_step::closed || play.match.next_step == play_step::between_overs) {
    play.match.next_step = play_step::over_begins;
  }
  take_steps(play);
}

void bowl_next_ball(const match_play& play) {
  match_state& match = play.match;
  if (match.next_step == play_step::closed || match.next_step == play_step::between_overs) {
    match.next_step = play_step::over_begins;
  }
  const bool to_be_bowled = awaits_ball(match.next_step);
  const std::size_t before = match.deliveries.size();
  do {
    take_step(play);
    if (match.next_step == play_step::closed || match.next_step == play_step::between_overs) return;
  } while (match.next_step != play_step::ball_bowled || (to_be_bowled && match.deliveries.size() == before));
}

void play_match(const match_play& play) {
  begin_play(play.match);
  resume_play(play);
}

void resume_play(const match_play& play) {
  match_state& match = play.match;
  if (match.next_step == play_step::closed) return;
  console_form console(play);
  const ConsoleInSight in_sight(play, console);
  if (!match.attended) {
    play_unattended(play);
  } else if (match.innings_number == 1 && match.deliveries.empty()) {
    // The console is used once the first innings has been opened.
    take_steps(play);
  }
  show_console(play, console);
}

void set_captain(match_state& match, match_side side, bool computer) {
  if (side == match_side::batting) {
    match.computer_bats = computer;
    return;
  }
  if (computer && !match.computer_bowls && match.bowler != 0) {
    if (!is_ranked(match)) rank_bowlers(match, 0);
    make_up_opening_pair(match);
  }
  match.computer_bowls = computer;
  match.bowler_change_pending = false;
  match.bowler_change_out = match.bowler_change_in = 0;
}

}  // namespace velorin
