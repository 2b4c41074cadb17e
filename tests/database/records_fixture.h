// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/career_update.h"
#include "database/database_fixture.h"
#include "database/lasting_records.h"
#include "support/game_in_play.h"

namespace velorin::testing {

/// A finished match in play, and the records as an update leaves them.
class records_fixture : public database_fixture {
 protected:
  void SetUp() override {
    database_fixture::SetUp();
    set_up_finished_match();
  }

  static record_lists updated() {
    update_records(match, data);
    return read_record_lists(data);
  }

  /// A match in which nobody does anything and nobody wins.
  static void set_up_quiet_match() {
    const ground_rec ground = match.ground;
    match = match_state();
    match.team1_name = "Tamar";
    match.team2_name = "Alba";
    match.ground = ground;
  }
};

}  // namespace velorin::testing
