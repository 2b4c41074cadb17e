// SPDX-License-Identifier: GPL-3.0-or-later
// Times of a match and its parts. The folder of the data files is named by the environment variable VELORIN_TEAMS, the
// database in it is "world"; the matches with updates play on a copy in a temporary folder.

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>

#include <benchmark/benchmark.h>
#include <unistd.h>

#include "database/configuration.h"
#include "database/saveavgs.h"
#include "engine/algorithm.h"
#include "engine/driver.h"
#include "headless/headless_user.h"
#include "model/teams.h"
#include "setup/teamfrm.h"

namespace velorin {
namespace {

/// A user who keeps the match as it stood at some moments of the last match.
class keeping_user : public headless_user {
 public:
  match_state in_mid_play;  ///< 25 overs into the first innings
  match_state at_end;       ///< the result known, before the updates
  long balls = 0;
  bool keeping = false;

  void ball_bowled() override {
    ++balls;
    if (!keeping) return;
    if (match.innings_balls == 150 && match.first_total == 0) in_mid_play = match;
  }
  void open(report) override {
    if (keeping && match.first_total != 0) at_end = match;
  }
};

keeping_user& the_user() {
  static keeping_user shown_by;
  return shown_by;
}

void play_match() {
  teamfrm form;
  form.open();
  form.command1_click();
}

void bare_delivery(benchmark::State& state) {
  match = the_user().in_mid_play;
  for (auto _ : state) {
    deliver_ball();
    benchmark::DoNotOptimize(match.ball_outcome);
  }
}
BENCHMARK(bare_delivery);

/// As many bare deliveries as a match has on average, in one go.
void bare_deliveries_of_a_match(benchmark::State& state) {
  match = the_user().in_mid_play;
  for (auto _ : state) {
    for (int i = 0; i < 583; ++i) deliver_ball();
    benchmark::DoNotOptimize(match.ball_outcome);
  }
}
BENCHMARK(bare_deliveries_of_a_match);

/// A whole unattended match: set-up, selection, toss, both innings with all books, result, reset.
void whole_match(benchmark::State& state) {
  match = match_state();
  the_user().balls = 0;
  for (auto _ : state) play_match();
  state.counters["matches_a_second"] =
      benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
  state.counters["balls"] = static_cast<double>(the_user().balls) / static_cast<double>(state.iterations());
}
BENCHMARK(whole_match);

/// The two updates at the end of a match, files written and synchronised.
void career_update(benchmark::State& state) {
  files.updates = true;
  match = the_user().at_end;
  for (auto _ : state) {
    update_career();
    update_records();
  }
  files.updates = false;
}
BENCHMARK(career_update)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace velorin

int main(int argc, char** argv) {
  namespace fs = std::filesystem;
  benchmark::Initialize(&argc, argv);
  const char* teams = std::getenv("VELORIN_TEAMS");
  if (teams == nullptr) {
    std::cerr << "velorin-bench: VELORIN_TEAMS names no folder of data files\n";
    return 2;
  }
  const fs::path folder = fs::temp_directory_path() / ("velorin-bench-" + std::to_string(getpid()));
  fs::create_directories(folder);
  for (const char* name : {"world.team", "world.grd"}) fs::copy_file(fs::path(teams) / name, folder / name);
  velorin::files = velorin::database_paths(folder, "world");
  velorin::files.elevens_in_memory = true;
  velorin::files.updates = false;
  const velorin::front_end_scope scope(velorin::the_user());
  velorin::the_user().keeping = true;
  velorin::play_match();
  velorin::the_user().keeping = false;
  benchmark::RunSpecifiedBenchmarks();
  fs::remove_all(folder);
  return 0;
}
