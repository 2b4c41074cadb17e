// SPDX-License-Identifier: GPL-3.0-or-later
// Whatever is cut off a recording, or changed in it: it plays what is whole of it, or is refused. It never plays
// something else.
#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <utility>

#include "competitions/resume_game.h"
#include "model/run_time_error.h"
#include "recording/recorded_games.h"
#include "recording/recording.h"
#include "recording/replay.h"
#include "support/game_in_play.h"
#include "support/stopping_user.h"

namespace velorin::testing {
namespace {

// Not every place of a torn game is gone on from: the first ones, and one in so many of the others.
#ifdef VELORIN_SANITIZED
constexpr int one_in = 80;
constexpr int most_in_row = 4;
constexpr std::size_t bytes_apart = 7;
#else
constexpr int one_in = 10;
constexpr int most_in_row = 40;
constexpr std::size_t bytes_apart = 1;
#endif

class Torn : public RecordedGames {
 protected:
  Torn() {
    whole_ = play(match_of(2, 5, 1, 7)).bytes;
    all_ = read_recording(whole_, "whole");
  }

  /// What is read is what stands ahead of some byte of the whole one, which is not behind `most`.
  void expect_prefix(const recording& read, std::size_t most) const {
    ASSERT_LE(read.whole_bytes, most);
    ASSERT_LE(read.events.size(), all_.events.size());
    EXPECT_TRUE(std::equal(read.events.begin(), read.events.end(), all_.events.begin()));
    EXPECT_EQ(read.beginning.id, all_.beginning.id);
    EXPECT_EQ(read.beginning.chance_state, all_.beginning.chance_state);
  }

  /// Why these bytes are refused; "" if they are read.
  static std::string refusal_of(const std::string& bytes) {
    try {
      read_recording(bytes, "changed");
    } catch (const run_time_error& fault) {
      return fault.what();
    }
    return {};
  }

