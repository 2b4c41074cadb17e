// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "engine/over_play.h"
#include "model/match_state.h"
#include "model/random.h"
#include "setup/coin_draws.h"
#include "setup/new_match.h"
#include "setup/toss.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"
#include "support/scripted_user.h"
#include "support/small_database.h"

// The chain of steps within the OK of a new match, by who captains the two teams.

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

class Chain : public ::testing::TestWithParam<bool> {
 protected:
  void SetUp() override {
    match = match_state();
    data.files.elevens_in_memory = GetParam();
    for (const char* name : {"Alpha", "Beta", "Gamma"}) database_.add_team(name);
    database_.add_ground("Beta", "Green Lane");
    database_.add_ground("Gamma", "Hill Road");
    database_.write();
    user_.on_console = [this](console_form&) {
      at_console_ = match;
      match.console_open = false;
    };
  }
  /// OK with these captains. The conditions take four draws, the toss those given, the opening bowlers one.
  void ok(bool first_computer, bool second_computer, const std::vector<double>& toss_draws) {
    std::vector<double> draws(4, 0.5);
    draws.insert(draws.end(), toss_draws.begin(), toss_draws.end());
    draws.push_back(0.5);
    script_draws(draws);
    new_match_form form(in_play());
    form.open();
    form.computer_captains_first = first_computer;
    form.computer_captains_second = second_computer;
    form.accept();
    EXPECT_FALSE(form.visible);
  }

  small_database database_;
  scripted_user user_;
  front_end_scope shown_{user_};
  match_state at_console_;
};

const std::vector<std::string> set_up_steps = {"wecond", "teamsel Beta", "teamsel Gamma"};

std::vector<std::string> after_set_up(const std::vector<std::string>& more) {
  std::vector<std::string> all = set_up_steps;
  all.insert(all.end(), more.begin(), more.end());
  return all;
}

TEST_P(Chain, TwoHumans) {
  ok(false, false, {one});
  EXPECT_THAT(user_.requests,
              ElementsAreArray(after_set_up({"toss Beta to call...", "chgbowler Select 1st Opening Bowler",
                                             "chgbowler Select 2nd Opening Bowler", "batorder Select 1st Opener",
                                             "batorder Select 2nd Opener", "console"})));
  EXPECT_EQ(at_console_.team1_name, "Beta");
  EXPECT_EQ(at_console_.venue_name(), "Hill Road");
  EXPECT_EQ(at_console_.weather, 2);
  EXPECT_FALSE(at_console_.first_team_done);
}

TEST_P(Chain, AHumanAgainstAComputerThatFields) {
  ok(false, true, {two, one});
  EXPECT_THAT(
      user_.requests,
      ElementsAreArray(after_set_up({"toss Beta to call...",
                                     "message Opening Bowlers | Gamma8 and Gamma9 are the opening bowlers for Gamma",
                                     "batorder Select 1st Opener", "batorder Select 2nd Opener", "console"})));
  EXPECT_FALSE(at_console_.computer_bats);
  EXPECT_TRUE(at_console_.computer_bowls);
}

TEST_P(Chain, AHumanAgainstAComputerThatBats) {
  ok(false, true, {two, two});
  EXPECT_THAT(user_.requests,
              ElementsAreArray(after_set_up({"toss Beta to call...", "chgbowler Select 1st Opening Bowler",
                                             "chgbowler Select 2nd Opening Bowler", "console"})));
  EXPECT_EQ(at_console_.team1_name, "Gamma");
  EXPECT_TRUE(at_console_.computer_bats);
  EXPECT_FALSE(at_console_.computer_bowls);
}

TEST_P(Chain, AComputerAgainstAHuman) {
  ok(true, false, {two, one, one});
  EXPECT_THAT(
      user_.requests,
      ElementsAreArray(after_set_up({"message The toss | Beta have taken Tails",
                                     "toss Beta have won the toss.They have elected to field first.",
                                     "message Opening Bowlers | Beta8 and Beta9 are the opening bowlers for Beta",
                                     "batorder Select 1st Opener", "batorder Select 2nd Opener", "console"})));
  EXPECT_EQ(at_console_.team1_name, "Gamma");
  EXPECT_FALSE(at_console_.computer_bats);
  EXPECT_TRUE(at_console_.computer_bowls);
  EXPECT_EQ(at_console_.batting_xi[1].name, "Gamma1");
  EXPECT_EQ(at_console_.bowling_xi[11].name, "Beta11");
}

TEST_P(Chain, TwoComputersPlayTheWholeMatch) {
  new_match_form form(in_play());
  form.open();
  chance.use_seed(11);
  user_.on_report = [this](report which) {
    EXPECT_EQ(which, report::scorecard);
    if (at_console_.team1_name.empty()) at_console_ = match;
  };
  form.accept();
  ASSERT_EQ(user_.messages.size(), 1U);
  EXPECT_THAT(
      user_.requests,
      ElementsAreArray(after_set_up({"report 0", "message End of Match | " + user_.messages[0].text, "report 0"})));
  EXPECT_GT(user_.progress_calls, 20);
  EXPECT_LE(user_.progress_calls, 100);
  EXPECT_FALSE(user_.progress_open);
  EXPECT_FALSE(match.console_open);
  EXPECT_EQ(match.team1_name, "") << "the match has been reset";
  EXPECT_EQ(match.result_ground, "Hill Road");
  EXPECT_NE(match.result_margin, "");
  EXPECT_GT(at_console_.innings_balls, 0) << "the first card was shown at the end of an innings";
}

TEST_P(Chain, ATeamAgainstItselfPlays) {
  new_match_form form(in_play());
  form.open();
  form.choose_second_team(1);
  form.ground_index = 0;
  chance.use_seed(12);
  form.accept();
  EXPECT_THAT(user_.requests_of("teamsel"), ElementsAre("teamsel Beta", "teamsel Beta"));
  EXPECT_EQ(user_.requests_of("message End of Match").size(), 1U);
  EXPECT_EQ(match.team_count, 0);
}

TEST_P(Chain, TwoMatchesInARowStartFromNothing) {
  chance.use_seed(13);
  new_match_form form(in_play());
  form.open();
  form.accept();
  user_.requests.clear();
  ok(false, false, {one});
  EXPECT_EQ(user_.requests.back(), "console");
  EXPECT_EQ(at_console_.score_runs, 0);
  EXPECT_EQ(at_console_.innings_balls, 0);
  EXPECT_EQ(at_console_.first_total, 0);
  EXPECT_EQ(at_console_.over_no, 1);
  EXPECT_EQ(at_console_.bowler_list[1].position, 0);
  EXPECT_EQ(at_console_.batsman_aggression, (std::array<int, 2>{3, 3}));
}

INSTANTIATE_TEST_SUITE_P(Elevens, Chain, ::testing::Values(true, false),
                         [](const auto& kind) { return kind.param ? "InMemory" : "InFiles"; });

}  // namespace
}  // namespace velorin::testing
