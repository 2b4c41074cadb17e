// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/scorecard.h"

#include "reports/match_scenes.h"
#include "reports/opened.h"

namespace velorin {
namespace {

using scorecard_test = reports_test;

TEST_F(scorecard_test, shows_the_innings_in_play) {
  set_first_innings_in_play();
  const scorecard card = opened<scorecard>();
  EXPECT_EQ(card.label12, "Lake End");
  EXPECT_EQ(card.label10, "South Isles");
  EXPECT_EQ(card.label1[1], "A.Tamuera");
  EXPECT_EQ(card.label8[1], " c B.Lindqvist-Ramsden");
  EXPECT_EQ(card.label9[1], " b I.Nettle");
  EXPECT_EQ(card.label2[1], "12");
  EXPECT_EQ(card.label3[1], "(20)");
  EXPECT_EQ(card.label4, "131");
  EXPECT_EQ(card.label5, "(3 wickets , 22.5  Overs)");
  EXPECT_EQ(card.label7, "5.74");  // 131 / 137 * 6 = 5.737...
  EXPECT_EQ(card.label14, "Extras ( No Balls 2 Wides 7 Leg Byes 5 Byes 1 ) ");
  EXPECT_EQ(card.label13, "15");
}

TEST_F(scorecard_test, marks_both_men_at_the_crease) {
  set_first_innings_in_play();
  const scorecard card = opened<scorecard>();
  EXPECT_EQ(card.label9[3], "  Not Out   ");
  EXPECT_EQ(card.label9[5], "  Not Out   ");
  EXPECT_EQ(card.label9[2], " lbw K.Foss");
  EXPECT_EQ(card.label8[3], "");
}

TEST_F(scorecard_test, hides_the_men_who_have_not_come_in) {
  set_first_innings_in_play();
  const scorecard card = opened<scorecard>();
  for (int i = 1; i <= 5; ++i) {
    EXPECT_TRUE(card.command4[i].visible) << i;
    EXPECT_EQ(card.command4[i].caption, match.batting_card[i].name);
  }
  for (int i = 6; i <= 11; ++i) {
    EXPECT_FALSE(card.command4[i].visible) << i;
    EXPECT_EQ(card.command4[i].caption, "");
    EXPECT_EQ(card.label1[i], "");
    EXPECT_EQ(card.label2[i], "");
    EXPECT_EQ(card.label3[i], "");
    EXPECT_EQ(card.label9[i], "");
  }
}

TEST_F(scorecard_test, before_the_first_ball_there_is_no_rate) {
  match.team1_name = "Northland";
  match.batting_card[1].name = "A.Harrow";
  match.batting_card[2].name = "D.Moss";
  match.striker = 1;
  match.non_striker = 2;
  const scorecard card = opened<scorecard>();
  EXPECT_EQ(card.label4, "0");
  EXPECT_EQ(card.label5, "(0 wickets , 0.0  Overs)");
  EXPECT_EQ(card.label7, "");
  EXPECT_EQ(card.label2[1], "0");
  EXPECT_EQ(card.label3[1], "(0)");
  EXPECT_EQ(card.label9[1], "  Not Out   ");
  EXPECT_EQ(card.label14, "Extras ( No Balls 0 Wides 0 Leg Byes 0 Byes 0 ) ");
  EXPECT_EQ(card.label13, "0");
}

TEST_F(scorecard_test, nobody_at_the_crease_marks_nobody) {
  set_first_innings_in_play();
  match.striker = 0;
  match.non_striker = 0;
  const scorecard card = opened<scorecard>();
  for (int i = 1; i <= 11; ++i) EXPECT_NE(card.label9[i], "  Not Out   ") << i;
}

TEST_F(scorecard_test, all_out_leaves_the_last_pair_as_it_stands) {
  for (int i = 1; i <= 11; ++i) {
    match.batting_card[i].name = "A.Man";
    match.batting_card[i].how_out = " b K.Foss";
  }
  match.batting_card[9].how_out.clear();
  match.striker = 11;
  match.non_striker = 9;
  match.score_wickets = 10;
  const scorecard card = opened<scorecard>();
  EXPECT_EQ(card.label9[11], " b K.Foss");
  EXPECT_EQ(card.label9[9], "  Not Out   ");
  EXPECT_EQ(card.label5, "(10 wickets , 0.0  Overs)");
}

TEST_F(scorecard_test, the_rate_divides_first) {
  match.score_runs = 27;
  match.innings_balls = 80;
  EXPECT_EQ(opened<scorecard>().label7, "2.03");  // 27 / 80 * 6 lies a hair above 2.025
  match.score_runs = 51;
  match.innings_balls = 48;
  EXPECT_EQ(opened<scorecard>().label7, "6.38");  // 6.375 exactly: up to the even digit
  match.score_runs = 49;
  EXPECT_EQ(opened<scorecard>().label7, "6.12");  // 6.125 exactly: down to the even digit
  match.score_runs = 48;
  EXPECT_EQ(opened<scorecard>().label7, "6");
}

TEST_F(scorecard_test, reopening_forgets_what_was_shown) {
  set_second_innings_in_play();
  scorecard card = opened<scorecard>();
  match = match_state{};
  card.open();
  EXPECT_EQ(card.label1[1], "");
  EXPECT_EQ(card.label2[1], "");
  EXPECT_EQ(card.label7, "");
  EXPECT_EQ(card.label9[3], "");
  EXPECT_FALSE(card.command4[1].visible);
  EXPECT_FALSE(card.command3_enabled);
}

TEST_F(scorecard_test, buttons_open_their_screens) {
  set_second_innings_in_play();
  opened_reports seen;
  const front_end_scope scope(seen);
  const scorecard card = opened<scorecard>();
  card.command3_click();
  card.command2_click();
  card.command5_click();
  card.command6_click();
  card.command10_click();
  const scorecard2 first = opened<scorecard2>();
  first.command2_click();
  first.command3_click();
  const std::vector<report> wanted = {report::scorecard2, report::bowlcard,    report::partners, report::graphs,
                                      report::worms,      report::bowlcard2nd, report::partners2};
  EXPECT_EQ(seen.opened, wanted);
}

TEST_F(scorecard_test, what_the_total_does_not_count) {
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
    EXPECT_EQ(opened<scorecard>().not_counted, r.said);
    EXPECT_EQ(opened<scorecard2>().not_counted, "") << "of the other innings";
    std::swap(match.innings_no_balls, match.first_no_balls);
    std::swap(match.innings_wides, match.first_wides);
    EXPECT_EQ(opened<scorecard2>().not_counted, r.said);
    EXPECT_EQ(opened<scorecard>().not_counted, "");
  }
}

TEST_F(scorecard_test, the_first_innings_cannot_be_opened_before_its_end) {
  set_first_innings_in_play();
  opened_reports seen;
  const front_end_scope scope(seen);
  const scorecard card = opened<scorecard>();
  EXPECT_FALSE(card.command3_enabled);
  card.command3_click();
  EXPECT_TRUE(seen.opened.empty());
  set_second_innings_in_play();
  EXPECT_TRUE(opened<scorecard>().command3_enabled);
}

TEST_F(scorecard_test, captions) {
  EXPECT_EQ(scorecard::command1_caption, "OK");
  EXPECT_EQ(scorecard::command2_caption, "Bowling Figures");
  EXPECT_EQ(scorecard::command3_caption, "1st Innings");
  EXPECT_EQ(scorecard::command5_caption, "Partnerships");
  EXPECT_EQ(scorecard::command6_caption, "Runs Per Over Graph");
  EXPECT_EQ(scorecard::command7_caption, "As HTML");
  EXPECT_EQ(scorecard::command8_caption, "As Text");
  EXPECT_EQ(scorecard::command9_caption, "Ball by Ball");
  EXPECT_EQ(scorecard::command10_caption, "Score Comparison Graph");
  EXPECT_EQ(scorecard2::command2_caption, "1st Innings Bowling Figures");
  EXPECT_EQ(scorecard2::command3_caption, "1st Innings Partnerships");
}

TEST_F(scorecard_test, details_of_a_man_who_is_out) {
  set_first_innings_in_play();
  match.batting_card[1].dots = 13;
  match.batting_card[1].singles = 4;
  match.batting_card[1].twos = 1;
  match.batting_card[1].threes = 6;
  const batsman_figures figures = opened<scorecard>().details(1);
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

TEST_F(scorecard_test, details_of_a_man_at_the_crease) {
  set_first_innings_in_play();
  EXPECT_EQ(opened<scorecard>().details(3).headline, "C.Vanterpool  Not Out         102 (101).");
  EXPECT_EQ(opened<scorecard>().details(3).strike_rate, "100.99");
  match.batting_card[5].balls = 0;
  match.batting_card[5].runs = 0;
  EXPECT_EQ(opened<scorecard>().details(5).headline, "E.Marrack  Not Out         0 (0).");
  EXPECT_EQ(opened<scorecard>().details(5).strike_rate, "");
}

TEST_F(scorecard_test, a_man_without_a_dismissal_away_from_the_crease_counts_as_out) {
  set_first_innings_in_play();
  match.striker = 6;
  EXPECT_EQ(opened<scorecard>().details(5).headline, "E.Marrack    8 (6).");
}

TEST_F(scorecard_test, the_strike_rate_divides_first) {
  set_first_innings_in_play();
  match.batting_card[3].runs = 23;
  match.batting_card[3].balls = 160;
  EXPECT_EQ(opened<scorecard>().details(3).strike_rate, "14.37");  // 23 / 160 * 100 lies a hair below 14.375
}

TEST_F(scorecard_test, first_innings) {
  set_second_innings_in_play();
  const scorecard2 card = opened<scorecard2>();
  EXPECT_EQ(card.label12, "Lake End");
  EXPECT_EQ(card.label10, "Northland");
  EXPECT_EQ(card.label1[3], "C.Featherstonehaughs");
  EXPECT_EQ(card.label8[3], " st G.Penhall");
  EXPECT_EQ(card.label9[3], " b H.Dray");
  EXPECT_EQ(card.label2[1], "123");
  EXPECT_EQ(card.label3[1], "(131)");
  EXPECT_EQ(card.label4, "261");
  EXPECT_EQ(card.label5, " (10 wickets , 48.2  Overs)");
  EXPECT_EQ(card.label7, "5.4");
  EXPECT_EQ(card.label14, "Extras ( No Balls 1,Wides 12 Leg Byes 9,Byes 3 ) ");
  EXPECT_EQ(card.label13, "25");
  EXPECT_TRUE(card.command4[11].visible);
}

TEST_F(scorecard_test, first_innings_has_no_striker_step) {
  set_second_innings_in_play();
  leave_the_last_pair_in();
  match.first_batting_card[5].how_out.clear();  // 5 is the striker of the innings in play
  EXPECT_EQ(opened<scorecard2>().label9[5], "");
  EXPECT_EQ(opened<scorecard2>().label9[11], "not out");
}

TEST_F(scorecard_test, the_man_stranded_in_the_first_innings_has_no_dismissal) {
  set_second_innings_in_play();
  EXPECT_EQ(opened<scorecard2>().label9[11], "");
  EXPECT_EQ(opened<scorecard2>().details(11).headline, "K.Foss    2 (4).");
}

TEST_F(scorecard_test, details_of_the_first_innings) {
  set_second_innings_in_play();
  leave_the_last_pair_in();
  const scorecard2 card = opened<scorecard2>();
  EXPECT_EQ(card.details(11).headline, "K.Foss  Not Out         2 (4).");
  EXPECT_EQ(card.details(1).headline, "A.Harrow   c && b J.Abara  123 (131).");
  EXPECT_EQ(card.details(1).strike_rate, "93.89");
  match.first_batting_card[5].how_out.clear();
  EXPECT_EQ(card.details(5).headline, "E.Sandoval    17 (30).");
}

TEST_F(scorecard_test, first_innings_of_no_ball_has_no_rate) {
  set_second_innings_in_play();
  match.first_balls = 0;
  EXPECT_EQ(opened<scorecard2>().label7, "");
  EXPECT_EQ(opened<scorecard2>().label5, " (10 wickets , 0.0  Overs)");
}

TEST_F(scorecard_test, opening_changes_nothing_in_the_match) {
  set_second_innings_in_play();
  opened<scorecard>();
  opened<scorecard2>();
  EXPECT_EQ(match.batting_card[3].how_out, "");
  EXPECT_EQ(match.batting_card[5].how_out, "");
}

}  // namespace
}  // namespace velorin
