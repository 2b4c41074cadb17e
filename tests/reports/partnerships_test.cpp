// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/partnerships.h"

#include "model/stands.h"
#include "reports/match_scenes.h"
#include "reports/opened.h"
#include "support/deliveries.h"
#include "support/game_in_play.h"

namespace velorin {
namespace {

using Partnerships = reports_test;

TEST_F(Partnerships, EndedStands) {
  set_first_innings_in_play();
  const partnership_row row = opened<partnerships_form>().rows[3];
  EXPECT_EQ(row.batsmen, "C.Vanterpool  &&  D.Sealing");
  EXPECT_EQ(row.partnership, "68 (77)");
  EXPECT_EQ(row.score, "99");
  EXPECT_EQ(row.overs, "20.0");
  EXPECT_EQ(row.wicket, "3");
  EXPECT_TRUE(row.visible);
}

TEST_F(Partnerships, TheCurrentStandFollowsTheLastWicket) {
  set_first_innings_in_play();
  const partnerships_form screen = opened<partnerships_form>();
  EXPECT_EQ(screen.rows[4].batsmen, "C.Vanterpool  &&  E.Marrack");  // the striker is the later of the two
  EXPECT_EQ(screen.rows[4].partnership, "32*  (17)");
  EXPECT_EQ(screen.rows[4].wicket, "4");
  EXPECT_TRUE(screen.rows[4].visible);
  for (int i = 5; i <= 10; ++i) EXPECT_FALSE(screen.rows[i].visible) << i;
}

TEST_F(Partnerships, TheOrderOfTheCurrentStandIsTheBattingOrder) {
  set_first_innings_in_play();
  match.striker = 3;
  match.non_striker = 5;
  EXPECT_EQ(opened<partnerships_form>().rows[4].batsmen, "C.Vanterpool  &&  E.Marrack");
}

TEST_F(Partnerships, TheFirstStandStartsFromNothing) {
  match.batting_card[1].name = "A.Harrow";
  match.batting_card[2].name = "D.Moss";
  match.striker = 1;
  match.non_striker = 2;
  match.score_runs = 7;
  match.innings_balls = 8;
  const partnerships_form screen = opened<partnerships_form>();
  EXPECT_EQ(screen.rows[1].batsmen, "A.Harrow  &&  D.Moss");
  EXPECT_EQ(screen.rows[1].partnership, "7*  (8)");
  EXPECT_TRUE(screen.rows[1].visible);
  EXPECT_FALSE(screen.rows[2].visible);
}

TEST_F(Partnerships, AllOutHasNoCurrentStand) {
  for (int i = 1; i <= 10; ++i) {
    match.batting_card[i].name = "A.Harrow";
    add_stand(match.deliveries, {i == 10 ? 0 : 4, 6, 11, i});
  }
  match.batting_card[11].name = "D.Moss";
  match.score_wickets = 10;
  match.striker = 11;
  match.non_striker = 9;
  match.score_runs = 36;
  match.innings_balls = 60;
  const partnerships_form screen = opened<partnerships_form>();
  EXPECT_TRUE(screen.rows[10].visible);
  EXPECT_EQ(screen.rows[10].partnership, "0 (6)");
  for (const partnership_row& row : screen.rows) EXPECT_EQ(row.partnership.find('*'), std::string::npos);
}

TEST_F(Partnerships, NineDownPutsTheCurrentStandInTheLastRow) {
  match.score_wickets = 9;
  match.batting_card[2].name = "D.Moss";
  match.batting_card[11].name = "K.Foss";
  match.striker = 11;
  match.non_striker = 2;
  EXPECT_EQ(opened<partnerships_form>().rows[10].batsmen, "D.Moss  &&  K.Foss");
  EXPECT_TRUE(opened<partnerships_form>().rows[10].visible);
}

TEST_F(Partnerships, TheOversOfTheFallsAreToldOnceTheyHaveBeenShown) {
  set_second_innings_in_play();
  opened<partnerships_form>();
  EXPECT_EQ(falls_in_play(match)[1].overs_text, "7.0");
  EXPECT_EQ(falls_in_play(match)[2].overs_text, "7.1");
  EXPECT_EQ(falls_in_play(match)[4].overs_text, "0.0");
  EXPECT_EQ(falls_in_play(match)[0].overs_text, "");
  EXPECT_EQ(falls_before(match)[1].overs_text, "");
  opened<first_partnerships_form>();
  EXPECT_EQ(falls_before(match)[10].overs_text, "48.2");
}

TEST_F(Partnerships, FirstInningsAllOut) {
  set_second_innings_in_play();
  const first_partnerships_form screen = opened<first_partnerships_form>();
  EXPECT_EQ(screen.rows[1].batsmen, "A.Harrow  &&  B.Lindqvist-Ramsden");
  EXPECT_EQ(screen.rows[1].partnership, "88 (94)");
  EXPECT_EQ(screen.rows[1].score, "88");
  EXPECT_EQ(screen.rows[1].overs, "15.4");
  EXPECT_EQ(screen.rows[10].batsmen, "K.Foss  &&  J.Orme");
  EXPECT_EQ(screen.rows[10].score, "261");
  EXPECT_EQ(screen.rows[10].overs, "48.2");
  EXPECT_EQ(screen.rows[10].wicket, "10");
  for (int i = 1; i <= 10; ++i) EXPECT_TRUE(screen.rows[i].visible) << i;
}

TEST_F(Partnerships, TheUnbrokenStandOfTheFirstInningsShowsNoScore) {
  set_second_innings_in_play();
  leave_the_last_pair_in();
  const partnership_row row = opened<first_partnerships_form>().rows[10];
  EXPECT_TRUE(row.visible);
  EXPECT_EQ(row.batsmen, "J.Orme  &&  K.Foss * ");
  EXPECT_EQ(row.partnership, "20 (23)");
  EXPECT_EQ(row.score, "");
  EXPECT_EQ(row.overs, "");
  EXPECT_EQ(row.wicket, "10");
}

TEST_F(Partnerships, TheSharesTellWhoMadeTheRuns) {
  match.batting_card[1].name = "A.Harrow";
  match.batting_card[2].name = "D.Moss";
  match.batting_card[3].name = "K.Foss";
  match.deliveries = {ball_of_runs(4, {7, 2, 1}),
                      ball_of_runs(1, {7, 2, 1}),
                      ball_of_leg_byes(3, {7, 1, 2}),
                      wide_on(3, {7, 2, 1}),
                      ball_of_wicket(dismissal::bowled, {7, 2, 1}, 3),
                      ball_of_runs(6, {7, 3, 1}),
                      ball_of_runs(2, {7, 3, 1})};
  const std::vector<stand_share> shares = opened<partnerships_form>().shares;
  ASSERT_EQ(shares.size(), 2U);
  EXPECT_EQ(shares[0].batsmen, (std::array<std::string, 2>{"A.Harrow", "D.Moss"}));
  EXPECT_EQ(shares[0].runs, (std::array<int, 2>{0, 5}));
  EXPECT_EQ(shares[0].extras, 3);
  EXPECT_FALSE(shares[0].unbroken);
  EXPECT_EQ(shares[1].batsmen, (std::array<std::string, 2>{"A.Harrow", "K.Foss"}));
  EXPECT_EQ(shares[1].runs, (std::array<int, 2>{0, 8}));
  EXPECT_TRUE(shares[1].unbroken);
}

TEST_F(Partnerships, TheSharesAddUpToTheStands) {
  set_second_innings_in_play();
  const std::vector<stand_share> shares = opened<first_partnerships_form>().shares;
  const fall_of_wicket_table falls = falls_before(match);
  ASSERT_EQ(shares.size(), 10U);
  for (std::size_t i = 0; i < shares.size(); ++i) EXPECT_EQ(shares[i].total(), falls[i + 1].partner_runs) << i;
}

TEST_F(Partnerships, FirstInningsHasNoCurrentStand) {
  set_second_innings_in_play();
  match.score_wickets = 0;
  match.first_deliveries.clear();
  for (const partnership_row& row : opened<first_partnerships_form>().rows) EXPECT_FALSE(row.visible);
}

TEST_F(Partnerships, Headings) {
  const std::array<std::string_view, 5> wanted = {"  Batsmen", "Partnership", "Score", "Overs", "Wkt."};
  EXPECT_EQ(partnerships_form::headings, wanted);
}

}  // namespace
}  // namespace velorin
