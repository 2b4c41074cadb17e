// SPDX-License-Identifier: GPL-3.0-or-later
// The file of a game in play: one player at a time, what is torn is cut off, and a disk without room loses the
// recording but not the game.
#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <fstream>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <thread>

#include "headless/headless_user.h"
#include "model/run_time_error.h"
#include "recording/kept_games.h"
#include "recording/recorded_games.h"
#include "recording/recording_file.h"
#include "recording/replay.h"
#include "support/folder_contents.h"
#include "support/game_in_play.h"
#include "support/stopping_user.h"

namespace {
std::atomic<int> failing_syncs = 0;  // that many fail, as a disk fails that takes nothing more
std::atomic<int> syncs = 0;
}  // namespace

// Stands before the system's own.
extern "C" int fdatasync(int number) {
  ++syncs;
  if (failing_syncs > 0) {
    --failing_syncs;
    errno = EIO;
    return -1;
  }
  return static_cast<int>(::syscall(SYS_fdatasync, number));
}

namespace velorin::testing {
namespace {

namespace fs = std::filesystem;

/// Files that may not grow beyond a limit while this lives.
class small_files {
 public:
  explicit small_files(rlim_t bytes) {
    before_ = std::signal(SIGXFSZ, SIG_IGN);
    ::getrlimit(RLIMIT_FSIZE, &limit_);
    const rlimit small = {bytes, limit_.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &small);
  }
  ~small_files() {
    ::setrlimit(RLIMIT_FSIZE, &limit_);
    std::signal(SIGXFSZ, before_);
  }
  small_files(const small_files&) = delete;
  small_files& operator=(const small_files&) = delete;

 private:
  rlimit limit_{};
  void (*before_)(int) = nullptr;
};

/// A random captain who answers a save that fails.
class patient_captain : public random_captain {
 public:
  using random_captain::random_captain;

  std::function<save_answer()> at_failure;
  std::vector<std::string> causes;

  save_answer answer(const failed_save& failed) override {
    causes.push_back(failed.cause);
    return at_failure();
  }
};

class RecordingFile : public RecordedGames {
 protected:
  RecordingFile() : file_(database_.folder() / "kept.velorin") {}

  static void write(const fs::path& file, const std::string& bytes) {
    std::ofstream(file, std::ios::binary | std::ios::trunc) << bytes;
  }

  /// Plays a match that is recorded to the file. Returns how it ended.
  std::string play_to_file(patient_captain& captain, game_state& game) {
    game.data.files = data.files;
    game.data.files.elevens_in_memory = true;
    game.chance.use_seed(3);
    recording_file file;
    file.use(file_);
    recorder recorded(captain, game, file, "test");
    captain.asks_through = &recorded;
    match_of(1, 4, 3, 3).start(game, recorded);
    recorded.game_over();
    return end_of(game);
  }

