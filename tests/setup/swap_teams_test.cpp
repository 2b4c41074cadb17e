// SPDX-License-Identifier: GPL-3.0-or-later
#include <fstream>
#include <iterator>

#include <gtest/gtest.h>

#include "database/elevens.h"
#include "model/match_state.h"
#include "model/run_time_error.h"
#include "setup/toss.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"
#include "support/small_database.h"

namespace velorin::testing {
namespace {

/// Home and Away with their elevens, in memory or in files of a folder of their own.
class SwapTeams : public ::testing::TestWithParam<bool> {
 protected:
  void SetUp() override {
    set_up_sample_match(true, false);
    data.files.elevens_in_memory = GetParam();
    write_eleven(data, side::first, match.batting_xi);
    write_eleven(data, side::second, match.bowling_xi);
  }
  static std::string first_names() {
    read_elevens(match, data);
    return match.batting_xi[1].name + " " + match.bowling_xi[1].name;
  }

  small_database database_;
};

TEST_P(SwapTeams, ExchangesNamesFlagsAndElevens) {
  EXPECT_EQ(first_names(), "H.Bat1 A.Bowl1");
  swap_teams(in_play());
  EXPECT_EQ(match.team1_name, "Away");
  EXPECT_EQ(match.team2_name, "Home");
  EXPECT_FALSE(match.computer_bats);
  EXPECT_TRUE(match.computer_bowls);
  EXPECT_EQ(first_names(), "A.Bowl1 H.Bat1");
  swap_teams(in_play());
  EXPECT_EQ(match.team1_name, "Home");
  EXPECT_EQ(first_names(), "H.Bat1 A.Bowl1");
}

INSTANTIATE_TEST_SUITE_P(Elevens, SwapTeams, ::testing::Values(true, false),
                         [](const auto& kind) { return kind.param ? "InMemory" : "InFiles"; });

class SwapFiles : public ::testing::Test {
 protected:
  void SetUp() override {
    set_up_sample_match();
    data.files.elevens_in_memory = false;
    write_eleven(data, side::first, match.batting_xi);
    write_eleven(data, side::second, match.bowling_xi);
  }
  std::string bytes(const std::string& file) const {
    std::ifstream in(database_.folder() / file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  static void expect_file_error() {
    try {
      swap_teams(in_play());
      ADD_FAILURE() << "no error";
    } catch (const run_time_error& error) {
      EXPECT_EQ(error.kind(), failure::file);
    }
    EXPECT_EQ(match.team1_name, "Home") << "the names go with the files";
  }

  small_database database_;
};

TEST_F(SwapFiles, ChangeTheirNamesAndKeepTheirBytes) {
  const std::string first = bytes("team1r.txt");
  const std::string second = bytes("team2r.txt");
  ASSERT_EQ(first.size(), 11U * 125);
  ASSERT_NE(first, second);
  swap_teams(in_play());
  EXPECT_EQ(bytes("team1r.txt"), second);
  EXPECT_EQ(bytes("team2r.txt"), first);
  EXPECT_FALSE(std::filesystem::exists(database_.folder() / "dummy.txt"));
}

TEST_F(SwapFiles, AreNotExchangedWhileTheSpareNameIsTaken) {
  const std::string first = bytes("team1r.txt");
  std::ofstream(database_.folder() / "dummy.txt") << "in the way";
  expect_file_error();
  EXPECT_EQ(bytes("team1r.txt"), first);
  EXPECT_EQ(bytes("dummy.txt"), "in the way");
}

TEST_F(SwapFiles, AreNotExchangedWhileOneIsMissing) {
  const std::string second = bytes("team2r.txt");
  std::filesystem::remove(database_.folder() / "team1r.txt");
  expect_file_error();
  EXPECT_EQ(bytes("team2r.txt"), second);
  EXPECT_FALSE(std::filesystem::exists(database_.folder() / "dummy.txt"));
}

}  // namespace
}  // namespace velorin::testing
