// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/match_fixture.h"

#include <algorithm>
#include <string_view>

#include "captain/computer_captain.h"
#include "engine/delivery_model.h"
#include "engine/over_play.h"
#include "model/innings_log.h"
#include "model/random.h"
#include "model/rules.h"
#include "model/run_time_error.h"
#include "support/game_in_play.h"

namespace velorin::testing {

namespace {

/// The innings ends with the ball just booked, so that nobody knows yet who bowls the next one to whom.
bool innings_ends() {
  return match.innings_over_flag || match.innings_balls == 300 ||
         (match.first_total != 0 && match.score_runs > match.first_total);
}

/// The draw for the delivery after the one just booked: a computer captain will set his batsmen's aggression first.
double draw_after_ball(int outcome) {
  const auto aggression = match.batsman_aggression;
  if (match.computer_bats) set_batting_aggression(match);
  const double draw = draw_outcome(outcome);
  match.batsman_aggression = aggression;
  return draw;
}

bool out_of_draws(const run_time_error& error) {
  return std::string_view(error.what()).find("scripted draws ran out") != std::string_view::npos;
}

}  // namespace

ball hit(int outcome) { return {outcome, {}, {}}; }

ball off_the_pad(int outcome, int runs) { return {outcome, {die_draw(runs, 4)}, {}}; }

ball out(int kind, int fielder) {
  ball result{wicket, {die_draw(kind, 110)}, {}};
  if (fielder != 0) result.then.push_back(die_draw(fielder, 11));
  return result;
}

std::vector<std::string> log_of_over(const told_innings& innings, int over) {
  const over_entries entries = entries_of_over(innings.deliveries, over);
  std::vector<std::string> texts;
  for (int i = 1; i <= balls_of_over; ++i) texts.push_back(entries.balls[static_cast<std::size_t>(i)].text());
  const auto balls = deliveries_of_over(innings.deliveries, over);
  const bool closed = !balls.empty() && over <= innings.overs_closed;
  texts.push_back(closed ? innings.bowling[balls.front().bowler].name : "");
  return texts;
}

std::vector<ball> times(int count, const ball& one) { return std::vector<ball>(static_cast<std::size_t>(count), one); }

std::vector<ball> operator+(std::vector<ball> first, const std::vector<ball>& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

void match_test::SetUp() {
  script_draws({});
  set_up_sample_match(false, false);
}

void match_test::TearDown() {
  match = match_state();
  chance.use_clock();
}

void match_test::open(bool computer_bats, bool computer_bowls) {
  set_up_sample_match(computer_bats, computer_bowls);
  script_draws({0.5});
  open_console(in_play());
  EXPECT_EQ(chance.draws_used(), computer_bowls ? 1U : 0U);
}

void match_test::play(const std::vector<ball>& balls) {
  std::size_t next = 0;
  const auto with_its_draws = [&](std::vector<double> draws) {
    draws.insert(draws.end(), balls[next].then.begin(), balls[next].then.end());
    return draws;
  };
  user.on_ball = [&] {
    if (note_balls) user.requests.emplace_back("ball");
    std::vector<double> draws = balls.at(next).after;
    ++next;
    if (next < balls.size() && !innings_ends()) {
      draws.push_back(draw_after_ball(balls[next].outcome));
      draws = with_its_draws(draws);
    }
    script_draws(draws);
  };
  while (next < balls.size()) {
    ASSERT_NE(match.over_no, 0) << "the match is over after " << next << " balls of " << balls.size();
    script_draws(with_its_draws({draw_outcome(balls[next].outcome)}));
    try {
      next_over(in_play());
    } catch (const run_time_error& error) {
      if (next < balls.size() || !out_of_draws(error)) throw;
    }
  }
  user.on_ball = nullptr;
  script_draws({});
}

void match_test::skip_to_over(int over) {
  int balls = (over - 1) * 6;
  match.over_no = over;
  match.innings_balls = balls;
  for (int bowler = 3; balls > 0; ++bowler) {
    const int bowled = std::min(balls, 60);
    match.bowling_card[bowler].balls = bowled;
    balls -= bowled;
  }
}

void match_test::play_first_innings(bool computer_bats, bool computer_bowls) {
  open(computer_bats, computer_bowls);
  skip_to_over(49);
  play(times(6, hit(2)));
  user.requests.clear();
  ball last_ball = hit(0);
  if (computer_bats) last_ball.after = {0.5};  // the offset of its bowlers
  play({hit(4), out(12), off_the_pad(leg_byes, 2), hit(2), hit(no_ball), hit(2), last_ball});
}

std::vector<std::string> match_test::texts_of(const std::string& title) const {
  std::vector<std::string> texts;
  for (const message_box& message : user.messages) {
    if (message.title == title) texts.push_back(message.text);
  }
  return texts;
}

}  // namespace velorin::testing
