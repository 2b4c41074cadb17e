// SPDX-License-Identifier: GPL-3.0-or-later
// A program that is killed at any moment leaves archive, careers and records that agree.
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <random>
#include <thread>

#include "archive/archive_fixture.h"

namespace velorin::testing {
namespace {

using ::testing::IsEmpty;

// The woven-in checks of a sanitizer make each match take its time.
#ifdef VELORIN_SANITIZED
constexpr int kills = 20;
constexpr unsigned longest_life = 400'000;  // microseconds
#else
constexpr int kills = 60;
constexpr unsigned longest_life = 60'000;
#endif

class ArchiveKill : public ArchiveTest {};

TEST_F(ArchiveKill, ACheckWhileMatchesAreAddedFindsNoDifference) {
  play("1", 1);
  const pid_t child = ::fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    run({"match", "--update", "--matches", "1000000", "--quiet"});
    ::_exit(1);
  }
  long first = 0;
  long last = 0;
  for (int i = 0; i < 20 && !HasFailure(); ++i) {
    const archive_findings found = check_archive(files());
    EXPECT_THAT(found.differences, IsEmpty()) << "at check " << i;
    if (i == 0) first = found.matches;
    last = found.matches;
  }
  ::kill(child, SIGKILL);
  ::waitpid(child, nullptr, 0);
  EXPECT_GT(last, first) << "nothing was added meanwhile";
}

TEST_F(ArchiveKill, ArchiveCareersAndRecordsAgreeBehindAKill) {
  std::mt19937 spread(1);
  long matches = 0;
  for (int i = 0; i < kills; ++i) {
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      run({"match", "--update", "--matches", "1000000", "--quiet"});
      ::_exit(1);
    }
    std::this_thread::sleep_for(std::chrono::microseconds(5000 + spread() % longest_life));
    ::kill(child, SIGKILL);
    int status = 0;
    ::waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status)) << "the program has ended by itself";
    if (!std::filesystem::exists(archive_path(files())) && !std::filesystem::exists(waiting_file(files()))) continue;
    const archive_findings found = check_archive(files());
    ASSERT_THAT(found.differences, IsEmpty()) << "behind kill " << i;
    ASSERT_GE(found.matches, matches);
    matches = found.matches;
  }
  EXPECT_GT(matches, kills / 4);
}

}  // namespace
}  // namespace velorin::testing
