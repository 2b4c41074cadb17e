// SPDX-License-Identifier: GPL-3.0-or-later
#include <fmt/format.h>
#include <gmock/gmock.h>

#include <random>

#include "browsers/figures_fixture.h"
#include "browsers/held_key_reference.h"
#include "browsers/player_pool.h"
#include "browsers/player_rankings.h"
#include "support/game_in_play.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;

class HeldKeys : public figures_fixture {
 protected:
  std::vector<std::string> names(int record_mode, const std::string& team = {}) const {
    write();
    player_rankings_form form(data);
    form.open(record_mode, team);
    return column(form.table, "Player");
  }
};

/// A man with an average of `average`, or with runs and no dismissal for 0.
career_rec averaging(const std::string& name, int average) {
  return average != 0 ? batsman(name, 1, 0, average, 1) : batsman(name, 1, 1, 70, 1);
}

/// A bowler who gives `runs` an over, or one who never bowled for 0.
career_rec giving(const std::string& name, int runs) { return bowler(name, runs != 0 ? 6 : 0, runs, 0); }

// A man without a key has the key last held in his place of the comparison. The comparisons stand behind each case: the
// two held keys, and whether the two men change places.

TEST_F(HeldKeys, NeverDismissedFirstInThePoolHeHoldsNothing) {
  add("Alba", averaging("A.Stayer", 0));
  add("Alba", averaging("A.Fifty", 50));
  add("Alba", averaging("A.Thirty", 30));
  // 0:50 change, 0:30 change, then 50:30.
  EXPECT_THAT(names(1), ElementsAre("A.Fifty", "A.Thirty", "A.Stayer"));
  EXPECT_THAT(names(8, "Alba"), ElementsAre("A.Fifty", "A.Thirty", "A.Stayer"));
}

TEST_F(HeldKeys, NeverDismissedInTheMiddleHeHoldsHisForerunnersAverage) {
  add("Alba", averaging("A.Fifty", 50));
  add("Alba", averaging("A.Stayer", 0));
  add("Alba", averaging("A.Thirty", 30));
  // 50:0, 50:30, then 50:30.
  EXPECT_THAT(names(1), ElementsAre("A.Fifty", "A.Stayer", "A.Thirty"));
}

TEST_F(HeldKeys, NeverDismissedHeGivesWayToWhoBeatsTheHeldAverage) {
  add("Alba", averaging("A.Fifty", 50));
  add("Alba", averaging("A.Thirty", 30));
  add("Alba", averaging("A.Stayer", 0));
  add("Alba", averaging("A.Forty", 40));
  // 50:30, 30:30, 30:40 change; 50:30, 30:40 change; 50:40.
  EXPECT_THAT(names(1), ElementsAre("A.Fifty", "A.Forty", "A.Thirty", "A.Stayer"));
}

TEST_F(HeldKeys, TheKeyOfTheSecondPlaceIsHeldApart) {
  add("Alba", averaging("A.Twenty", 20));
  add("Alba", averaging("A.Sixty", 60));
  add("Alba", averaging("A.Stayer", 0));
  // 20:60 change; then Twenty's 20 against the second place's 60: change; 60 against the held 60.
  EXPECT_THAT(names(1), ElementsAre("A.Sixty", "A.Stayer", "A.Twenty"));
}

TEST_F(HeldKeys, ABowlerWhoNeverBowledLeadsFromTheTopOfThePool) {
  add("Alba", giving("A.Keeper", 0));
  add("Alba", giving("A.Five", 5));
  EXPECT_THAT(names(6), ElementsAre("A.Keeper", "A.Five"));  // 0:5
}

TEST_F(HeldKeys, ABowlerWhoNeverBowledLeadsFromSecondPlaceToo) {
  add("Alba", giving("A.Five", 5));
  add("Alba", giving("A.Keeper", 0));
  EXPECT_THAT(names(6), ElementsAre("A.Keeper", "A.Five"));  // 5:0 change
}

TEST_F(HeldKeys, ABowlerWhoNeverBowledStandsInTheMiddleToo) {
  add("Alba", giving("A.Four", 4));
  add("Alba", giving("A.Six", 6));
  add("Alba", giving("A.Keeper", 0));
  add("Alba", giving("A.Five", 5));
  // 4:6, 6:6, 6:5 change; 4:6, 6:5 change; 4:5.
  EXPECT_THAT(names(6), ElementsAre("A.Four", "A.Five", "A.Six", "A.Keeper"));
}

