// SPDX-License-Identifier: GPL-3.0-or-later
// A match that is stopped at a question of its set-up goes on from there in a game of its own.
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "competitions/resume_game.h"
#include "setup/new_match.h"
#include "support/game_in_play.h"
#include "support/scripted_user.h"
#include "support/small_database.h"
#include "support/stopping_user.h"

namespace velorin::testing {
namespace {

class ResumedMatch : public ::testing::TestWithParam<int> {
 protected:
  void SetUp() override {
    match = match_state();
    for (const char* name : {"Alpha", "Beta", "Gamma"}) database_.add_team(name);
    database_.add_ground("Beta", "Green Lane", 2, 4);
    database_.add_ground("Gamma", "Hill Road", 1, 3);
    database_.add_ground("Neutral", "Halfway Field");
    database_.write();
  }

  /// A match of these captains: 0 two computers, 1 a human second team, 2 a human first team, 3 two humans.
  static stopped_game match_of(int captains, std::uint64_t seed) {
    stopped_game played;
    played.seed = seed;
    played.start = [captains](game_state& game, front_end& user) {
      new_match_form form({game.match, game.chance, user, game.data});
      form.open();
      form.computer_captains_first = (captains & 2) == 0;
      form.computer_captains_second = (captains & 1) == 0;
      form.accept();
    };
    return played;
  }

  small_database database_;
  std::size_t copies_ = 0;
};

TEST_P(ResumedMatch, EndsAlikeFromEveryQuestionOfItsSetUp) {
  // Conditions, both selections, and then nothing, the call and the decision, or the coin and the decision.
  const int questions = GetParam() == 0 ? 3 : 5;
  for (const std::uint64_t seed : {1, 2, 3, 4}) {
    EXPECT_EQ(expect_copies_to_end_alike(match_of(GetParam(), seed)), questions) << seed;
  }
}

TEST_P(ResumedMatch, EndsAlikeWhereTheUserLeavesIt) {
  int copies = 0;
  for (std::uint64_t seed = 1; seed <= 20; ++seed) {
    stopped_game played = match_of(GetParam(), seed);
    played.leaves_one_in = 3;
    played.through_files = seed % 2 == 0;
    copies += expect_copies_to_end_alike(played);
  }
  EXPECT_GE(copies, 20);
}

TEST_P(ResumedMatch, LeavesTheSameFiles) {
  for (const std::uint64_t seed : {5, 6}) {
    stopped_game played = match_of(GetParam(), seed);
    played.through_files = true;
    EXPECT_GE(expect_copies_to_end_alike(played), 3);
  }
}

// What could not be saved here is saved by the copy; the match is the same.
TEST_P(ResumedMatch, EndsAlikeFromASaveThatHasFailed) {
  struct : scripted_user {
    std::vector<match_state> matches;
    std::vector<random_source> chances;
    save_answer answer(const failed_save&) override {
      matches.push_back(match);
      chances.push_back(chance);
      return save_answer::go_on;
    }
  } user;
  for (const char* blocked : {"team1r.txt", "team2r.txt", "dummy.txt"}) {
    std::filesystem::create_directory(database_.folder() / blocked);
    for (std::uint64_t seed = 1; seed <= 4; ++seed) {
      match = match_state();
      chance.use_seed(seed);
      user.requests.clear();
      new_match_form form({match, chance, user, data});
      form.open();
      form.computer_captains_first = (GetParam() & 2) == 0;
      form.computer_captains_second = (GetParam() & 1) == 0;
      form.accept();
      const match_result result = match;
      EXPECT_NE(result.result_margin, "");
      std::filesystem::remove(database_.folder() / blocked);
      for (std::size_t i = 0; i < user.matches.size(); ++i) {
        game_state copy;
        copy.match = user.matches[i];
        copy.chance = user.chances[i];
        copy.data.files = data.files;
        headless_user other(copy.match);
        EXPECT_TRUE(resume_game(copy, other));
        EXPECT_EQ(copy.match.result_margin, result.result_margin) << blocked << seed;
        EXPECT_EQ(copy.match.result_winner, result.result_winner) << blocked << seed;
        EXPECT_EQ(copy.chance.draws_used(), chance.draws_used()) << blocked << seed;
      }
      copies_ += user.matches.size();
      user.matches.clear();
      user.chances.clear();
      for (const char* file : {"team1r.txt", "team2r.txt"}) std::filesystem::remove(database_.folder() / file);
      std::filesystem::create_directory(database_.folder() / blocked);
    }
    std::filesystem::remove(database_.folder() / blocked);
  }
  EXPECT_GE(copies_, 8U) << "one of each match for a selection, and of some for the exchange";
}

constexpr std::array<const char*, 4> captains_names = {"TwoComputers", "HumanSecond", "HumanFirst", "TwoHumans"};

INSTANTIATE_TEST_SUITE_P(, ResumedMatch, ::testing::Range(0, 4), [](const auto& captains) {
  return std::string(captains_names[static_cast<std::size_t>(captains.param)]);
});

}  // namespace
}  // namespace velorin::testing
