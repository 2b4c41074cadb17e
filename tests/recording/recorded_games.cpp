// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/recorded_games.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

#include "competitions/resume_game.h"
#include "competitions/series.h"
#include "competitions/tri_series.h"
#include "competitions/world_cup_form.h"
#include "database/configuration.h"
#include "recording/replay.h"
#include "setup/new_match.h"
#include "support/folder_contents.h"
#include "support/game_in_play.h"
#include "support/stopping_user.h"

namespace velorin::testing {

namespace {

constexpr const char* teams[] = {"Aden", "Bali", "Cork", "Dorset", "Essen", "Fiji", "Ghent", "Hull", "Ithaca", "Java"};

bool is_human(int captains, std::size_t side) { return (captains >> side & 1) != 0; }

/// Where two long texts part, for a message.
std::string parting(const std::string& one, const std::string& other) {
  const auto [at, there] = std::mismatch(one.begin(), one.end(), other.begin(), other.end());
  const auto from = [](const std::string& text, auto place) {
    const auto offset = static_cast<std::size_t>(place - text.begin());
    return text.substr(offset < 40 ? 0 : offset - 40, 120);
  };
  return from(one, at) + "\n and \n" + from(other, there);
}

void expect_read(const std::vector<std::string>& first, std::size_t from, const std::vector<std::string>& second) {
  ASSERT_EQ(first.size() - from, second.size());
  for (std::size_t i = 0; i < second.size(); ++i) {
    ASSERT_TRUE(first[from + i] == second[i]) << "card " << i << ": " << parting(first[from + i], second[i]);
  }
}

/// What was recorded before and behind a stop is one recording, which plays what was played.
void expect_goes_on_alike(const stop_of_game& stop, const std::string& behind, const random_captain& captain,
                          const game_state& game) {
  const recording whole = read_recording(stop.bytes + behind, "gone on with");
  game_state again = game_at_beginning(whole);
  reading_watcher watcher(again);
  replay_options options;
  options.watcher = &watcher;
  ASSERT_EQ(replay(whole, "gone on with", again, options), replay_end::over);
  ASSERT_GE(watcher.read.size(), stop.read);
  expect_read(watcher.read, stop.read, captain.read());
  EXPECT_EQ(end_of(again), end_of(game));
}

}  // namespace

game_to_play match_of(int first, int second, int captains, std::uint64_t seed) {
  game_to_play wanted;
  wanted.seed = seed;
  wanted.start = [=](game_state& game, front_end& user) {
    new_match_form form({game.match, game.chance, user, game.data});
    form.open();
    form.choose_first_team(first);
    form.choose_second_team(second);
    form.computer_captains_first = !is_human(captains, 0);
    form.computer_captains_second = !is_human(captains, 1);
    form.accept();
  };
  return wanted;
}

game_to_play series_of(int matches, int captains, std::uint64_t seed) {
  game_to_play wanted;
  wanted.seed = seed;
  wanted.start = [=](game_state& game, front_end& user) {
    series_form form({game.match, game.chance, user, game.data}, game.series);
    form.open();
    form.set_matches(matches);
    form.computer_captains_home = !is_human(captains, 0);
    form.computer_captains_away = !is_human(captains, 1);
    form.accept();
  };
  return wanted;
}

game_to_play tri_series_of(int rounds, int captains, std::uint64_t seed) {
  game_to_play wanted;
  wanted.seed = seed;
  wanted.start = [=](game_state& game, front_end& user) {
    tri_series_form form({game.match, game.chance, user, game.data}, game.tri);
    form.open();
    form.set_rounds(rounds);
    for (std::size_t side = 0; side < tri_teams; ++side) form.computer_captains[side] = !is_human(captains, side);
    form.accept();
  };
  return wanted;
}

game_to_play world_cup_of(int captains, std::uint64_t seed) {
  game_to_play wanted;
  wanted.seed = seed;
  wanted.start = [=](game_state& game, front_end& user) {
    world_cup_form form({game.match, game.chance, user, game.data}, game.world_cup);
    form.open();
    for (std::size_t side = 0; side < cup_group_teams; ++side) {
      form.human_a[side] = is_human(captains, side);
      form.human_b[side] = is_human(captains, side + cup_group_teams);
    }
    form.accept();
  };
  return wanted;
}

RecordedGames::RecordedGames() {
  for (const std::string name : teams) {
    database_.add_team(name);
    database_.add_ground(name, name + " Oval");
    database_.add_ground(name, name + " Park", 2, 4);
  }
  database_.write();
}

RecordedGames::~RecordedGames() {
  std::error_code ignored;
  std::filesystem::remove_all(data.files.folder / "games", ignored);
}

open_database RecordedGames::opened(const std::filesystem::path& folder, bool with_files) {
  open_database fresh;
  fresh.settings = {"", "small", "102030", "FFEEDD", "Sans Serif"};
  fresh.files = database_paths(folder, data.files.base);
  fresh.files.elevens_in_memory = !with_files;
  fresh.files.updates = with_files;
  return fresh;
}

std::filesystem::path RecordedGames::fresh_folder(const std::filesystem::path& from) {
  const std::filesystem::path to = data.files.folder / "games" / std::to_string(++folders_);
  std::filesystem::create_directories(to);
  for (const auto& entry : std::filesystem::directory_iterator(from)) {
    if (entry.is_regular_file()) std::filesystem::copy_file(entry.path(), to / entry.path().filename());
  }
  return to;
}

game_played RecordedGames::play(const game_to_play& wanted) {
  game_played played;
  game_state game;
  game.data = opened(wanted.with_files ? fresh_folder(data.files.folder) : data.files.folder, wanted.with_files);
  wanted.by_clock ? game.chance.use_clock() : game.chance.use_seed(wanted.seed);
  random_captain captain(game, wanted.seed);
  captain.leaves_one_in = wanted.leaves_one_in;
  captain.quits_one_in = wanted.quits_one_in;
  recording_in_memory kept;
  recorder recorded(captain, game, kept, "test");
  captain.asks_through = &recorded;
  random_source where_to_stop;
  where_to_stop.use_seed(wanted.seed + 1);
  captain.at_request = [&] {
    if (wanted.one_stop_in == 0 || die(where_to_stop, wanted.one_stop_in) != 1) return;
    played.stops.push_back({kept.bytes(), captain.own(), captain.read().size(), captain.open_request(),
                            wanted.with_files ? fresh_folder(game.data.files.folder) : std::filesystem::path()});
  };
  wanted.start(game, recorded);
  recorded.game_over();
  played.bytes = kept.bytes();
  played.read = captain.read();
  played.answers = captain.answers();
  played.end = end_of(game);
  if (wanted.with_files) played.files = contents_of(game.data.files.folder);
  return played;
}

void RecordedGames::expect_same_again(const game_played& played) {
  const recording recorded = read_recording(played.bytes, "again");
  game_state game = game_at_beginning(recorded);
  reading_watcher watcher(game);
  replay_options options;
  options.watcher = &watcher;
  ASSERT_EQ(replay(recorded, "again", game, options), replay_end::over);
  expect_read(played.read, 0, watcher.read);
  EXPECT_EQ(end_of(game), played.end);
}

void RecordedGames::expect_same_from_stops(const game_to_play& wanted, const game_played& played) {
  for (std::size_t i = 0; i < played.stops.size(); ++i) {
    const stop_of_game& stop = played.stops[i];
    SCOPED_TRACE(::testing::Message() << "stop " << i << " of " << played.stops.size() << ", seed " << wanted.seed
                                      << ", " << stop.open << ", at byte " << stop.bytes.size());
    const recording before = read_recording(stop.bytes, "stop");
    ASSERT_EQ(before.whole_bytes, stop.bytes.size());
    std::optional<game_state> game = game_to_continue(
        before, "stop", opened(wanted.with_files ? stop.folder : data.files.folder, wanted.with_files));
    ASSERT_TRUE(game);
    random_captain captain(*game, stop.captain);
    captain.leaves_one_in = wanted.leaves_one_in;
    captain.quits_one_in = wanted.quits_one_in;
    recording_in_memory kept;
    recorder recorded(captain, *game, kept, "test");
    captain.asks_through = &recorded;
    recorded.go_on_with(before);
    ASSERT_TRUE(resume_game(*game, recorded));
    recorded.game_over();
    expect_goes_on_alike(stop, kept.bytes(), captain, *game);
    if (HasFatalFailure()) return;
    // A dialog of his own is gone, and he chooses anew what he does.
    if (stop.open == opened_by_himself) continue;
    expect_read(played.read, stop.read, captain.read());
    if (HasFatalFailure()) return;
    ASSERT_EQ(end_of(*game), played.end);
    ASSERT_TRUE(stop.bytes + kept.bytes() == played.bytes) << "it is recorded otherwise";
    if (wanted.with_files) {
      ASSERT_TRUE(contents_of(game->data.files.folder) == played.files) << "its files part";
    }
  }
}

}  // namespace velorin::testing
