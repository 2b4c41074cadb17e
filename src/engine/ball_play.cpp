// SPDX-License-Identifier: GPL-3.0-or-later
#include <array>
#include <cstddef>
#include <cstdint>
#include <stdexcept>

#include "captain/computer_captain.h"
#include "console/captain_forms.h"
#include "console/console_figures.h"
#include "engine/ball_books.h"
#include "engine/delivery_model.h"
#include "engine/play_steps.h"
#include "model/booking.h"
#include "model/check_match.h"
#include "model/match_state.h"
#include "model/random.h"
#include "model/rules.h"
#include "model/texts.h"
#include "ui/front_end.h"
#include "ui/match_play.h"

namespace velorin {

namespace {

/// After an odd number of runs the batsmen have changed ends. Written without a branch: nobody can foresee it.
void change_ends(match_state& match, int runs) {
  const std::array<integer, 2> ends = {match.striker, match.non_striker};
  const std::size_t odd = static_cast<std::size_t>(runs) & 1U;
  match.striker = ends[odd];
  match.non_striker = ends[1 - odd];
}

void off_the_bat(match_state& match, delivery& ball) {
  const int runs = match.ball_outcome;
  ball.runs = static_cast<std::uint8_t>(runs);
  match.score_runs += runs;
  change_ends(match, runs);
}

/// A ball faced without a run off the bat.
void book_dot(batting_card_rec& batsman) {
  book(batsman.balls, 1, "batting_card.balls", batsman.name);
  book(batsman.dots, 1, "batting_card.dots", batsman.name);
}

void extras_off_the_body(match_state& match, random_source& chance, delivery& ball) {
  book_dot(match.batting_card[match.striker]);
  const int runs = die(chance, 4);
  ball.extras = static_cast<std::uint8_t>(runs);
  change_ends(match, runs);
  match.score_runs += runs;
  if (match.ball_outcome == leg_byes) {
    book(match.innings_leg_byes, runs, "innings_leg_byes", match.team1_name);
  } else {
    book(match.innings_byes, runs, "innings_byes", match.team1_name);
  }
}

/// The entry of a place in the over of the newest delivery is a number: by the last ball before it at this place, which
/// was no wicket. A no ball or wide that did not count stood on a number, and one that counted on none.
bool has_number(const delivery_list& deliveries, int place) {
  const int over = deliveries.back().over;
  for (auto ball = deliveries.rbegin() + 1; ball != deliveries.rend() && ball->over == over; ++ball) {
    if (ball->ball != place) continue;
    return ball->is_no_ball_or_wide() ? !ball->counted : !ball->is_wicket();
  }
  return false;
}

/// No balls and wides stand on the entry of the ball before; where that is no number, the ball counts and leaves no
/// other trace. Deliveries that do not count have no end but that of the figure.
void no_ball_or_wide(match_state& match, delivery& ball) {
  if (match.ball_no > 1) match.ball_no -= 1;
  ball.ball = static_cast<std::uint8_t>(match.ball_no);
  if (!has_number(match.deliveries, match.ball_no)) return;
  ball.counted = false;
  ball.extras = 1;
  const std::string& bowler = match.bowling_card[match.bowler].name;
  if (match.ball_outcome == no_ball) {
    book(match.innings_no_balls, 1, "innings_no_balls", bowler);
  } else {
    book(match.innings_wides, 1, "innings_wides", bowler);
  }
}

template <keeping Kept>
void fall_of_a_wicket(match_state& match, random_source& chance, delivery& ball) {
  match.score_wickets += 1;
  book_dot(match.batting_card[match.striker]);
  record_dismissal<Kept>(match, chance, ball);
  bowling_card_rec& bowler = match.bowling_card[match.bowler];
  if (ball.how != dismissal::run_out) book(bowler.wickets, 1, "bowling_card.wickets", bowler.name);
  match.last_wicket = {match.striker, match.innings_number, match.score_runs};
}

/// The record of the delivery just settled, as far as it is known before it is acted upon.
template <keeping Kept>
delivery& record_delivery(match_state& match, int ball_no) {
  const auto small = [](int figure) { return static_cast<std::uint8_t>(figure); };
  if constexpr (Kept == keeping::rules) {
    return match.deliveries.emplace_back(delivery{.over = small(match.over_no),
                                                  .ball = small(ball_no),
                                                  .striker = small(match.striker),
                                                  .outcome = small(match.ball_outcome)});
  }
  return match.deliveries.emplace_back(
      delivery{.innings = static_cast<std::int16_t>(match.innings_number),
               .over = small(match.over_no),
               .ball = small(ball_no),
               .bowler = small(match.bowler),
               .striker = small(match.striker),
               .non_striker = small(match.non_striker),
               .batting_aggression = small(match.batsman_aggression[static_cast<std::size_t>(match.striker_slot())]),
               .bowling_aggression = small(match.bowling_aggression[0]),
               .outcome = small(match.ball_outcome)});
}

/// Acts upon the delivery just settled.
template <keeping Kept>
play_step act_upon_ball(match_state& match, random_source& chance) {
  delivery& ball = record_delivery<Kept>(match, match.ball_no);
  if (match.ball_outcome <= six_runs) {
    off_the_bat(match, ball);
    return play_step::ball_booked;
  }
  switch (match.ball_outcome) {
    case wicket:
      fall_of_a_wicket<Kept>(match, chance, ball);
      return match.human_involved() ? play_step::wicket_told : play_step::next_batsman;
    case no_ball:
    case wide_ball:
      no_ball_or_wide(match, ball);
      break;
    default:
      extras_off_the_body(match, chance, ball);
  }
  return play_step::ball_booked;
}

#ifndef NDEBUG
void verify_match(const match_state& match) {
  // A check reads every delivery: of an over without end only some are checked.
  constexpr std::size_t usual = 2 * std::size_t{balls_of_innings};
  if (match.deliveries.size() > usual && match.deliveries.size() % usual != 0) return;
  if (const std::string broken = check_match(match); !broken.empty()) throw std::logic_error(broken);
}
#else
void verify_match(const match_state& /*match*/) {}
#endif

}  // namespace

template <keeping Kept>
play_step bowl_ball(match_state& match, random_source& chance, known_contests& known) {
  deliver_ball(match, chance, known);
  return act_upon_ball<Kept>(match, chance);
}

template play_step bowl_ball<keeping::everything>(match_state& match, random_source& chance, known_contests& known);
template play_step bowl_ball<keeping::rules>(match_state& match, random_source& chance, known_contests& known);

void tell_wicket(const match_state& match, front_end& user) {
  const batting_card_rec& out = match.batting_card[match.striker];
  batsman_details_form form;
  form.title = "Fall Of Wicket";
  form.figures = figures_of(out);
  form.figures.title = form.title;
  form.kind = message_kind::fall_of_wicket;
  form.figures.headline = out.name + " " + out.fielder + " " + out.how_out + "  " + number_text(int(out.runs)) + " (" +
                          number_text(int(out.balls)) + ").";
  user.show(form);
}

bool has_man_to_come(const match_state& match) {
  return match.striker < men_in_eleven && match.non_striker < men_in_eleven;
}

void send_in(match_state& match) {
  match.striker = match.next_batsman_slot + 1;
  match.batting_card[match.striker].name = match.batting_xi[match.striker].name;
  match.deliveries.back().next_batsman = static_cast<std::uint8_t>(match.striker);
}

void bring_in_next_batsman(match_state& match, front_end& user) {
  if (!has_man_to_come(match)) {
    match.innings_over_flag = true;
    return;
  }
  if (match.computer_bats) {
    choose_next_batsman(match);
  } else {
    next_batsman_form form(match, next_batsman_form::use::next);
    user.show(form);
  }
  send_in(match);
}

void bring_in_computers_choice(match_state& match) {
  if (!has_man_to_come(match)) {
    match.innings_over_flag = true;
    return;
  }
  choose_next_batsman(match);
  match.striker = match.next_batsman_slot + 1;
}

template <keeping Kept>
void book_ball(match_state& match) {
  const delivery& ball = match.deliveries.back();
  record_runs<Kept>(match);
  if (ball.counted) {
    bowling_card_rec& bowler = match.bowling_card[match.bowler];
    book(match.innings_balls, 1, "innings_balls", match.team1_name);
    book(bowler.balls, 1, "bowling_card.balls", bowler.name);
  }
  if (ball.is_wicket()) {
    refresh_batsmen(match);
  } else if (ball.is_faced()) {
    refresh_batsman(match, ball.striker);
  }
  if constexpr (Kept == keeping::everything) {
    refresh_bowling_card(match);
    verify_match(match);
  }
}

template void book_ball<keeping::everything>(match_state& match);
template void book_ball<keeping::rules>(match_state& match);

}  // namespace velorin
