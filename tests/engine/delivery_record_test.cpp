// SPDX-License-Identifier: GPL-3.0-or-later
// Each delivery is recorded as it was bowled.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <ostream>
#include <vector>

#include "console/captain_forms.h"
#include "engine/delivery_model.h"
#include "engine/match_fixture.h"
#include "model/delivery.h"
#include "support/game_in_play.h"

namespace velorin {

void PrintTo(const delivery& ball, std::ostream* out) {
  *out << "innings " << ball.innings << ", over " << int(ball.over) << "." << int(ball.ball) << ", " << int(ball.bowler)
       << " to " << int(ball.striker) << " (" << int(ball.non_striker) << "), aggressions "
       << int(ball.batting_aggression) << " and " << int(ball.bowling_aggression) << ", outcome " << int(ball.outcome)
       << ", " << int(ball.runs) << " + " << int(ball.extras) << ", how " << int(ball.how) << " by "
       << int(ball.fielder) << ", next " << int(ball.next_batsman) << (ball.counted ? "" : ", not counted");
}

namespace testing {
namespace {

using ::testing::ElementsAre;

class DeliveryRecord : public match_test {
 protected:
  void SetUp() override {
    match_test::SetUp();
    open(false, false);
    match.batsman_aggression = {1, 5};
    match.bowling_aggression = {4, 2};
  }

  /// The last delivery: the one that this dismissal brings, in the first over.
  delivery after(const ball& dismissed) {
    play({dismissed});
    return match.deliveries.empty() ? delivery{} : match.deliveries.back();
  }
};

TEST_F(DeliveryRecord, TellsEachBallOfAnOver) {
  play({hit(1), off_the_pad(leg_byes, 3), hit(wide_ball), hit(no_ball), off_the_pad(byes, 2), hit(6), hit(0), hit(3)});
  const auto told = [](int ball, int striker, int outcome, int runs, int extras, bool counted = true) {
    const auto small = [](int figure) { return static_cast<std::uint8_t>(figure); };
    return delivery{.innings = 1,
                    .over = 1,
                    .ball = small(ball),
                    .bowler = 1,
                    .striker = small(striker),
                    .non_striker = small(3 - striker),
                    .batting_aggression = small(striker == 1 ? 1 : 5),
                    .bowling_aggression = 4,
                    .outcome = small(outcome),
                    .runs = small(runs),
                    .extras = small(extras),
                    .counted = counted};
  };
  EXPECT_THAT(match.deliveries,
              ElementsAre(told(1, 1, one_run, 1, 0), told(2, 2, leg_byes, 0, 3), told(2, 1, wide_ball, 0, 1, false),
                          told(2, 1, no_ball, 0, 1, false), told(3, 1, byes, 0, 2), told(4, 1, six_runs, 6, 0),
                          told(5, 1, dot_ball, 0, 0), told(6, 1, three_runs, 3, 0)));
}

TEST_F(DeliveryRecord, TellsTheOverAndItsBowler) {
  play(times(7, hit(0)));
  EXPECT_EQ(match.deliveries[5].over, 1);
  EXPECT_EQ(match.deliveries[5].bowler, 1);
  EXPECT_EQ(match.deliveries[5].striker, 1);
  EXPECT_EQ(match.deliveries[6].over, 2);
  EXPECT_EQ(match.deliveries[6].ball, 1);
  EXPECT_EQ(match.deliveries[6].bowler, 2);
  EXPECT_EQ(match.deliveries[6].striker, 2);
  EXPECT_EQ(match.deliveries[6].non_striker, 1);
  EXPECT_EQ(match.deliveries[6].batting_aggression, 5);
  EXPECT_EQ(match.deliveries[6].bowling_aggression, 2) << "the bowlers' aggressions change ends with them";
}

TEST_F(DeliveryRecord, AWideWithoutANumberBeforeItCountsAndBringsNothing) {
  play({hit(wide_ball), hit(0), out(), hit(no_ball)});
  EXPECT_EQ(match.deliveries[0].ball, 1);
  EXPECT_TRUE(match.deliveries[0].counted);
  EXPECT_EQ(match.deliveries[0].extras, 0);
  EXPECT_EQ(match.deliveries[1].ball, 2);
  EXPECT_EQ(match.deliveries[3].ball, 3);
  EXPECT_TRUE(match.deliveries[3].counted);
  EXPECT_EQ(match.deliveries[3].extras, 0);
}

TEST_F(DeliveryRecord, TellsHowTheStrikerWasOutAndByWhom) {
  struct row {
    ball bowled;
    dismissal how;
    int fielder;
  };
  const std::vector<row> rows = {
      {out(1), dismissal::bowled, 0},       {out(12), dismissal::caught, 7},
      {out(31, 4), dismissal::run_out, 4},  {out(41), dismissal::caught, 7},
      {out(50, 3), dismissal::caught, 3},   {out(50, 1), dismissal::caught_and_bowled, 1},
      {out(101), dismissal::leg_before, 0},
  };
  for (const row& r : rows) {
    open(false, false);
    match.bowling_xi[1].bowler_type = "Fast Bowler";
    const delivery last = after(r.bowled);
    EXPECT_EQ(last.outcome, wicket);
    EXPECT_EQ(last.how, r.how);
    EXPECT_EQ(last.fielder, r.fielder);
    EXPECT_EQ(last.striker, 1);
    EXPECT_EQ(last.next_batsman, 3);
    EXPECT_TRUE(last.counted);
  }
  open(false, false);
  match.bowling_xi[1].bowler_type = "spinner";
  const delivery last = after(out(41));
  EXPECT_EQ(last.how, dismissal::stumped);
  EXPECT_EQ(last.fielder, 7);
}

TEST_F(DeliveryRecord, TheNextManIsTheOneWhoStandsOnTheStrikersPlace) {
  user.on_next_batsman.emplace_back([](next_batsman_form& form) {
    form.choose(9);
    form.accept();
  });
  play({hit(1), out(), out(), hit(4)});
  EXPECT_EQ(match.deliveries[0].next_batsman, 0);
  EXPECT_EQ(match.deliveries[1].striker, 2);
  EXPECT_EQ(match.deliveries[1].next_batsman, 3) << "his place in the order that he changed";
  EXPECT_EQ(match.batting_xi[3].name, "H.Bat9");
  EXPECT_EQ(match.deliveries[2].striker, 3);
  EXPECT_EQ(match.deliveries[2].next_batsman, 4);
  EXPECT_EQ(match.deliveries[3].striker, 4);
}

TEST_F(DeliveryRecord, NobodyComesInForTheLastMan) {
  play(std::vector{hit(1)} + times(10, out()));
  ASSERT_EQ(match.first_deliveries.size(), 11U);
  EXPECT_EQ(match.first_deliveries[9].next_batsman, 11);
  EXPECT_EQ(match.first_deliveries.back().next_batsman, 0);
}

TEST_F(DeliveryRecord, TheChangeOfInningsMovesTheDeliveries) {
  play(std::vector{hit(1)} + times(10, out()));
  const delivery_list first = match.first_deliveries;
  ASSERT_FALSE(first.empty());
  EXPECT_TRUE(match.deliveries.empty());
  play({hit(1)});
  EXPECT_EQ(match.first_deliveries, first);
  ASSERT_EQ(match.deliveries.size(), 1U);
  EXPECT_EQ(match.deliveries[0].innings, 2);
  EXPECT_EQ(first[0].innings, 1);
}

}  // namespace
}  // namespace testing
}  // namespace velorin
