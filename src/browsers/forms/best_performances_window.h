// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "browsers/forms/record_window.h"
#include "browsers/record_tables.h"

namespace velorin {

class front_end;
struct open_database;

/// The highest individual scores, or the best bowling figures.
class BestPerformancesWindow : public RecordWindow {
 public:
  explicit BestPerformancesWindow(front_end& user, const open_database& database, best_performances_form& form,
                                  QWidget* parent = front_window())
      : RecordWindow(user, database, QStringLiteral("highinduv"), form, true, parent) {}
};

}  // namespace velorin
