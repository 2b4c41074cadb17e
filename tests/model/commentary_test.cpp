// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/commentary.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/match_state.h"
#include "support/cards.h"
#include "support/deliveries.h"
#include "support/game_in_play.h"

namespace velorin {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr men_at_work voss_to_marrow = {4, 1, 2};
constexpr men_at_work voss_to_hale = {4, 2, 1};
constexpr men_at_work ardent_to_marrow = {9, 1, 2};
constexpr men_at_work ardent_to_hale = {9, 2, 1};

class Commentary : public testing::Test {
 protected:
  void SetUp() override {
    batting_[1].name = "T.Marrow";
    batting_[2].name = "B.Hale";
    bowling_[4].name = "K.Voss";
    bowling_[9].name = "L.Ardent";
  }

  std::vector<commentary_line> told() const {
    return tell({.deliveries = deliveries_,
                 .batting = batting_,
                 .bowling = bowling_,
                 .team = "East Marrow",
                 .score_runs = score_runs_,
                 .score_wickets = score_wickets_,
                 .innings_balls = innings_balls_,
                 .overs_closed = overs_closed_});
  }

  std::vector<std::string> lines() const {
    std::vector<std::string> texts;
    for (const commentary_line& line : told()) texts.push_back(line.text);
    return texts;
  }

  std::vector<line_kind> kinds() const {
    std::vector<line_kind> all;
    for (const commentary_line& line : told()) all.push_back(line.kind);
    return all;
  }

  int count() const { return count_lines(deliveries_, overs_closed_); }

  /// The cards and totals of a side of 41 for 2 after seven overs, whose men are in at 20 and 4. L.Ardent has bowled
  /// three overs.
  void set_figures_after_seven_overs() {
    score_runs_ = 41;
    score_wickets_ = 2;
    innings_balls_ = 42;
    overs_closed_ = 7;
    batting_[1].runs = 20;
    batting_[1].balls = 25;
    batting_[2].runs = 4;
    batting_[2].balls = 8;
    bowling_[9].balls = 18;
    bowling_[9].maidens = 1;
    bowling_[9].runs = 12;
    bowling_[9].wickets = 1;
  }

  /// The seventh over of that innings, of nine runs.
  void bowl_the_seventh_over() { add_over(deliveries_, 7, {"4", "0", "2", "0", "3", "0"}, ardent_to_marrow); }

