// SPDX-License-Identifier: GPL-3.0-or-later
// On a file system with a coarse clock two changes of a file may show the same times.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <thread>

#include "database/database_fixture.h"
#include "database/slots.h"
#include "database/teams_file.h"
#include "support/game_in_play.h"

namespace {

constexpr long tick = 40'000'000;  ///< nanoseconds

}  // namespace

/// In place of the library's: what it tells, with the times as a coarse clock would have them.
extern "C" int stat(const char* name, struct stat* facts) noexcept {
  const int result = ::fstatat(AT_FDCWD, name, facts, 0);
  if (result == 0) {
    facts->st_mtim.tv_nsec -= facts->st_mtim.tv_nsec % tick;
    facts->st_ctim.tv_nsec -= facts->st_ctim.tv_nsec % tick;
  }
  return result;
}

namespace velorin {
namespace {

using CoarseClock = testing::database_fixture;

/// The time of a file's last change as the coarse clock shows it.
long tick_of(const std::filesystem::path& file) {
  struct stat facts {};
  EXPECT_EQ(::stat(file.c_str(), &facts), 0);
  return facts.st_ctim.tv_sec * (1'000'000'000 / tick) + facts.st_ctim.tv_nsec / tick;
}

TEST_F(CoarseClock, AFileChangedTwiceWithinATickIsReadAgain) {
  constexpr int enough = 12;
  constexpr off_t first_letter = 1500 + 2;
  team_rec team;
  team.team_name = "A";
  slot_file teams({}, team_slot, "x");
  teams.put(1, encoded_field(integer(1)), {});
  teams.put(2, encoded(team), {});
  testing::write_bytes(data.files.team_file, teams.bytes());
  const descriptor file(open_file(data.files.team_file, O_WRONLY));
  ASSERT_TRUE(file.open());
  int within = 0;
  for (int i = 0; i < 400 && within < enough; ++i) {
    ASSERT_EQ(::pwrite(file.number(), "B", 1, first_letter), 1);
    const long changed = tick_of(data.files.team_file);
    // Some reads come a while behind the change, though within its tick.
    std::this_thread::sleep_for(std::chrono::milliseconds(i % 4 * 9));
    ASSERT_EQ(read_team_list(data)[0].team_name, "B");
    ASSERT_EQ(::pwrite(file.number(), "C", 1, first_letter), 1);
    if (tick_of(data.files.team_file) == changed) ++within;
    ASSERT_EQ(read_team_list(data)[0].team_name, "C") << within << " changes within a tick";
  }
  EXPECT_EQ(within, enough);
}

}  // namespace
}  // namespace velorin
