// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "model/records.h"

// What makes teams and grounds fit for play. The checker and the builder of databases share these rules.

namespace velorin {

/// A rule broken by a team or a ground.
struct rule_fault {
  int place = 0;       ///< squad place, 0 for the record itself
  std::string field;   ///< name in the record, "" for the record as a whole
  std::string column;  ///< name of the column that holds it
  std::string what;
};

/// The faults of a team; `before` are the teams ahead of it, whose names are taken.
std::vector<rule_fault> team_faults(const team_rec& team, const std::vector<team_rec>& before);

/// The faults of a ground; `teams` are those of its database, or nullptr if they are not known.
std::vector<rule_fault> ground_faults(const ground_rec& ground, const std::vector<team_rec>* teams);

/// True if a squad place holds nothing at all.
bool is_blank(const player_rec& man);

}  // namespace velorin
