// SPDX-License-Identifier: GPL-3.0-or-later
#include "browsers/team_ranking.h"

#include <algorithm>
#include <cmath>

#include "database/configuration.h"
#include "database/whole_file.h"
#include "model/rounding.h"
#include "model/run_time_error.h"

namespace velorin {

namespace {

/// A figure worked out from the table, whose numbers may have any size. Raises run_time_error (overflow).
double fitting(double figure) {
  if (std::isfinite(figure)) return figure;
  throw run_time_error(failure::overflow, "Overflow: the results of a team do not fit a Double",
                       {.file = file_name_text(files.ptr), .record = 0, .field = {}, .player = {}});
}

}  // namespace

std::optional<double> team_results::success() const {
  if (fitting(played()) == 0) return std::nullopt;
  return fitting(round_to(won * 100 / played(), 2));
}

team_results home_results(const team_table& team) {
  return {team.home_won.number(), team.home_lost.number(), team.home_tied.number()};
}

team_results away_results(const team_table& team) {
  return {team.away_won.number(), team.away_lost.number(), team.away_tied.number()};
}

team_results total_results(const team_table& team) {
  const team_results home = home_results(team);
  const team_results away = away_results(team);
  return {away.won + home.won, away.lost + home.lost, away.tied + home.tied};
}

std::vector<ranked_team> rank_teams(const record_lists& lists) {
  std::vector<ranked_team> ranking;
  for (int t = 1; t <= lists.table_team_count; ++t) {
    const std::string name = lists.teams[t].team_name.text();
    const std::optional<double> success = total_results(lists.teams[t]).success();
    if (!success) {
      throw run_time_error(failure::division, "Division by zero: a team of the table has played no match",
                           {.file = file_name_text(files.ptr), .record = 0, .field = {}, .player = name});
    }
    ranking.push_back({name, *success});
  }
  std::stable_sort(ranking.begin(), ranking.end(),
                   [](const ranked_team& a, const ranked_team& b) { return a.success > b.success; });
  return ranking;
}

}  // namespace velorin
