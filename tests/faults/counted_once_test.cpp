// SPDX-License-Identifier: GPL-3.0-or-later
// A match with a name counts once, wherever the program that adds it is killed: whoever adds it again finds out.
#include <gtest/gtest.h>

#include <csignal>
#include <iostream>

#include "faults/acts.h"
#include "faults/traced_run.h"

namespace velorin::testing {
namespace {

class CountedOnce : public ::testing::Test {
 protected:
  program updater() const { return {{VELORIN_COUNTING_UPDATER, bench_.data().string()}, {}, {}}; }

  /// The files after an undisturbed update of these.
  file_map updated(const file_map& before) {
    bench_.lay_out(before);
    const ending end = bench_.run(updater());
    EXPECT_EQ(end.status, 0) << end.err;
    return bench_.found();
  }

  workbench bench_;
};

TEST_F(CountedOnce, WhoeverAddsItAgainAddsNothing) {
  const file_map once = updated(act_of("update").before);
  EXPECT_EQ(once.at("small.counted"), "the-match-1\n");
  EXPECT_TRUE(updated(once) == once);
}

TEST_F(CountedOnce, WhereverTheProgramIsKilled) {
  const file_map before = act_of("update").before;
  const file_map once = updated(before);
  ASSERT_NE(once.at("small.rec"), before.at("small.rec"));
  long kills = 0;
  int done = 0;
  for (bool killed = true; killed && !HasFailure();) {
    bench_.lay_out(before);
    traced_run run(bench_, updater());
    if (!run.refused().empty()) GTEST_SKIP() << run.refused();
    for (long stop = 0; stop <= kills && killed; ++stop) killed = run.next().has_value();
    if (!killed) {
      EXPECT_EQ(run.end().status, 0);
      break;
    }
    ASSERT_TRUE(run.kill());
    EXPECT_EQ(run.end().signal, SIGKILL);
    ++kills;
    done += bench_.found().at("small.rec") == once.at("small.rec") ? 1 : 0;
    const ending again = bench_.run(updater());
    EXPECT_EQ(again.status, 0) << again.err;
    EXPECT_TRUE(bench_.found() == once) << "killed at stop " << kills << ", then added again";
  }
  EXPECT_GT(kills, 100);
  EXPECT_GT(done, 4) << "some kills come when the careers are new";
  std::cout << kills << " kills, " << done << " of them with the careers in place\n";
}

}  // namespace
}  // namespace velorin::testing
