// SPDX-License-Identifier: GPL-3.0-or-later
// What an over asks of a human, and in which order: quota, wickets, milestones, changes of bowler.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "console/captain_forms.h"
#include "engine/match_fixture.h"
#include "engine/over_play.h"
#include "model/run_time_error.h"
#include "support/game_in_play.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Requests : public match_test {
 protected:
  static constexpr const char* quota_of_one =
      "message Full Quota Bowled | A.Bowl1 has bowled his full quota of 10 overs.Please select a new bowler";

  /// Books so many balls to the bowler at a position, before the over that is about to begin.
  static void give_balls(int position, int balls) {
    match.bowling_card[position].balls = balls;
    match.innings_balls += balls;
    match.over_no = match.innings_balls / 6 + 1;
  }

  void choose(int row) {
    user.on_bowler_choice.emplace_back([row](bowler_choice_form& form) {
      EXPECT_EQ(form.title, "Change Bowler");
      EXPECT_EQ(form.shown_for, bowler_choice_form::use::quota);
      form.choose(row);
      form.accept();
    });
  }
};

TEST_F(Requests, AnOverWithAHuman) {
  open(false, false);
  user.requests.clear();
  note_balls = true;
  play({hit(6), out(46, 1), hit(6), hit(6), hit(6), hit(6)});
  play({hit(6), hit(2), hit(6), hit(6), hit(6), hit(0)});
  EXPECT_THAT(user.requests,
              ElementsAre("ball", "batsmandetails H.Bat1   c && b A.Bowl1  6 (2).", "batorder Select Next Batsman",
                          "ball", "ball", "ball", "ball", "ball",  // the end of the over asks for nothing
                          "ball", "ball", "ball", "ball", "ball",
                          "message  Partnership | H.Bat2 & H.Bat3 have put on a Fifty run partnership! ", "ball"));
}

TEST_F(Requests, AMilestoneComesAfterTheBallAndBeforeTheNext) {
  open(false, true);
  match.batting_card[1].runs = 48;
  match.batting_card[1].twos = 24;
  match.batting_card[1].balls = 24;
  match.bowling_card[3].runs = 48;
  match.bowling_card[3].balls = 24;
  match.innings_balls = 24;
  match.score_runs = 48;
  user.requests.clear();
  note_balls = true;
  play({hit(2), hit(0)});
  EXPECT_THAT(user.requests,
              ElementsAre("ball", "message H.Bat1 - Batting achievement | H.Bat1  50(25)  has reached his fifty ",
                          "message  Partnership | H.Bat1 & H.Bat2 have put on a Fifty run partnership! ", "ball"));
}

TEST_F(Requests, AFullQuotaAsksForAnotherBowler) {
  open(false, false);
  give_balls(1, 60);
  user.requests.clear();
  choose(4);
  play({hit(0)});
  EXPECT_THAT(user.requests, ElementsAre(quota_of_one, "chgbowler Change Bowler"));
  EXPECT_EQ(match.bowler, 4);
  EXPECT_EQ(match.bowling_card[4].balls, 1);
}

TEST_F(Requests, FiftyNineBallsAreNoFullQuota) {
  open(false, false);
  give_balls(1, 59);
  user.requests.clear();
  play(times(6, hit(0)));
  EXPECT_THAT(user.requests, IsEmpty());
  EXPECT_EQ(match.bowling_card[1].balls, 65);
}

TEST_F(Requests, TheQuotaIsAskedUntilItIsKept) {
  open(false, false);
  give_balls(1, 60);
  give_balls(5, 61);
  user.requests.clear();
  choose(0);  // leaves the man who is through
  choose(5);  // who is through as well
  choose(6);
  play({hit(0)});
  EXPECT_THAT(user.requests,
              ElementsAre(quota_of_one, "chgbowler Change Bowler", quota_of_one, "chgbowler Change Bowler",
                          "message Full Quota Bowled | A.Bowl5 has bowled his full quota of 10 overs.Please select a "
                          "new bowler",
                          "chgbowler Change Bowler"));
  EXPECT_EQ(match.bowler, 6);
}

