// SPDX-License-Identifier: GPL-3.0-or-later
#include "browsers/team_ranking.h"

#include <algorithm>
#include <cmath>

#include "database/configuration.h"
#include "database/layout.h"
#include "database/open_database.h"
#include "database/whole_file.h"
#include "model/rounding.h"

namespace velorin {

namespace {

/// A figure worked out from a row of the table, whose numbers may have any size. Raises run_time_error (overflow).
double fitting(double figure, const error_place& row) {
  if (std::isfinite(figure)) return figure;
  throw run_time_error(failure::overflow, "Overflow: the results of a team do not fit a Double", row);
}

}  // namespace

std::optional<double> team_results::success(const error_place& row) const {
  if (fitting(played(), row) == 0) return std::nullopt;
  return fitting(round_to(won * 100 / played(), 2), row);
}

error_place row_place(const open_database& data, const record_lists& lists, int team) {
  return {.file = file_name_text(data.files.record_file),
          .record = table_record(team),
          .field = "away_won",
          .player = lists.teams[team].team_name.text()};
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

std::vector<ranked_team> rank_teams(const open_database& data, const record_lists& lists) {
  std::vector<ranked_team> ranking;
  for (int t = 1; t <= lists.table_team_count; ++t) {
    const error_place row = row_place(data, lists, t);
    const std::optional<double> success = total_results(lists.teams[t]).success(row);
    if (!success) {
      throw run_time_error(failure::division, "Division by zero: a team of the table has played no match", row);
    }
    ranking.push_back({row.player, *success});
  }
  std::stable_sort(ranking.begin(), ranking.end(),
                   [](const ranked_team& a, const ranked_team& b) { return a.success > b.success; });
  return ranking;
}

}  // namespace velorin
