// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/toss.h"

#include <gtest/gtest.h>

#include "database/configuration.h"
#include "database/elevens.h"
#include "model/match_state.h"
#include "model/random.h"
#include "setup/coin_draws.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"

// The screen of the toss.

namespace velorin::testing {
namespace {

/// Home against Away, their elevens selected.
void set_up_toss(bool first_computer, bool second_computer) {
  set_up_sample_match(first_computer, second_computer);
  write_eleven(data, side::first, match.batting_xi);
  write_eleven(data, side::second, match.bowling_xi);
}

/// The screen after the call, and the draws that the call took.
toss_form called(bool second_computer, std::vector<double> draws, int button = 0) {
  set_up_toss(false, second_computer);
  const std::size_t count = draws.size();
  script_draws(std::move(draws));
  toss_form form(in_play());
  form.open();
  form.call_coin(button);
  EXPECT_EQ(chance.draws_used(), count);
  return form;
}

void expect_screen(const toss_form& form, const std::string& headline, const std::string& deciding,
                   const std::string& other, bool bat, bool bowl) {
  EXPECT_EQ(form.headline, headline);
  EXPECT_EQ(form.deciding_line, deciding);
  EXPECT_EQ(form.other_line, other);
  EXPECT_FALSE(form.coin_visible);
  EXPECT_EQ(form.bat_enabled, bat);
  EXPECT_EQ(form.bowl_enabled, bowl);
  EXPECT_FALSE(form.closed);
}

/// The side that bats first, the flags and the elevens going with the names.
void expect_first(const std::string& first, bool first_computer, bool second_computer) {
  const bool home = first == "Home";
  EXPECT_EQ(match.team1_name, first);
  EXPECT_EQ(match.team2_name, home ? "Away" : "Home");
  EXPECT_EQ(match.computer_bats, home ? first_computer : second_computer);
  EXPECT_EQ(match.computer_bowls, home ? second_computer : first_computer);
  read_elevens(match, data);
  EXPECT_EQ(match.batting_xi[1].name, home ? "H.Bat1" : "A.Bowl1");
  EXPECT_EQ(match.bowling_xi[11].name, home ? "A.Bowl11" : "H.Bat11");
}

TEST(Toss, OpensWithTheFirstTeamToCall) {
  set_up_toss(false, false);
  script_draws({});
  toss_form form(in_play());
  form.deciding_line = "old";
  form.bat_enabled = false;
  form.closed = true;
  form.open();
  EXPECT_EQ(form.headline, "Home to call...");
  EXPECT_TRUE(form.coin_visible);
  EXPECT_TRUE(form.bat_enabled);
  EXPECT_TRUE(form.bowl_enabled);
  EXPECT_FALSE(form.closed);
}

TEST(Toss, TheFirstTeamWinsOnOneWhicheverButtonIsPressed) {
  for (const bool computer : {false, true}) {
    for (const double draw : {0.0, one}) {
      for (const int button : {0, 1}) {
        expect_screen(called(computer, {draw}, button), "Home have won the toss.", "Home", "Away", true, true);
      }
    }
  }
}

TEST(Toss, AHumanSecondTeamWinsOnTwoAndDecides) {
  for (const double draw : {two, 0.9999999}) {
    for (const int button : {0, 1}) {
      expect_screen(called(false, {draw}, button), "Away have won the toss.", "Away", "Home", true, true);
    }
  }
}

TEST(Toss, AComputerSecondTeamElects) {
  expect_screen(called(true, {two, one}), "Away have won the toss and have elected to field first.", "Home", "Away",
                true, false);
  expect_screen(called(true, {two, two}, 1), "Away have won the toss and have elected to bat first.", "Home", "Away",
                false, true);
}

TEST(Toss, TheDecisionOfAComputerFirstTeamIsPrepared) {
  set_up_toss(true, false);
  toss_form form(in_play());
  script_draws({one, one});
  form.open_decided();
  expect_screen(form, "Home have won the toss.They have elected to field first.", "Away", "Home", true, false);
  script_draws({one, two});
  form.open_decided();
  expect_screen(form, "Home have won the toss.They have elected to bat first.", "Away", "Home", false, true);
  script_draws({two});
  form.open_decided();
  expect_screen(form, "Away have won the toss.", "Away", "Home", true, true);
}

TEST(TossDecision, OfTheFirstTeam) {
  toss_form form = called(false, {one});
  form.choose_to_bat();
  EXPECT_TRUE(form.closed);
  expect_first("Home", false, false);
  toss_form again = called(true, {one});
  again.choose_to_bowl();
  EXPECT_TRUE(again.closed);
  expect_first("Away", false, true);
}

TEST(TossDecision, OfAHumanSecondTeam) {
  toss_form form = called(false, {two});
  form.choose_to_bat();
  expect_first("Away", false, false);
  toss_form again = called(false, {two});
  again.choose_to_bowl();
  expect_first("Home", false, false);
}

TEST(TossDecision, ConfirmsTheElectionOfAComputerSecondTeam) {
  toss_form form = called(true, {two, one});
  form.choose_to_bat();
  expect_first("Home", false, true);
  toss_form again = called(true, {two, two});
  again.choose_to_bowl();
  expect_first("Away", false, true);
}

TEST(TossDecision, ConfirmsTheElectionOfAComputerFirstTeam) {
  set_up_toss(true, false);
  toss_form form(in_play());
  script_draws({one, one});
  form.open_decided();
  form.choose_to_bat();
  expect_first("Away", true, false);
  set_up_toss(true, false);
  script_draws({one, two});
  form.open_decided();
  form.choose_to_bowl();
  expect_first("Home", true, false);
}

TEST(TossDecision, OfAHumanWhoBeatsAComputerFirstTeam) {
  set_up_toss(true, false);
  toss_form form(in_play());
  script_draws({two});
  form.open_decided();
  form.choose_to_bowl();
  expect_first("Home", true, false);
}

TEST(TossDecision, OfOneTeamAgainstItselfAlwaysSwaps) {
  for (const bool bat : {true, false}) {
    set_up_toss(false, true);
    match.team2_name = "Home";
    script_draws({one});
    toss_form form(in_play());
    form.open();
    form.call_coin(0);
    bat ? form.choose_to_bat() : form.choose_to_bowl();
    EXPECT_EQ(match.team1_name, "Home");
    EXPECT_TRUE(match.computer_bats);
    EXPECT_FALSE(match.computer_bowls);
    read_elevens(match, data);
    EXPECT_EQ(match.batting_xi[1].name, "A.Bowl1");
    EXPECT_EQ(match.bowling_xi[1].name, "H.Bat1");
  }
}

}  // namespace
}  // namespace velorin::testing
