// SPDX-License-Identifier: GPL-3.0-or-later
// Milestones: their messages, their order, and that each comes once.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <span>
#include <string>
#include <vector>

#include "engine/ball_books.h"
#include "engine/delivery_model.h"
#include "engine/match_fixture.h"
#include "support/game_in_play.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Milestones : public match_test {
 protected:
  void SetUp() override {
    match_test::SetUp();
    stand_here(false, false);
  }

  /// The men at 3 and 5 at the crease, 3 on strike; a stand of 0 after two wickets at 70.
  void stand_here(bool computer_bats, bool computer_bowls) {
    set_up_sample_match(computer_bats, computer_bowls);
    match.striker = 3;
    match.non_striker = 5;
    match.bowler = 8;
    match.next_bowler = 9;
    match.batting_card[3].name = "H.Bat3";
    match.batting_card[5].name = "H.Bat5";
    match.bowling_card[8].name = "A.Bowl8";
    match.score_wickets = 2;
    match.score_runs = 70;
    match.last_wicket = {4, match.innings_number, 70};
    user.requests.clear();
  }

  static void give(int position, int runs, int balls) {
    match.batting_card[position].runs = runs;
    match.batting_card[position].balls = balls;
  }

  /// Looks for milestones, and tells the user of those found.
  void check_and_tell() {
    check_milestones(match);
    for (const announcement& found : match.announcements) user.show(message_box{found.title, found.text});
    match.announcements.clear();
  }

  static std::vector<std::string> filled(std::span<const std::string> list) {
    std::vector<std::string> names;
    for (std::size_t i = 1; i < list.size() && !list[i].empty(); ++i) names.push_back(list[i]);
    return names;
  }
};

TEST_F(Milestones, NothingBelowTheFirstOnes) {
  give(3, 49, 30);
  give(5, 49, 31);
  match.bowling_card[8].wickets = 4;
  match.score_runs = 119;
  check_and_tell();
  EXPECT_THAT(user.requests, IsEmpty());
  EXPECT_THAT(filled(match.fifty_list), IsEmpty());
  EXPECT_THAT(filled(match.stand50_list), IsEmpty());
}

TEST_F(Milestones, TheStrikersFour) {
  const std::string lead = "message H.Bat3 - Batting achievement | H.Bat3  ";
  give(3, 50, 61);
  check_and_tell();
  give(3, 101, 90);
  check_and_tell();
  give(3, 150, 111);
  check_and_tell();
  give(3, 204, 130);
  check_and_tell();
  EXPECT_THAT(user.requests,
              ElementsAre(lead + "50(61)  has reached his fifty ", lead + "101(90)  has reached his century! ",
                          lead + "150(111)  has reached his one hundred fifty ",
                          lead + "204(130)  has reached his Double century! "));
}

TEST_F(Milestones, TheNonStrikersFour) {
  const std::string lead = "message H.Bat5 - Batting achievement | H.Bat5 ";
  give(5, 53, 61);
  check_and_tell();
  give(5, 100, 90);
  check_and_tell();
  give(5, 151, 111);
  check_and_tell();
  give(5, 200, 130);
  check_and_tell();
  EXPECT_THAT(user.requests,
              ElementsAre(lead + "53(61)  has reached his fifty ", lead + "100(90)  has reached his century! ",
                          lead + "151(111)  has reached his one hundred fifty ",
                          lead + "200(130)  has reached his Double century! "));
}

TEST_F(Milestones, TheBowlers) {
  match.bowling_card[8].wickets = 5;
  check_and_tell();
  match.bowling_card[8].wickets = 6;
  check_and_tell();
  EXPECT_THAT(user.requests,
              ElementsAre("message A.Bowl8 - Bowling achievement | A.Bowl8 has taken a Five Wicket Haul! "));
  EXPECT_THAT(filled(match.five_wicket_list), ElementsAre("A.Bowl8"));
}

TEST_F(Milestones, TheStandsSix) {
  const std::string lead = "message  Partnership | H.Bat3 & H.Bat5 have put on a ";
  for (const int stand : {50, 100, 150, 200, 250, 300, 350}) {
    match.score_runs = 70 + stand - 1;
    check_and_tell();
    match.score_runs = 70 + stand;
    std::swap(match.striker, match.non_striker);
    check_and_tell();
  }
  EXPECT_THAT(user.requests,
              ElementsAre(lead + "Fifty run partnership! ", lead + "Hundred run partnership! ",
                          lead + "One hundered fifty run partnership! ", lead + "Two hundred run partnership! ",
                          lead + "Two hundred Fifty run partnership! ", lead + "Three hundred run partnership! "));
  for (const auto* list : {&match.stand50_list, &match.stand100_list, &match.stand150_list, &match.stand200_list,
                           &match.stand250_list, &match.stand300_list}) {
    EXPECT_THAT(filled(*list), ElementsAre("H.Bat3H.Bat5"));
  }
}

