// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

#include "database/configuration.h"
#include "database/elevens.h"
#include "engine/over_play.h"
#include "model/random.h"
#include "setup/coin_draws.h"
#include "setup/match_steps.h"
#include "setup/toss.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"
#include "support/scripted_user.h"

// The toss by who captains the two teams, up to the opening of the console.

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Leaves an unattended match at its first ball.
struct first_ball {};

class TossFlow : public ::testing::Test {
 protected:
  static void play_from_toss() {
    begin_toss(in_play());
    resume_match(in_play());
  }
  /// Plays Home against Away up to the first over; the draws given are those of the toss.
  void play(bool first_computer, bool second_computer, std::vector<double> draws) {
    set_up_sample_match(first_computer, second_computer);
    write_eleven(data, side::first, match.batting_xi);
    write_eleven(data, side::second, match.bowling_xi);
    user_.requests.clear();
    user_.on_console = [](console_form&) { match.console_open = false; };
    user_.on_ball = [] { throw first_ball(); };
    toss_draws_ = draws.size();
    draws.resize(draws.size() + 20, 0.9999999);
    script_draws(std::move(draws));
    try {
      play_from_toss();
    } catch (const first_ball&) {
    }
  }
  /// Answers the next toss: a look at the screen, a button of the coin if it shows one, then "Bat" or "Bowl".
  void answer(bool bat) {
    user_.on_toss.push_back([this, bat](toss_form& form) {
      if (form.coin_visible) {
        EXPECT_EQ(chance.draws_used(), 0U) << "nothing is drawn before the call";
        form.call_coin(1);
      }
      EXPECT_EQ(chance.draws_used(), toss_draws_) << "all draws of the toss, and no more";
      EXPECT_TRUE(bat ? form.bat_enabled : form.bowl_enabled);
      bat ? form.choose_to_bat() : form.choose_to_bowl();
    });
  }
  /// Who bats, and that flags and elevens have gone with the names.
  static void expect_batting(const std::string& team, bool computer_bats, bool computer_bowls) {
    EXPECT_EQ(match.team1_name, team);
    EXPECT_EQ(match.team2_name, team == "Home" ? "Away" : "Home");
    EXPECT_EQ(match.computer_bats, computer_bats);
    EXPECT_EQ(match.computer_bowls, computer_bowls);
    EXPECT_EQ(match.batting_xi[2].name, team == "Home" ? "H.Bat2" : "A.Bowl2");
    EXPECT_EQ(match.bowling_xi[2].name, team == "Home" ? "A.Bowl2" : "H.Bat2");
  }
  std::vector<std::string> toss_requests() const {
    std::vector<std::string> found;
    for (const std::string& request : user_.requests) {
      if (request.starts_with("toss") || request.starts_with("message The toss")) found.push_back(request);
    }
    return found;
  }

  scripted_user user_;
  front_end_scope shown_{user_};
  std::size_t toss_draws_ = 0;
};

TEST_F(TossFlow, TwoComputersTakeOneDrawAndShowNothing) {
  play(true, true, {one});
  EXPECT_THAT(user_.requests, IsEmpty());
  expect_batting("Home", true, true);
  play(true, true, {two});
  EXPECT_THAT(user_.requests, IsEmpty());
  expect_batting("Away", true, true);
}

TEST_F(TossFlow, TwoComputersOfOneNameSwapEitherWay) {
  for (const double draw : {one, two}) {
    set_up_sample_match();
    match.team2_name = "Home";
    write_eleven(data, side::first, match.batting_xi);
    write_eleven(data, side::second, match.bowling_xi);
    user_.on_ball = [] { throw first_ball(); };
    std::vector<double> draws(20, 0.9999999);
    draws[0] = draw;
    script_draws(draws);
    EXPECT_THROW(play_from_toss(), first_ball);
    EXPECT_EQ(match.batting_xi[1].name, "A.Bowl1");
  }
}

