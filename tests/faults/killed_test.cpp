// SPDX-License-Identifier: GPL-3.0-or-later
// A program that is killed at the entry or at the exit of any call of the system leaves old files or new ones, and the
// next run works.
#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <iostream>

#include "faults/acts.h"
#include "faults/traced_run.h"

namespace velorin::testing {
namespace {

namespace fs = std::filesystem;

constexpr long archive_stops_passed_over = 12;

class Killed : public ::testing::TestWithParam<std::string> {
 protected:
  void SetUp() override {
    what_ = act_of(GetParam());
    new_ = after(what_, what_.before);
    next_[what_.before] = new_;
  }

  /// Kills the program at the n-th stop. False if it has come to its end before.
  bool kill_at(long n) {
    bench_.lay_out(what_.before);
    traced_run run(bench_, what_.on(bench_));
    if (!run.refused().empty()) {
      refused_ = run.refused();
      return false;
    }
    for (long stop = 1; stop <= n; ++stop) {
      if (run.next()) continue;
      const ending end = run.end();
      EXPECT_EQ(end.status, 0) << end.err;
      EXPECT_EQ(bench_.found(), new_);
      return false;
    }
    EXPECT_TRUE(run.kill());
    EXPECT_EQ(run.end().signal, SIGKILL);
    return true;
  }

  bool is_known(const std::string& name) const { return what_.before.contains(name) || new_.contains(name); }

  /// Each file is the old one or the new one. Sets `clean_` to them.
  void judge_files() {
    const file_map as_left = bench_.found();
    const file_map found = what_.settled(as_left);
    clean_.clear();
    int changed = 0;
    int left = 0;
    for (const auto& [name, bytes] : as_left) {
      if (is_known(name)) continue;
      EXPECT_TRUE(what_.may_leave(name)) << name;
      ++left;
    }
    for (const auto& [name, bytes] : found) {
      if (!is_known(name)) continue;
      clean_[name] = bytes;
      const bool is_old = what_.before.contains(name) && what_.before.at(name) == bytes;
      EXPECT_TRUE(is_old || (new_.contains(name) && new_.at(name) == bytes))
          << name << " is neither the old file nor the new one: " << bytes.size() << " bytes";
    }
    for (const auto& [name, bytes] : what_.before) EXPECT_TRUE(found.contains(name)) << name << " is gone";
    for (const std::string& name : what_.writes) {
      if (!what_.before.contains(name) ? found.contains(name)
                                       : found.contains(name) && found.at(name) != what_.before.at(name)) {
        ++changed;
      }
    }
    if (found != as_left) ++torn_;
    if (changed != 0 && changed != static_cast<int>(what_.writes.size())) {
      ++torn_;
      if (!what_.apart) clean_ = new_;  // the next run begins with finishing the work
    }
    if (left != 0) ++with_left_over_;
    waits_ = what_.archived && changed == static_cast<int>(what_.writes.size()) &&
             !std::filesystem::exists(bench_.data() / "small.waiting.next");
  }

  /// The same act works, and takes away what a replacement has left.
  void run_again() {
    if (!next_.contains(clean_)) next_[clean_] = after(what_, clean_);
    const ending end = bench_.run(what_.on(bench_));
    EXPECT_EQ(end.status, 0) << end.err;
    file_map now = bench_.found();
    if (what_.exports) std::erase_if(now, [&](const auto& file) { return what_.may_leave(file.first); });
    EXPECT_TRUE(now == next_[clean_]) << "the next run does not do its work";
    if (!what_.archived) return;
    const ending sound = archive_check(bench_);
    EXPECT_EQ(sound.status, 0) << sound.out << sound.err;
  }

  workbench bench_;
  act what_;
  file_map new_;
  file_map clean_;
  std::map<file_map, file_map> next_;
  std::string refused_;
  bool waits_ = false;      // all is new, and the archive is to take in what waits
  int torn_ = 0;            // kills that left files partly renamed
  int with_left_over_ = 0;  // kills that left a file beside
};

TEST_P(Killed, AtEachCallLeavesOldFilesOrNewOnes) {
  long kills = 0;
  for (long stop = 1; kill_at(stop); ++stop, ++kills) {
    SCOPED_TRACE(GetParam() + ": killed at stop " + std::to_string(stop));
    judge_files();
    run_again();
    if (HasFailure()) break;
    // Behind the last renaming the archive makes hundreds of calls, in one transaction.
    if (waits_) stop += archive_stops_passed_over;
  }
  if (!refused_.empty()) GTEST_SKIP() << refused_;
  EXPECT_GT(kills, 100);
  EXPECT_GT(with_left_over_, 0) << "no kill met a file half written";
  // Files that belong together are partly renamed only between two renames: at the exit of the one and at the entry of
  // the next.
  const int renames = static_cast<int>(what_.writes.size()) + (what_.spare.empty() ? 0 : 1);
  if (!what_.apart) {
    EXPECT_EQ(torn_, 2 * (renames - 1));
  }
  RecordProperty("kills", std::to_string(kills));
  RecordProperty("kills that left a file beside", with_left_over_);
  RecordProperty("kills that left some files renamed and some not", torn_);
  std::cout << GetParam() << ": " << kills << " kills, " << with_left_over_ << " of them left a file beside, " << torn_
            << " left some files renamed and some not\n";
}

INSTANTIATE_TEST_SUITE_P(Acts, Killed, ::testing::ValuesIn(act_names()), [](const auto& of) { return of.param; });

}  // namespace
}  // namespace velorin::testing
