// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/forecast_points.h"

#include <unistd.h>

#include <cstddef>
#include <iostream>
#include <ostream>

#include <fmt/format.h>

#include "cli/json.h"
#include "cli/standard_output.h"
#include "cli/text_table.h"
#include "model/code_page.h"
#include "model/match_state.h"

namespace velorin::cli {

namespace {

json total_json(const total_forecast& total) {
  return {{"mean", total.mean}, {"p10", total.p10}, {"p50", total.p50}, {"p90", total.p90}};
}

json next_ball_json(const next_ball& odds) {
  return {{"wicket", odds.wicket}, {"0", odds.runs[0]},         {"1", odds.runs[1]}, {"2", odds.runs[2]},
          {"3", odds.runs[3]},     {"4", odds.runs[4]},         {"6", odds.runs[6]}, {"no_ball", odds.no_ball},
          {"wide", odds.wide},     {"leg_byes", odds.leg_byes}, {"byes", odds.byes}};
}

json point_json(const forecast_point& point, const forecast_answer& answer) {
  json object = {{"at", point.at},
                 {"runs", answer.runs},
                 {"win_first", answer.win_first},
                 {"tie", answer.tie},
                 {"win_second", answer.win_second},
                 {"first_total", total_json(answer.first_total)},
                 {"second_total", total_json(answer.second_total)}};
  if (point.next) object["next_ball"] = next_ball_json(*point.next);
  return object;
}

std::string percent(double share) { return fmt::format("{:.1f} %", 100 * share); }

std::string range(const total_forecast& total) {
  return fmt::format("{:.0f} ({} to {})", total.mean, total.p10, total.p90);
}

void print_next_ball(const next_ball& odds, std::ostream& out) {
  out << fmt::format(
      "Next ball: wicket {}, no run {}, 1 {}, 2 {}, 3 {}, 4 {}, 6 {}, no ball {}, wide {}, leg byes {}, byes {}\n",
      percent(odds.wicket), percent(odds.runs[0]), percent(odds.runs[1]), percent(odds.runs[2]), percent(odds.runs[3]),
      percent(odds.runs[4]), percent(odds.runs[6]), percent(odds.no_ball), percent(odds.wide), percent(odds.leg_byes),
      percent(odds.byes));
}

void print_table(const std::vector<forecast_point>& points, const std::vector<forecast_answer>& answers,
                 std::ostream& out) {
  const forecast_answer& first = answers.front();
  text_table table({"At", first.first, "Tie", first.second, "Total", "Total"}, "lrrrrr");
  for (std::size_t i = 0; i < points.size(); ++i) {
    const forecast_answer& answer = answers[i];
    table.add({points[i].at, percent(answer.win_first), percent(answer.tie), percent(answer.win_second),
               range(answer.first_total), range(answer.second_total)});
  }
  table.print(out);
  out << fmt::format("{} rests of the match; totals of either side: mean and the range of four in five\n", first.runs);
  if (points.size() == 1 && points.front().next) print_next_ball(*points.front().next, out);
}

/// On a terminal, where it takes long.
void show_progress(std::size_t done, std::size_t all, long runs, streams io) {
  constexpr double long_runs = 200'000;  // some seconds of one processor
  if (double(all) * double(runs) < long_runs || &io.err != &std::cerr || isatty(STDERR_FILENO) == 0) return;
  io.err << fmt::format("\r{} of {} points", done, all) << (done == all ? "\n" : "") << std::flush;
}

}  // namespace

forecast_point point_at(const match_state& match) {
  const int innings = match.next_step == play_step::closed ? 0 : int(match.innings_number);
  return point_at(fmt::format("{}:{}", innings, innings == 0 ? "0.0" : match.overs_text()), start_at(match));
}

forecast_point point_at(const std::string& at, const match_start& start) {
  return {at, start, odds_of_next_ball(start)};
}

void print_forecasts(const std::vector<forecast_point>& points, const forecast_options& options, bool as_json,
                     streams io) {
  std::vector<forecast_answer> answers;
  answers.reserve(points.size());
  for (const forecast_point& point : points) {
    answers.push_back(forecast_rest(point.start, options));
    show_progress(answers.size(), points.size(), options.runs, io);
  }
  if (answers.empty()) return;
  if (!as_json) return print_table(points, answers, io.out);
  json list = json::array();
  for (std::size_t i = 0; i < points.size(); ++i) list.push_back(point_json(points[i], answers[i]));
  const json object = {{"format", "velorin-forecast"},
                       {"version", 1},
                       {"first", to_utf8(answers.front().first)},
                       {"second", to_utf8(answers.front().second)},
                       {"points", list}};
  io.out << object.dump() << '\n';
}

}  // namespace velorin::cli
