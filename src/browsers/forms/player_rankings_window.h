// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "browsers/forms/record_window.h"
#include "browsers/player_rankings.h"

namespace velorin {

class front_end;
struct open_database;

/// The records of one team's players.
class PlayerRankingsWindow : public RecordWindow {
 public:
  explicit PlayerRankingsWindow(front_end& user, const open_database& database, player_rankings_form& form,
                                QWidget* parent = front_window())
      : RecordWindow(user, database, QStringLiteral("allrecs"), form, true, parent) {}
};

}  // namespace velorin