  fs::path file_;
};

/// Why a game cannot be gone on with; "" if it can.
std::string refusal_of(const fs::path& path) {
  try {
    recording_file file;
    file.go_on(path);
  } catch (const run_time_error& fault) {
    return fault.what();
  }
  return {};
}

TEST_F(RecordingFile, OneProgramPlaysAGameAtATime) {
  write(file_, play(match_of(0, 1, 0, 1)).bytes);
  {
    recording_file first;
    first.go_on(file_);
    EXPECT_TRUE(is_in_use(file_));
    EXPECT_THAT(refusal_of(file_), ::testing::HasSubstr("Another program plays this game"));
    EXPECT_EQ(game_that_waits(database_.folder()), fs::path());
    first.end();
    EXPECT_FALSE(is_in_use(file_));
    EXPECT_EQ(refusal_of(file_), "");
  }
  recording_file second;
  EXPECT_NO_THROW(second.go_on(file_));
}

TEST_F(RecordingFile, OfTwoGamesBegunAtOnceNoneTakesTheOthersFile) {
  recording_file first;
  first.use(file_);
  first.begin({});
  recording_file second;
  second.use(file_);
  EXPECT_THROW(second.begin({}), run_time_error);
  EXPECT_NE(free_game_file(database_.folder(), "kept"), file_);
}

TEST_F(RecordingFile, ADiskThatDoesNotTakeAGameIsToldWithWhatFollows) {
  recording_file file;
  file.use(file_);
  file.begin({});
  file.append("one");
  failing_syncs = 1;
  const int before = syncs;
  file.settle();
  for (int tries = 0; syncs == before && tries < 5000; ++tries)
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  ASSERT_GT(syncs, before);
  std::string cause;
  for (int tries = 0; cause.empty() && tries < 5000; ++tries) {
    // The thread that settles may not have come to note it yet.
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
    try {
      file.append("");
    } catch (const run_time_error& fault) {
      cause = fault.what();
    }
  }
  EXPECT_THAT(cause, ::testing::HasSubstr("The game cannot be recorded: Input/output error"));
  file.append("two");
  file.settle();
  file.end();
  EXPECT_EQ(file_bytes(file_), "onetwo") << "tried again, it goes on";
}

TEST_F(RecordingFile, WhatIsTornIsCutOffAndPlayGoesOnBehindIt) {
  const std::string whole = play(match_of(0, 1, 1, 2)).bytes;
  const recording all = read_recording(whole, "all");
  const std::string torn = whole.substr(0, whole.size() * 3 / 4);
  const std::size_t kept = read_recording(torn, "torn").whole_bytes;
  write(file_, torn + std::string(100, '\0'));
  recording_file file;
  EXPECT_EQ(file.go_on(file_).whole_bytes, kept);
  EXPECT_EQ(fs::file_size(file_), kept);
  file.append(std::string_view(whole).substr(kept));
  file.end();
  EXPECT_TRUE(file_bytes(file_) == whole);
}

TEST_F(RecordingFile, AGameIsPlayedOnceABallOfItHasBeenBowledAlsoBehindAContinue) {
  const std::string whole = play(match_of(0, 1, 1, 2)).bytes;
  const auto has_play_behind = [&](std::size_t bytes) {
    const recording before = read_recording(whole.substr(0, bytes), "part");
    std::optional<game_state> game = game_to_continue(before, "part", data);
    if (!game) throw std::logic_error("the game is over");
    headless_user user(game->match);
    recording_in_memory kept;
    recorder goes_on(user, *game, kept, "test");
    goes_on.go_on_with(before);
    return goes_on.has_play();
  };
  std::size_t in_set_up = recording_head;
  const auto answers = [&](std::size_t bytes) {
    return holds_nothing_yet(whole.substr(0, bytes)) ? 0 : read_recording(whole.substr(0, bytes), "part").events.size();
  };
  while (answers(in_set_up) == 0) ++in_set_up;
  EXPECT_FALSE(has_play_behind(in_set_up));
  EXPECT_TRUE(has_play_behind(whole.size() / 2 + in_set_up / 2));
}

TEST_F(RecordingFile, ADamagedGameIsLeftAsItIsAndFree) {
  std::string bytes = play(match_of(0, 1, 0, 1)).bytes;
  bytes[200] = static_cast<char>(bytes[200] ^ 1);
  write(file_, bytes);
  recording_file file;
  EXPECT_THROW(file.go_on(file_), run_time_error);
  EXPECT_FALSE(is_in_use(file_)) << "nobody plays it";
  EXPECT_TRUE(file_bytes(file_) == bytes);
  EXPECT_NE(look_at_game(file_).fault, "");
}

TEST_F(RecordingFile, WhatAKillLeftBeforeTheFirstEntryIsEmptyAndGoes) {
  const std::string whole = play(match_of(0, 1, 0, 1)).bytes;
  std::size_t least = 0;  // bytes of a recording that can be read
  for (std::size_t length = 0; length < whole.size() && least == 0; ++length) {
    const std::string bytes = whole.substr(0, length);
    SCOPED_TRACE(length);
    try {
      read_recording(bytes, "cut");
      least = length;
      EXPECT_FALSE(holds_nothing_yet(bytes));
    } catch (const run_time_error&) {
      ASSERT_TRUE(holds_nothing_yet(bytes));
    }
  }
  ASSERT_GT(least, recording_head);
  // A power cut leaves zeros where it could not write.
  EXPECT_TRUE(holds_nothing_yet(std::string(5000, '\0')));
  EXPECT_TRUE(holds_nothing_yet(whole.substr(0, recording_head) + std::string(5000, '\0')));
  // Another format, damage and what is no recording stay for their owner to look at.
  std::string other = whole.substr(0, recording_head);
  other[8] = 9;
  std::string damaged = whole;
  damaged[30] = static_cast<char>(damaged[30] ^ 1);
  const fs::path folder = database_.folder() / "games of kills";
  fs::create_directories(folder);
  write(folder / "none.velorin", "");
  write(folder / "head.velorin", whole.substr(0, recording_head));
  write(folder / "torn.velorin", whole.substr(0, least - 1));
  write(folder / "other.velorin", other);
  write(folder / "damaged.velorin", damaged);
  write(folder / "text.velorin", "a text");
  write(folder / "whole.velorin", whole.substr(0, least));
  write(folder / "notes.txt", "");
  EXPECT_TRUE(look_at_game(folder / "head.velorin").empty);
  EXPECT_EQ(look_at_game(folder / "head.velorin").fault, "Nothing is in it yet");
  EXPECT_FALSE(look_at_game(folder / "damaged.velorin").empty);
  {
    recording_file begun;
    begun.use(folder / "begun.velorin");
    begun.begin({});
    remove_empty_games(folder);
    EXPECT_TRUE(fs::exists(folder / "begun.velorin")) << "somebody holds it";
  }
  std::vector<std::string> left;
  for (const auto& entry : fs::directory_iterator(folder)) left.push_back(entry.path().filename().string());
  EXPECT_THAT(left, ::testing::UnorderedElementsAre("other.velorin", "damaged.velorin", "text.velorin", "whole.velorin",
                                                    "notes.txt", "begun.velorin"));
  remove_empty_games(folder);
  EXPECT_FALSE(fs::exists(folder / "begun.velorin")) << "nobody holds it any more";
  fs::remove_all(folder);
}

TEST_F(RecordingFile, AGameGoesOnWithoutOneOnAFullDisk) {
  auto game = std::make_unique<game_state>();
  patient_captain undisturbed(*game, 3);
  const std::string end = play_to_file(undisturbed, *game);
  const std::string whole = file_bytes(file_);
  for (const rlim_t room : {0UL, 700UL, whole.size() / 2, whole.size() - 1}) {
    SCOPED_TRACE(room);
    fs::remove(file_);
    *game = {};
    patient_captain captain(*game, 3);
    captain.at_failure = [] { return save_answer::go_on; };
    std::string ended;
    {
      const small_files full(room);
      ended = play_to_file(captain, *game);
    }
    EXPECT_EQ(ended, end) << "the match is the same";
    ASSERT_EQ(captain.causes.size(), 1U) << "told once";
    EXPECT_THAT(captain.causes[0], ::testing::HasSubstr("cannot be recorded"));
    ASSERT_EQ(fs::exists(file_), room > 1000) << "a file without a beginning is none";
    if (!fs::exists(file_)) continue;
    const std::string bytes = file_bytes(file_);
    EXPECT_LE(bytes.size(), room);
    const recording read = read_recording(bytes, "full");
    EXPECT_EQ(read.whole_bytes, bytes.size()) << "nothing is half written";
    EXPECT_FALSE(read.ended());
    game_state again = game_at_beginning(read);
    EXPECT_EQ(replay(read, "full", again), room < whole.size() - 1 ? replay_end::open : replay_end::over);
  }
}

TEST_F(RecordingFile, RetryGoesOnWhereTheDiskWasFull) {
  auto game = std::make_unique<game_state>();
  std::optional<small_files> full(std::in_place, 1500);
  patient_captain captain(*game, 3);
  int asked = 0;
  captain.at_failure = [&] {
    if (++asked == 3) full.reset();
    return save_answer::retry;
  };
  const std::string end = play_to_file(captain, *game);
  EXPECT_EQ(asked, 3) << "twice in vain";
  const recording read = read_recording(file_);
  EXPECT_TRUE(read.ended());
  EXPECT_EQ(read.whole_bytes, fs::file_size(file_));
  game_state again = game_at_beginning(read);
  EXPECT_EQ(replay(read, "retried", again), replay_end::over);
  EXPECT_EQ(end_of(again), end);
}

}  // namespace
}  // namespace velorin::testing
