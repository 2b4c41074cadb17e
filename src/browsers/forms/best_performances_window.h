// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "browsers/forms/record_window.h"
#include "browsers/record_tables.h"

namespace velorin {

/// The highest individual scores, or the best bowling figures.
class BestPerformancesWindow : public RecordWindow {
 public:
  explicit BestPerformancesWindow(best_performances_form& form, QWidget* parent = front_window())
      : RecordWindow(QStringLiteral("highinduv"), form, true, parent) {}
};

}  // namespace velorin
