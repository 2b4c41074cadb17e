// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "support/deliveries.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;

class OverLog : public ::testing::Test {
 protected:
  void SetUp() override {
    set_up_sample_match(false, false);
    match.team1_name = "New Home";
    match.over_no = 12;
    match.striker = 5;
    match.non_striker = 3;
    match.bowler = 9;
    match.next_bowler = 8;
    for (int i = 1; i <= 11; ++i) {
      match.batting_card[i].name = match.batting_xi[i].name;
      match.bowling_card[i].name = match.bowling_xi[i].name;
    }
    match.batting_card[3].runs = 30;
    match.batting_card[3].balls = 41;
    match.batting_card[5].runs = 2;
    match.batting_card[5].balls = 9;
    match.bowling_card[9].balls = 36;
    match.bowling_card[9].maidens = 1;
    match.bowling_card[9].runs = 22;
    match.bowling_card[9].wickets = 2;
    match.score_runs = 58;
    match.score_wickets = 3;
    match.innings_balls = 72;
  }
  /// An over that comes to its end with the present figures.
  static void over(std::initializer_list<std::string_view> entries) {
    add_over(match.deliveries, match.over_no, entries, {match.bowler, match.striker, match.non_striker});
    match.over_no += 1;
  }
  /// The lines at the end of an over: 12 of them after those of its balls.
  static std::vector<std::string> block(int over_no) {
    const std::vector<std::string> lines = commentary_lines(match);
    const std::string title = "End of Over No." + std::to_string(over_no) + " ";
    for (std::size_t i = 1; i + 10 < lines.size(); ++i) {
      const auto first = lines.begin() + static_cast<std::ptrdiff_t>(i) - 1;
      if (lines[i].starts_with(title)) return {first, first + 12};
    }
    ADD_FAILURE() << "over " << over_no << " has no block";
    return std::vector<std::string>(12);
  }
};

TEST_F(OverLog, HasTwelveLines) {
  over({"1", "W", "4", "0", "", "3"});
  EXPECT_THAT(block(12),
              ElementsAre("-----------------", "End of Over No.12     (8 runs)", "NH   58/3", "-----------------",
                          " Run Rate : 4.83", "-----------------", "H.Bat3     30 (41)", "H.Bat5     2 (9)",
                          "-----------------", "A.Bowl9     6.0-1-22-2", "=================", ""));
  EXPECT_EQ(commentary_lines(match).size(), 1 + 5 + 1 + 1 + 1 + 12U)
      << "balls, the five lines of the wicket, the block";
}

TEST_F(OverLog, TheLowerPositionComesFirstWhicheverEndHeIsAt) {
  for (int ends = 0; ends < 2; ++ends) {
    match.over_no = 12;
    match.deliveries.clear();
    over({"2", "0"});
    EXPECT_EQ(block(12)[6], "H.Bat3     30 (41)");
    EXPECT_EQ(block(12)[7], "H.Bat5     2 (9)");
    std::swap(match.striker, match.non_striker);
  }
}

TEST_F(OverLog, NamesTheManWhoCameInOffItsLastBall) {
  over({"1", "0", "0", "0", "0", "W"});
  match.deliveries.back().next_batsman = 6;
  EXPECT_EQ(block(12)[6], "H.Bat3     30 (41)");
  EXPECT_EQ(block(12)[7], "H.Bat6     0 (0)");
}

TEST_F(OverLog, OnlyNumbersOfTheSixBallsAreAdded) {
  over({"", "W", "W", "", "W", ""});
  EXPECT_EQ(block(12)[1], "End of Over No.12     (0 runs)");
  over({"6", "12", "W", "4", "0", "1"});
  EXPECT_EQ(block(13)[1], "End of Over No.13     (23 runs)");
  EXPECT_EQ(block(12)[1], "End of Over No.12     (0 runs)");
}

TEST_F(OverLog, KeepsTheFiguresOfItsMoment) {
  over({"1"});
  match.striker = 3;
  match.non_striker = 5;
  std::swap(match.bowler, match.next_bowler);
  over({"6", "6", "4"});
  std::swap(match.bowler, match.next_bowler);
  over({"4", "2lb", "W"});
  match.batting_card[3].runs += 20;
  match.batting_card[3].balls += 6;
  match.bowling_card[8] = match.bowling_card[9];
  match.bowling_card[8].name = "A.Bowl8";
  match.bowling_card[9].balls += 3;
  match.bowling_card[9].runs += 4;
  match.bowling_card[9].wickets += 1;
  match.score_runs += 22;
  match.score_wickets += 1;
  match.innings_balls += 6;
  const auto lines = block(12);
  EXPECT_EQ(lines[2], "NH   58/3");
  EXPECT_EQ(lines[4], " Run Rate : 4.83");
  EXPECT_EQ(lines[6], "H.Bat3     30 (41)");
  EXPECT_EQ(lines[7], "H.Bat5     2 (9)");
  EXPECT_EQ(lines[9], "A.Bowl9     6.0-1-22-2");
  const auto next = block(13);
  EXPECT_EQ(next[2], "NH   74/3");
  EXPECT_EQ(next[4], " Run Rate : 5.92");
  EXPECT_EQ(next[6], "H.Bat3     46 (44)");
  EXPECT_EQ(next[9], "A.Bowl8     6.0-1-22-2");
  const auto last = block(14);
  EXPECT_EQ(last[2], "NH   80/4");
  EXPECT_EQ(last[6], "H.Bat3     50 (47)");
  EXPECT_EQ(last[9], "A.Bowl9     6.3-1-26-3");
}

TEST_F(OverLog, RatesAreWrittenAsTheyCome) {
  over({"0"});
  match.team1_name = "Home";
  match.score_runs = 72;
  EXPECT_EQ(block(12)[2], "Hom   72/3");
  EXPECT_EQ(block(12)[4], " Run Rate : 6");
  match.score_runs = 54;
  EXPECT_EQ(block(12)[4], " Run Rate : 4.5");
}

}  // namespace
}  // namespace velorin::testing