// Another program has confirmed elevens of its own between the selection here and the end of the toss.
TEST_F(TossFlow, TheMatchIsThatOfTheMenSelectedHere) {
  std::string folder = (std::filesystem::temp_directory_path() / "velorin-toss-XXXXXX").string();
  ASSERT_NE(mkdtemp(folder.data()), nullptr);
  for (const bool bat : {true, false}) {
    set_up_sample_match(false, false);
    data.files = database_paths(folder, "base");
    write_eleven(data, side::first, match.batting_xi);
    write_eleven(data, side::second, match.bowling_xi);
    match.selected = {match.batting_xi, match.bowling_xi};
    match.elevens_exchanged = false;
    user_.on_console = [](console_form&) { match.console_open = false; };
    user_.on_toss.push_back([&](toss_form& form) {
      form.call_coin(1);
      eleven others;
      for (int i = 1; i <= 11; ++i) others[i].name = "Other" + std::to_string(i);
      write_eleven(data, side::first, others);
      write_eleven(data, side::second, others);
      bat ? form.choose_to_bat() : form.choose_to_bowl();
    });
    script_draws(std::vector<double>(40, one));
    play_from_toss();
    EXPECT_EQ(match.team1_name, bat ? "Home" : "Away");
    EXPECT_EQ(match.batting_xi[3].name, bat ? "H.Bat3" : "A.Bowl3");
    EXPECT_EQ(match.bowling_xi[3].name, bat ? "A.Bowl3" : "H.Bat3");
    read_elevens(match, data);
    EXPECT_EQ(match.batting_xi[3].name, "Other3") << "the files have the others";
  }
  std::filesystem::remove_all(folder);
}

TEST_F(TossFlow, AComputerAgainstAHumanCallsItself) {
  answer(true);
  play(true, false, {one, one, one});
  EXPECT_THAT(toss_requests(), ElementsAre("message The toss | Home have taken Heads",
                                           "toss Home have won the toss.They have elected to field first."));
  expect_batting("Away", false, true);
  answer(false);
  play(true, false, {two, one, two});
  EXPECT_THAT(toss_requests(), ElementsAre("message The toss | Home have taken Tails",
                                           "toss Home have won the toss.They have elected to bat first."));
  expect_batting("Home", true, false);
}

TEST_F(TossFlow, AHumanSecondTeamThatWinsChooses) {
  answer(true);
  play(true, false, {one, two});
  EXPECT_THAT(toss_requests(), ElementsAre("message The toss | Home have taken Heads", "toss Away have won the toss."));
  expect_batting("Away", false, true);
  answer(false);
  play(true, false, {two, two});
  EXPECT_THAT(toss_requests(), ElementsAre("message The toss | Home have taken Tails", "toss Away have won the toss."));
  expect_batting("Home", true, false);
}

TEST_F(TossFlow, AHumanCallsAgainstAComputer) {
  answer(true);
  play(false, true, {one});
  EXPECT_THAT(toss_requests(), ElementsAre("toss Home to call..."));
  expect_batting("Home", false, true);
  answer(false);
  play(false, true, {one});
  expect_batting("Away", true, false);
  answer(true);  // the computer fields
  play(false, true, {two, one});
  expect_batting("Home", false, true);
  answer(false);  // the computer bats
  play(false, true, {two, two});
  expect_batting("Away", true, false);
}

TEST_F(TossFlow, OfTwoHumansTheWinnerChooses) {
  answer(true);
  play(false, false, {one});
  EXPECT_THAT(toss_requests(), ElementsAre("toss Home to call..."));
  expect_batting("Home", false, false);
  answer(false);
  play(false, false, {one});
  expect_batting("Away", false, false);
  answer(true);
  play(false, false, {two});
  expect_batting("Away", false, false);
  answer(false);
  play(false, false, {two});
  expect_batting("Home", false, false);
}

TEST_F(TossFlow, TheConsoleIsShownOnlyWithAHuman) {
  answer(true);
  play(false, true, {one});
  EXPECT_EQ(user_.requests.back(), "console");
  EXPECT_EQ(user_.progress_calls, 0);
  EXPECT_FALSE(match.console_open);
  play(true, true, {one});
  EXPECT_EQ(user_.requests_of("console").size(), 0U);
  EXPECT_EQ(user_.progress_calls, 1);
}

}  // namespace
}  // namespace velorin::testing
