// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "browsers/allrecs.h"
#include "browsers/forms/record_window.h"

namespace velorin {

/// A ranking of all players, or the records of one team's players.
class AllrecsWindow : public RecordWindow {
 public:
  explicit AllrecsWindow(allrecs& form, QWidget* parent = front_window())
      : RecordWindow(QStringLiteral("allrecs"), form, true, parent) {}
};

}  // namespace velorin
