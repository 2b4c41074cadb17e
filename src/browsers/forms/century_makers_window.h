// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "browsers/century_makers.h"
#include "browsers/forms/record_window.h"

namespace velorin {

class front_end;
struct open_database;

/// The players of most hundreds.
class CenturyMakersWindow : public RecordWindow {
 public:
  explicit CenturyMakersWindow(front_end& user, const open_database& database, century_makers_form& form,
                               QWidget* parent = front_window())
      : RecordWindow(user, database, QStringLiteral("centurytop"), form, true, parent) {}
};

}  // namespace velorin