TEST_F(Requests, AQuotaWithoutAnAnswerIsAnError) {
  open(false, false);
  give_balls(1, 60);
  user.on_bowler_choice = {[](bowler_choice_form& form) {
    form.chosen = 0;
    form.accept();
  }};
  EXPECT_THROW(play({hit(0)}), run_time_error);
}

TEST_F(Requests, TheQuotaOfAComputersBowlerIsTheUsersToSettle) {
  open(false, true);
  ASSERT_EQ(match.bowler, 8);
  give_balls(8, 60);
  user.requests.clear();
  choose(10);
  play({hit(0)});
  EXPECT_THAT(user.requests,
              ElementsAre("message Full Quota Bowled | A.Bowl8 has bowled his full quota of 10 overs.Please select a "
                          "new bowler",
                          "chgbowler Change Bowler"));
  EXPECT_EQ(match.bowler, 10);
}

TEST_F(Requests, AChangeOfTheComputersBowlerIsAnnouncedAnOverLater) {
  open(false, true);
  user.requests.clear();
  // 24 off the second over: 6 x 24 / (2 x 6) - 5 is 7, and he stays. 60 off his two: 6 x 60 / (2 x 12) - 5 is 10.
  play(times(6, hit(0)) + times(6, hit(4)) + times(6, hit(0)));
  EXPECT_THAT(user.requests, IsEmpty());
  play(times(6, hit(6)));
  EXPECT_THAT(user.messages, ::testing::Not(IsEmpty()));
  EXPECT_THAT(texts_of("Bowler Change"), IsEmpty());
  EXPECT_TRUE(match.bowler_change_pending);
  EXPECT_EQ(match.bowler_change_out, 9);
  EXPECT_EQ(match.bowler_change_in, 6);
  EXPECT_EQ(match.next_bowler, 6);
  play(times(6, hit(0)));
  EXPECT_THAT(texts_of("Bowler Change"), ElementsAre("A.Bowl9 has been replaced by A.Bowl6 ."));
  EXPECT_EQ(match.bowler, 6);
  EXPECT_FALSE(match.bowler_change_pending);
  EXPECT_EQ(match.bowler_change_out, 0);
}

TEST_F(Requests, TheComputersBowlingAggressionLagsByTwoOvers) {
  open(false, true);
  EXPECT_THAT(match.bowling_aggression, ElementsAre(2, 1));  // the first over
  play(times(6, hit(0)));
  // 4 - 0 - 0.08 is 4; less 0.025 for form, 0.85 for skill, 0.35 for the coming bowler: 3, and it goes to the other
  // end.
  EXPECT_THAT(match.bowling_aggression, ElementsAre(1, 3));  // the second over
  play(times(6, hit(4)));
  // 4 - 2 - 0.16 is 2; less 0.28, 0.85 and 0.335: 1.
  EXPECT_THAT(match.bowling_aggression, ElementsAre(3, 1));  // the third over
  play(times(6, hit(0)));
  EXPECT_EQ(match.bowling_aggression[0], 1);  // the fourth over
}

TEST_F(Requests, TheOpeningPairIsNotedOnce) {
  open(false, true);
  play(times(6, hit(0)));
  EXPECT_THAT(match.opening_bowlers, ElementsAre(9, 8));
  play(times(6, hit(0)));
  EXPECT_THAT(match.opening_bowlers, ElementsAre(9, 8));
}

TEST_F(Requests, TheComputersBatsmenAreSetAfterEachBall) {
  open(true, false);
  match.batsman_aggression = {5, 5};
  play({hit(0)});
  // 10/3 - 0 + 1/75 is 3; plus 0.015, less 5/43, plus 0.71: 4. Its partner: 3 + 0.01 - 5/42 + 0.71.
  EXPECT_THAT(match.batsman_aggression, ElementsAre(4, 4));
}

}  // namespace
}  // namespace velorin::testing
