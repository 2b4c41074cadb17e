// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/ball_odds.h"

#include <gtest/gtest.h>

#include <cmath>

#include "engine/match_fixture.h"
#include "engine/over_play.h"
#include "model/random.h"
#include "support/shares.h"

namespace velorin::testing {
namespace {

class BallOdds : public match_test {
 protected:
  void SetUp() override {
    match_test::SetUp();
    open(false, false);
  }
};

/// Every draw counted by the model's own judge.
outcome_draws counted(const std::array<double, 10>& windows) {
  outcome_draws draws{};
  for (int draw = 1; draw <= draw_scale; ++draw) draws[static_cast<std::size_t>(classify(draw, windows))] += 1;
  return draws;
}

TEST_F(BallOdds, EachWindowHasTheDrawsThatTheModelGivesIt) {
  for (int batting = least_aggression; batting <= most_aggression; ++batting) {
    for (int bowling = least_aggression; bowling <= most_aggression; ++bowling) {
      for (const double meter : {0.0, 37.5, 440.0, 915.0}) {
        for (const int conditions : {4, 9, 16}) {
          contest met{.batsman = match.batting_xi[4], .bowler = match.bowling_xi[9]};
          met.conditions = conditions;
          met.batting_aggression = batting;
          met.bowling_aggression = bowling;
          met.settled_meter = meter;
          met.higher_slot = batting % 2 == 0;
          const auto windows = delivery_windows(expect_ball(met));
          EXPECT_EQ(draws_of(windows), counted(windows)) << batting << ' ' << bowling << ' ' << meter;
        }
      }
    }
  }
}

TEST_F(BallOdds, WindowsThatFallShortOrRunOverAreCountedAsTheyAreJudged) {
  const std::array<double, 10> cases[] = {
      {-40, 100, -30, 20, 10, 5, 1, 1, 1, 1},  {1200, 100, 20, 3, 40, 5, 1, 1, 1, 1},
      {30, 900, 200, -500, 40, 5, 1, 1, 1, 1}, {0, 0, 0, 0, 0, 0, 0, 0, 0, 0},
      {HUGE_VAL, 1, 1, 1, 1, 1, 1, 1, 1, 1},   {-HUGE_VAL, 1, 1, 1, 1, 1, 1, 1, 1, 1}};
  for (const auto& windows : cases) EXPECT_EQ(draws_of(windows), counted(windows)) << windows[0];
}

TEST(OddsOfDraws, FollowFromTheSharesOfTheOutcomes) {
  outcome_draws draws{};
  draws[wicket] = 30;
  draws[one_run] = 300;
  draws[four_runs] = 60;
  draws[no_ball] = 12;
  draws[wide_ball] = 8;
  draws[byes] = 10;
  draws[dot_ball] = 580;
  const ball_odds odds = odds_of(draws);
  EXPECT_DOUBLE_EQ(odds.runs_an_over, 6 * (300 + 240 + 25) / 980.0);
  EXPECT_DOUBLE_EQ(odds.balls_a_wicket, 980 / 30.0);
  draws[dot_ball] += draws[wicket];
  draws[wicket] = 0;
  EXPECT_EQ(odds_of(draws).balls_a_wicket, 0);
  outcome_draws wides{};
  wides[wide_ball] = draw_scale;
  EXPECT_EQ(odds_of(wides).runs_an_over, 0);
}

TEST_F(BallOdds, AreWhatAMillionBallsComeTo) {
  chance.use_seed(2026);
  match.batsman_aggression[static_cast<std::size_t>(match.striker_slot())] = 4;
  match.settled_meter = {300, 300};
  const ball_odds odds = odds_of(contest_in_play(match));
  double runs = 0;
  double squares = 0;
  int balls = 0;
  int wickets = 0;
  while (balls < sample_size) {
    deliver_ball(match, chance);
    const int outcome = match.ball_outcome;
    if (outcome == no_ball || outcome == wide_ball) continue;
    balls += 1;
    const bool off_the_body = outcome == leg_byes || outcome == byes;
    const int scored = off_the_body ? die(chance, 4) : outcome == wicket ? 0 : outcome;
    runs += scored;
    squares += double(scored) * scored;
    wickets += int(outcome == wicket);
  }
  const double mean = runs / balls;
  const double error = std::sqrt((squares / balls - mean * mean) / balls);
  EXPECT_NEAR(mean, odds.runs_an_over / balls_of_over, 4 * error);
  const double share = 1 / odds.balls_a_wicket;
  EXPECT_NEAR(double(wickets) / balls, share, 4 * std::sqrt(share * (1 - share) / balls));
}

TEST_F(BallOdds, TheChosenAggressionHasTheOddsOfTheNextBall) {
  for (int over = 0; over < 7; ++over) {
    const auto slot = static_cast<std::size_t>(match.striker_slot());
    const ball_odds next = odds_of(contest_in_play(match));
    const auto batting = batting_odds(match, int(slot))[static_cast<std::size_t>(match.batsman_aggression[slot] - 1)];
    const auto bowling = bowling_odds(match, 0)[static_cast<std::size_t>(match.bowling_aggression[0] - 1)];
    ASSERT_TRUE(batting && bowling);
    EXPECT_EQ(batting->runs_an_over, next.runs_an_over);
    EXPECT_EQ(batting->balls_a_wicket, next.balls_a_wicket);
    EXPECT_EQ(bowling->runs_an_over, next.runs_an_over);
    EXPECT_EQ(bowling->balls_a_wicket, next.balls_a_wicket);
    play(times(6, hit(over % 2 == 0 ? one_run : four_runs)));
  }
}

TEST_F(BallOdds, MoreAggressionMeansMoreRunsAndMoreWickets) {
  for (const int slot : {0, 1}) {
    const aggression_odds odds = batting_odds(match, slot);
    for (std::size_t level = 1; level < odds.size(); ++level) {
      EXPECT_GT(odds[level]->runs_an_over, odds[level - 1]->runs_an_over);
      EXPECT_LT(odds[level]->balls_a_wicket, odds[level - 1]->balls_a_wicket);
    }
  }
}

TEST_F(BallOdds, TheMeterIsWorthWhatItAddsToAFreshMansOver) {
  EXPECT_EQ(meter_worth(match, 0), 0.0);
  match.batting_card[match.lower_batsman()].runs = 60;
  match.batting_card[match.lower_batsman()].balls = 70;
  const contest fresh{.batsman = match.batting_xi[match.lower_batsman()],
                      .bowler = match.bowling_xi[match.bowler],
                      .conditions = 12,
                      .batting_aggression = match.batsman_aggression[0],
                      .bowling_aggression = match.bowling_aggression[0]};
  contest settled = fresh;
  settled.settled_meter = 5 * (2 * 60 + 70 / 2.0);
  EXPECT_EQ(meter_worth(match, 0), odds_of(settled).runs_an_over - odds_of(fresh).runs_an_over);
  EXPECT_GT(meter_worth(match, 0), 0.5);
}

TEST_F(BallOdds, ANewcomerHasTheOddsOfAFreshHigherMan) {
  const int higher = match.higher_batsman();
  for (std::size_t i = 0; i < 5; ++i) {
    EXPECT_EQ(odds_sentence(newcomer_odds(match, higher)[i]), odds_sentence(batting_odds(match, 1)[i])) << i;
  }
  match.batting_xi[5].bat_skill = static_cast<decltype(match.batting_xi[5].bat_skill)>(
      match.batting_xi[static_cast<std::size_t>(higher)].bat_skill / 2);
  EXPECT_LT(newcomer_odds(match, 5)[2]->balls_a_wicket, newcomer_odds(match, higher)[2]->balls_a_wicket);
  match.batting_xi[5].bat_skill = 0;
  for (const auto& odds : newcomer_odds(match, 5)) EXPECT_FALSE(odds);
}

TEST_F(BallOdds, AManWhomTheModelCannotRateHasNoAnswer) {
  match.batting_xi[match.lower_batsman()].bat_skill = 0;
  EXPECT_FALSE(batting_odds(match, 0)[2]);
  EXPECT_FALSE(meter_worth(match, 0));
  EXPECT_TRUE(batting_odds(match, 1)[2]);
  EXPECT_EQ(odds_sentence(batting_odds(match, 0)[2]), "-");
  match.bowler = 0;
  EXPECT_FALSE(batting_odds(match, 1)[2]);
  EXPECT_FALSE(bowling_odds(match, 0)[2]);
}

TEST(OddsSentence, TellsRunsAndBallsAWicket) {
  EXPECT_EQ(odds_sentence(ball_odds{5.94, 28.6}), "5.9 an over, a wicket every 29 balls");
  EXPECT_EQ(odds_sentence(ball_odds{0, 1.2}), "0.0 an over, a wicket every ball");
  EXPECT_EQ(odds_sentence(ball_odds{3.25, 0}), "3.2 an over, no wicket");
}

}  // namespace
}  // namespace velorin::testing
