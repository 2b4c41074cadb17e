// SPDX-License-Identifier: GPL-3.0-or-later
// Times of a match and its parts.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>

#include "bench_world.h"
#include "competitions/world_cup.h"
#include "competitions/world_cup_form.h"
#include "database/career_update.h"
#include "database/configuration.h"
#include "engine/delivery_model.h"
#include "support/game_in_play.h"

namespace velorin::bench {
namespace {

void bare_delivery(benchmark::State& state) {
  match = the_user().in_mid_play;
  for (auto _ : state) {
    deliver_ball(match, chance);
    benchmark::DoNotOptimize(match.ball_outcome);
  }
}
BENCHMARK(bare_delivery);

/// As many bare deliveries as a match of these teams has on average, in one go.
void bare_deliveries_of_a_match(benchmark::State& state) {
  constexpr int matches = 1000;
  match = match_state();
  the_user().balls = 0;
  for (int played = 0; played < matches; ++played) play_match();
  const long deliveries = (the_user().balls + matches / 2) / matches;
  match = the_user().in_mid_play;
  for (auto _ : state) {
    for (long i = 0; i < deliveries; ++i) deliver_ball(match, chance);
    benchmark::DoNotOptimize(match.ball_outcome);
  }
  state.counters["balls"] = static_cast<double>(deliveries);
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

/// The same with the careers and records brought up to date.
void match_with_updates(benchmark::State& state) {
  put_on_record();
  data.files.updates = true;
  for (auto _ : state) play_match();
  data.files.updates = false;
}
BENCHMARK(match_with_updates)->Unit(benchmark::kMicrosecond)->UseRealTime();

/// The two updates at the end of a match, files written and synchronised.
void career_update(benchmark::State& state) {
  put_on_record();
  match = the_user().at_end;
  data.files.updates = true;
  for (auto _ : state) {
    update_career_and_records(match, data);
  }
  data.files.updates = false;
  match = match_state();
}
BENCHMARK(career_update)->Unit(benchmark::kMicrosecond)->UseRealTime();

std::string bytes_of(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  std::ostringstream bytes;
  bytes << in.rdbuf();
  if (!in) throw std::runtime_error("a file of the database cannot be read");
  return bytes.str();
}

/// Writes the bytes straight over what the file holds, and waits for the disk.
void plain_write(const std::filesystem::path& file, const std::string& bytes) {
  const int out = ::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
  if (out < 0 || ::write(out, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()) || ::fsync(out) != 0 ||
      ::close(out) != 0) {
    throw std::runtime_error("a plain file cannot be written");
  }
}

/// The least by which no crash spoils the file: the bytes in a new file that takes its place, the folder synchronised.
void plain_replacement(const std::filesystem::path& file, const std::string& bytes) {
  const std::string fresh = file.string() + ".plain";
  plain_write(fresh, bytes);
  const int folder = ::open(file.parent_path().c_str(), O_RDONLY | O_DIRECTORY);
  if (::rename(fresh.c_str(), file.c_str()) != 0 || folder < 0 || ::fsync(folder) != 0) {
    throw std::runtime_error("a plain file cannot be replaced");
  }
  ::close(folder);
}

double seconds_of(const auto& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// The update, and the bytes of its two files written without all that makes an update: in turn, since other load on
/// the disk comes and goes.
void update_and_plain_writes_in_turn(benchmark::State& state) {
  put_on_record();
  const std::string careers = bytes_of(data.files.career_file);
  const std::string records = bytes_of(data.files.record_file);
  const auto both = [&](void (*write)(const std::filesystem::path&, const std::string&)) {
    write(data.files.folder / "plain.rec", careers);
    write(data.files.folder / "plain.ptr", records);
  };
  match = the_user().at_end;
  data.files.updates = true;
  double update = 0;
  double plain = 0;
  double replacing = 0;
  for (auto _ : state) {
    update += seconds_of([] { update_career_and_records(match, data); });
    plain += seconds_of([&] { both(plain_write); });
    replacing += seconds_of([&] { both(plain_replacement); });
  }
  data.files.updates = false;
  match = match_state();
  state.counters["bytes"] = static_cast<double>(careers.size() + records.size());
  state.counters["update/plain_write"] = update / plain;
  state.counters["update/plain_replacement"] = update / replacing;
}
BENCHMARK(update_and_plain_writes_in_turn)->Unit(benchmark::kMicrosecond)->UseRealTime();

/// All matches of a World Cup, from the entry of the teams to the final. A second one would add to the tables of the
/// first.
void whole_world_cup(benchmark::State& state) {
  match = match_state();
  for (auto _ : state) {
    world_cup = world_cup_record();
    world_cup_form form(in_play(), world_cup);
    form.open();
    form.accept();
  }
}
BENCHMARK(whole_world_cup)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace velorin::bench
