// SPDX-License-Identifier: GPL-3.0-or-later
// Times of building, reading and checking a database.
#include <benchmark/benchmark.h>

#include <stdexcept>

#include "bench_world.h"
#include "database/configuration.h"
#include "database/lasting_records.h"
#include "database/teams_file.h"
#include "database/world.h"
#include "support/game_in_play.h"

namespace velorin::bench {
namespace {

/// Both files out of the tables of the bundled database.
void build(benchmark::State& state) {
  const std::filesystem::path tables = data.files.folder / "tables";
  dump_database(data.files, tables);
  for (auto _ : state) build_database(tables, data.files.folder / "built.team", data.files.folder / "built.grd");
}
BENCHMARK(build)->Unit(benchmark::kMicrosecond)->UseRealTime();

/// The tables of the bundled database, and of the careers and records with them.
void dump(benchmark::State& state) {
  put_on_record();
  const std::filesystem::path tables = data.files.folder / "tables";
  for (auto _ : state) dump_database(data.files, tables);
}
BENCHMARK(dump)->Unit(benchmark::kMicrosecond)->UseRealTime();

void read(benchmark::State& state) {
  for (auto _ : state) {
    forget_teams_and_grounds(data);
    if (read_team_list(data).empty() || read_grounds(data).empty()) throw std::runtime_error("the database is empty");
  }
}
BENCHMARK(read)->Unit(benchmark::kMicrosecond);

void read_careers_and_records(benchmark::State& state) {
  put_on_record();
  for (auto _ : state) {
    benchmark::DoNotOptimize(read_career_table(data.files.career_file));
    benchmark::DoNotOptimize(read_record_lists(data.files.record_file));
  }
}
BENCHMARK(read_careers_and_records)->Unit(benchmark::kMicrosecond);

void check(benchmark::State& state) {
  put_on_record();
  for (auto _ : state) {
    if (!check_database(data.files).empty()) throw std::runtime_error("the database has faults");
  }
}
BENCHMARK(check)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace velorin::bench
