// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "browsers/forms/record_window.h"
#include "browsers/record_tables.h"

namespace velorin {

/// The highest or the lowest totals.
class TotrecordsWindow : public RecordWindow {
 public:
  explicit TotrecordsWindow(totrecords& form, QWidget* parent = front_window())
      : RecordWindow(QStringLiteral("totrecords"), form, true, parent) {}
};

}  // namespace velorin
