// SPDX-License-Identifier: GPL-3.0-or-later
// A practice match from its set-up to its end: what it leaves behind.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "engine/over_play.h"
#include "model/match_state.h"
#include "model/random.h"
#include "reports/match_report.h"
#include "setup/new_match.h"
#include "support/folder_contents.h"
#include "support/game_in_play.h"
#include "support/scripted_user.h"
#include "support/small_database.h"

namespace velorin::testing {
namespace {

class PracticeMatch : public ::testing::TestWithParam<bool> {
 protected:
  void SetUp() override {
    match = match_state();
    data.files.elevens_in_memory = true;
    data.files.updates = true;
    for (const char* name : {"Alpha", "Beta", "Gamma"}) database_.add_team(name);
    database_.add_ground("Beta", "Green Lane");
    database_.add_ground("Gamma", "Hill Road");
    database_.write();
  }
  void TearDown() override { match = match_state(); }

  /// A whole match of two teams; whether a human captains the first one is the parameter.
  void play(bool practice) {
    chance.use_seed(4);
    new_match_form form(in_play());
    form.open();
    form.practice = practice;
    form.computer_captains_first = !GetParam();
    form.accept();
    ASSERT_FALSE(form.left);
    ASSERT_NE(match.decided, match_decision::none);
  }

  small_database database_;
  scripted_user user_;
  front_end_scope shown_{user_};
};

TEST_P(PracticeMatch, CountsForNoCareerAndNoRecord) {
  play(false);
  const auto counted = contents_of(database_.folder());
  play(true);
  EXPECT_EQ(contents_of(database_.folder()), counted);
  play(false);
  EXPECT_NE(contents_of(database_.folder()), counted) << "the match after it counts again";
}

TEST_P(PracticeMatch, CountsForNothingAlsoWithBallsTakenBack) {
  play(false);
  const auto counted = contents_of(database_.folder());
  int taken = 0;
  user_.on_console = [&](console_form& console) {
    while (match.console_open) {
      console.bowl_next_over();
      if (taken == 12 || !console.can_take_back()) continue;
      console.take_back(taken_back::over, luck::fresh);
      ++taken;
    }
  };
  play(true);
  EXPECT_EQ(taken, GetParam() ? 12 : 0) << "somebody has to sit before it";
  EXPECT_EQ(contents_of(database_.folder()), counted);
  EXPECT_FALSE(chance.keeps_readings());
}

TEST_P(PracticeMatch, EndsAsToldAndItsReportSaysSo) {
  std::vector<std::string> ends;
  for (const bool practice : {false, true}) {
    user_.requests.clear();
    bool said = false;
    bool knows_records = false;
    user_.on_match_report = [&](match_report_form& form) {
      form.open();
      said = form.report.practice;
      knows_records = form.report.records_known;
    };
    play(practice);
    EXPECT_EQ(said, practice);
    EXPECT_FALSE(practice && knows_records);
    ends.push_back(::testing::PrintToString(user_.requests));
  }
  EXPECT_EQ(ends[0], ends[1]) << "the same is asked and told";
}

TEST_P(PracticeMatch, IsNoneUnlessAsked) {
  EXPECT_FALSE(new_match_form(in_play()).practice);
  play(true);
  EXPECT_FALSE(match.practice) << "gone with the match";
  bool reported = false;
  user_.on_match_report = [&](match_report_form&) {
    EXPECT_FALSE(match.practice);
    reported = true;
  };
  play(false);
  EXPECT_TRUE(reported);
}

INSTANTIATE_TEST_SUITE_P(Captains, PracticeMatch, ::testing::Bool(), [](const auto& instance) {
  return std::string(instance.param ? "AHumanPlays" : "TwoComputers");
});

}  // namespace
}  // namespace velorin::testing
