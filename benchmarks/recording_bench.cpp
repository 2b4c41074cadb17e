// SPDX-License-Identifier: GPL-3.0-or-later
// Times of what a game's recording costs, and of going on with one.
#include <benchmark/benchmark.h>

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

#include "bench_world.h"
#include "competitions/world_cup_form.h"
#include "recording/recorder.h"
#include "recording/replay.h"
#include "setup/new_match.h"
#include "support/game_in_play.h"

namespace velorin::bench {
namespace {

/// A whole unattended match that is recorded in memory; beside whole_match.
void recorded_match(benchmark::State& state) {
  match = match_state();
  recording_in_memory kept;
  recorder recorded(the_user(), tested_game, kept, "bench");
  for (auto _ : state) {
    new_match_form form({match, chance, recorded, data});
    form.open();
    form.accept();
    recorded.game_over();
  }
  state.counters["bytes"] = static_cast<double>(kept.bytes().size());
}
BENCHMARK(recorded_match);

/// The recording of a World Cup of computer sides as it stands in its final.
std::string cup_in_its_final() {
  auto game = std::make_unique<game_state>();
  game->data = data;
  game->chance.use_seed(5);
  headless_user user(game->match);
  recording_in_memory kept;
  recorder recorded(user, *game, kept, "bench");
  world_cup_form form({game->match, game->chance, recorded, game->data}, game->world_cup);
  form.open();
  form.accept();
  recorded.game_over();
  // Its last entries are the end, the tables, the saving: some entries ahead of these the final is on.
  return kept.bytes().substr(0, kept.bytes().size() - 120);
}

/// From the file to the very ball: reading the recording, and playing it to its end.
void continue_a_world_cup_in_its_final(benchmark::State& state) {
  const std::string bytes = cup_in_its_final();
  for (auto _ : state) {
    const recording before = read_recording(bytes, "cup");
    const std::optional<game_state> game = game_to_continue(before, "cup", data);
    if (!game) throw std::runtime_error("the World Cup is over");
    benchmark::DoNotOptimize(game->match.score_runs);
  }
  state.counters["bytes"] = static_cast<double>(bytes.size());
}
BENCHMARK(continue_a_world_cup_in_its_final)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velorin::bench
