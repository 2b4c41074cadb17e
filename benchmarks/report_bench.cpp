// SPDX-License-Identifier: GPL-3.0-or-later
// Times of the reports over 300 matches, and of the exports of one.
#include <benchmark/benchmark.h>

#include <stdexcept>
#include <string>

#include "bench_world.h"
#include "browsers/century_makers.h"
#include "browsers/player_profile.h"
#include "browsers/player_rankings.h"
#include "browsers/record_tables.h"
#include "browsers/team_records.h"
#include "browsers/world_rankings.h"
#include "cli/match_json.h"
#include "database/configuration.h"
#include "database/teams_file.h"
#include "reports/export.h"
#include "support/game_in_play.h"

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
  Form form(data);
  form.open(arguments...);
  return form.table;
}

template <int record_mode>
shown_table of_first_team() {
  player_rankings_form form(data);
  form.open(record_mode, read_team_list(data).front().team_name);
  return form.table;
}

/// The tables by the names that they have on the command line.
const bool tables_registered = [] {
  const auto add = [](const std::string& name, shown_table (*open)()) {
    benchmark::RegisterBenchmark(("table/" + name).c_str(), table, open)->Unit(benchmark::kMicrosecond);
  };
  add("highest-scores", opened<best_performances_form, 1>);
  add("best-bowling", opened<best_performances_form, 0>);
  add("highest-totals", opened<total_records_form, 1>);
  add("lowest-totals", opened<total_records_form, 0>);
  add("partnerships", opened<stand_records_form>);
  add("averages", opened<player_rankings_form, 1>);
  add("most-runs", opened<player_rankings_form, 2>);
  add("strike-rates", opened<player_rankings_form, 3>);
  add("fifty-plus", opened<player_rankings_form, 4>);
  add("most-wickets", opened<player_rankings_form, 5>);
  add("economy", opened<player_rankings_form, 6>);
  add("bowling-averages", opened<player_rankings_form, 7>);
  add("centuries", opened<century_makers_form>);
  add("career-batting", of_first_team<player_rankings_form::career_batting>);
  add("career-bowling", of_first_team<player_rankings_form::career_bowling>);
  add("rankings", opened<world_rankings_form>);
  return true;
}();

void profile_of_player(benchmark::State& state) {
  put_on_record();
  for (auto _ : state) {
    player_profile_form form(data);
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
    team_records_form form(data);
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
    write_export(match, data, kind, data.files.folder / "export");
  }
  match = match_state();
}
BENCHMARK_CAPTURE(export_of_match, html, export_kind::html)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK_CAPTURE(export_of_match, text, export_kind::text)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK_CAPTURE(export_of_match, ball_by_ball, export_kind::ball_by_ball)
    ->Unit(benchmark::kMicrosecond)
    ->UseRealTime();

/// The same without the file.
void text_of_export(benchmark::State& state, std::string (*text)(const scorecard_form&)) {
  match = the_user().at_end;
  for (auto _ : state) {
    scorecard_form card(match);
    card.open();
    benchmark::DoNotOptimize(text(card));
  }
  match = match_state();
}
BENCHMARK_CAPTURE(text_of_export, html, [](const scorecard_form& card) {
  return html_scorecard(match, data, card);
})->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(text_of_export, text, [](const scorecard_form& card) {
  return text_scorecard(match, card);
})->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(text_of_export, ball_by_ball, [](const scorecard_form& card) {
  return ball_by_ball(match, card);
})->Unit(benchmark::kMicrosecond);

/// The object of a match, as the companion writes it.
void text_of_object(benchmark::State& state) {
  match = the_user().at_end;
  for (auto _ : state) benchmark::DoNotOptimize(cli::state_text(match));
  match = match_state();
}
BENCHMARK(text_of_object)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace velorin::bench
