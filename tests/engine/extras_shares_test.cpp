// SPDX-License-Identifier: GPL-3.0-or-later
// What leg byes and byes bring, in whole matches.
#include <gtest/gtest.h>

#include <array>
#include <string>

#include "engine/delivery_model.h"
#include "engine/over_play.h"
#include "headless/headless_user.h"
#include "model/random.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"
#include "support/shares.h"
#include "support/test_user.h"

namespace velorin::testing {
namespace {

// Only one delivery in sixty is of use here, and the checks of a match after each ball take long.
#ifdef NDEBUG
constexpr int wanted = sample_size;
#else
constexpr int wanted = sample_size / 2;
#endif

/// Counts the runs that each delivery off the body brought.
class extras_watcher : public test_user {
 public:
  std::array<int, 7> leg_bye_runs{};
  std::array<int, 7> bye_runs{};
  int drawn = 0;

  using headless_user::show;
  void ball_bowled() override {
    if (match.ball_outcome == leg_byes) count(leg_bye_runs, match.innings_leg_byes - leg_byes_before_);
    if (match.ball_outcome == byes) count(bye_runs, match.innings_byes - byes_before_);
    leg_byes_before_ = match.innings_leg_byes;
    byes_before_ = match.innings_byes;
  }
  void open(report) override { leg_byes_before_ = byes_before_ = 0; }

 private:
  void count(std::array<int, 7>& runs, int brought) {
    ASSERT_TRUE(brought >= 1 && brought <= 4) << brought;
    ++runs[static_cast<std::size_t>(brought)];
    ++drawn;
  }

  int leg_byes_before_ = 0;
  int byes_before_ = 0;
};

TEST(ExtrasShares, OneToFourRunsComeAlike) {
  extras_watcher watcher;
  const front_end_scope scope(watcher);
  for (int number = 1; watcher.drawn < wanted && !::testing::Test::HasFailure(); ++number) {
    set_up_sample_match();
    for (eleven* men : {&match.batting_xi, &match.bowling_xi}) {
      for (int i = 1; i <= 11; ++i) {
        (*men)[i].bat_skill = 90;
        (*men)[i].econ = 11;
      }
    }
    chance.use_seed(static_cast<std::uint64_t>(number));
    open_console(in_play());
  }
  share_check shares;
  for (const auto* runs : {&watcher.leg_bye_runs, &watcher.bye_runs}) {
    const int all = (*runs)[1] + (*runs)[2] + (*runs)[3] + (*runs)[4];
    EXPECT_GT(all, wanted / 4);
    const std::string kind = runs == &watcher.bye_runs ? "byes" : "leg byes";
    for (std::size_t n = 1; n <= 4; ++n) shares.cell(kind + " of " + std::to_string(n), (*runs)[n], 0.25, all);
  }
  EXPECT_EQ(shares.strays(), "");
  shares.report("leg byes and byes", watcher.drawn);
  match = match_state();
  chance.use_clock();
}

}  // namespace
}  // namespace velorin::testing
