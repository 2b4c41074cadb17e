// SPDX-License-Identifier: GPL-3.0-or-later
#include "forecast/series_forecast.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

#include "competitions/game_state.h"
#include "competitions/next_match.h"
#include "forecast/entered_matches.h"
#include "forecast/shared_runs.h"

namespace velorin {

namespace {

using two_counts = std::array<long, 2>;

/// The matches to play, and what has been won before them.
struct matches_to_come {
  entered_sides sides;
  std::vector<std::string> grounds;  ///< from which each match draws
  int matches = 1;
  std::array<int, 2> won{};
};

/// What is left of a series of two.
class share_of_series {
 public:
  share_of_series(const competition_world& world, const matches_to_come& to_come, std::uint64_t seed)
      : matches_(world), to_come_(&to_come), seed_(seed) {}

  void play(long run) {
    random_source chance;
    seed_run(chance, seed_, run);
    matches_.begin_run();
    std::array<int, 2> won = to_come_->won;
    for (int match = 0; match < to_come_->matches; ++match) {
      matches_.play(to_come_->sides[0], to_come_->sides[1], drawn_ground(chance), chance);
      const match_result& result = matches_.match();
      for (std::size_t side = 0; side < 2; ++side) {
        const bool wins = result.result_winner == to_come_->sides[side].team;
        won[side] += wins ? 1 : 0;
        if (match == 0) next[side] += wins ? 1 : 0;
      }
    }
    series[0] += won[0] > won[1] ? 1 : 0;
    series[1] += won[1] > won[0] ? 1 : 0;
    ++runs;
  }

  two_counts next{};
  two_counts series{};
  long runs = 0;

 private:
  std::string drawn_ground(random_source& chance) const {
    const auto& grounds = to_come_->grounds;
    if (grounds.empty()) return {};
    const auto at = static_cast<std::size_t>(chance.rnd() * static_cast<double>(grounds.size()));
    return grounds[std::min(at, grounds.size() - 1)];
  }

  entered_matches matches_;
  const matches_to_come* to_come_;
  std::uint64_t seed_;
};

two_chances chances_of(const entered_sides& sides, const two_counts& wins, long runs) {
  const auto all = static_cast<double>(runs);
  return {sides[0].team, sides[1].team, static_cast<double>(wins[0]) / all, static_cast<double>(wins[1]) / all};
}

std::optional<series_chances> play_many(game_state& game, const matches_to_come& to_come,
                                        const forecast_options& options) {
  const entered_sides& sides = to_come.sides;
  const competition_world world = world_of_competition(game.match, game.data, {sides[0].team, sides[1].team}, false);
  const auto shares = play_shared(options.runs, options.threads, options.stop,
                                  [&] { return share_of_series(world, to_come, options.seed); });
  two_counts next{};
  two_counts series{};
  long runs = 0;
  for (const share_of_series& share : shares) {
    for (std::size_t side = 0; side < 2; ++side) {
      next[side] += share.next[side];
      series[side] += share.series[side];
    }
    runs += share.runs;
  }
  if (runs == 0 || runs < options.runs) return std::nullopt;
  return series_chances{chances_of(sides, next, runs), chances_of(sides, series, runs)};
}

/// The ground where it is known, else those of which it is drawn.
std::vector<std::string> grounds_of(const coming_match& coming, const std::vector<std::string>& all) {
  return coming.ground ? std::vector<std::string>{*coming.ground} : all;
}

}  // namespace

std::optional<series_chances> forecast_series(game_state& game, const forecast_options& options) {
  const auto coming = next_match(game.series);
  if (!coming || !coming->sides) return std::nullopt;
  matches_to_come to_come{*coming->sides, grounds_of(*coming, game.series.grounds), coming->left + 1, {}};
  for (int match = 1; match <= game.series.match_no; ++match) {
    const std::string& winner = game.series.series_winner[static_cast<std::size_t>(match)];
    for (std::size_t side = 0; side < 2; ++side) to_come.won[side] += winner == to_come.sides[side].team ? 1 : 0;
  }
  return play_many(game, to_come, options);
}

std::optional<two_chances> forecast_next_of_tri(game_state& game, const forecast_options& options) {
  const auto coming = next_match(game.tri);
  if (!coming || !coming->sides) return std::nullopt;
  const auto found = play_many(game, {*coming->sides, grounds_of(*coming, game.tri.grounds), 1, {}}, options);
  return found ? std::optional(found->next) : std::nullopt;
}

}  // namespace velorin
