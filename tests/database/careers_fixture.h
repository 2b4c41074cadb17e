// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "database/career_update.h"
#include "database/database_fixture.h"
#include "database/lasting_records.h"
#include "support/game_in_play.h"

namespace velorin::testing {

/// A finished match in play, and the careers as an update leaves them.
class careers_fixture : public database_fixture {
 protected:
  void SetUp() override {
    database_fixture::SetUp();
    set_up_finished_match();
  }

  /// The career of a man after the update.
  static career_rec career_of(const std::string& team, const std::string& name) {
    const career_table table = read_career_table(data);
    for (int t = 1; t <= table.career_team_count; ++t) {
      if (table.teams[t].team_name != team) continue;
      for (int p = 1; p <= table.teams[t].player_count; ++p) {
        if (table.teams[t].players[p].name == name) return table.teams[t].players[p];
      }
    }
    ADD_FAILURE() << "no career of " << name;
    return {};
  }
};

}  // namespace velorin::testing
