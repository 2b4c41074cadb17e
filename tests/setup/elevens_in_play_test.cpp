// SPDX-License-Identifier: GPL-3.0-or-later
// The elevens from the selection to the first ball, where their files fail.
#include "setup/elevens_in_play.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "database/configuration.h"
#include "database/elevens.h"
#include "model/match_state.h"
#include "model/run_time_error.h"
#include "setup/toss.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"
#include "support/scripted_user.h"
#include "support/small_database.h"

namespace velorin::testing {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::IsEmpty;
using ::testing::StartsWith;

class ElevensInPlay : public ::testing::Test {
 protected:
  void SetUp() override {
    const database_files own = data.files;
    set_up_sample_match(false, false);
    data.files = own;
    match.selected = {match.batting_xi, match.bowling_xi};
    match.elevens_exchanged = match.elevens_unsaved = false;
  }
  void TearDown() override { match = {}; }

  /// A folder stands where this file should.
  std::filesystem::path block(const char* name) const {
    const std::filesystem::path file = database_.folder() / name;
    std::filesystem::create_directory(file);
    return file;
  }
  void answer(save_answer with, const std::filesystem::path& freed = {}) {
    user_.on_failed_save.push_back([with, freed](const failed_save&) {
      if (!freed.empty()) std::filesystem::remove(freed);
      return with;
    });
  }
  /// The men of the match after a toss that exchanged the sides.
  static void expect_exchanged_men() {
    EXPECT_EQ(match.batting_xi[3].name, "A.Bowl3");
    EXPECT_EQ(match.bowling_xi[3].name, "H.Bat3");
    EXPECT_EQ(match.team1_name, "Away");
  }

  small_database database_;
  scripted_user user_;

 private:
  front_end_scope scope_{user_};
};

TEST_F(ElevensInPlay, WithoutTheirFilesTheMatchIsThatOfTheMenSelected) {
  const auto first = block("team1r.txt");
  answer(save_answer::go_on);
  save_selected(in_play(), 0);
  std::filesystem::remove(first);
  save_selected(in_play(), 1);
  swap_teams(in_play());
  take_elevens(match, data);
  expect_exchanged_men();
  EXPECT_THAT(user_.requests, ElementsAre(AllOf(StartsWith("failed save "), EndsWith("(file team1r.txt)"))))
      << "one question a match";
  EXPECT_FALSE(std::filesystem::exists(database_.folder() / "team2r.txt")) << "the files stay as they are";
}

TEST_F(ElevensInPlay, AFailedWritingIsTriedAgain) {
  const auto first = block("team1r.txt");
  answer(save_answer::retry);
  answer(save_answer::retry, first);
  save_selected(in_play(), 0);
  save_selected(in_play(), 1);
  EXPECT_EQ(user_.requests.size(), 2U);
  EXPECT_FALSE(match.elevens_unsaved);
  match.selected = {};
  take_elevens(match, data);
  EXPECT_EQ(match.batting_xi[3].name, "H.Bat3") << "read from the files";
  EXPECT_EQ(match.bowling_xi[3].name, "A.Bowl3");
}

TEST_F(ElevensInPlay, AFailedExchangeIsTriedAgain) {
  save_selected(in_play(), 0);
  save_selected(in_play(), 1);
  const auto spare = block("dummy.txt");
  answer(save_answer::retry);
  answer(save_answer::retry, spare);
  swap_teams(in_play());
  EXPECT_EQ(user_.requests.size(), 2U);
  read_elevens(match, data);
  expect_exchanged_men();
  take_elevens(match, data);
  expect_exchanged_men();
}

// The program was ended while it asked about an exchange that had stopped before its last renaming.
TEST_F(ElevensInPlay, AnExchangeThatWasStoppedIsFinishedAndNotDoneTwice) {
  save_selected(in_play(), 0);
  save_selected(in_play(), 1);
  const auto spare = block("dummy.txt");
  match_state stopped;
  user_.on_failed_save.push_back([&](const failed_save&) {
    stopped = match;
    return save_answer::go_on;
  });
  swap_teams(in_play());
  EXPECT_FALSE(match.exchange_tried);
  match = stopped;
  EXPECT_TRUE(match.exchange_tried);
  std::filesystem::remove(spare);
  std::filesystem::rename(database_.folder() / "team2r.txt", spare);
  std::filesystem::rename(database_.folder() / "team1r.txt", database_.folder() / "team2r.txt");
  swap_teams(in_play());
  EXPECT_EQ(user_.requests.size(), 1U);
  take_elevens(match, data);
  expect_exchanged_men();
  read_elevens(match, data);
  expect_exchanged_men();
}

TEST_F(ElevensInPlay, TheMatchGoesOnWithoutTheExchange) {
  save_selected(in_play(), 0);
  save_selected(in_play(), 1);
  block("dummy.txt");
  answer(save_answer::go_on);
  swap_teams(in_play());
  take_elevens(match, data);
  expect_exchanged_men();
  read_elevens(match, data);
  EXPECT_EQ(match.batting_xi[3].name, "H.Bat3") << "the files stay as they are";
}

TEST_F(ElevensInPlay, FilesThatCannotBeReadBackEndNoMatch) {
  save_selected(in_play(), 0);
  save_selected(in_play(), 1);
  std::filesystem::remove(database_.folder() / "team2r.txt");
  block("team2r.txt");
  take_elevens(match, data);
  EXPECT_EQ(match.bowling_xi[3].name, "A.Bowl3");
  EXPECT_THAT(user_.requests, IsEmpty());
  match.selected = {};
  EXPECT_THROW(take_elevens(match, data), run_time_error) << "nobody has been selected";
}

TEST_F(ElevensInPlay, AFailureThatNobodyAnswersIsRaised) {
  block("team1r.txt");
  EXPECT_THROW(save_selected(in_play(), 0), run_time_error);
  EXPECT_FALSE(match.elevens_unsaved);
}

}  // namespace
}  // namespace velorin::testing
