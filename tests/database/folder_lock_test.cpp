// SPDX-License-Identifier: GPL-3.0-or-later
// The turns of programs at a folder, and how long one waits for them.
#include "database/folder_lock.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <thread>
#include <vector>

#include "database/database_fixture.h"
#include "database/whole_file.h"

namespace velorin {
namespace {

using ::testing::ElementsAre;
using testing::error_of;
using ::testing::HasSubstr;
using testing::names_in;
using clock = std::chrono::steady_clock;

/// A folder that is locked while this lives, as by another program.
class other_program {
 public:
  explicit other_program(const std::filesystem::path& folder) : folder_(open_file(folder, O_RDONLY | O_DIRECTORY)) {
    EXPECT_EQ(::flock(folder_.number(), LOCK_EX), 0);
  }
  void set_free() { folder_.close(); }

 private:
  descriptor folder_;
};

/// Keeps what it is told, and may raise something.
class noting_watcher : public turn_watcher {
 public:
  void turn_is_waited_for(const std::filesystem::path& folder, std::chrono::milliseconds so_far) override {
    waited_for = folder;
    last = so_far;
    ++told;
    if (act) act();
  }
  void wait_is_over() override { ++over; }

  std::filesystem::path waited_for;
  std::chrono::milliseconds last{};
  int told = 0;
  int over = 0;
  std::function<void()> act;
};

class FolderLock : public testing::database_fixture {
 protected:
  noting_watcher watcher_;
};

TEST_F(FolderLock, OneWaitsWhileAnotherHoldsTheFolder) {
  int ready[2];
  ASSERT_EQ(::pipe(ready), 0);
  const pid_t child = ::fork();
  if (child == 0) {
    const folder_lock turn(folder / "f", &watcher_);
    if (::write(ready[1], "x", 1) != 1) ::_exit(1);
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    create_if_missing(folder / "done");  // the last act before the end gives the folder free
    ::_exit(0);
  }
  char signal = 0;
  ASSERT_EQ(::read(ready[0], &signal, 1), 1);
  {
    const folder_lock turn(folder / "f", &watcher_);
    EXPECT_THAT(names_in(folder), ElementsAre("done"));
  }
  int status = -1;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  EXPECT_EQ(status, 0);
  ::close(ready[0]);
  ::close(ready[1]);
}

TEST_F(FolderLock, ThreadsOfOneProgramExcludeEachOther) {
  std::atomic<int> inside = 0;
  std::atomic<int> turns = 0;
  std::atomic<bool> met = false;
  {
    std::vector<std::jthread> threads;
    for (int i = 0; i < 4; ++i) {
      threads.emplace_back([&] {
        for (int round = 0; round < 25; ++round) {
          const folder_lock turn(folder / "f", nullptr);
          if (++inside != 1) met = true;
          std::this_thread::sleep_for(std::chrono::microseconds(200));
          --inside;
          ++turns;
        }
      });
    }
  }
  EXPECT_FALSE(met);
  EXPECT_EQ(turns, 100);
}

TEST_F(FolderLock, WaitsNoLongerThanTenSeconds) {
  const other_program stopped(folder);
  const auto start = clock::now();
  const auto error = error_of([&] { const folder_lock turn(folder / "f", &watcher_); });
  const auto waited = clock::now() - start;
  EXPECT_GE(waited, std::chrono::milliseconds(9900));
  EXPECT_LT(waited, std::chrono::seconds(13));
  EXPECT_EQ(error.kind(), failure::file);
  EXPECT_EQ(std::string(error.what()),
            "Another program has kept the folder " + folder.string() + " locked for 10 seconds (file f)");
  EXPECT_EQ(watcher_.waited_for, folder);
  EXPECT_GT(watcher_.told, 50) << "a screen is kept alive by it";
  EXPECT_GT(watcher_.last, std::chrono::milliseconds(9000));
  EXPECT_EQ(watcher_.over, 1);
}

TEST_F(FolderLock, TellsNobodyWhereNoTurnIsWaitedFor) {
  { const folder_lock turn(folder / "f", &watcher_); }
  { const folder_lock turn(folder / "f", &watcher_); }
  EXPECT_EQ(watcher_.told, 0);
  EXPECT_EQ(watcher_.over, 0);
}

TEST_F(FolderLock, TakesItsTurnAsSoonAsItCan) {
  other_program other(folder);
  watcher_.act = [&] { other.set_free(); };
  const auto start = clock::now();
  const folder_lock turn(folder / "f", &watcher_);
  EXPECT_LT(clock::now() - start, std::chrono::seconds(3));
  EXPECT_EQ(watcher_.over, 1);
  const descriptor probe(open_file(folder, O_RDONLY | O_DIRECTORY));
  EXPECT_NE(::flock(probe.number(), LOCK_EX | LOCK_NB), 0) << "the turn is held";
}

// Nobody holds the folder behind the back of one who has given up.
TEST_F(FolderLock, ATurnThatCameTooLateIsGivenBack) {
  other_program other(folder);
  struct enough {};
  watcher_.act = [] { throw enough(); };
  EXPECT_THROW(const folder_lock turn(folder / "f", &watcher_), enough);
  EXPECT_EQ(watcher_.over, 1);
  other.set_free();
  watcher_.act = {};
  const auto start = clock::now();
  const folder_lock turn(folder / "f", &watcher_);
  EXPECT_LT(clock::now() - start, std::chrono::seconds(3));
}

}  // namespace
}  // namespace velorin
