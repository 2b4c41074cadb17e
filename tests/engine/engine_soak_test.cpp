// SPDX-License-Identifier: GPL-3.0-or-later
// Many matches between elevens of all kinds, each checked after every ball, and all of it again by rules of its own.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "console/captain_forms.h"
#include "engine/over_play.h"
#include "headless/headless_user.h"
#include "model/random.h"
#include "support/game_in_play.h"
#include "support/referee.h"
#include "support/sample_match.h"
#include "support/soak_run.h"
#include "support/test_user.h"

namespace velorin::testing {
namespace {

using generator = std::mt19937;

int between(generator& any, int low, int high) { return std::uniform_int_distribution<int>(low, high)(any); }

/// An eleven with ratings from hopeless to legendary, roles and kinds of bowler at will, one keeper or two.
eleven any_eleven(generator& any, const std::string& prefix) {
  static const char* const roles[] = {"RH Opener", "LH Middle Order", "RH Middle Order", "RH Lower Order",
                                      "RH Unknown"};
  static const char* const kinds[] = {"Fast Bowler", "Medium Pacer", "spinner", "Wk", ""};
  eleven men;
  const int strength = between(any, 5, 60);
  for (int i = 1; i <= 11; ++i) {
    player_rec& man = men[i];
    man.name = prefix + std::to_string(i);
    man.bat_skill = std::max(1, strength + between(any, -20, 20));
    man.bowl_sr = static_cast<float>(between(any, 180, 900)) / 10;
    man.econ = static_cast<float>(between(any, 25, 90)) / 10;
    man.bat_type = roles[between(any, 0, 4)];
    man.bowler_type = kinds[between(any, 0, 4)];
  }
  for (int keepers = between(any, 1, 2); keepers > 0; --keepers) men[between(any, 1, 11)].is_keeper = flag_true;
  return men;
}

/// A user who watches, and, given a generator, chooses at will.
class watching_user : public test_user {
 public:
  referee* watch = nullptr;
  generator* any = nullptr;

  using headless_user::show;
  void ball_bowled() override { watch->watch_ball(); }
  void open(report) override { watch->watch_innings_end(); }

  void show(next_batsman_form& form) override {
    if (any == nullptr) return headless_user::show(form);
    form.choose(between(*any, match.next_batsman_slot + 1, 11));
    form.aggression = between(*any, 1, 5);
    form.accept();
  }
  void show(bowler_choice_form& form) override {
    if (any == nullptr) return headless_user::show(form);
    std::vector<int> rows;
    for (int row = 1; row <= 11; ++row) {
      if (form.enabled[row] && match.bowling_card[row].balls < 60) rows.push_back(row);
    }
    ASSERT_FALSE(rows.empty());
    form.choose(rows[static_cast<std::size_t>(between(*any, 0, static_cast<int>(rows.size()) - 1))]);
    form.accept();
  }
  void show(aggression_form& form) override {
    form.aggression = between(*any, 1, 5);
    form.accept();
  }
};

class Soak : public ::testing::Test {
 protected:
  void TearDown() override {
    match = match_state();
    chance.use_clock();
  }

  void set_up(int match_number, bool computer_bats, bool computer_bowls) {
    set_up_sample_match(computer_bats, computer_bowls);
    match.batting_xi = any_eleven(any_, "H.Bat");
    match.bowling_xi = any_eleven(any_, "A.Bowl");
    match.ground.pitch_bounce = between(any_, 1, 4);
    match.ground.pitch_surface = between(any_, 1, 4);
    match.weather = between(any_, 1, 4);
    match.outfield = between(any_, 1, 4);
    chance.use_seed(static_cast<std::uint64_t>(match_number));
  }

  generator any_{1983};
  watching_user user_;
  front_end_scope scope_{user_};
};

TEST_F(Soak, Unattended) {
  soak_run run(soak_matches(100000, 500));
  int without_result = 0;
  for (int number = 1; number <= run.matches(); ++number) {
    referee watch(number);
    user_.watch = &watch;
    set_up(number, true, true);
    open_console(in_play());
    ASSERT_EQ(match.over_no, 0) << "match " << number;
    without_result += match.result_margin.empty() ? 1 : 0;
    watch.watch_result(!match.result_margin.empty());
    ASSERT_EQ(watch.complaint(), "");
    run.after_match(watch.balls());
  }
  EXPECT_GT(run.balls(), 200L * run.matches());
  EXPECT_LE(without_result, run.matches() / 1000);
  EXPECT_EQ(run.growth(), "");
  run.report();
}

TEST_F(Soak, HumansAndComputersMixed) {
  user_.any = &any_;
  soak_run run(soak_matches(20000, 300));
  for (int number = 1; number <= run.matches(); ++number) {
    referee watch(number);
    user_.watch = &watch;
    set_up(number, number % 3 == 1, number % 3 == 2);
    open_console(in_play());
    console_form console(in_play());
    while (!console.closed()) {
      console.bowl_next_over();
      ASSERT_EQ(watch.complaint(), "");
      if (console.closed()) break;
      if (between(any_, 1, 4) == 1) console.change_bowler();
      console.change_batsman_aggression(between(any_, 0, 1));
      console.change_bowler_aggression(between(any_, 0, 1));
    }
    watch.watch_result(true);
    ASSERT_EQ(watch.complaint(), "");
    run.after_match(watch.balls());
  }
  EXPECT_EQ(run.growth(), "");
  run.report();
}

}  // namespace
}  // namespace velorin::testing
