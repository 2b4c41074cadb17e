// SPDX-License-Identifier: GPL-3.0-or-later
// A program that is killed at any moment of an update leaves the old file or the new one.
#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <random>
#include <thread>
#include <utility>

#include "database/career_update.h"
#include "database/database_fixture.h"
#include "database/lasting_records.h"
#include "database/world.h"
#include "support/game_in_play.h"

namespace velorin {
namespace {

using testing::bytes_of;

/// Kills in a test run. The environment variable VELORIN_KILLS asks for another number.
constexpr int usual_kills = 150;
constexpr int longest_life = 5;  ///< updates that a child may make until a kill

int kills() {
  const char* const asked = std::getenv("VELORIN_KILLS");
  return asked == nullptr ? usual_kills : std::atoi(asked);
}

/// The two files after a number of matches, as an undisturbed program writes them.
class undisturbed_files {
 public:
  explicit undisturbed_files(const std::filesystem::path& folder) : files_(database_paths(folder, "base")) {}

  /// True if the content is that of the file after 0, 1, 2 ... matches; looks from the last hit on.
  bool has_career_file(const std::string& content) {
    return find(content, files_.career_file, career_file_, [] { update_career(match, data); });
  }
  bool has_record_file(const std::string& content) {
    return find(content, files_.record_file, record_file_, [] { update_records(match, data); });
  }

 private:
  static constexpr int most_ahead = 2000;

  template <typename Update>
  bool find(const std::string& content, const std::filesystem::path& file, std::string& last, Update update) {
    const database_files in_use = data.files;
    data.files = files_;
    int tries = 0;
    while (last != content && ++tries < most_ahead) {
      update();
      last = bytes_of(file);
    }
    data.files = in_use;
    return last == content;
  }

  database_files files_;
  std::string career_file_;
  std::string record_file_;
};

class Kill : public testing::database_fixture {
 protected:
  /// Microseconds, at least 1.
  long time_of_an_update() const {
    constexpr int updates = 20;
    const database_files in_use = std::exchange(data.files, database_paths(folder, "timed"));
    const auto start = std::chrono::steady_clock::now();
    for (int made = 0; made < updates; ++made) update_career_and_records(match, data);
    const auto taken = std::chrono::steady_clock::now() - start;
    data.files = in_use;
    return std::chrono::duration_cast<std::chrono::microseconds>(taken).count() / updates + 1;
  }
};

/// The child of a round: it plays the same match until it is killed.
[[noreturn]] void play_on() {
  try {
    for (;;) update_career_and_records(match, data);
  } catch (const run_time_error&) {
    ::_exit(1);
  }
}

TEST_F(Kill, LeavesTheOldFileOrTheNewOne) {
  testing::set_up_finished_match();
  std::filesystem::create_directory(folder / "game");
  std::filesystem::create_directory(folder / "undisturbed");
  data.files = database_paths(folder / "game", "base");
  undisturbed_files expected(folder / "undisturbed");
  std::mt19937 random(20240229);
  const long microseconds = longest_life * time_of_an_update();
  int left_behind = 0;
  int updated = 0;
  std::string last;
  const int rounds = kills();
  for (int round = 0; round < rounds; ++round) {
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) play_on();
    std::this_thread::sleep_for(std::chrono::microseconds(random() % microseconds));
    ASSERT_EQ(::kill(child, SIGKILL), 0);
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status)) << "the child ended by itself, with " << WEXITSTATUS(status);

    for (const auto& entry : std::filesystem::directory_iterator(folder / "game")) {
      if (entry.path().extension() == ".new" || entry.path().extension() == ".next") ++left_behind;
    }
    const std::string career_file =
        std::filesystem::exists(data.files.career_file) ? bytes_of(data.files.career_file) : "";
    const std::string record_file =
        std::filesystem::exists(data.files.record_file) ? bytes_of(data.files.record_file) : "";
    ASSERT_TRUE(expected.has_career_file(career_file))
        << "round " << round << ", a career file of " << career_file.size() << " bytes";
    ASSERT_TRUE(expected.has_record_file(record_file))
        << "round " << round << ", a record file of " << record_file.size() << " bytes";
    updated += std::exchange(last, career_file) == career_file ? 0 : 1;
    ASSERT_TRUE(databases_on_offer(data.files.folder).empty()) << "what is left is no database";
  }
  RecordProperty("kills", rounds);
  RecordProperty("kills within a replacement", left_behind);
  EXPECT_GT(left_behind, rounds / 20);
  EXPECT_GT(updated, rounds / 20);
  update_career_and_records(match, data);
  EXPECT_THAT(testing::names_in(data.files.folder), ::testing::ElementsAre("base.ptr", "base.rec"));
}

}  // namespace
}  // namespace velorin
