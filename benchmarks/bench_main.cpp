// SPDX-License-Identifier: GPL-3.0-or-later
// Measures what is asked for, and then tells the ratios that hold on any machine. The folder of the data files is named
// by the environment variable VELORIN_TEAMS, the database in it is "world"; all files written lie in a temporary
// folder.
#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <linux/magic.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <map>
#include <string>
#include <vector>

#include "bench_world.h"
#include "database/configuration.h"
#include "support/game_in_play.h"

namespace velorin::bench {
namespace {

constexpr int few_matches = 1'000;
constexpr int many_matches = 10'000;

/// The console's report, which also keeps the times: processor time, or real time where that is measured. Of several
/// runs the quickest counts.
class keeping_reporter : public benchmark::ConsoleReporter {
 public:
  keeping_reporter() : ConsoleReporter(isatty(STDOUT_FILENO) != 0 ? OO_ColorTabular : OO_Tabular) {}

  void ReportRuns(const std::vector<Run>& runs) override {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
      if (run.error_occurred || run.run_type != Run::RT_Iteration) continue;
      const double seconds =
          (real_time(run) ? run.real_accumulated_time : run.cpu_accumulated_time) / static_cast<double>(run.iterations);
      const auto [known, added] = seconds_.try_emplace(run.run_name.function_name, seconds);
      if (!added) known->second = std::min(known->second, seconds);
      for (const auto& [name, counter] : run.counters) counters_[name] = counter;
    }
  }

  /// How often the one takes as long as the other; nothing if one of them was not measured.
  void print_ratio(const std::string& one, const std::string& other, const char* goal) const {
    const auto first = seconds_.find(one);
    const auto second = seconds_.find(other);
    if (first == seconds_.end() || second == seconds_.end()) return;
    print_line(one + " / " + other, first->second / second->second, goal);
  }

  /// A ratio that a run counted itself; nothing if it was not run.
  void print_counter(const std::string& name, const std::string& title, const char* goal) const {
    const auto counted = counters_.find(name);
    if (counted != counters_.end()) print_line(title, counted->second, goal);
  }

 private:
  static void print_line(const std::string& title, double ratio, const char* goal) {
    std::cout << fmt::format("{:<60}{:>8.2f}   {}\n", title, ratio, goal);
  }

  static bool real_time(const Run& run) { return !run.run_name.time_type.empty(); }

  std::map<std::string, double> seconds_;
  std::map<std::string, double> counters_;  ///< of the last run
};

/// Files there are written without waiting for a disk, so that their times tell little.
bool in_memory(const std::filesystem::path& folder) {
  struct statfs system {};
  return statfs(folder.c_str(), &system) == 0 && system.f_type == TMPFS_MAGIC;
}

void print_ratios(const keeping_reporter& times, long few, long many) {
  std::cout << fmt::format("\n{:<60}{:>8}   {}\n", "Ratio", "", "Goal");
  times.print_ratio("whole_match", "bare_deliveries_of_a_match", "at most 1.5");
  for (const char* name : {"start", "middle", "last_ten_overs"}) {
    times.print_counter(std::string(name) + "/bare_delivery",
                        std::string("a rest from the ") + name + " / its bare deliveries", "at most 1.2");
  }
  times.print_counter("update/plain_write", "career_update / plain write of the same bytes", "at most 1.5");
  times.print_counter("update/plain_replacement", "career_update / plain replacement of the same files", "");
  times.print_ratio("match_with_updates", "career_update", "near 1");
  const std::string title = fmt::format("peak memory of {} / {} matches", many_matches, few_matches);
  std::cout << fmt::format("{:<60}{:>8.2f}   1   ({} and {} kB)\n", title,
                           static_cast<double>(many) / static_cast<double>(few), many, few);
  if (in_memory(data.files.folder)) std::cout << "The files lay in memory: name a folder on a disk in TMPDIR.\n";
}

}  // namespace
}  // namespace velorin::bench

int main(int argc, char** argv) {
  using namespace velorin::bench;
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  const char* teams = std::getenv("VELORIN_TEAMS");
  if (teams == nullptr) {
    std::cerr << "velorin-bench: VELORIN_TEAMS names no folder of data files\n";
    return 2;
  }
  const bench_world world(teams);
  const velorin::front_end_scope scope(the_user());
  // Before anything else has taken memory.
  const long few = peak_memory(few_matches);
  const long many = peak_memory(many_matches);
  the_user().keeping = true;
  while (the_user().in_last_ten.innings_balls == 0) play_match();
  the_user().keeping = false;
  keeping_reporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  print_ratios(reporter, few, many);
  return 0;
}