TEST_F(HeldKeys, ABowlerWithoutAWicketHoldsTheAverageBeforeHim) {
  add("Alba", bowler("A.Thirty", 60, 30, 1));
  add("Alba", bowler("A.Forty", 60, 40, 1));
  add("Alba", bowler("A.Nobody", 60, 10, 0));
  add("Alba", bowler("A.Fifty", 60, 50, 1));
  // 30:40, 40:40, 40:50; 30:40, 40:40; 30:40.
  EXPECT_THAT(names(7), ElementsAre("A.Thirty", "A.Forty", "A.Nobody", "A.Fifty"));
}

TEST_F(HeldKeys, EachOpeningStartsFromNothingHeld) {
  add("Alba", averaging("A.Stayer", 0));
  add("Alba", averaging("A.Ten", 10));
  write();
  player_rankings_form form(data);
  for (int time = 0; time < 2; ++time) {
    form.open(1);
    EXPECT_THAT(column(form.table, "Player"), ElementsAre("A.Ten", "A.Stayer"));
  }
}

// Random tables against the same search written out step by step.

class RandomTables : public HeldKeys {
 protected:
  int below(int limit) { return static_cast<int>(draws_() % static_cast<unsigned>(limit)); }

  /// Figures small enough for ties and for men without a key.
  career_rec random_man(int number) {
    career_rec man = batsman(fmt::format("Man{}", number), below(4), 0, below(60), below(3) * 20);
    man.not_outs = below(man.innings + 1);
    man.fifties = below(3);
    man.hundreds = below(2);
    man.balls_bowled = below(3) * 6;
    man.runs_given = below(30);
    man.wickets = below(4);
    return man;
  }
  std::vector<career_rec> random_pool(int size) {
    std::vector<career_rec> pool;
    for (int i = 0; i < size; ++i) pool.push_back(random_man(i));
    return pool;
  }

 private:
  std::mt19937 draws_{20030323};
};

TEST_F(RandomTables, AreShownInTheOrderOfTheDescription) {
  for (int round = 0; round < 40; ++round) {
    careers = career_table();
    const std::vector<career_rec> pool = random_pool(below(60));
    for (std::size_t i = 0; i < pool.size(); ++i) add(i < 20 ? "Alba" : i < 40 ? "Tamar" : "Umbria", pool[i]);
    write();
    for (int mode = 1; mode <= 9; ++mode) {
      const bool one_team = mode >= 8;
      const std::vector<career_rec> taken(
          pool.begin(), one_team ? pool.begin() + std::min<std::ptrdiff_t>(20, std::ssize(pool)) : pool.end());
      std::vector<std::string> expected;
      for (const int man : reference_order(taken, mode)) {
        if (expected.size() < 15) expected.push_back(taken[man].name);
      }
      player_rankings_form form(data);
      form.open(mode, "Alba");
      ASSERT_EQ(column(form.table, "Player"), expected) << "round " << round << ", mode " << mode;
    }
  }
}

TEST_F(RandomTables, AreSortedAsDescribedToTheLastMan) {
  const std::vector<std::pair<int, std::pair<career_key, sort_order>>> keys = {
      {1, {batting_average, sort_order::descending}},
      {3, {batting_strike_rate, sort_order::descending}},
      {4, {fifty_plus_rate, sort_order::descending}},
      {6, {economy_rate, sort_order::ascending}},
      {7, {bowling_average, sort_order::ascending}}};
  int moved = 0;
  for (int round = 0; round < 400; ++round) {
    const std::vector<career_rec> men = random_pool(below(50));
    for (const auto& [mode, key] : keys) {
      player_pool pool;
      for (const career_rec& man : men) pool.push_back(&man);
      sort_by_held_keys(pool, key.first, key.second);
      const std::vector<int> expected = reference_order(men, mode);
      for (std::size_t i = 0; i < men.size(); ++i) {
        ASSERT_EQ(pool[i], &men[expected[i]]) << "round " << round << ", mode " << mode << ", place " << i + 1;
        moved += pool[i] != &men[i] ? 1 : 0;
      }
    }
  }
  EXPECT_GT(moved, 1000);
}

}  // namespace
}  // namespace velorin::testing
