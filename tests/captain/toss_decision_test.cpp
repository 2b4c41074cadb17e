// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "captain/computer_captain.h"
#include "model/random.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"

namespace velorin::testing {
namespace {

constexpr double one = 0.0;  // the last draw of a coin that shows 1 is just below a half
constexpr double one_at_end = 0.4999999;
constexpr double two = 0.5;
constexpr double two_at_end = 0.9999999;

toss_outcome decide(std::vector<double> draws) {
  set_up_sample_match(true, false);
  const std::size_t count = draws.size();
  script_draws(std::move(draws));
  const toss_outcome outcome = decide_toss(match, chance);
  EXPECT_EQ(chance.draws_used(), count) << "every draw of the script, and no more";
  return outcome;
}

TEST(DecideToss, TheHumanSideWinsWithOneDrawAndKeepsBothButtons) {
  for (const double coin : {two, two_at_end}) {
    const toss_outcome outcome = decide({coin});
    EXPECT_EQ(outcome.headline, "Away have won the toss.");
    EXPECT_TRUE(outcome.bat_enabled);
    EXPECT_TRUE(outcome.bowl_enabled);
  }
}

TEST(DecideToss, TheComputerFieldsOnOneAndLeavesBat) {
  for (const double coin : {one, one_at_end}) {
    for (const double election : {one, one_at_end}) {
      const toss_outcome outcome = decide({coin, election});
      EXPECT_EQ(outcome.headline, "Home have won the toss.They have elected to field first.");
      EXPECT_TRUE(outcome.bat_enabled);
      EXPECT_FALSE(outcome.bowl_enabled);
    }
  }
}

TEST(DecideToss, TheComputerBatsOnTwoAndLeavesBowl) {
  for (const double election : {two, two_at_end}) {
    const toss_outcome outcome = decide({one, election});
    EXPECT_EQ(outcome.headline, "Home have won the toss.They have elected to bat first.");
    EXPECT_FALSE(outcome.bat_enabled);
    EXPECT_TRUE(outcome.bowl_enabled);
  }
}

TEST(DecideToss, TheButtonsAlwaysSpeakForTheSecondTeam) {
  for (const auto& draws : {std::vector{two}, std::vector{one, one}, std::vector{one, two}}) {
    const toss_outcome outcome = decide(draws);
    EXPECT_EQ(outcome.deciding_line, "Away");
    EXPECT_EQ(outcome.other_line, "Home");
  }
}

TEST(DecideToss, ConditionsAndPlayersAreNotConsulted) {
  set_up_sample_match(true, false);
  match.batting_xi = {};
  match.bowling_xi = {};
  match.weather = 0;
  match.outfield = 0;
  match.ground = {};
  script_draws({one, one});
  EXPECT_EQ(decide_toss(match, chance).headline, "Home have won the toss.They have elected to field first.");
}

}  // namespace
}  // namespace velorin::testing
