// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/innings_log.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/match_state.h"
#include "support/deliveries.h"

namespace velorin {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr men_at_work men = {4, 1, 2};

/// The texts of the six balls of an over.
std::array<std::string, balls_of_over> texts_of(const over_entries& entries) {
  std::array<std::string, balls_of_over> texts;
  for (std::size_t i = 0; i < texts.size(); ++i) texts[i] = entries.balls[i + 1].text();
  return texts;
}

delivery counted(delivery ball) {
  ball.counted = true;
  ball.extras = 0;
  return ball;
}

TEST(InningsLog, AnEntryIsNothingANumberOrAWicket) {
  const ball_entry empty;
  EXPECT_TRUE(empty.is_empty());
  EXPECT_FALSE(empty.is_wicket());
  EXPECT_EQ(empty.text(), "");
  const ball_entry dot = {ball_entry::kind::number, 0};
  EXPECT_FALSE(dot.is_empty());
  EXPECT_EQ(dot.text(), "0");
  const ball_entry out = {ball_entry::kind::wicket, 0};
  EXPECT_TRUE(out.is_wicket());
  EXPECT_FALSE(out.is_empty());
  EXPECT_EQ(out.text(), "W");
}

TEST(InningsLog, EachBallHasItsEntry) {
  delivery_list deliveries;
  add_over(deliveries, 3, {"0", "1", "W", "4", "6"});
  const over_entries over = log_of(deliveries)[3];
  EXPECT_THAT(texts_of(over), ElementsAre("0", "1", "W", "4", "6", ""));
  EXPECT_EQ(over.runs(), 11);
  EXPECT_EQ(over.wickets(), 1);
  EXPECT_TRUE(over.is_begun());
}

TEST(InningsLog, ByesAndLegByesAreNumbers) {
  over_entries over;
  over.add(ball_of_byes(3, men, 1, 1));
  over.add(ball_of_leg_byes(2, men, 1, 2));
  EXPECT_THAT(texts_of(over), ElementsAre("3", "2", "", "", "", ""));
  EXPECT_EQ(over.runs(), 5);
}

TEST(InningsLog, NoBallsAndWidesStandOnTheNumberOfTheBallBefore) {
  over_entries over;
  over.add(ball_of_runs(4, men, 1, 1));
  over.add(wide_on(1, men, 1));
  over.add(no_ball_on(1, men, 1));
  over.add(ball_of_runs(0, men, 1, 2));
  over.add(wide_on(2, men, 1));
  EXPECT_THAT(texts_of(over), ElementsAre("6", "1", "", "", "", ""));
  EXPECT_EQ(over.runs(), 7);
}

TEST(InningsLog, ANoBallThatCountsLeavesNoEntry) {
  over_entries over;
  over.add(counted(no_ball_on(1, men, 1)));
  EXPECT_FALSE(over.is_begun());
  over.add(ball_of_wicket(dismissal::bowled, men, 3, 1, 2));
  over.add(counted(wide_on(2, men, 1)));
  EXPECT_THAT(texts_of(over), ElementsAre("", "W", "", "", "", ""));
  EXPECT_EQ(over.runs(), 0);
  EXPECT_EQ(over.wickets(), 1);
}

TEST(InningsLog, AnOverWithoutABallHasNoEntries) {
  delivery_list deliveries;
  add_over(deliveries, 1, {"1", "1", "1", "1", "1", "1"});
  add_over(deliveries, 3, {"2"});
  const innings_log log = log_of(deliveries);
  for (int over = 1; over <= overs_of_innings; ++over) {
    EXPECT_EQ(log[over].is_begun(), over == 1 || over == 3) << over;
    EXPECT_EQ(log[over].runs(), over == 1 ? 6 : over == 3 ? 2 : 0) << over;
  }
  EXPECT_EQ(entries_of_over(deliveries, 2).balls, over_entries().balls);
  EXPECT_THAT(live_symbols(deliveries, 2), Each(""));
  EXPECT_EQ(log_of({})[1].balls, over_entries().balls);
}

TEST(InningsLog, DeliveriesOfAnOver) {
  delivery_list deliveries;
  add_over(deliveries, 2, {"1", "2"});
  add_over(deliveries, 3, {"3", "W", "8"});
  add_over(deliveries, 5, {"0"});
  const auto third = deliveries_of_over(deliveries, 3);
  ASSERT_EQ(third.size(), 5U) << "8 is a six with two wides";
  EXPECT_EQ(third.data(), deliveries.data() + 2);
  for (const delivery& ball : third) EXPECT_EQ(ball.over, 3);
  EXPECT_EQ(deliveries_of_over(deliveries, 2).size(), 2U);
  EXPECT_EQ(deliveries_of_over(deliveries, 5).size(), 1U);
  for (const int over : {1, 4, 6, 50}) EXPECT_THAT(deliveries_of_over(deliveries, over), IsEmpty()) << over;
  EXPECT_THAT(deliveries_of_over({}, 1), IsEmpty());
}

TEST(InningsLog, TheEntriesOfAnOverAreThoseOfTheLog) {
  delivery_list deliveries;
  add_over(deliveries, 1, {"4", "W", "2b", "9", "", "1"});
  add_over(deliveries, 2, {"0", "3lb", "5"});
  const innings_log log = log_of(deliveries);
  for (const int over : {1, 2}) EXPECT_EQ(entries_of_over(deliveries, over).balls, log[over].balls) << over;
}

class SymbolsOfAnOver : public testing::Test {
 protected:
  void SetUp() override { add_over(match_.deliveries, 6, {"8", "2lb", "W", "1b", "", "0"}, men); }

  match_state match_;
};

TEST_F(SymbolsOfAnOver, AsItIsBowledExtrasAreMarkedAndWidesNotSeen) {
  EXPECT_THAT(live_symbols(match_.deliveries, 6), ElementsAre("6", "2lb", "W", "1b", "", "0"));
  match_.over_on_show = {6, true, false};
  EXPECT_THAT(over_symbols(match_), ElementsAre("6", "2lb", "W", "1b", "", "0"));
}

TEST_F(SymbolsOfAnOver, BrowsedItShowsItsEntries) {
  match_.over_on_show = {6, false, false};
  EXPECT_THAT(over_symbols(match_), ElementsAre("8", "2", "W", "1", "", "0"));
}

TEST_F(SymbolsOfAnOver, AfterTheChangeOfInningsItIsStillTheOneOnShow) {
  std::swap(match_.deliveries, match_.first_deliveries);
  match_.over_on_show = {6, true, false};
  EXPECT_THAT(over_symbols(match_), Each(""));
  match_.over_on_show.of_innings_before = true;
  EXPECT_THAT(over_symbols(match_), ElementsAre("6", "2lb", "W", "1b", "", "0"));
  match_.over_on_show.in_play = false;
  EXPECT_THAT(over_symbols(match_), ElementsAre("8", "2", "W", "1", "", "0"));
}

TEST_F(SymbolsOfAnOver, WithoutAnOverOnShowThereAreNone) { EXPECT_THAT(over_symbols(match_), Each("")); }

TEST_F(SymbolsOfAnOver, TheBowlerIsNamedWhenTheOverHasEnded) {
  match_.bowling_card[4].name = "K.Voss";
  match_.over_no = 6;
  EXPECT_EQ(bowler_of_over(match_, 6), "") << "still being bowled";
  match_.over_no = 7;
  EXPECT_EQ(bowler_of_over(match_, 6), "K.Voss");
  EXPECT_EQ(bowler_of_over(match_, 5), "") << "without a ball";
}

}  // namespace
}  // namespace velorin
