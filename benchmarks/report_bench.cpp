// SPDX-License-Identifier: GPL-3.0-or-later
// Times of the reports over 300 matches, and of the exports of one.
#include <benchmark/benchmark.h>

#include <stdexcept>
#include <string>

#include "bench_world.h"
#include "browsers/allrecs.h"
#include "browsers/centurytop.h"
#include "browsers/record_tables.h"
#include "browsers/sqdet.h"
#include "browsers/teamdet.h"
#include "browsers/wldrank.h"
#include "cli/match_json.h"
#include "database/configuration.h"
#include "database/teams_file.h"
#include "reports/export.h"

namespace velorin::bench {
namespace {

/// Opens a table afresh each time.
void table(benchmark::State& state, shown_table (*open)()) {
  put_on_record();
  for (auto _ : state) {
    const shown_table shown = open();
    if (shown.rows.empty()) throw std::runtime_error("a report of 300 matches is empty");
  }
}

template <class Form, auto... arguments>
shown_table opened() {
  Form form;
  form.open(arguments...);
  return form.table;
}

template <int record_mode>
shown_table of_first_team() {
  allrecs form;
  form.open(record_mode, read_team_list().front().team_name);
  return form.table;
}

/// The tables by the names that they have on the command line.
const bool tables_registered = [] {
  const auto add = [](const std::string& name, shown_table (*open)()) {
    benchmark::RegisterBenchmark(("table/" + name).c_str(), table, open)->Unit(benchmark::kMicrosecond);
  };
  add("highest-scores", opened<highinduv, 1>);
  add("best-bowling", opened<highinduv, 0>);
  add("highest-totals", opened<totrecords, 1>);
  add("lowest-totals", opened<totrecords, 0>);
  add("partnerships", opened<partnrec>);
  add("averages", opened<allrecs, 1>);
  add("most-runs", opened<allrecs, 2>);
  add("strike-rates", opened<allrecs, 3>);
  add("fifty-plus", opened<allrecs, 4>);
  add("most-wickets", opened<allrecs, 5>);
  add("economy", opened<allrecs, 6>);
  add("bowling-averages", opened<allrecs, 7>);
  add("centuries", opened<centurytop>);
  add("career-batting", of_first_team<allrecs::career_batting>);
  add("career-bowling", of_first_team<allrecs::career_bowling>);
  add("rankings", opened<wldrank>);
  return true;
}();

void profile_of_player(benchmark::State& state) {
  put_on_record();
  for (auto _ : state) {
    sqdet form;
    form.open();
    form.choose_team(0);
    form.choose_player(0);
    benchmark::DoNotOptimize(form);
  }
}
BENCHMARK(profile_of_player)->Unit(benchmark::kMicrosecond);

void records_of_team(benchmark::State& state) {
  put_on_record();
  for (auto _ : state) {
    teamdet form;
    form.open();
    form.choose_team(0);
    benchmark::DoNotOptimize(form);
  }
}
BENCHMARK(records_of_team)->Unit(benchmark::kMicrosecond);

/// An export of a whole match, file included.
void export_of_match(benchmark::State& state, export_kind kind) {
  match = the_user().at_end;
  for (auto _ : state) {
    write_export(kind, files.folder / "export");
  }
  match = match_state();
}
BENCHMARK_CAPTURE(export_of_match, html, export_kind::html)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK_CAPTURE(export_of_match, text, export_kind::text)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK_CAPTURE(export_of_match, ball_by_ball, export_kind::ball_by_ball)
    ->Unit(benchmark::kMicrosecond)
    ->UseRealTime();

/// The same without the file.
void text_of_export(benchmark::State& state, std::string (*text)(const scorecard&)) {
  match = the_user().at_end;
  for (auto _ : state) {
    scorecard card;
    card.open();
    benchmark::DoNotOptimize(text(card));
  }
  match = match_state();
}
BENCHMARK_CAPTURE(text_of_export, html, html_scorecard)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(text_of_export, text, text_scorecard)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(text_of_export, ball_by_ball, ball_by_ball)->Unit(benchmark::kMicrosecond);

/// The object of a match, as the companion writes it.
void text_of_object(benchmark::State& state) {
  match = the_user().at_end;
  for (auto _ : state) benchmark::DoNotOptimize(cli::state_json().dump());
  match = match_state();
}
BENCHMARK(text_of_object)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace velorin::bench
