// SPDX-License-Identifier: GPL-3.0-or-later
#include <cmath>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "captain/computer_captain.h"
#include "model/random.h"
#include "model/run_time_error.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;

/// A man of a batting side: his role and his skill. Names are "a", "b" and so on, by place.
struct man_in {
  std::string role;
  int skill;
};

void set_batsmen(const std::vector<man_in>& men) {
  set_up_sample_match();
  match.batting_xi = {};
  for (std::size_t i = 0; i < men.size(); ++i) {
    player_rec& man = match.batting_xi[i + 1];
    man.name = std::string(1, static_cast<char>('a' + i));
    man.bat_type = "RH " + men[i].role;
    man.bat_skill = men[i].skill;
  }
}

std::string order() {
  std::string names;
  for (int i = 1; i <= 11; ++i) names += match.batting_xi[i].name;
  return names;
}

/// Sends in the man after `sent` men, of whom the last two are at the crease.
std::string send_next(int sent) {
  match.striker = sent;
  match.non_striker = sent > 0 ? sent - 1 : 0;
  choose_next_batsman(match);
  EXPECT_EQ(match.next_batsman_slot, sent);
  return match.batting_xi[sent + 1].name;
}

const std::string o = "Opener";
const std::string m = "Middle Order";
const std::string l = "Lower Order";

TEST(ChooseNextBatsman, OpenersFarDownComeFirstAndOthersMoveDown) {
  set_batsmen({{m, 30}, {m, 40}, {m, 20}, {m, 10}, {l, 9}, {l, 8}, {o, 5}, {l, 7}, {o, 50}, {l, 6}, {l, 5}});
  EXPECT_EQ(send_next(0), "g");
  EXPECT_EQ(order(), "gabcdefhijk");
  EXPECT_EQ(send_next(1), "i");
  EXPECT_EQ(order(), "giabcdefhjk");
}

TEST(ChooseNextBatsman, ThenTheMiddleOrderBySkillThenTheLower) {
  set_batsmen({{l, 90}, {m, 30}, {m, 40}, {l, 20}, {m, 35}, {o, 1}, {o, 99}, {l, 95}, {m, 40}, {l, 20}, {m, 2}});
  std::string sent;
  for (int i = 0; i < 11; ++i) sent += send_next(i);
  EXPECT_EQ(sent, "fgciebkhadj");
}

TEST(ChooseNextBatsman, WithoutOpenersTheBestOfTheMiddleOrderOpen) {
  set_batsmen({{m, 30}, {l, 99}, {m, 44}, {m, 43}, {m, 1}, {l, 1}, {l, 1}, {l, 1}, {l, 1}, {l, 1}, {l, 1}});
  EXPECT_EQ(send_next(0), "c");
  EXPECT_EQ(send_next(1), "d");
  EXPECT_EQ(order(), "cdabefghijk");
}

TEST(ChooseNextBatsman, AManAlreadyInPlaceMovesNobody) {
  set_batsmen({{o, 1}, {o, 2}, {m, 3}, {m, 3}, {m, 3}, {m, 2}, {l, 9}, {l, 8}, {l, 7}, {l, 6}, {l, 5}});
  for (int i = 0; i < 11; ++i) send_next(i);
  EXPECT_EQ(order(), "abcdefghijk");
}

TEST(ChooseNextBatsman, AnUnknownRoleIsPassedOverAndComesInAtTheEnd) {
  set_batsmen({{"opener", 9},
               {"", 9},
               {"Allrounder", 9},
               {"Middle Order ", 9},
               {m, 1},
               {l, 1},
               {o, 1},
               {"", 1},
               {"", 1},
               {"", 1},
               {"", 1}});
  EXPECT_EQ(send_next(0), "g");
  EXPECT_EQ(send_next(1), "e");
  EXPECT_EQ(send_next(2), "f");
  EXPECT_EQ(order(), "gefabcdhijk");
  EXPECT_EQ(send_next(3), "a");
  EXPECT_EQ(order(), "gefabcdhijk");
}

TEST(ChooseNextBatsman, ASkillOfZeroIsNeverRemembered) {
  set_batsmen({{"", 5}, {m, 0}, {m, -3}, {l, 0}, {l, 1}, {m, 0}, {m, 0}, {m, 0}, {m, 0}, {m, 0}, {m, 0}});
  EXPECT_EQ(send_next(0), "e");
  EXPECT_EQ(send_next(1), "a");
  EXPECT_EQ(order(), "eabcdfghijk");
}

