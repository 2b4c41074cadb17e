// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "database/lasting_records.h"
#include "model/run_time_error.h"

// The win record of the teams. The ranking is not kept in any file: it follows from the team table each time.

namespace velorin {

struct open_database;

/// A team's results, at home, away or both.
struct team_results {
  double won = 0;
  double lost = 0;
  double tied = 0;

  double played() const { return won + lost + tied; }
  /// Matches won out of 100, to two decimals; ties earn nothing. Nothing before the first match. Raises run_time_error
  /// (overflow), with this place, for numbers too large to add up.
  std::optional<double> success(const error_place& row) const;
};

/// The row of a team in the record file in use, by its place from 1, as errors name it: by its first record.
error_place row_place(const open_database& data, const record_lists& lists, int team);

team_results home_results(const team_table& team);
team_results away_results(const team_table& team);
team_results total_results(const team_table& team);

struct ranked_team {
  std::string team;
  double success = 0;
};

/// All teams of the table by success, best first; equal ones in the order of the table. Raises run_time_error: a team
/// without a match (division), numbers too large to add up (overflow).
std::vector<ranked_team> rank_teams(const open_database& data, const record_lists& lists);

}  // namespace velorin
