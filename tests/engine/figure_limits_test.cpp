// SPDX-License-Identifier: GPL-3.0-or-later
// Every figure of the match at its last value: what would pass it ends the match with an overflow.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "captain/aicomp.h"
#include "engine/algorithm.h"
#include "engine/driver.h"
#include "engine/end_of_inns_match.h"
#include "engine/match_test.h"
#include "model/random.h"
#include "model/run_time_error.h"

namespace velorin::testing {
namespace {

constexpr int last = 32767;

/// A figure that a delivery changes, brought near its limit after the first ball of an over.
struct near_limit {
  const char* what;
  std::function<void()> set;
  ball next;      ///< the ball that passes it
  int too_great;  ///< the value that does not fit
};

std::ostream& operator<<(std::ostream& out, const near_limit& figure) { return out << figure.what; }

batting_card_rec& striker() { return match.batting_card[match.striker]; }
bowling_card_rec& bowler() { return match.bowling_card[match.bowler]; }

const std::vector<near_limit> figures = {
    {"batting_card.runs", [] { striker().runs = last - 5; }, hit(6), last + 1},
    {"batting_card.balls", [] { striker().balls = last; }, hit(0), last + 1},
    {"batting_card.dots", [] { striker().dots = last; }, hit(0), last + 1},
    {"batting_card.singles", [] { striker().singles = last; }, hit(1), last + 1},
    {"batting_card.twos", [] { striker().twos = last; }, hit(2), last + 1},
    {"batting_card.threes", [] { striker().threes = last; }, hit(3), last + 1},
    {"batting_card.fours", [] { striker().fours = last; }, hit(4), last + 1},
    {"batting_card.sixes", [] { striker().sixes = last; }, hit(6), last + 1},
    {"batting_card.balls of leg byes", [] { striker().balls = last; }, off_the_pad(leg_byes, 1), last + 1},
    {"batting_card.dots of a wicket", [] { striker().dots = last; }, out(), last + 1},
    {"bowling_card.runs", [] { bowler().runs = last - 3; }, hit(4), last + 1},
    {"bowling_card.balls", [] { bowler().balls = last; }, hit(0), last + 1},
    {"bowling_card.wickets", [] { bowler().wickets = last; }, out(), last + 1},
    {"innings_balls", [] { match.innings_balls = last; }, hit(0), last + 1},
    {"innings_leg_byes", [] { match.innings_leg_byes = last - 1; }, off_the_pad(leg_byes, 4), last + 3},
    {"innings_byes", [] { match.innings_byes = last - 2; }, off_the_pad(byes, 3), last + 1},
    {"running score of the graph", [] { match.score_runs = last; }, hit(1), last + 1},
    {"fall_of_wicket.score", [] { match.score_runs = last + 1; }, out(), last + 1},
    {"fall_of_wicket.partner_runs",
     [] {
       match.score_runs = 1;
       match.fall_of_wicket[0].score = -last;
     },
     out(), last + 1},
    {"fall_of_wicket.balls", [] { match.innings_balls = last; }, out(), last + 1},
    {"fall_of_wicket.partner_balls", [] { match.fall_of_wicket[0].balls = 2 - last - 1; }, out(), last + 1},
};

class FigureLimits : public match_test {
 protected:
  static std::string overflow_of(const std::function<void()>& procedure) {
    try {
      procedure();
    } catch (const run_time_error& error) {
      EXPECT_EQ(error.kind(), failure::overflow);
      return error.what();
    }
    return "no failure";
  }
};

class BallFigures : public FigureLimits, public ::testing::WithParamInterface<near_limit> {};

TEST_P(BallFigures, EndTheMatchPastTheirLimit) {
  const near_limit& figure = GetParam();
  open(false, false);
  user.on_ball = [&] {
    user.on_ball = nullptr;
    figure.set();
    std::vector<double> draws = {draw_outcome(figure.next.outcome)};
    draws.insert(draws.end(), figure.next.then.begin(), figure.next.then.end());
    script_draws(draws);
  };
  script_draws({draw_outcome(dot_ball)});
  EXPECT_EQ(overflow_of(next_over), "Overflow: " + std::to_string(figure.too_great) + " does not fit a 16-bit figure");
  EXPECT_EQ(user.balls_bowled, 1) << "the ball is not announced";
}

INSTANTIATE_TEST_SUITE_P(, BallFigures, ::testing::ValuesIn(figures), [](const auto& figure) {
  std::string name = figure.param.what;
  for (char& letter : name) {
    if (letter == '.' || letter == ' ') letter = '_';
  }
  return name;
});

TEST_F(FigureLimits, NoBallsBeyondTheFigureAreAnError) {
  open(false, false);
  play(std::vector{hit(0)} + times(last, hit(no_ball)));
  EXPECT_EQ(match.innings_no_balls, last);
  open(false, false);
  EXPECT_EQ(overflow_of([&] { play(std::vector{hit(0)} + times(last + 1, hit(no_ball))); }),
            "Overflow: 32768 does not fit a 16-bit figure (field innings_no_balls, at \"A.Bowl1\")");
}

TEST_F(FigureLimits, WidesBeyondTheFigureAreAnError) {
  open(false, false);
  play(std::vector{hit(0)} + times(last, hit(wide_ball)));
  EXPECT_EQ(match.innings_wides, last);
  EXPECT_EQ(match.ball_log[1][1], "32767");
  open(false, false);
  EXPECT_EQ(overflow_of([&] { play(std::vector{hit(0)} + times(last + 1, hit(wide_ball))); }),
            "Overflow: 32768 does not fit a 16-bit figure (field innings_wides, at \"A.Bowl1\")");
}

TEST_F(FigureLimits, MaidensAndTheClockCountOvers) {
  for (const auto& set :
       std::vector<std::function<void()>>{[] { bowler().maidens = last; }, [] { match.clock_minutes = last - 3; }}) {
    open(false, false);
    int balls = 0;
    user.on_ball = [&] {
      if (++balls == 6) set();
    };
    script_draws(std::vector<double>(6, draw_outcome(dot_ball)));
    EXPECT_EQ(overflow_of(next_over), "Overflow: 32768 does not fit a 16-bit figure");
    EXPECT_EQ(balls, 6);
  }
}

TEST_F(FigureLimits, TheTotalOfAnInnings) {
  const std::string too_great = "Overflow: 32768 does not fit a 16-bit figure";
  open(false, false);
  match.score_runs = last;
  match.fall_of_wicket[0].score = 10;
  match.innings_over_flag = true;
  end_of_ball_check();
  EXPECT_EQ(match.first_total, last);
  open(false, false);
  match.score_runs = last + 1;
  match.innings_over_flag = true;
  EXPECT_EQ(overflow_of(end_of_ball_check), too_great);
  EXPECT_EQ(match.innings_number, 1) << "the innings has not changed";
}

TEST_F(FigureLimits, AnUnbrokenStand) {
  open(false, false);
  match.score_runs = 1;
  match.fall_of_wicket[0].score = -last;
  EXPECT_EQ(overflow_of(change_innings), "Overflow: 32768 does not fit a 16-bit figure");
  open(false, false);
  match.innings_balls = 1;
  match.fall_of_wicket[0].balls = -last;
  EXPECT_EQ(overflow_of(finish_match), "Overflow: 32768 does not fit a 16-bit figure");
}

TEST_F(FigureLimits, TheNumberOfInnings) {
  open(false, false);
  match.innings_number = last;
  EXPECT_EQ(overflow_of(change_innings), "Overflow: 32768 does not fit a 16-bit figure");
}

TEST_F(FigureLimits, TheClassOfAnEconomy) {
  set_up_sample_match();
  script_draws({0.5, 0.5});
  match.bowling_xi[5].econ = 32767.4F;
  choose_opening_bowlers();
  match.bowling_xi[5].econ = 32768.0F;
  EXPECT_EQ(overflow_of(choose_opening_bowlers), "Overflow: 32768 does not fit a 16-bit figure");
}

}  // namespace
}  // namespace velorin::testing
