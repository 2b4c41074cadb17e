// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/play_steps.h"

#include <limits>

#include "captain/computer_captain.h"
#include "console/console_figures.h"
#include "engine/ball_books.h"
#include "engine/standing_orders.h"
#include "ui/front_end.h"
#include "ui/match_play.h"

namespace velorin {

namespace {

/// A ball is over: the captain of the batting side looks at it, and the next one or the end of the over follows.
play_step close_ball(match_state& match) {
  if (match.computer_bats) set_batting_aggression(match);
  match.ball_no += 1;
  return match.ball_no <= balls_of_over ? play_step::ball_bowled : play_step::over_ends;
}

/// The messages of the milestones, each until it is answered.
void tell_milestones(match_state& match, front_end& user) {
  while (!match.announcements.empty()) {
    const announcement& next = match.announcements.front();
    user.show(message_box{next.title, next.text, next.kind});
    match.announcements.erase(match.announcements.begin());
  }
}

/// Takes the step that comes next; returns the one that follows on it. What is only shown is passed over where nobody
/// reads.
template <keeping Kept>
play_step step_taken(const match_play& play) {
  match_state& match = play.match;
  front_end& user = play.user;
  constexpr bool is_read = Kept == keeping::everything;
  switch (match.next_step) {
    case play_step::opening_bowlers:
      return open_bowling(play);
    case play_step::second_opening_bowler:
      return ask_second_bowler(match, user);
    case play_step::opening_bowlers_named:
      tell_opening_bowlers(match, user);
      return play_step::openers;
    case play_step::openers:
      return open_batting(match, user);
    case play_step::second_opener:
      return ask_second_opener(match, user);
    case play_step::innings_opens:
      open_innings(match);
      return play_step::between_overs;
    case play_step::over_told:
      user.progress(match.overs_begun);
      return play_step::over_begins;
    case play_step::over_begins:
      return begin_over(match);
    case play_step::quota_told:
      tell_quota(match, user);
      return play_step::quota_choice;
    case play_step::quota_choice:
      ask_bowler_for_quota(match, user);
      return play_step::over_begins;
    case play_step::wicket_told:
      tell_wicket(match, user);
      return play_step::next_batsman;
    case play_step::next_batsman:
      if constexpr (is_read) {
        bring_in_next_batsman(match, user);
      } else {
        bring_in_computers_choice(match);
      }
      return play_step::ball_booked;
    case play_step::ball_booked:
      book_ball<Kept>(match);
      return play_step::ball_told;
    case play_step::ball_told:
      if constexpr (is_read) user.ball_bowled();
      return play_step::innings_judged;
    case play_step::innings_judged:
      return judge_innings(match);
    case play_step::innings_end_told:
      user.show(message_box{"End of Innings", "End of Innings", message_kind::end_of_innings});
      return play_step::innings_over;
    case play_step::innings_over:
      return close_innings(match);
    case play_step::innings_card_shown:
      if constexpr (is_read) user.open(report::scorecard);
      return play_step::innings_changes;
    case play_step::innings_changes:
      change_innings<Kept>(match);
      return play_step::opening_bowlers;
    case play_step::match_reported:
      conclude(match);
      show_match_report(play);
      return play_step::match_end_told;
    case play_step::match_end_told:
      tell_match_end(match, user);
      return play_step::match_card_shown;
    case play_step::match_card_shown:
      user.open(report::scorecard);
      return play_step::last_stand;
    case play_step::last_stand:
      close_books(match);
      return play_step::match_saved;
    case play_step::match_saved:
      save_match(play);
      return play_step::match_closed;
    case play_step::match_closed:
      return close_match(match);
    case play_step::milestones:
      if constexpr (is_read) check_milestones(match);
      return play_step::milestone_told;
    case play_step::milestone_told:
      if constexpr (is_read) tell_milestones(match, user);
      return play_step::ball_over;
    case play_step::ball_over:
      return close_ball(match);
    case play_step::over_ends:
      return end_over(match);
    case play_step::change_told:
      user.show(bowler_change_message(match));
      return play_step::bowler_reviewed;
    case play_step::bowler_reviewed:
      if (match.computer_bowls) review_bowler(match);
      refresh_rates(match);
      return play_step::between_overs;
    case play_step::ball_bowled:
    case play_step::closed:
    case play_step::between_overs:
    case play_step::unattended_over:
      break;
  }
  return match.next_step;
}

/// Ball after ball, at most so many, without a look at what else play can do, until something else comes next. The step
/// is written wherever somebody may copy the match, and where one can fail.
void bowl_balls(const match_play& play, int most, known_contests& known) {
  match_state& match = play.match;
  for (; most > 0 && match.next_step == play_step::ball_bowled; --most) {
    match.next_step = bowl_ball(match, play.chance, known);
    if (match.next_step != play_step::ball_booked) return;
    book_ball(match);
    match.next_step = play_step::ball_told;
    play.user.ball_bowled();
    match.next_step = judge_innings(match);
    if (match.next_step != play_step::milestones) return;
    // Without a run nobody reaches anything.
    if (match.deliveries.back().score() != 0) {
      check_milestones(match);
      match.next_step = play_step::milestone_told;
      if (!match.announcements.empty()) return;
    }
    match.next_step = play_step::ball_over;
    match.next_step = close_ball(match);
  }
}

/// The same without anybody who reads or copies. `orders` may be nullptr.
void bowl_balls_unread(match_state& match, random_source& chance, known_contests& known,
                       const standing_orders* orders) {
  while (match.next_step == play_step::ball_bowled) {
    if (orders != nullptr) follow(*orders, match);
    match.next_step = bowl_ball<keeping::rules>(match, chance, known);
    if (match.next_step != play_step::ball_booked) return;
    book_ball<keeping::rules>(match);
    match.next_step = judge_innings(match);
    if (match.next_step != play_step::milestones) return;
    match.next_step = close_ball(match);
  }
}

bool is_rest_over(play_step step) { return step == play_step::match_reported || step == play_step::unattended_over; }

bool awaits(play_step step) {
  return step == play_step::between_overs || step == play_step::closed || step == play_step::unattended_over;
}

}  // namespace

void take_steps(const match_play& play) {
  known_contests known;
  while (!awaits(play.match.next_step)) {
    if (play.match.next_step == play_step::ball_bowled) {
      bowl_balls(play, std::numeric_limits<int>::max(), known);
    } else {
      play.match.next_step = step_taken<keeping::everything>(play);
    }
  }
}

void take_step(const match_play& play) {
  if (play.match.next_step == play_step::ball_bowled) {
    known_contests known;
    bowl_balls(play, 1, known);
  } else {
    play.match.next_step = step_taken<keeping::everything>(play);
  }
}

void play_unread_to_ball(const match_play& play, bool unattended) {
  match_state& match = play.match;
  while (match.next_step != play_step::ball_bowled && !is_rest_over(match.next_step)) {
    if (match.next_step != play_step::between_overs) {
      match.next_step = step_taken<keeping::rules>(play);
    } else if (unattended && is_unattended_over(match)) {
      match.next_step = play_step::unattended_over;
    } else {
      match.overs_begun += 1;
      match.next_step = play_step::over_begins;
    }
  }
}

void play_unread(const match_play& play, bool unattended, const standing_orders* orders) {
  known_contests known;
  for (play_unread_to_ball(play, unattended); !is_rest_over(play.match.next_step);
       play_unread_to_ball(play, unattended)) {
    bowl_balls_unread(play.match, play.chance, known, orders);
  }
}

}  // namespace velorin
