// SPDX-License-Identifier: GPL-3.0-or-later
// A competition that is stopped goes on from there in a game of its own.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <type_traits>

#include "competitions/cup_fixture.h"
#include "competitions/resume_game.h"
#include "database/folder_lock.h"
#include "support/stopping_user.h"

namespace velorin::testing {
namespace {

static_assert(std::is_copy_constructible_v<game_state> && std::is_copy_assignable_v<game_state>);

/// The captains of a competition by the bits of a number: a human one for each that is set.
bool human(int captains, int side) { return ((captains >> side) & 1) != 0; }

stopped_game series_of(int matches, int captains, std::uint64_t seed) {
  stopped_game played;
  played.seed = seed;
  played.start = [=](game_state& game, front_end& user) {
    series_form form({game.match, game.chance, user, game.data}, game.series);
    form.open();
    form.set_matches(matches);
    form.computer_captains_home = !human(captains, 0);
    form.computer_captains_away = !human(captains, 1);
    form.accept();
  };
  return played;
}

stopped_game tri_series_of(int rounds, int captains, std::uint64_t seed) {
  stopped_game played;
  played.seed = seed;
  played.start = [=](game_state& game, front_end& user) {
    tri_series_form form({game.match, game.chance, user, game.data}, game.tri);
    form.open();
    form.set_rounds(rounds);
    for (int side = 0; side < tri_teams; ++side) {
      form.computer_captains[static_cast<std::size_t>(side)] = !human(captains, side);
    }
    form.accept();
  };
  return played;
}

stopped_game world_cup_of(int captains, std::uint64_t seed) {
  stopped_game played;
  played.seed = seed;
  played.start = [=](game_state& game, front_end& user) {
    world_cup_form form({game.match, game.chance, user, game.data}, game.world_cup);
    form.open();
    for (int side = 0; side < cup_group_teams; ++side) {
      form.human_a[static_cast<std::size_t>(side)] = human(captains, side);
      form.human_b[static_cast<std::size_t>(side)] = human(captains, side + cup_group_teams);
    }
    form.accept();
  };
  return played;
}

class ResumedGame : public CompetitionTest {
 protected:
  void SetUp() override {
    CompetitionTest::SetUp();
    std::vector<std::string> names = cup_group_a;
    names.insert(names.end(), cup_group_b.begin(), cup_group_b.end());
    add_teams(names);
  }
};

TEST_F(ResumedGame, IsNoneWhereNothingIsInPlay) {
  game_state game;
  EXPECT_FALSE(resume_game(game, user_));
  EXPECT_TRUE(user_.requests.empty());
}

TEST_F(ResumedGame, ASeriesEndsAlikeFromEveryStop) {
  for (const int captains : {0, 1, 2, 3}) {
    EXPECT_GE(expect_copies_to_end_alike(series_of(3, captains, 7)), 12) << "conditions, elevens and results of three";
  }
}

TEST_F(ResumedGame, ASeriesEndsAlikeWhereMatchesAreLeft) {
  int copies = 0;
  for (std::uint64_t seed = 1; seed <= 12; ++seed) {
    stopped_game played = series_of(3, static_cast<int>(seed % 4), seed);
    played.leaves_one_in = 5;
    played.one_stop_in = 2;
    copies += expect_copies_to_end_alike(played);
  }
  EXPECT_GE(copies, 40);
}

TEST_F(ResumedGame, ASeriesEndsAlikeWithItsFiles) {
  int copies = 0;
  for (std::uint64_t seed = 1; seed <= 3; ++seed) {
    stopped_game played = series_of(2, 1, seed);
    played.through_files = true;
    played.leaves_one_in = 9;
    copies += expect_copies_to_end_alike(played);
  }
  EXPECT_GE(copies, 20);
}

TEST_F(ResumedGame, ATriSeriesEndsAlikeFromEveryStop) {
  for (const int captains : {0, 5}) {
    EXPECT_GE(expect_copies_to_end_alike(tri_series_of(1, captains, 8)), 16) << "league of three, and the final";
  }
}

TEST_F(ResumedGame, ATriSeriesEndsAlikeWhereMatchesAreLeft) {
  int copies = 0;
  for (std::uint64_t seed = 1; seed <= 16; ++seed) {
    stopped_game played = tri_series_of(1, static_cast<int>(seed % 8), seed);
    played.leaves_one_in = 10;
    played.one_stop_in = 2;
    copies += expect_copies_to_end_alike(played);
  }
  EXPECT_GE(copies, 60);
}

TEST_F(ResumedGame, AWorldCupEndsAlikeFromEveryStageOfIt) {
  stopped_game played = world_cup_of(0b1010010101, 5);
  played.one_stop_in = 11;
  EXPECT_GE(expect_copies_to_end_alike(played), 14);
}

TEST_F(ResumedGame, AWorldCupEndsAlikeWhereMatchesAreLeft) {
  for (std::uint64_t seed = 1; seed <= 3; ++seed) {
    stopped_game played = world_cup_of(static_cast<int>(seed * 331 % 1024), seed);
    played.leaves_one_in = 6;
    played.one_stop_in = 41;
    EXPECT_GE(expect_copies_to_end_alike(played), 4);
  }
}

TEST_F(ResumedGame, AWorldCupEndsAlikeWhereTheUserQuits) {
  for (std::uint64_t seed = 1; seed <= 12; ++seed) {
    stopped_game played = world_cup_of(1, seed);
    played.leaves_one_in = 8;
    played.quits_one_in = 12;
    played.one_stop_in = 13;
    expect_copies_to_end_alike(played);
  }
}

// The knock-out alone, from the last list of the Super Six on.
TEST_F(ResumedGame, AKnockOutEndsAlikeFromEveryStop) {
  for (std::uint64_t seed = 1; seed <= 6; ++seed) {
    stopped_game played = world_cup_of(static_cast<int>(seed * 177 % 1024), seed);
    played.leaves_one_in = 6;
    played.filter = [](request kind, const game_state& game) {
      return game.world_cup.stage == cup_stage::knock_out && outside_play(kind, game);
    };
    EXPECT_GE(expect_copies_to_end_alike(played), 12) << "conditions, elevens and tables of three";
  }
}

TEST_F(ResumedGame, ASeriesEndsAlikeFromWithinItsMatches) {
  int copies = 0;
  for (std::uint64_t seed = 1; seed <= 4; ++seed) {
    stopped_game played = series_of(3, static_cast<int>(seed - 1), seed);
    played.filter = anywhere;
    played.one_stop_in = 31;
    copies += expect_copies_to_end_alike(played);
  }
  EXPECT_GE(copies, 240);
}

TEST_F(ResumedGame, ATriSeriesEndsAlikeFromWithinItsMatches) {
  int copies = 0;
  for (std::uint64_t seed = 1; seed <= 4; ++seed) {
    stopped_game played = tri_series_of(2, static_cast<int>(seed * 2 % 8), seed);
    played.filter = anywhere;
    played.leaves_one_in = 40;
    played.one_stop_in = 97;
    copies += expect_copies_to_end_alike(played);
  }
  EXPECT_GE(copies, 150);
}

TEST_F(ResumedGame, AWorldCupEndsAlikeFromWithinItsMatches) {
  for (std::uint64_t seed = 1; seed <= 2; ++seed) {
    stopped_game played = world_cup_of(static_cast<int>(seed * 331 % 1024), seed);
    played.filter = anywhere;
    played.one_stop_in = 997;
    EXPECT_GE(expect_copies_to_end_alike(played), 20);
  }
}

TEST_F(ResumedGame, ASeriesWithItsFilesEndsAlikeFromWithinItsMatches) {
  stopped_game played = series_of(2, 2, 4);
  played.through_files = true;
  played.filter = anywhere;
  played.one_stop_in = 67;
  EXPECT_GE(expect_copies_to_end_alike(played), 15);
}

TEST_F(ResumedGame, ACopyTellsNobodyOfItsWaits) {
  struct : turn_watcher {
    void turn_is_waited_for(const std::filesystem::path&, std::chrono::milliseconds) override {}
    void wait_is_over() override {}
  } watcher;
  game_state game;
  game.data.files.watcher = &watcher;
  EXPECT_EQ(own_copy(game).data.files.watcher, nullptr);
  EXPECT_EQ(game.data.files.watcher, &watcher);
}

TEST_F(ResumedGame, ACopySharesNothingThatChanges) {
  game_state first;
  first.data = data;
  first.chance.use_seed(9);
  const stopped_game played = series_of(1, 0, 9);
  const auto never = [](request, const game_state&) { return false; };
  stopping_user user(first, never, {});
  game_state second = own_copy(first);
  const std::string untouched = end_of(second);
  played.start(first, user);
  EXPECT_EQ(end_of(second), untouched);
  stopping_user other(second, never, {});
  played.start(second, other);
  EXPECT_EQ(end_of(second), end_of(first));
  EXPECT_EQ(other.lines(), user.lines());
}

}  // namespace
}  // namespace velorin::testing
