// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/match_records.h"

// What makes teams and grounds fit for play. The checker and the builder of databases share these rules.

namespace velorin {

/// A rule broken by a team or a ground.
struct rule_fault {
  int place = 0;       ///< squad place, 0 for the record itself
  std::string field;   ///< name in the record, "" for the record as a whole
  std::string column;  ///< name of the column that holds it
  std::string what;
};

inline constexpr int least_teams = 2;
inline constexpr int least_players = 11;  ///< of a team
/// Ratings up to which the scale of a delivery has a place for a wicket, at even aggression.
inline constexpr int most_balls = 1000;  ///< `bat_skill` and `bowl_sr`
inline constexpr int most_econ = 36;     ///< six runs a ball

/// The faults of a team; `before` are the teams ahead of it, whose names are taken.
std::vector<rule_fault> team_faults(const team_rec& team, const std::vector<team_rec>& before);

/// The faults of a ground; `teams` are those of its database, or nullptr if they are not known.
std::vector<rule_fault> ground_faults(const ground_rec& ground, const std::vector<team_rec>* teams);

/// What is missing for play between any two teams: a second team, a ground for two of them.
std::optional<std::string> teams_missing(std::size_t teams);
std::vector<std::string> grounds_missing(const std::vector<team_rec>& teams, const std::vector<ground_rec>& grounds);

/// What is wrong with a text of any file, or nothing.
std::optional<std::string> text_fault(std::string_view text);

/// True if a squad place holds nothing at all.
bool is_blank(const player_rec& man);

}  // namespace velorin