TEST(ChooseNextBatsman, ABatTypeWithoutARoleIsNoRole) {
  set_batsmen({{m, 5}, {l, 5}, {o, 5}, {o, 5}, {o, 5}, {o, 5}, {o, 5}, {o, 5}, {o, 5}, {o, 5}, {o, 5}});
  for (int i = 3; i <= 11; ++i) match.batting_xi[i].bat_type = "Op";
  EXPECT_EQ(send_next(0), "a");
  EXPECT_EQ(send_next(1), "b");
  EXPECT_EQ(order(), "abcdefghijk");
}

TEST(ChooseNextBatsman, TheHigherPositionCountsWhicheverEndHeIsAt) {
  set_batsmen({{o, 1}, {o, 1}, {m, 1}, {m, 2}, {m, 3}, {m, 4}, {m, 5}, {l, 1}, {l, 1}, {l, 1}, {l, 1}});
  match.striker = 1;
  match.non_striker = 4;
  choose_next_batsman(match);
  EXPECT_EQ(match.next_batsman_slot, 4);
  EXPECT_EQ(order(), "abcdgefhijk");
}

TEST(ChooseNextBatsman, LeavesTheCreaseAloneAndDrawsNothing) {
  set_batsmen({{m, 1}, {m, 1}, {m, 1}, {m, 1}, {m, 1}, {m, 1}, {m, 1}, {m, 1}, {m, 1}, {m, 1}, {o, 1}});
  script_draws({});
  match.striker = 3;
  match.non_striker = 2;
  choose_next_batsman(match);
  EXPECT_EQ(match.striker, 3);
  EXPECT_EQ(match.non_striker, 2);
  EXPECT_EQ(order(), "abckdefghij");
  EXPECT_EQ(chance.draws_used(), 0U);
}

/// A man of a bowling side.
struct bowls {
  std::string type;
  float sr;
  float econ;
};

/// Sets the first men of the eleven; the others are blank in type and poor.
void set_bowlers(const std::vector<bowls>& men) {
  set_up_sample_match();
  for (std::size_t i = 1; i <= 11; ++i) {
    const bowls man = i <= men.size() ? men[i - 1] : bowls{"", 90, 9};
    match.bowling_xi[i].bowler_type = man.type;
    match.bowling_xi[i].bowl_sr = man.sr;
    match.bowling_xi[i].econ = man.econ;
  }
}

void choose(double draw = 0.5) {
  script_draws({draw});
  choose_opening_bowlers(match, chance);
  EXPECT_EQ(chance.draws_used(), 1U);
}

std::vector<int> pool_order() {
  std::vector<int> positions;
  for (int i = 1; i <= 11; ++i) positions.push_back(match.bowler_pool[i].position);
  return positions;
}

const std::string fast = "Fast Bowler";
const std::string medium = "Medium Pacer";
const std::string spin = "spinner";

TEST(ChooseOpeningBowlers, RanksByEighteenTimesTheRoundedEconomyPlusTheRating) {
  // Twice the keys: 90 + 30, 72 + 40, 72 + 47, 108 + 20.
  set_bowlers({{fast, 30, 5.4F}, {fast, 40, 4.4F}, {fast, 47, 3.6F}, {fast, 20, 5.6F}});
  choose();
  EXPECT_THAT(pool_order(), ElementsAre(2, 3, 1, 4, 5, 6, 7, 8, 9, 10, 11));
}

TEST(ChooseOpeningBowlers, AHalfOfEconomyGoesToTheEvenNeighbour) {
  set_bowlers({{fast, 30, 5.5F}, {fast, 30, 4.5F}, {fast, 30, 6.5F}, {fast, 30, 3.5F}});
  choose();
  EXPECT_EQ(match.bowler_pool[1].position, 2);
  EXPECT_EQ(match.bowler_pool[1].econ_class, 4);
  EXPECT_EQ(match.bowler_pool[2].position, 4);
  EXPECT_EQ(match.bowler_pool[2].econ_class, 4);
  EXPECT_EQ(match.bowler_pool[3].position, 1);
  EXPECT_EQ(match.bowler_pool[3].econ_class, 6);
  EXPECT_EQ(match.bowler_pool[4].position, 3);
  EXPECT_EQ(match.bowler_pool[4].econ_class, 6);
}

