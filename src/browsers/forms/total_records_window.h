// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "browsers/forms/record_window.h"
#include "browsers/record_tables.h"

namespace velorin {

class front_end;
struct open_database;

/// The highest or the lowest totals.
class TotalRecordsWindow : public RecordWindow {
 public:
  explicit TotalRecordsWindow(front_end& user, const open_database& database, total_records_form& form,
                              QWidget* parent = front_window())
      : RecordWindow(user, database, QStringLiteral("totrecords"), form, true, parent) {}
};

}  // namespace velorin