  batting_card_table batting_;
  bowling_card_table bowling_;
  delivery_list deliveries_;
  int score_runs_ = 0;
  int score_wickets_ = 0;
  int innings_balls_ = 0;
  int overs_closed_ = 0;
};

TEST_F(Commentary, StartsEmpty) {
  EXPECT_EQ(count(), 0);
  EXPECT_THAT(lines(), IsEmpty());
}

TEST_F(Commentary, RunsOffTheBat) {
  for (const int runs : {0, 1, 2, 3, 4, 6}) deliveries_.push_back(ball_of_runs(runs, voss_to_marrow));
  EXPECT_THAT(lines(), ElementsAre("K.Voss to T.Marrow : no run.", "K.Voss to T.Marrow : 1 run.",
                                   "K.Voss to T.Marrow : 2 runs.", "K.Voss to T.Marrow : 3 runs.",
                                   "K.Voss to T.Marrow : 4 runs.", "K.Voss to T.Marrow : 6 runs."));
  EXPECT_EQ(count(), 6);
}

TEST_F(Commentary, Extras) {
  deliveries_ = {ball_of_leg_byes(1, voss_to_marrow), ball_of_leg_byes(4, voss_to_hale),
                 ball_of_byes(2, ardent_to_marrow), no_ball_on(1, ardent_to_marrow), wide_on(1, voss_to_hale)};
  EXPECT_THAT(lines(), ElementsAre("K.Voss to B.Hale : 1Leg Bye(s).", "K.Voss to B.Hale : 4Leg Bye(s).",
                                   "L.Ardent to T.Marrow : 2Bye(s).", "L.Ardent to T.Marrow : no ball.",
                                   "K.Voss to B.Hale : Wide."));
  EXPECT_EQ(count(), 5);
}

TEST_F(Commentary, ByesNameTheManWhoHasComeToTheStrikersEnd) {
  for (const int runs : {1, 2, 3, 4}) deliveries_.push_back(ball_of_byes(runs, voss_to_marrow));
  for (const int runs : {1, 2, 3, 4}) deliveries_.push_back(ball_of_leg_byes(runs, voss_to_marrow));
  EXPECT_THAT(lines(), ElementsAre("K.Voss to B.Hale : 1Bye(s).", "K.Voss to T.Marrow : 2Bye(s).",
                                   "K.Voss to B.Hale : 3Bye(s).", "K.Voss to T.Marrow : 4Bye(s).",
                                   "K.Voss to B.Hale : 1Leg Bye(s).", "K.Voss to T.Marrow : 2Leg Bye(s).",
                                   "K.Voss to B.Hale : 3Leg Bye(s).", "K.Voss to T.Marrow : 4Leg Bye(s)."));
}

TEST_F(Commentary, ANoBallThatCountsLeavesNoLine) {
  for (delivery ball : {no_ball_on(1, voss_to_marrow), wide_on(1, voss_to_marrow)}) {
    ball.counted = true;
    ball.extras = 0;
    deliveries_.push_back(ball);
  }
  EXPECT_THAT(lines(), IsEmpty());
  EXPECT_EQ(count(), 0);
  deliveries_.push_back(ball_of_runs(2, voss_to_marrow));
  deliveries_.push_back(no_ball_on(1, voss_to_marrow));
  EXPECT_THAT(lines(), ElementsAre("K.Voss to T.Marrow : 2 runs.", "K.Voss to T.Marrow : no ball."));
  EXPECT_EQ(count(), 2);
}

TEST_F(Commentary, AWicketHasFiveLines) {
  put_out(batting_[1], dismissal::caught, "K.Voss", {6, "R.Ashe"});
  batting_[1].runs = 67;
  batting_[1].balls = 71;
  batting_[1].fours = 6;
  batting_[1].sixes = 1;
  deliveries_.push_back(ball_of_wicket(dismissal::caught, voss_to_marrow));
  EXPECT_EQ(count(), 5);
  EXPECT_THAT(lines(),
              ElementsAre("K.Voss to T.Marrow : Wicket!", "--------------------",
                          "T.Marrow   c R.Ashe  b K.Voss 67 (71)", "Fours : 6   Sixes : 1", "--------------------"));
}

TEST_F(Commentary, AWicketWithoutAFielderKeepsBothBlanks) {
  put_out(batting_[2], dismissal::caught_and_bowled, "K.Voss", {4, "K.Voss"});
  batting_[2].balls = 1;
  deliveries_.push_back(ball_of_wicket(dismissal::caught_and_bowled, voss_to_hale));
  EXPECT_EQ(lines()[2], "B.Hale    c && b K.Voss 0 (1)");
  EXPECT_EQ(lines()[3], "Fours : 0   Sixes : 0");
}

TEST_F(Commentary, TheEndOfAnOverHasTwelveLines) {
  set_figures_after_seven_overs();
  bowl_the_seventh_over();
  EXPECT_EQ(count(), 6 + 12);
  auto end = lines();
  ASSERT_EQ(end.size(), 18U);
  end.erase(end.begin(), end.begin() + 6);
  EXPECT_THAT(end, ElementsAre("-----------------", "End of Over No.7     (9 runs)", "EM   41/2", "-----------------",
                               " Run Rate : 5.86", "-----------------", "T.Marrow     20 (25)", "B.Hale     4 (8)",
                               "-----------------", "L.Ardent     3.0-1-12-1", "=================", ""));
}

TEST_F(Commentary, AnOverInPlayHasNoEnd) {
  set_figures_after_seven_overs();
  bowl_the_seventh_over();
  overs_closed_ = 6;
  EXPECT_EQ(count(), 6);
  EXPECT_THAT(lines(), ElementsAre("L.Ardent to T.Marrow : 4 runs.", "L.Ardent to T.Marrow : no run.",
                                   "L.Ardent to T.Marrow : 2 runs.", "L.Ardent to T.Marrow : no run.",
                                   "L.Ardent to T.Marrow : 3 runs.", "L.Ardent to T.Marrow : no run."));
}

TEST_F(Commentary, TheRunRateHasNoTrailingZeros) {
  set_figures_after_seven_overs();
  bowl_the_seventh_over();
  score_runs_ = 42;
  EXPECT_EQ(lines()[10], " Run Rate : 6");
  score_runs_ = 45;
  innings_balls_ = 36;
  EXPECT_EQ(lines()[10], " Run Rate : 7.5");
}

TEST_F(Commentary, TheRunRateOfNoBallsIsADash) {
  overs_closed_ = 1;
  deliveries_.assign(6, wide_on(1, ardent_to_marrow));
  EXPECT_EQ(lines()[7], "End of Over No.1     (6 runs)");
  EXPECT_EQ(lines()[10], " Run Rate :  - ");
}

TEST_F(Commentary, EachOverKeepsItsOwnFigures) {
  set_figures_after_seven_overs();
  bowl_the_seventh_over();
  add_over(deliveries_, 8, {"W", "6", "1lb", "2b", "0", "2"}, voss_to_marrow);
  for (std::size_t i = 6; i < deliveries_.size(); ++i) deliveries_[i].non_striker = 3;
  deliveries_[6].striker = 2;
  deliveries_[6].non_striker = 1;
  deliveries_[6].next_batsman = 3;
  batting_[3].name = "O.Fenn";
  score_runs_ += 11;
  score_wickets_ += 1;
  innings_balls_ += 6;
  overs_closed_ = 8;
  batting_[1].runs += 8;
  batting_[1].balls += 5;
  batting_[2].balls += 1;
  bowling_[4].balls = 19;
  bowling_[4].runs = 20;
  bowling_[4].wickets = 1;
  const auto all = lines();
  ASSERT_EQ(all.size(), 6U + 12 + 5 + 5 + 12);
  EXPECT_EQ(all[7], "End of Over No.7     (9 runs)");
  EXPECT_EQ(all[8], "EM   41/2");
  EXPECT_EQ(all[10], " Run Rate : 5.86");
  EXPECT_EQ(all[12], "T.Marrow     20 (25)");
  EXPECT_EQ(all[13], "B.Hale     4 (8)");
  EXPECT_EQ(all[15], "L.Ardent     3.0-1-12-1");
  EXPECT_EQ(all[29], "End of Over No.8     (11 runs)");
  EXPECT_EQ(all[30], "EM   52/3");
  EXPECT_EQ(all[32], " Run Rate : 6.5");
  EXPECT_EQ(all[34], "T.Marrow     28 (30)");
  EXPECT_EQ(all[35], "O.Fenn     0 (0)");
  EXPECT_EQ(all[37], "K.Voss     3.1-0-20-1");
}

TEST_F(Commentary, TheManWhoComesInWithTheLastBallStandsAtTheEndOfTheOver) {
  batting_[3].name = "O.Fenn";
  deliveries_ = {ball_of_wicket(dismissal::bowled, voss_to_marrow, 3)};
  overs_closed_ = 1;
  EXPECT_EQ(lines()[11], "B.Hale     0 (0)");
  EXPECT_EQ(lines()[12], "O.Fenn     0 (0)");
}

TEST_F(Commentary, AnInningsThatBeganWithFiguresAddsToThem) {
  score_runs_ = 105;
  score_wickets_ = 5;
  innings_balls_ = 72;
  overs_closed_ = 2;
  batting_[1].runs = 58;
  batting_[1].balls = 46;
  batting_[2].runs = 7;
  batting_[2].balls = 11;
  bowling_[4].balls = 36;
  bowling_[4].maidens = 3;
  bowling_[4].runs = 22;
  bowling_[4].wickets = 2;
  bowling_[9].balls = 24;
  bowling_[9].runs = 30;
  add_over(deliveries_, 1, {"0", "0", "2lb", "0", "0", "0"}, voss_to_hale);
  add_over(deliveries_, 2, {"4", "4", "0", "0", "1", "0"}, ardent_to_marrow);
  const auto all = lines();
  ASSERT_EQ(all.size(), 36U);
  EXPECT_EQ(all[8], "EM   96/5");
  EXPECT_EQ(all[10], " Run Rate : 8.73") << "96 of 66 balls";
  EXPECT_EQ(all[12], "T.Marrow     49 (40)");
  EXPECT_EQ(all[13], "B.Hale     7 (11)");
  EXPECT_EQ(all[15], "K.Voss     6.0-3-22-2") << "this maiden is the third";
  EXPECT_EQ(all[26], "EM   105/5");
  EXPECT_EQ(all[28], " Run Rate : 8.75");
  EXPECT_EQ(all[30], "T.Marrow     58 (46)");
  EXPECT_EQ(all[33], "L.Ardent     4.0-0-30-0");
}

TEST_F(Commentary, LinesStandInTheOrderOfTheDeliveries) {
  set_figures_after_seven_overs();
  deliveries_ = {ball_of_runs(4, voss_to_marrow, 7, 1), ball_of_wicket(dismissal::bowled, voss_to_marrow, 0, 7, 2),
                 wide_on(1, ardent_to_hale, 8)};
  const auto all = lines();
  ASSERT_EQ(all.size(), 19U);
  EXPECT_EQ(count(), 19);
  EXPECT_EQ(all[0], "K.Voss to T.Marrow : 4 runs.");
  EXPECT_EQ(all[1], "K.Voss to T.Marrow : Wicket!");
  EXPECT_EQ(all[6], "-----------------");
  EXPECT_EQ(all[17], "");
  EXPECT_EQ(all[18], "L.Ardent to B.Hale : Wide.");
}

TEST_F(Commentary, EachLineHasItsKind) {
  deliveries_ = {ball_of_runs(4, voss_to_marrow), ball_of_byes(4, voss_to_marrow), ball_of_runs(6, voss_to_marrow),
                 wide_on(1, voss_to_marrow), ball_of_wicket(dismissal::leg_before, voss_to_marrow, 3)};
  EXPECT_THAT(kinds(), ElementsAre(line_kind::four, line_kind::ball, line_kind::six, line_kind::ball, line_kind::wicket,
                                   line_kind::wicket_card, line_kind::wicket_card, line_kind::wicket_card,
                                   line_kind::wicket_card));
  overs_closed_ = 1;
  auto all = kinds();
  all.erase(all.begin(), all.begin() + 9);
  EXPECT_EQ(all.size(), 12U);
  EXPECT_THAT(all, Each(line_kind::over_end));
}

TEST_F(Commentary, ClearedDeliveriesLeaveNoLine) {
  set_figures_after_seven_overs();
  bowl_the_seventh_over();
  deliveries_.clear();
  EXPECT_EQ(count(), 0);
  EXPECT_THAT(lines(), IsEmpty());
  add_over(deliveries_, 1, {"9"}, ardent_to_marrow);
  overs_closed_ = 1;
  EXPECT_EQ(lines()[5], "End of Over No.1     (9 runs)");
}

class CommentaryOfTheMatch : public testing::Test {
 protected:
  void SetUp() override {
    match = match_state();
    match.team1_name = "Norvale";
    match.team2_name = "East Marrow";
    match.batting_card[1].name = "T.Marrow";
    match.bowling_card[4].name = "K.Voss";
    match.first_batting_card[2].name = "P.Lind";
    match.first_bowling_card[5].name = "S.Orr";
    match.first_bowling_card[9].name = "D.Pell";
  }
  void TearDown() override { match = match_state(); }
};

TEST_F(CommentaryOfTheMatch, ReadsTheCardsOfTheInningsInPlay) {
  match.deliveries = {ball_of_runs(2, voss_to_marrow, 7)};
  match.over_no = 8;
  match.score_runs = 41;
  match.score_wickets = 2;
  const auto lines = commentary_lines(match);
  ASSERT_EQ(lines.size(), 13U);
  EXPECT_EQ(lines[0], "K.Voss to T.Marrow : 2 runs.");
  EXPECT_EQ(lines[3], "Nor   41/2");
}

TEST_F(CommentaryOfTheMatch, TheStoreReadsTheCardsOfTheOtherInningsAndEndsWithAnEmptyLine) {
  match.first_deliveries = {ball_of_runs(6, {9, 2, 1}, 7), ball_of_runs(0, {5, 2, 1}, 8)};
  match.first_total = 41;
  match.first_wickets = 2;
  match.first_batting_card[2].runs = 10;
  match.first_batting_card[2].balls = 9;
  match.first_bowling_card[9].balls = 18;
  match.first_bowling_card[9].maidens = 1;
  match.first_bowling_card[9].runs = 12;
  match.first_bowling_card[9].wickets = 1;
  match.commentary_stored = true;
  const auto lines = stored_commentary_lines(match);
  ASSERT_EQ(lines.size(), 15U) << "the last over never comes to its end";
  EXPECT_EQ(lines[0], "D.Pell to P.Lind : 6 runs.");
  EXPECT_EQ(lines[3], "EM   41/2");
  EXPECT_EQ(lines[8], "P.Lind     10 (8)");
  EXPECT_EQ(lines[10], "D.Pell     3.0-1-12-1");
  EXPECT_EQ(lines[13], "S.Orr to P.Lind : no run.");
  EXPECT_EQ(lines[14], "");
}

TEST_F(CommentaryOfTheMatch, TheStoreIsEmptyBeforeTheChangeOfInnings) {
  EXPECT_THAT(stored_commentary_lines(match), IsEmpty());
}

TEST_F(CommentaryOfTheMatch, AnInningsWithoutALineLeavesTheEmptyLineAlone) {
  match.commentary_stored = true;
  EXPECT_THAT(stored_commentary_lines(match), ElementsAre(""));
}

}  // namespace
}  // namespace velorin
