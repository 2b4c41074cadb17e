// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "browsers/forms/record_window.h"
#include "browsers/record_tables.h"

namespace velorin {

/// The highest or the lowest totals.
class TotalRecordsWindow : public RecordWindow {
 public:
  explicit TotalRecordsWindow(total_records_form& form, QWidget* parent = front_window())
      : RecordWindow(QStringLiteral("totrecords"), form, true, parent) {}
};

}  // namespace velorin