TEST_F(Milestones, AllAtOnceComeInTheirOrder) {
  give(3, 200, 99);
  give(5, 200, 98);
  match.bowling_card[8].wickets = 7;
  match.score_runs = 70 + 300;
  check_and_tell();
  std::vector<std::string> firsts;
  for (const message_box& message : user.messages) firsts.push_back(message.text);
  EXPECT_THAT(firsts,
              ElementsAre("H.Bat3  200(99)  has reached his fifty ", "H.Bat5 200(98)  has reached his fifty ",
                          "H.Bat3  200(99)  has reached his century! ", "H.Bat5 200(98)  has reached his century! ",
                          "H.Bat3  200(99)  has reached his one hundred fifty ",
                          "H.Bat5 200(98)  has reached his one hundred fifty ",
                          "H.Bat3  200(99)  has reached his Double century! ",
                          "H.Bat5 200(98)  has reached his Double century! ", "A.Bowl8 has taken a Five Wicket Haul! ",
                          "H.Bat3 & H.Bat5 have put on a Fifty run partnership! ",
                          "H.Bat3 & H.Bat5 have put on a Hundred run partnership! ",
                          "H.Bat3 & H.Bat5 have put on a One hundered fifty run partnership! ",
                          "H.Bat3 & H.Bat5 have put on a Two hundred run partnership! ",
                          "H.Bat3 & H.Bat5 have put on a Two hundred Fifty run partnership! ",
                          "H.Bat3 & H.Bat5 have put on a Three hundred run partnership! "));
  check_and_tell();
  std::swap(match.striker, match.non_striker);
  check_and_tell();
  EXPECT_EQ(user.messages.size(), 15U);
}

TEST_F(Milestones, UnattendedTheListsAreFilledWithoutAWord) {
  stand_here(true, true);
  give(3, 150, 99);
  give(5, 55, 98);
  match.bowling_card[8].wickets = 5;
  match.score_runs = 70 + 100;
  check_and_tell();
  EXPECT_THAT(user.requests, IsEmpty());
  EXPECT_THAT(filled(match.fifty_list), ElementsAre("H.Bat3", "H.Bat5"));
  EXPECT_THAT(filled(match.hundred_list), ElementsAre("H.Bat3"));
  EXPECT_THAT(filled(match.century_and_half_list), ElementsAre("H.Bat3"));
  EXPECT_THAT(filled(match.double_century_list), IsEmpty());
  EXPECT_THAT(filled(match.five_wicket_list), ElementsAre("A.Bowl8"));
  EXPECT_THAT(filled(match.stand50_list), ElementsAre("H.Bat3H.Bat5"));
  EXPECT_THAT(filled(match.stand100_list), ElementsAre("H.Bat3H.Bat5"));
}

TEST_F(Milestones, OneHumanIsEnough) {
  for (const bool human_bats : {true, false}) {
    stand_here(!human_bats, human_bats);
    give(3, 50, 50);
    check_and_tell();
    EXPECT_EQ(user.requests.size(), 1U);
  }
}

TEST_F(Milestones, ANameOnTheListIsNotAnnouncedAgain) {
  match.fifty_list[1] = "Somebody";
  match.fifty_list[2] = "H.Bat5";  // of the other side, in the other innings
  give(3, 50, 50);
  give(5, 50, 50);
  check_and_tell();
  EXPECT_EQ(user.requests.size(), 1U);
  EXPECT_THAT(filled(match.fifty_list), ElementsAre("Somebody", "H.Bat5", "H.Bat3"));
}

// A man without a name is never found on a list: the search ends at the first empty entry.

TEST_F(Milestones, ABatsmanWithoutANameIsAnnouncedWithEveryBall) {
  match.batting_card[3].name.clear();
  give(3, 100, 61);
  check_and_tell();
  check_and_tell();
  const std::string fifty = "message  - Batting achievement |   100(61)  has reached his fifty ";
  const std::string century = "message  - Batting achievement |   100(61)  has reached his century! ";
  EXPECT_THAT(user.requests, ElementsAre(fifty, century, fifty, century));
  EXPECT_THAT(filled(match.fifty_list), IsEmpty());
  give(5, 50, 70);
  check_and_tell();
  EXPECT_THAT(filled(match.fifty_list), ElementsAre("H.Bat5"));
  user.requests.clear();
  check_and_tell();
  EXPECT_THAT(user.requests, ElementsAre(fifty, century)) << "he is still unknown, the other one is known";
}

