// SPDX-License-Identifier: GPL-3.0-or-later
// A save that has failed and is tried again is done once: no match is added twice, no exchange is undone.
#include <gtest/gtest.h>

#include <iostream>

#include "faults/program.h"

namespace velorin::testing {
namespace {

class Retried : public ::testing::TestWithParam<const char*> {
 protected:
  ending run_with(const std::string& faults) {
    program started{{VELORIN_RETRYING_SAVER, bench_.data().string(), GetParam()}, {}, {}};
    if (!faults.empty()) {
      started.environment = {"LD_PRELOAD=" VELORIN_FAULT_PRELOAD, "VELORIN_FAULT_FOLDER=" + bench_.data().string(),
                             "VELORIN_FAULT_NOTES=" + bench_.beside("notes").string(), "VELORIN_FAULT=" + faults};
    }
    return bench_.run(started);
  }

  void lay_out_before() {
    bench_.lay_out({{"team1r.txt", "one"}, {"team2r.txt", "other"}});
    if (GetParam() == std::string("match")) {
      ASSERT_EQ(run_with({}).status, 0);
    }
    before_ = bench_.found();
  }

  workbench bench_;
  file_map before_;
};

TEST_P(Retried, ItIsDoneOnce) {
  lay_out_before();
  ASSERT_EQ(run_with({}).status, 0);
  const file_map after = bench_.found();
  ASSERT_NE(after, before_);
  int tried_again = 0;
  const auto expect_done = [&](const std::string& faults) {
    SCOPED_TRACE(faults);
    bench_.lay_out(before_);
    const ending end = run_with(faults);
    EXPECT_EQ(end.status, 0) << end.err;
    EXPECT_TRUE(bench_.found() == after) << end.err;
    if (!end.err.empty()) ++tried_again;
    return !end.err.empty();
  };
  for (const char* kind : {"open", "write", "sync", "rename", "close", "lock", "stat"}) {
    for (int n = 1; n <= 12; ++n) expect_done(kind + (":" + std::to_string(n)) + ":5");
  }
  // Neither the second renaming nor taking back the first succeeds.
  EXPECT_TRUE(expect_done("rename:2:5,rename:3:5"));
  expect_done("rename:3:5,rename:4:5");
  RecordProperty("tried_again", tried_again);
  std::cout << GetParam() << ": " << tried_again << " tried again\n";
  EXPECT_GT(tried_again, 4);
}

INSTANTIATE_TEST_SUITE_P(Saves, Retried, ::testing::Values("match", "exchange"),
                         [](const auto& of) { return of.param; });

}  // namespace
}  // namespace velorin::testing