TEST(ChooseOpeningBowlers, AnEconomyThatIsNoNumberIsRefusedByName) {
  set_bowlers({{fast, 30, 5}, {fast, 30, std::nanf("")}});
  try {
    choose();
    FAIL() << "the rate was taken";
  } catch (const run_time_error& error) {
    EXPECT_EQ(error.kind(), failure::type);
    EXPECT_EQ(error.place().field, "econ");
    EXPECT_EQ(error.place().player, "A.Bowl2");
  }
}

TEST(ChooseOpeningBowlers, TheOffsetStandsInEveryRatingAndChangesNoPlace) {
  const std::vector<std::pair<double, int>> ends = {{0.0, -10}, {0.0476, -10}, {0.0477, -9}, {0.5, 0}, {0.9999999, 10}};
  for (const auto& [draw, offset] : ends) {
    set_bowlers({{spin, 36.5F, 5}, {fast, 33.25F, 5}, {medium, 40, 5}});
    choose(draw);
    EXPECT_EQ(match.bowler_pool[1].position, 2);
    EXPECT_DOUBLE_EQ(match.bowler_pool[1].rating, 33.25 + offset) << draw;
    EXPECT_DOUBLE_EQ(match.bowler_pool[2].rating, 36.5 + offset) << draw;
    EXPECT_DOUBLE_EQ(match.bowler_pool[11].rating, 90.0 + offset) << draw;
  }
}

TEST(ChooseOpeningBowlers, FillsEveryFieldOfALine) {
  set_bowlers({{spin, 36.5F, 5.2F}});
  choose(0.999);
  const bowler_pool_rec& line = match.bowler_pool[1];
  EXPECT_EQ(line.name, "A.Bowl1");
  EXPECT_EQ(line.bowler_type, spin);
  EXPECT_EQ(line.position, 1);
  EXPECT_EQ(line.econ_class, 5);
  EXPECT_DOUBLE_EQ(line.rating, 46.5);
}

/// Positions of bowler and next_bowler for the first men of an eleven.
std::pair<int, int> opening_pair(const std::vector<bowls>& men) {
  set_bowlers(men);
  choose();
  return {match.bowler, match.next_bowler};
}

TEST(ChooseOpeningBowlers, TwoFastBowlersOpenHoweverGoodTheOthers) {
  EXPECT_EQ(opening_pair({{spin, 10, 3}, {medium, 11, 3}, {fast, 60, 7}, {fast, 50, 7}}), std::pair(4, 3));
}

TEST(ChooseOpeningBowlers, OneFastBowlerOpensWithTheBestMediumPacer) {
  EXPECT_EQ(opening_pair({{spin, 10, 3}, {medium, 31, 4}, {fast, 60, 7}, {medium, 30, 4}}), std::pair(3, 4));
}

TEST(ChooseOpeningBowlers, WithoutFastBowlersTwoMediumPacersOpen) {
  EXPECT_EQ(opening_pair({{spin, 10, 3}, {medium, 31, 4}, {"fast bowler", 5, 2}, {medium, 30, 4}}), std::pair(4, 2));
}

TEST(ChooseOpeningBowlers, WithNeitherTheTwoBestOfThePoolOpen) {
  EXPECT_EQ(opening_pair({{spin, 30, 4}, {spin, 10, 3}, {"off spinner", 20, 4}}), std::pair(2, 3));
}

TEST(ChooseOpeningBowlers, TheOnlyPaceManFirstInThePoolTakesTheSecondWithHim) {
  EXPECT_EQ(opening_pair({{spin, 30, 4}, {fast, 10, 3}}), std::pair(2, 1));
  EXPECT_EQ(opening_pair({{spin, 30, 4}, {medium, 10, 3}}), std::pair(2, 1));
}

TEST(ChooseOpeningBowlers, TheOnlyPaceManSecondInThePoolOpensFromBothEnds) {
  EXPECT_EQ(opening_pair({{spin, 10, 3}, {fast, 30, 4}}), std::pair(2, 2));
  EXPECT_EQ(opening_pair({{spin, 10, 3}, {medium, 30, 4}}), std::pair(2, 2));
}

TEST(ChooseOpeningBowlers, TheKeeperIsRankedLikeAnyOther) {
  set_bowlers({{spin, 30, 4}, {fast, 10, 3}});
  match.bowling_xi[2].is_keeper = flag_true;
  choose();
  EXPECT_EQ(match.bowler_pool[1].position, 2);
  EXPECT_EQ(match.bowler, 2);
}

}  // namespace
}  // namespace velorin::testing
