// SPDX-License-Identifier: GPL-3.0-or-later
// What random captains play is the same game when its recording is played again, and when it is gone on with from
// wherever it was stopped.
#include <cstdio>
#include <cstdlib>

#include "recording/recorded_games.h"
#include "recording/recording.h"

namespace velorin::testing {
namespace {

// The woven-in checks of a sanitizer take their time.
#ifdef VELORIN_SANITIZED
constexpr int default_matches = 7;
constexpr std::uint64_t seeds = 2;
constexpr std::uint64_t world_cups = 1;
constexpr int stops_between = 4;  // so many times as many moments between two stops
#else
constexpr int default_matches = 100;
constexpr std::uint64_t seeds = 4;
constexpr std::uint64_t world_cups = 2;
constexpr int stops_between = 1;
#endif

int matches_wanted() {
  const char* told = std::getenv("VELORIN_RECORDED_MATCHES");
  return told == nullptr ? default_matches : std::atoi(told);
}

/// A match by its number: all teams, captains of all kinds, some with the clock's chance.
game_to_play numbered_match(int number) {
  const int first = number % 10;
  game_to_play wanted =
      match_of(first, (first + 1 + number / 10 % 9) % 10, number % 4, 1000U + static_cast<unsigned>(number));
  if (number % 7 == 0) wanted.leaves_one_in = 8;
  return wanted;
}

class Replayed : public RecordedGames {};

TEST_F(Replayed, MatchesOfRandomCaptainsReadTheSameAgainAndFromEveryStop) {
  const int matches = matches_wanted();
  std::size_t stops = 0;
  std::size_t bytes = 0;
  long answers = 0;
  int over = 0;
  for (int number = 1; number <= matches; ++number) {
    SCOPED_TRACE(number);
    game_to_play wanted = numbered_match(number);
    // A match by the clock cannot be played on as it was: its chance is another one then.
    wanted.by_clock = number % 5 == 0;
    wanted.one_stop_in = wanted.by_clock ? 0 : 500;
    const game_played played = play(wanted);
    stops += played.stops.size();
    bytes += played.bytes.size();
    answers += played.answers;
    over += played.read.size() >= 2 ? 1 : 0;
    expect_same_again(played);
    if (HasFatalFailure()) return;
    expect_same_from_stops(wanted, played);
    if (HasFailure()) return;
  }
  EXPECT_GE(over, matches * 4 / 5) << "few are left in their set-up";
  EXPECT_GE(answers, 30L * matches);
  EXPECT_GE(stops, static_cast<std::size_t>(matches / 2));
  std::printf("%d matches, %ld answers, %zu stops, %zu bytes a match\n", matches, answers, stops,
              bytes / static_cast<std::size_t>(matches));
}

TEST_F(Replayed, ASeriesWithItsFiles) {
  for (std::uint64_t seed = 1; seed <= seeds; ++seed) {
    game_to_play wanted = series_of(3, static_cast<int>(seed % 4), seed);
    wanted.with_files = true;
    wanted.leaves_one_in = seed % 2 == 0 ? 9 : 0;
    wanted.one_stop_in = 400 * stops_between;
    const game_played played = play(wanted);
    expect_same_again(played);
    expect_same_from_stops(wanted, played);
    if (HasFailure()) return;
  }
}

TEST_F(Replayed, ATriSeriesWithItsFiles) {
  for (std::uint64_t seed = 1; seed <= seeds; ++seed) {
    game_to_play wanted = tri_series_of(1, static_cast<int>(seed % 8), seed);
    wanted.with_files = true;
    wanted.leaves_one_in = seed % 2 == 0 ? 12 : 0;
    wanted.one_stop_in = 400 * stops_between;
    const game_played played = play(wanted);
    expect_same_again(played);
    expect_same_from_stops(wanted, played);
    if (HasFailure()) return;
  }
}

TEST_F(Replayed, AWorldCupWithItsFiles) {
  for (std::uint64_t seed = 1; seed <= world_cups; ++seed) {
    game_to_play wanted = world_cup_of(static_cast<int>(seed * 331 % 1024), seed);
    wanted.with_files = true;
    wanted.leaves_one_in = seed % 2 == 0 ? 25 : 0;
    wanted.one_stop_in = 12000 * stops_between;
    const game_played played = play(wanted);
    expect_same_again(played);
    expect_same_from_stops(wanted, played);
    if (HasFailure()) return;
  }
}

TEST_F(Replayed, AWorldCupThatIsQuit) {
  for (std::uint64_t seed = 1; seed <= seeds; ++seed) {
    game_to_play wanted = world_cup_of(1, seed);
    wanted.quits_one_in = 10;
    wanted.one_stop_in = 300 * stops_between;
    const game_played played = play(wanted);
    expect_same_again(played);
    expect_same_from_stops(wanted, played);
    if (HasFailure()) return;
  }
}

}  // namespace
}  // namespace velorin::testing
