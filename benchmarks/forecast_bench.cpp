// SPDX-License-Identifier: GPL-3.0-or-later
// Times of forecasts: rests of a match from its start, its middle and its last ten overs.
#include <benchmark/benchmark.h>

#include <chrono>
#include <string>

#include "bench_world.h"
#include "engine/delivery_model.h"
#include "forecast/forecast.h"
#include "forecast/rest_player.h"
#include "support/game_in_play.h"

namespace velorin::bench {
namespace {

double seconds_taken(const auto& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

match_start start_of_match() {
  const match_state& half = the_user().at_half;
  return start_before_toss(half.team2_name, half.team1_name, half.bowling_xi, half.batting_xi, half);
}

/// Rests on one core, and as many bare deliveries as they have taken, in turn, since other load comes and goes.
void rests(benchmark::State& state, const match_start& start, const std::string& name) {
  constexpr long a_turn = 50;
  rest_player player;
  match = the_user().in_mid_play;
  random_source drawn;
  drawn.use_seed(1);
  double rest_seconds = 0;
  double bare_seconds = 0;
  long run = 0;
  for (auto _ : state) {
    long deliveries = 0;
    rest_seconds += seconds_taken([&] {
      for (long i = 0; i < a_turn; ++i) {
        random_source own;
        seed_run(own, 1, run++);
        deliveries += player.play(start, own).deliveries;
      }
    });
    bare_seconds += seconds_taken([&] {
      for (long i = 0; i < deliveries; ++i) deliver_ball(match, drawn);
      benchmark::DoNotOptimize(match.ball_outcome);
    });
  }
  state.counters["rests_a_second"] = static_cast<double>(run) / rest_seconds;
  state.counters[name + "/bare_delivery"] = rest_seconds / bare_seconds;
}

void rests_from_the_start(benchmark::State& state) { rests(state, start_of_match(), "start"); }
BENCHMARK(rests_from_the_start)->Unit(benchmark::kMillisecond);

void rests_from_the_middle(benchmark::State& state) { rests(state, start_at(the_user().at_half), "middle"); }
BENCHMARK(rests_from_the_middle)->Unit(benchmark::kMillisecond);

void rests_from_the_last_ten_overs(benchmark::State& state) {
  rests(state, start_at(the_user().in_last_ten), "last_ten_overs");
}
BENCHMARK(rests_from_the_last_ten_overs)->Unit(benchmark::kMillisecond);

/// A forecast of 2,500 rests, by one thread and by two.
void forecast_of_2500(benchmark::State& state, const match_start& start) {
  const forecast_options options{.runs = 2'500, .seed = 1, .threads = static_cast<int>(state.range(0)), .stop = {}};
  for (auto _ : state) benchmark::DoNotOptimize(forecast_rest(start, options).win_first);
  state.counters["rests_a_second"] =
      benchmark::Counter(2'500.0 * static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}

void forecast_from_the_start(benchmark::State& state) { forecast_of_2500(state, start_of_match()); }
BENCHMARK(forecast_from_the_start)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond)->UseRealTime();

void forecast_from_the_middle(benchmark::State& state) { forecast_of_2500(state, start_at(the_user().at_half)); }
BENCHMARK(forecast_from_the_middle)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond)->UseRealTime();

void forecast_from_the_last_ten_overs(benchmark::State& state) {
  forecast_of_2500(state, start_at(the_user().in_last_ten));
}
BENCHMARK(forecast_from_the_last_ten_overs)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace velorin::bench
