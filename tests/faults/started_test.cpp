// SPDX-License-Identifier: GPL-3.0-or-later
// A program that is started without a standard descriptor, or whose files may not grow, fails in words: no signal ends
// it, and no file of the database stands where its output goes.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <thread>

#include "faults/acts.h"

namespace velorin::testing {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class Started : public ::testing::Test {
 protected:
  void SetUp() override {
    what_ = act_of("first_update");
    bench_.lay_out(what_.before);
  }

  /// Runs the act, or these words on its folder, without some standard descriptors.
  ending without(const std::vector<int>& closed, std::vector<std::string> words = {}) {
    act what = what_;
    if (!words.empty()) what.words = std::move(words);
    program started = what.on(bench_);
    started.prepare = [closed] {
      for (const int number : closed) ::close(number);
    };
    return bench_.run(started);
  }

  act what_;
  workbench bench_;
};

TEST_F(Started, WithoutAStandardDescriptorTheFilesAreThoseOfAnyRun) {
  const file_map done = after(what_, what_.before);
  for (const std::vector<int>& closed : {std::vector{0}, {1}, {2}, {0, 1, 2}}) {
    SCOPED_TRACE(closed.front() + 10 * static_cast<int>(closed.size()));
    bench_.lay_out(what_.before);
    EXPECT_EQ(without(closed).status, 0);
    EXPECT_TRUE(bench_.found() == done) << "something was printed into a file";
  }
}

TEST_F(Started, WithoutStandardOutputWhatIsToBePrintedIsAFailure) {
  for (const std::vector<int>& closed : {std::vector{1}, {0, 1}}) {
    const ending end = without(closed, {VELORIN_CLI, "--teams-dir", "@", "--seed", "7", "match"});
    EXPECT_EQ(end.status, 1);
    EXPECT_EQ(end.err, "velorin-cli: Standard output cannot be written: Bad file descriptor\n");
  }
}

TEST_F(Started, WithoutStandardErrorAFailureIsStillOne) {
  const ending end = without({2}, {VELORIN_CLI, "--teams-dir", "@", "--database", "nowhere", "match"});
  EXPECT_EQ(end.status, 1);
  EXPECT_TRUE(bench_.found() == what_.before);
}

TEST_F(Started, AFileBeyondTheLimitIsAFailureInWords) {
  program started = what_.on(bench_);
  started.prepare = [] {
    std::signal(SIGXFSZ, SIG_DFL);
    const rlimit limit{1000, 1000};
    ::setrlimit(RLIMIT_FSIZE, &limit);
  };
  const ending end = bench_.run(started);
  EXPECT_EQ(end.signal, 0);
  EXPECT_EQ(end.status, 1);
  EXPECT_THAT(end.err, HasSubstr("The file cannot be written: File too large (file small.rec)"));
  EXPECT_TRUE(bench_.found() == what_.before);
}

TEST_F(Started, BehindAnotherProgramItSaysInALineWhatItWaitsFor) {
  const std::filesystem::path folder = bench_.beside("two\nlines");
  std::filesystem::copy(bench_.data(), folder);
  const int lock = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  ASSERT_GE(lock, 0);
  ASSERT_EQ(::flock(lock, LOCK_EX), 0);
  program waiting = what_.on(bench_);
  waiting.line = {VELORIN_CLI, "--teams-dir", folder.string(), "--database", "small",
                  "--seed",    "7",           "match",         "--update",   "--quiet"};
  const pid_t process = bench_.start(waiting);
  std::this_thread::sleep_for(std::chrono::seconds(3));
  ::close(lock);
  const ending end = bench_.end_of(process);
  EXPECT_EQ(end.status, 0);
  EXPECT_THAT(end.err, StartsWith("velorin-cli: Waiting for another program that works on the files in "));
  EXPECT_THAT(end.err, EndsWith("/two?lines ...\n"));
  EXPECT_EQ(std::count(end.err.begin(), end.err.end(), '\n'), 1) << end.err;
}

}  // namespace
}  // namespace velorin::testing
