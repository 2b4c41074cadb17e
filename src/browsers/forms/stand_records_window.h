// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "browsers/forms/record_window.h"
#include "browsers/record_tables.h"

namespace velorin {

class front_end;
struct open_database;

/// The record stand for each wicket, the wicket standing before it. Both men have a button.
class StandRecordsWindow : public RecordWindow {
 public:
  explicit StandRecordsWindow(front_end& user, const open_database& database, stand_records_form& form,
                              QWidget* parent = front_window())
      : RecordWindow(user, database, QStringLiteral("partnrec"), form, true, parent) {
    add_profile_button(QStringLiteral("partner"), {.caption = QStringLiteral("Partner's Profile"), .mnemonic = u'a'},
                       1);
  }
};

}  // namespace velorin
