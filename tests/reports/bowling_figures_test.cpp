// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/bowling_figures.h"

#include "reports/match_scenes.h"
#include "support/game_in_play.h"

namespace velorin {
namespace {

using BowlingCards = reports_test;

TEST_F(BowlingCards, ShowsTheInningsInPlay) {
  set_second_innings_in_play();
  bowling_card_form screen(match);
  screen.open();
  EXPECT_EQ(screen.names[9], "I.Nettle");
  EXPECT_EQ(screen.overs[9], "6.0");
  EXPECT_EQ(screen.maidens[9], "11");
  EXPECT_EQ(screen.runs[9], "42");
  EXPECT_EQ(screen.wickets[9], "1");
  EXPECT_EQ(screen.economy_rates[9], "7");
  EXPECT_EQ(screen.overs[3], "0.5");
  EXPECT_EQ(screen.economy_rates[3], "12");
  EXPECT_EQ(screen.economy_rates[11], "3.62");  // 3.625 exactly: down to the even digit
}

TEST_F(BowlingCards, AManWhoHasNotBowledShowsHisNameOnly) {
  set_second_innings_in_play();
  bowling_card_form screen(match);
  screen.open();
  EXPECT_EQ(screen.names[1], "A.Harrow");
  EXPECT_EQ(screen.overs[1], "");
  EXPECT_EQ(screen.maidens[1], "");
  EXPECT_EQ(screen.runs[1], "");
  EXPECT_EQ(screen.wickets[1], "");
  EXPECT_EQ(screen.economy_rates[1], "");
}

TEST_F(BowlingCards, ShowsTheFirstInnings) {
  set_second_innings_in_play();
  first_bowling_card_form screen(match);
  screen.open();
  EXPECT_EQ(screen.names[5], "E.Marrack");
  EXPECT_EQ(screen.overs[5], "9.0");
  EXPECT_EQ(screen.maidens[5], "0");
  EXPECT_EQ(screen.runs[5], "101");
  EXPECT_EQ(screen.wickets[5], "0");
  EXPECT_EQ(screen.economy_rates[5], "11.22");
  EXPECT_EQ(screen.overs[11], "9.2");
  EXPECT_EQ(screen.names[1], "A.Tamuera");
  EXPECT_EQ(screen.overs[1], "");
}

TEST_F(BowlingCards, ReopeningForgetsWhatWasShown) {
  set_second_innings_in_play();
  bowling_card_form screen(match);
  screen.open();
  match.bowling_card[9].balls = 0;
  screen.open();
  EXPECT_EQ(screen.overs[9], "");
  EXPECT_EQ(screen.economy_rates[9], "");
}

TEST_F(BowlingCards, Headings) {
  EXPECT_EQ(bowling_card_form::title, "Bowling Figures");
  const std::array<std::string_view, 5> wanted = {"Overs", "Mdns", "Runs", "Wkts", "R.P.O"};
  EXPECT_EQ(bowling_card_form::headings, wanted);
}

}  // namespace
}  // namespace velorin
