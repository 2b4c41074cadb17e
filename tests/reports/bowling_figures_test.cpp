// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/bowling_figures.h"

#include "reports/match_scenes.h"

namespace velorin {
namespace {

using bowling_figures_test = reports_test;

TEST_F(bowling_figures_test, shows_the_innings_in_play) {
  set_second_innings_in_play();
  bowlcard screen;
  screen.open();
  EXPECT_EQ(screen.label1[9], "I.Nettle");
  EXPECT_EQ(screen.label2[9], "6.0");
  EXPECT_EQ(screen.label3[9], "11");
  EXPECT_EQ(screen.label4[9], "42");
  EXPECT_EQ(screen.label5[9], "1");
  EXPECT_EQ(screen.label11[9], "7");
  EXPECT_EQ(screen.label2[3], "0.5");
  EXPECT_EQ(screen.label11[3], "12");
  EXPECT_EQ(screen.label11[11], "3.62");  // 3.625 exactly: down to the even digit
}

TEST_F(bowling_figures_test, a_man_who_has_not_bowled_shows_his_name_only) {
  set_second_innings_in_play();
  bowlcard screen;
  screen.open();
  EXPECT_EQ(screen.label1[1], "A.Harrow");
  EXPECT_EQ(screen.label2[1], "");
  EXPECT_EQ(screen.label3[1], "");
  EXPECT_EQ(screen.label4[1], "");
  EXPECT_EQ(screen.label5[1], "");
  EXPECT_EQ(screen.label11[1], "");
}

TEST_F(bowling_figures_test, shows_the_first_innings) {
  set_second_innings_in_play();
  bowlcard2nd screen;
  screen.open();
  EXPECT_EQ(screen.label1[5], "E.Marrack");
  EXPECT_EQ(screen.label2[5], "9.0");
  EXPECT_EQ(screen.label3[5], "0");
  EXPECT_EQ(screen.label4[5], "101");
  EXPECT_EQ(screen.label5[5], "0");
  EXPECT_EQ(screen.label11[5], "11.22");
  EXPECT_EQ(screen.label2[11], "9.2");
  EXPECT_EQ(screen.label1[1], "A.Tamuera");
  EXPECT_EQ(screen.label2[1], "");
}

TEST_F(bowling_figures_test, reopening_forgets_what_was_shown) {
  set_second_innings_in_play();
  bowlcard screen;
  screen.open();
  match.bowling_card[9].balls = 0;
  screen.open();
  EXPECT_EQ(screen.label2[9], "");
  EXPECT_EQ(screen.label11[9], "");
}

TEST_F(bowling_figures_test, headings) {
  EXPECT_EQ(bowlcard::title, "Bowling Figures");
  const std::array<std::string_view, 5> wanted = {"Overs", "Mdns", "Runs", "Wkts", "R.P.O"};
  EXPECT_EQ(bowlcard::headings, wanted);
}

}  // namespace
}  // namespace velorin
