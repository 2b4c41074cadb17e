// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/scorecard.h"

#include "reports/match_scenes.h"
#include "reports/opened.h"
#include "support/cards.h"
#include "support/game_in_play.h"

namespace velorin {
namespace {

using Scorecard = reports_test;

TEST_F(Scorecard, ShowsTheInningsInPlay) {
  set_first_innings_in_play();
  const scorecard_form card = opened<scorecard_form>();
  EXPECT_EQ(card.ground, "Lake End");
  EXPECT_EQ(card.batting_side, "South Isles");
  EXPECT_EQ(card.names[1], "A.Tamuera");
  EXPECT_EQ(card.fielders[1], " c B.Lindqvist-Ramsden");
  EXPECT_EQ(card.how_out[1], " b I.Nettle");
  EXPECT_EQ(card.runs[1], "12");
  EXPECT_EQ(card.balls_faced[1], "(20)");
  EXPECT_EQ(card.total, "131");
  EXPECT_EQ(card.wickets_and_overs, "(3 wickets , 22.5  Overs)");
  EXPECT_EQ(card.run_rate, "5.74");  // 131 / 137 * 6 = 5.737...
  EXPECT_EQ(card.extras_line, "Extras ( No Balls 2 Wides 7 Leg Byes 5 Byes 1 ) ");
  EXPECT_EQ(card.extras_total, "15");
}

TEST_F(Scorecard, MarksBothMenAtTheCrease) {
  set_first_innings_in_play();
  const scorecard_form card = opened<scorecard_form>();
  EXPECT_EQ(card.how_out[3], "  Not Out   ");
  EXPECT_EQ(card.how_out[5], "  Not Out   ");
  EXPECT_EQ(card.how_out[2], " lbw K.Foss");
  EXPECT_EQ(card.fielders[3], "");
}

TEST_F(Scorecard, HidesTheMenWhoHaveNotComeIn) {
  set_first_innings_in_play();
  const scorecard_form card = opened<scorecard_form>();
  for (int i = 1; i <= 5; ++i) {
    EXPECT_TRUE(card.details_buttons[i].visible) << i;
    EXPECT_EQ(card.details_buttons[i].caption, match.batting_card[i].name);
  }
  for (int i = 6; i <= 11; ++i) {
    EXPECT_FALSE(card.details_buttons[i].visible) << i;
    EXPECT_EQ(card.details_buttons[i].caption, "");
    EXPECT_EQ(card.names[i], "");
    EXPECT_EQ(card.runs[i], "");
    EXPECT_EQ(card.balls_faced[i], "");
    EXPECT_EQ(card.how_out[i], "");
  }
}

TEST_F(Scorecard, BeforeTheFirstBallThereIsNoRate) {
  match.team1_name = "Northland";
  match.batting_card[1].name = "A.Harrow";
  match.batting_card[2].name = "D.Moss";
  match.striker = 1;
  match.non_striker = 2;
  const scorecard_form card = opened<scorecard_form>();
  EXPECT_EQ(card.total, "0");
  EXPECT_EQ(card.wickets_and_overs, "(0 wickets , 0.0  Overs)");
  EXPECT_EQ(card.run_rate, "");
  EXPECT_EQ(card.runs[1], "0");
  EXPECT_EQ(card.balls_faced[1], "(0)");
  EXPECT_EQ(card.how_out[1], "  Not Out   ");
  EXPECT_EQ(card.extras_line, "Extras ( No Balls 0 Wides 0 Leg Byes 0 Byes 0 ) ");
  EXPECT_EQ(card.extras_total, "0");
}

TEST_F(Scorecard, NobodyAtTheCreaseMarksNobody) {
  set_first_innings_in_play();
  match.striker = 0;
  match.non_striker = 0;
  const scorecard_form card = opened<scorecard_form>();
  for (int i = 1; i <= 11; ++i) EXPECT_NE(card.how_out[i], "  Not Out   ") << i;
}

TEST_F(Scorecard, AllOutLeavesTheLastPairAsItStands) {
  for (int i = 1; i <= 11; ++i) {
    match.batting_card[i].name = "A.Man";
    put_out(match.batting_card[i], dismissal::bowled, "K.Foss");
  }
  put_out(match.batting_card[9], dismissal::none);
  match.striker = 11;
  match.non_striker = 9;
  match.score_wickets = 10;
  const scorecard_form card = opened<scorecard_form>();
  EXPECT_EQ(card.how_out[11], " b K.Foss");
  EXPECT_EQ(card.how_out[9], "  Not Out   ");
  EXPECT_EQ(card.wickets_and_overs, "(10 wickets , 0.0  Overs)");
}

TEST_F(Scorecard, TheRateDividesFirst) {
  match.score_runs = 27;
  match.innings_balls = 80;
  EXPECT_EQ(opened<scorecard_form>().run_rate, "2.03");  // 27 / 80 * 6 lies a hair above 2.025
  match.score_runs = 51;
  match.innings_balls = 48;
  EXPECT_EQ(opened<scorecard_form>().run_rate, "6.38");  // 6.375 exactly: up to the even digit
  match.score_runs = 49;
  EXPECT_EQ(opened<scorecard_form>().run_rate, "6.12");  // 6.125 exactly: down to the even digit
  match.score_runs = 48;
  EXPECT_EQ(opened<scorecard_form>().run_rate, "6");
}

TEST_F(Scorecard, ReopeningForgetsWhatWasShown) {
  set_second_innings_in_play();
  scorecard_form card = opened<scorecard_form>();
  match = match_state{};
  card.open();
  EXPECT_EQ(card.names[1], "");
  EXPECT_EQ(card.runs[1], "");
  EXPECT_EQ(card.run_rate, "");
  EXPECT_EQ(card.how_out[3], "");
  EXPECT_FALSE(card.details_buttons[1].visible);
  EXPECT_FALSE(card.first_innings_enabled);
}

TEST_F(Scorecard, ButtonsOpenTheirScreens) {
  set_second_innings_in_play();
  opened_reports seen;
  const front_end_scope scope(seen);
  const scorecard_form card = opened<scorecard_form>();
  card.show_first_innings(user_in_use());
  card.show_bowling(user_in_use());
  card.show_partnerships(user_in_use());
  card.show_overs_graph(user_in_use());
  card.show_worm_graph(user_in_use());
  const first_scorecard_form first = opened<first_scorecard_form>();
  first.show_bowling(user_in_use());
  first.show_partnerships(user_in_use());
  const std::vector<report> wanted = {report::first_scorecard,   report::bowling_card, report::partnerships,
                                      report::overs_graph,       report::worm_graph,   report::first_bowling_card,
                                      report::first_partnerships};
  EXPECT_EQ(seen.opened, wanted);
}

TEST_F(Scorecard, WhatTheTotalDoesNotCount) {
  set_second_innings_in_play();
  struct row {
    int no_balls, wides;
    const char* said;
  };
  for (const row& r :
       {row{2, 7, "The total does not count 2 no balls and 7 wides."},
        row{1, 1, "The total does not count 1 no ball and 1 wide."}, row{3, 0, "The total does not count 3 no balls."},
        row{0, 1, "The total does not count 1 wide."}, row{0, 0, ""}}) {
    match.first_no_balls = 0;
    match.first_wides = 0;
    match.innings_no_balls = r.no_balls;
    match.innings_wides = r.wides;
    EXPECT_EQ(opened<scorecard_form>().not_counted, r.said);
    EXPECT_EQ(opened<first_scorecard_form>().not_counted, "") << "of the other innings";
    std::swap(match.innings_no_balls, match.first_no_balls);
    std::swap(match.innings_wides, match.first_wides);
    EXPECT_EQ(opened<first_scorecard_form>().not_counted, r.said);
    EXPECT_EQ(opened<scorecard_form>().not_counted, "");
  }
}

TEST_F(Scorecard, TheFirstInningsCannotBeOpenedBeforeItsEnd) {
  set_first_innings_in_play();
  opened_reports seen;
  const front_end_scope scope(seen);
  const scorecard_form card = opened<scorecard_form>();
  EXPECT_FALSE(card.first_innings_enabled);
  card.show_first_innings(user_in_use());
  EXPECT_TRUE(seen.opened.empty());
  set_second_innings_in_play();
  EXPECT_TRUE(opened<scorecard_form>().first_innings_enabled);
}

TEST_F(Scorecard, Captions) {
  EXPECT_EQ(scorecard_form::ok_caption, "OK");
  EXPECT_EQ(scorecard_form::bowling_caption, "Bowling Figures");
  EXPECT_EQ(scorecard_form::first_innings_caption, "1st Innings");
  EXPECT_EQ(scorecard_form::partnerships_caption, "Partnerships");
  EXPECT_EQ(scorecard_form::overs_graph_caption, "Runs Per Over Graph");
  EXPECT_EQ(scorecard_form::html_caption, "As HTML");
  EXPECT_EQ(scorecard_form::text_caption, "As Text");
  EXPECT_EQ(scorecard_form::ball_by_ball_caption, "Ball by Ball");
  EXPECT_EQ(scorecard_form::worm_graph_caption, "Score Comparison Graph");
  EXPECT_EQ(first_scorecard_form::bowling_caption, "1st Innings Bowling Figures");
  EXPECT_EQ(first_scorecard_form::partnerships_caption, "1st Innings Partnerships");
}

TEST_F(Scorecard, DetailsOfAManWhoIsOut) {
  set_first_innings_in_play();
  match.batting_card[1].dots = 13;
  match.batting_card[1].singles = 4;
  match.batting_card[1].twos = 1;
  match.batting_card[1].threes = 6;
  const batsman_figures figures = opened<scorecard_form>().details(1);
  EXPECT_EQ(figures.headline, "A.Tamuera  c B.Lindqvist-Ramsden  b I.Nettle  12 (20).");
  EXPECT_EQ(figures.runs, 12);
  EXPECT_EQ(figures.balls, 20);
  EXPECT_EQ(figures.dots, 13);
  EXPECT_EQ(figures.singles, 4);
  EXPECT_EQ(figures.twos, 1);
  EXPECT_EQ(figures.threes, 6);
  EXPECT_EQ(figures.fours, 2);
  EXPECT_EQ(figures.sixes, 0);
  EXPECT_EQ(figures.strike_rate, "60");
}

TEST_F(Scorecard, DetailsOfAManAtTheCrease) {
  set_first_innings_in_play();
  EXPECT_EQ(opened<scorecard_form>().details(3).headline, "C.Vanterpool  Not Out         102 (101).");
  EXPECT_EQ(opened<scorecard_form>().details(3).strike_rate, "100.99");
  match.batting_card[5].balls = 0;
  match.batting_card[5].runs = 0;
  EXPECT_EQ(opened<scorecard_form>().details(5).headline, "E.Marrack  Not Out         0 (0).");
  EXPECT_EQ(opened<scorecard_form>().details(5).strike_rate, "");
}

TEST_F(Scorecard, AManWithoutADismissalAwayFromTheCreaseCountsAsOut) {
  set_first_innings_in_play();
  match.striker = 6;
  EXPECT_EQ(opened<scorecard_form>().details(5).headline, "E.Marrack    8 (6).");
}

TEST_F(Scorecard, TheStrikeRateDividesFirst) {
  set_first_innings_in_play();
  match.batting_card[3].runs = 23;
  match.batting_card[3].balls = 160;
  EXPECT_EQ(opened<scorecard_form>().details(3).strike_rate, "14.37");  // 23 / 160 * 100 lies a hair below 14.375
}

TEST_F(Scorecard, FirstInnings) {
  set_second_innings_in_play();
  const first_scorecard_form card = opened<first_scorecard_form>();
  EXPECT_EQ(card.ground, "Lake End");
  EXPECT_EQ(card.batting_side, "Northland");
  EXPECT_EQ(card.names[3], "C.Featherstonehaughs");
  EXPECT_EQ(card.fielders[3], " st G.Penhall");
  EXPECT_EQ(card.how_out[3], " b H.Dray");
  EXPECT_EQ(card.runs[1], "123");
  EXPECT_EQ(card.balls_faced[1], "(131)");
  EXPECT_EQ(card.total, "261");
  EXPECT_EQ(card.wickets_and_overs, " (10 wickets , 48.2  Overs)");
  EXPECT_EQ(card.run_rate, "5.4");
  EXPECT_EQ(card.extras_line, "Extras ( No Balls 1,Wides 12 Leg Byes 9,Byes 3 ) ");
  EXPECT_EQ(card.extras_total, "25");
  EXPECT_TRUE(card.details_buttons[11].visible);
}

TEST_F(Scorecard, FirstInningsHasNoStrikerStep) {
  set_second_innings_in_play();
  leave_the_last_pair_in();
  put_out(match.first_batting_card[5], dismissal::none);  // 5 is the striker of the innings in play
  EXPECT_EQ(opened<first_scorecard_form>().how_out[5], "");
  EXPECT_EQ(opened<first_scorecard_form>().how_out[11], "not out");
}

TEST_F(Scorecard, TheManStrandedInTheFirstInningsHasNoDismissal) {
  set_second_innings_in_play();
  EXPECT_EQ(opened<first_scorecard_form>().how_out[11], "");
  EXPECT_EQ(opened<first_scorecard_form>().details(11).headline, "K.Foss    2 (4).");
}

TEST_F(Scorecard, DetailsOfTheFirstInnings) {
  set_second_innings_in_play();
  leave_the_last_pair_in();
  const first_scorecard_form card = opened<first_scorecard_form>();
  EXPECT_EQ(card.details(11).headline, "K.Foss  Not Out         2 (4).");
  EXPECT_EQ(card.details(1).headline, "A.Harrow   c && b J.Abara  123 (131).");
  EXPECT_EQ(card.details(1).strike_rate, "93.89");
  put_out(match.first_batting_card[5], dismissal::none);
  EXPECT_EQ(card.details(5).headline, "E.Sandoval    17 (30).");
}

TEST_F(Scorecard, FirstInningsOfNoBallHasNoRate) {
  set_second_innings_in_play();
  match.first_balls = 0;
  EXPECT_EQ(opened<first_scorecard_form>().run_rate, "");
  EXPECT_EQ(opened<first_scorecard_form>().wickets_and_overs, " (10 wickets , 0.0  Overs)");
}

TEST_F(Scorecard, OpeningChangesNothingInTheMatch) {
  set_second_innings_in_play();
  opened<scorecard_form>();
  opened<first_scorecard_form>();
  EXPECT_EQ(match.batting_card[3].how_out, "");
  EXPECT_EQ(match.batting_card[5].how_out, "");
  EXPECT_EQ(match.batting_card[3].how, dismissal::none);
  EXPECT_EQ(match.batting_card[5].how, dismissal::none);
}

}  // namespace
}  // namespace velorin
