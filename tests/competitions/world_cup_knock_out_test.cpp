// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/cup_fixture.h"
#include "competitions/world_cup_fixtures.h"
#include "competitions/world_cup_tables.h"
#include "support/game_in_play.h"

namespace velorin::testing {
namespace {

using ::testing::IsEmpty;

/// The end of the tournament, who captains, and how the user leaves it.
using CupEnd = CupTest;

TEST_F(CupEnd, ATiedFirstSemiFinalGivesTheOtherWinnerAWalkover) {
  tie_the_leagues();
  force({0, 1});
  form_.accept();
  EXPECT_EQ(user_.matches.size(), 31U) << "no final is played";
  EXPECT_EQ(user_.cup_tables.size(), 33U) << "but the tables are shown behind it";
  const world_cup_tables_form& tables = user_.cup_tables.back();
  EXPECT_EQ(tables.first_semi_final, "Ardell vs Farol -  Match tied.");
  EXPECT_EQ(tables.grand_final, "") << "the final has no first team";
  EXPECT_EQ(tables.winners_line, "World Cup winners : Brava");
  EXPECT_EQ(world_cup.grand_final.margin, "  by a walkover");
}

TEST_F(CupEnd, ATiedSecondSemiFinalGivesTheFirstWinnerAWalkover) {
  tie_the_leagues();
  force({2, 0});
  form_.accept();
  EXPECT_EQ(user_.matches.size(), 31U);
  const world_cup_tables_form& tables = user_.cup_tables.back();
  EXPECT_EQ(tables.grand_final, "Farol vs  - Farol   by a walkover");
  EXPECT_EQ(tables.winners_line, "World Cup winners : Farol");
}

TEST_F(CupEnd, TwoTiedSemiFinalsLeaveNoWinner) {
  tie_the_leagues();
  force({0, 0});
  form_.accept();
  EXPECT_EQ(user_.matches.size(), 31U);
  EXPECT_EQ(user_.cup_tables.size(), 33U);
  const world_cup_tables_form& tables = user_.cup_tables.back();
  EXPECT_EQ(tables.grand_final, "");
  EXPECT_EQ(tables.winners_line, "World Cup winners : ");
  EXPECT_EQ(world_cup.grand_final.margin, "");
}

TEST_F(CupEnd, ATiedFinalLeavesNoWinner) {
  tie_the_leagues();
  force({1, 1, 0});
  form_.accept();
  const world_cup_tables_form& tables = user_.cup_tables.back();
  EXPECT_EQ(tables.grand_final, "Ardell vs Brava -  Match tied.");
  EXPECT_EQ(tables.winners_line, "World Cup winners : ");
}

TEST_F(CupEnd, TheSemiFinalsAreShownOneByOne) {
  tie_the_leagues();
  force({1, 2, 2});
  form_.accept();
  const world_cup_tables_form& first = user_.cup_tables[30];
  EXPECT_EQ(first.first_semi_final, "Ardell vs Farol - Ardell   won by  7  runs");
  EXPECT_EQ(first.second_semi_final, "Brava vs Corrin -  ");
  EXPECT_EQ(first.grand_final, "");
  EXPECT_EQ(user_.cup_tables[31].second_semi_final, "Brava vs Corrin - Corrin   won by  7  runs");
  EXPECT_EQ(user_.cup_tables[31].grand_final, "");
  EXPECT_EQ(user_.cup_tables[32].grand_final, "Ardell vs Corrin - Corrin   won by  7  runs");
  EXPECT_EQ(match.result_winner, "");
  EXPECT_EQ(match.result_margin, "");
}

TEST_F(CupEnd, KnockOutMatchesAreInTheHostCountry) {
  form_.host_index = {7, -1, -1};
  form_.accept();
  for (std::size_t i = 29; i < user_.matches.size(); ++i) {
    const std::string& ground = user_.matches[i].ground;
    EXPECT_TRUE(ground == "Halden Oval" || ground == "Halden Park") << ground;
  }
}

TEST_F(CupEnd, HumanSidesKeepTheirCaptainThroughout) {
  form_.human_a[1] = true;  // Brava
  form_.human_b[0] = true;  // Farol
  const auto human = [](const std::string& team) { return team == "Brava" || team == "Farol"; };
  // Brava and Farol win wherever they play and meet in the final; the others tie.
  for (int k = 0; k < 32; ++k) user_.endings.push_back({ending::tie, 0});
  user_.on_message = [&](const message_box& message) {
    if (message.title != "End of Match") return;
    const entered_match& played = user_.matches.back();
    const bool first = human(played.first);
    if (first || human(played.second)) {
      user_.endings.front() = {first ? ending::first_wins : ending::second_wins, first ? 1.0 : -1.0};
    }
  };
  form_.accept();
  ASSERT_EQ(user_.matches.size(), 32U);
  int attended = 0;
  for (const entered_match& played : user_.matches) {
    EXPECT_EQ(played.first_human, human(played.first)) << played.first;
    EXPECT_EQ(played.second_human, human(played.second)) << played.second;
    attended += played.first_human || played.second_human ? 1 : 0;
  }
  EXPECT_EQ(attended, 4 + 4 + 5 + 2 + 1) << "only their own matches stop for the user";
  EXPECT_EQ(user_.requests_of("console").size(), static_cast<std::size_t>(attended));
  const world_cup_tables_form& tables = user_.cup_tables.back();
  EXPECT_EQ(tables.grand_final.substr(0, 14), "Brava vs Farol");
  EXPECT_TRUE(world_cup.grand_final.human_a);
  EXPECT_TRUE(world_cup.grand_final.human_b);
}

TEST_F(CupEnd, TheFlagsAreSortedAlongWithTheTable) {
  form_.human_b[2] = true;  // Halden
  for (int k = 0; k < 32; ++k) user_.endings.push_back({ending::tie, 0});
  user_.on_message = [&](const message_box& message) {
    const entered_match& played = user_.matches.back();
    if (message.title != "End of Match") return;
    if (played.first == "Halden") user_.endings.front() = {ending::first_wins, 1};
    if (played.second == "Halden") user_.endings.front() = {ending::second_wins, -1};
  };
  form_.accept();
  EXPECT_EQ(world_cup.super_six[1].team, "Halden");
  for (int place = 1; place <= 6; ++place) EXPECT_EQ(world_cup.super_six_human[place], place == 1);
  EXPECT_TRUE(world_cup.semi_finals[1].human_a);
  EXPECT_FALSE(world_cup.semi_finals[1].human_b);
  EXPECT_FALSE(world_cup.semi_finals[2].human_a || world_cup.semi_finals[2].human_b);
  EXPECT_TRUE(world_cup.grand_final.human_a);
  EXPECT_FALSE(world_cup.grand_final.human_b);
}

TEST_F(CupEnd, OfAQualifierNamedTwiceTheLastFlagCounts) {
  choose_groups(cup_group_a, {"Ardell", "Gintra", "Halden", "Isker", "Jorvik"});
  world_cup.human_a = {true, true, false, false, false};
  world_cup.human_b = {false, false, true, false, false};
  const char* qualifiers[] = {"", "Ardell", "Brava", "Corrin", "Ardell", "Gintra", "Halden"};
  for (int place = 1; place <= 6; ++place) world_cup.super_six[place].team = qualifiers[place];
  draw_super_six_fixtures(chance, world_cup);
  const bool wanted[] = {false, false, true, false, false, false, true};
  for (int place = 1; place <= 6; ++place) EXPECT_EQ(world_cup.super_six_human[place], wanted[place]) << place;
}

TEST_F(CupEnd, QuittingAtTheFirstListPlaysNothingAndKeepsTheDraw) {
  quit_after(0);
  form_.accept();
  EXPECT_TRUE(form_.closed);
  EXPECT_FALSE(world_cup.quit_requested);
  EXPECT_THAT(user_.matches, IsEmpty());
  EXPECT_THAT(user_.cup_tables, IsEmpty());
  EXPECT_NE(world_cup.fixtures[20].team_a, "");
}

TEST_F(CupEnd, QuittingInTheGroupsClosesTheForm) {
  quit_after(7);
  form_.accept();
  EXPECT_TRUE(form_.closed);
  EXPECT_FALSE(world_cup.quit_requested);
  EXPECT_EQ(user_.matches.size(), 7U);
  EXPECT_NE(world_cup.fixtures[7].result, "");
  EXPECT_EQ(world_cup.fixtures[8].result, "");
}

TEST_F(CupEnd, QuittingAfterTheLastGroupMatchComesBeforeTheCut) {
  quit_after(20);
  form_.accept();
  EXPECT_TRUE(form_.closed);
  EXPECT_EQ(user_.matches.size(), 20U);
  EXPECT_EQ(world_cup.super_six[1].team, "");
}

TEST_F(CupEnd, QuittingAtTheListOfTheSuperSixClosesTheForm) {
  quit_after(21);
  form_.accept();
  EXPECT_TRUE(form_.closed);
  EXPECT_FALSE(world_cup.quit_requested);
  EXPECT_EQ(user_.matches.size(), 20U);
  EXPECT_EQ(user_.fixture_lists.back().fixtures, 29);
}

TEST_F(CupEnd, QuittingInTheSuperSixLeavesTheRequestAndTheForm) {
  quit_after(24);
  form_.accept();
  EXPECT_FALSE(form_.closed);
  EXPECT_TRUE(form_.hidden);
  EXPECT_TRUE(world_cup.quit_requested);
  EXPECT_EQ(user_.matches.size(), 23U);

  world_cup_form next(in_play(), world_cup);
  next.open();
  user_.requests.clear();
  next.accept();
  EXPECT_EQ(user_.requests, std::vector<std::string>{"wc_fix"}) << "the next tournament ends at its first list";
  EXPECT_TRUE(next.closed);
  EXPECT_FALSE(world_cup.quit_requested);
  EXPECT_EQ(user_.matches.size(), 23U);

  next.open();
  quit_after(1);
  next.accept();
  EXPECT_EQ(user_.matches.size(), 24U) << "and the one behind it is played again";
}

TEST_F(CupEnd, QuittingBehindTheLastSuperSixMatchPlaysNoKnockOut) {
  quit_after(30);
  form_.accept();
  EXPECT_FALSE(form_.closed);
  EXPECT_TRUE(world_cup.quit_requested);
  EXPECT_EQ(user_.matches.size(), 29U);
  EXPECT_EQ(world_cup.semi_finals[1].team_a, "");
}

}  // namespace
}  // namespace velorin::testing