  std::string whole_;
  recording all_;
};

TEST_F(Torn, CutOffAnywhereItPlaysWhatIsWhole) {
  std::size_t refused = 0;
  std::size_t before = 0;
  int played = 0;
  for (std::size_t length = 0; length < whole_.size(); ++length) {
    SCOPED_TRACE(length);
    const std::string bytes = whole_.substr(0, length);
    if (!refusal_of(bytes).empty()) {
      EXPECT_EQ(refused, length) << "refused, though more of it was cut off before";
      ++refused;
      continue;
    }
    const recording read = read_recording(bytes, "cut off");
    expect_prefix(read, length);
    if (HasFailure()) return;
    if (std::exchange(before, read.whole_bytes) == read.whole_bytes) continue;
    game_state game = game_at_beginning(read);
    const bool all_but_end = read.events.size() + 1 == all_.events.size();
    ASSERT_EQ(replay(read, "cut off", game), all_but_end ? replay_end::over : replay_end::open);
    ++played;
  }
  // Only what ends within its beginning holds no game.
  EXPECT_GT(refused, recording_head);
  EXPECT_LT(refused, whole_.size() / 2);
  EXPECT_GE(played, static_cast<int>(all_.events.size()));
}

/// Goes on with what is whole of a game by the clock to its end, and plays all of it again.
void expect_goes_on_from(const recording& read, const std::string& bytes, const open_database& files) {
  std::optional<game_state> game = game_to_continue(read, "cut off", files);
  ASSERT_TRUE(game);
  random_captain captain(*game, 4);
  recording_in_memory kept;
  recorder recorded(captain, *game, kept, "test");
  captain.asks_through = &recorded;
  recorded.go_on_with(read);
  ASSERT_TRUE(resume_game(*game, recorded));
  recorded.game_over();
  const recording whole = read_recording(bytes.substr(0, read.whole_bytes) + kept.bytes(), "gone on with");
  game_state again = game_at_beginning(whole);
  ASSERT_EQ(replay(whole, "gone on with", again), replay_end::over);
  EXPECT_EQ(end_of(again), end_of(*game));
}

// Behind an answer the clock is read before anything is shown: a kill in between leaves the answer alone.
TEST_F(Torn, AGameByTheClockGoesOnFromBehindEveryEntry) {
  for (const int captains : {0, 1}) {
    game_to_play wanted = captains == 0 ? series_of(2, 0, 9) : match_of(2, 5, captains, 9);
    wanted.by_clock = true;
    const std::string bytes = play(wanted).bytes;
    open_database files = data;
    files.files.elevens_in_memory = true;
    files.files.updates = false;
    std::size_t before = 0;
    int gone_on = 0;
    for (std::size_t length = 0; length < bytes.size(); length += bytes_apart) {
      const std::string cut = bytes.substr(0, length);
      if (!refusal_of(cut).empty()) continue;
      const recording read = read_recording(cut, "cut off");
      if (std::exchange(before, read.whole_bytes) == read.whole_bytes) continue;
      SCOPED_TRACE(::testing::Message() << captains << ": at byte " << length);
      if (++gone_on % one_in != 1 && gone_on > most_in_row) continue;
      game_state shown = game_at_beginning(read);
      if (replay(read, "cut off", shown) == replay_end::over) break;
      expect_goes_on_from(read, bytes, files);
      if (HasFailure()) return;
    }
    EXPECT_GT(gone_on, 100);
  }
}

TEST_F(Torn, AByteThatWasChangedIsMetAtItsPlaceOrCutOff) {
  int refused = 0;
  int cut_off = 0;
  for (std::size_t place = 0; place < whole_.size(); ++place) {
    for (const int change : {0x01, 0x80, 0xFF}) {
      SCOPED_TRACE(fmt::format("byte {} changed by {}", place, change));
      std::string bytes = whole_;
      bytes[place] = static_cast<char>(bytes[place] ^ change);
      const std::string refusal = refusal_of(bytes);
      if (refusal.empty()) {
        expect_prefix(read_recording(bytes, "changed"), place);
        ++cut_off;
      } else {
        EXPECT_NE(refusal.find("changed"), std::string::npos) << refusal;
        if (place >= recording_head) {
          const std::size_t at = refusal.find(" at byte ");
          ASSERT_NE(at, std::string::npos) << refusal;
          EXPECT_LE(std::stoul(refusal.substr(at + 9)), place);
        }
        ++refused;
      }
      if (HasFailure()) return;
    }
  }
  EXPECT_GT(refused, cut_off) << "damage is told, but for that of a last write";
  EXPECT_GT(cut_off, 0);
}

TEST_F(Torn, ZerosOfABlockThatWasNeverWrittenAreCutOff) {
  for (const std::size_t zeros : {1, 2, 3, 4, 511, 4096, 70000}) {
    const recording read = read_recording(whole_ + std::string(zeros, '\0'), "zeros");
    EXPECT_EQ(read.whole_bytes, whole_.size()) << zeros;
    EXPECT_TRUE(read.events == all_.events);
  }
}

TEST_F(Torn, NoEntryCanBeTakenOutDoubledOrMoved) {
  // The places of the entries, by cutting the file off at each byte.
  std::vector<std::size_t> ends;
  for (std::size_t length = recording_head + 1; length <= whole_.size(); ++length) {
    const std::string bytes = whole_.substr(0, length);
    if (refusal_of(bytes).empty() && read_recording(bytes, "cut").whole_bytes == length) ends.push_back(length);
  }
  ASSERT_GT(ends.size(), 20U);
  for (std::size_t i = 0; i + 3 < ends.size(); i += 7) {
    SCOPED_TRACE(i);
    const std::string one = whole_.substr(ends[i], ends[i + 1] - ends[i]);
    const std::string other = whole_.substr(ends[i + 1], ends[i + 2] - ends[i + 1]);
    const std::string head = whole_.substr(0, ends[i]);
    const std::string rest = whole_.substr(ends[i + 2]);
    EXPECT_NE(refusal_of(head + other + rest), "");
    EXPECT_NE(refusal_of(head + one + one + other + rest), "");
    EXPECT_NE(refusal_of(head + other + one + rest), "");
  }
}

TEST_F(Torn, AnotherFormatOrOtherRulesAreToldAndNotPlayed) {
  std::string newer = whole_;
  newer[recording_magic.size()] = 2;
  EXPECT_NE(refusal_of(newer).find("of format 2; this version of the program reads format 1"), std::string::npos);
  std::string other = whole_;
  other[recording_magic.size() + 2] = 7;
  EXPECT_NE(refusal_of(other).find("by the rules of version 7"), std::string::npos);
  EXPECT_NE(refusal_of("velorec").find("no recording"), std::string::npos);
  EXPECT_NE(refusal_of("").find("no recording"), std::string::npos);
}

}  // namespace
}  // namespace velorin::testing