TEST_F(Milestones, ABowlerWithoutANameIsAnnouncedWithEveryBall) {
  match.bowling_card[8].name.clear();
  match.bowling_card[8].wickets = 5;
  check_and_tell();
  check_and_tell();
  const std::string line = "message  - Bowling achievement |  has taken a Five Wicket Haul! ";
  EXPECT_THAT(user.requests, ElementsAre(line, line));
  EXPECT_THAT(filled(match.five_wicket_list), IsEmpty());
}

TEST_F(Milestones, APairWithoutNamesIsAnnouncedWithEveryBall) {
  match.batting_xi[3].name.clear();
  match.batting_xi[5].name.clear();
  match.score_runs = 70 + 50;
  check_and_tell();
  check_and_tell();
  const std::string line = "message  Partnership |  &  have put on a Fifty run partnership! ";
  EXPECT_THAT(user.requests, ElementsAre(line, line));
  EXPECT_THAT(filled(match.stand50_list), IsEmpty());
}

TEST_F(Milestones, APairOfWhichOneHasANameIsAnnouncedOnce) {
  for (const int nameless : {3, 5}) {
    stand_here(false, false);
    match.batting_xi[nameless].name.clear();
    match.score_runs = 70 + 50;
    check_and_tell();
    check_and_tell();
    EXPECT_EQ(user.requests.size(), 1U);
    EXPECT_THAT(filled(match.stand50_list), ElementsAre(nameless == 3 ? "H.Bat5" : "H.Bat3"));
  }
}

TEST_F(Milestones, AStandCountsExtrasAndNoBatsmansRuns) {
  match.score_runs = 70 + 50;
  match.innings_byes = 50;
  check_and_tell();
  EXPECT_EQ(user.requests.size(), 1U);
}

TEST_F(Milestones, AnotherPairIsAnotherStand) {
  match.score_runs = 70 + 50;
  check_and_tell();
  match.score_wickets = 3;
  match.last_wicket = {3, match.innings_number, 120};
  match.striker = 6;
  check_and_tell();
  EXPECT_EQ(user.requests.size(), 1U);
  match.score_runs = 170;
  check_and_tell();
  EXPECT_EQ(user.requests.back(), "message  Partnership | H.Bat5 & H.Bat6 have put on a Fifty run partnership! ");
  EXPECT_THAT(filled(match.stand50_list), ElementsAre("H.Bat3H.Bat5", "H.Bat5H.Bat6"));
}

TEST_F(Milestones, AnInningsOfSixes) {
  open(false, false);
  user.messages.clear();
  play(times(70, hit(6)));
  std::vector<std::string> texts;
  for (const message_box& message : user.messages) texts.push_back(message.text);
  const std::string pair = "H.Bat1 & H.Bat2 have put on a ";
  // Both take whole overs in turn, so each milestone falls to the man on strike.
  EXPECT_THAT(
      texts,
      ElementsAre(pair + "Fifty run partnership! ", "H.Bat1  54(9)  has reached his fifty ",
                  pair + "Hundred run partnership! ", "H.Bat2  54(9)  has reached his fifty ",
                  pair + "One hundered fifty run partnership! ", "H.Bat1  102(17)  has reached his century! ",
                  pair + "Two hundred run partnership! ", "H.Bat2  102(17)  has reached his century! ",
                  pair + "Two hundred Fifty run partnership! ", "H.Bat1  150(25)  has reached his one hundred fifty ",
                  pair + "Three hundred run partnership! ", "H.Bat2  150(25)  has reached his one hundred fifty ",
                  "H.Bat1  204(34)  has reached his Double century! ",
                  "H.Bat2  204(34)  has reached his Double century! "));
}

TEST_F(Milestones, AManWhoReachesItByASingleIsTheNonStriker) {
  open(false, false);
  // 31 in the first over, whose last ball keeps him the strike; 19 more in the second.
  play(times(5, hit(6)) + std::vector{hit(1)} + times(3, hit(6)) + std::vector{hit(1)});
  EXPECT_THAT(texts_of("H.Bat1 - Batting achievement"), ElementsAre("H.Bat1 50(10)  has reached his fifty "));
}

TEST_F(Milestones, TheFifthWicketIsAnnouncedOnItsBall) {
  open(false, false);
  play(times(4, out()) + std::vector{out(31, 3)});
  EXPECT_THAT(user.messages, IsEmpty());
  open(false, false);
  play(times(5, out()));
  EXPECT_THAT(texts_of("A.Bowl1 - Bowling achievement"), ElementsAre("A.Bowl1 has taken a Five Wicket Haul! "));
}

TEST_F(Milestones, AStandThatEndsAtFiftyIsNoneAnyMore) {
  match.score_runs = 70 + 50;
  match.score_wickets = 3;
  match.last_wicket = {3, match.innings_number, 70 + 50};
  check_and_tell();
  EXPECT_THAT(user.requests, IsEmpty());
  EXPECT_THAT(filled(match.stand50_list), IsEmpty());
}

}  // namespace
}  // namespace velorin::testing
