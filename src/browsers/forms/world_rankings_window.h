// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "browsers/forms/record_window.h"
#include "browsers/world_rankings.h"

namespace velorin {

class front_end;
struct open_database;

/// The ranking of all teams.
class WorldRankingsWindow : public RecordWindow {
 public:
  explicit WorldRankingsWindow(front_end& user, const open_database& database, world_rankings_form& form,
                               QWidget* parent = front_window())
      : RecordWindow(user, database, QStringLiteral("wldrank"), form, false, parent) {}
};

}  // namespace velorin
