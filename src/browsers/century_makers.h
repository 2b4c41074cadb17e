// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "browsers/shown_table.h"

namespace velorin {

struct open_database;

/// The 15 players of most hundreds. A row without a hundred is hidden.
struct century_makers_form : table_form {
  explicit century_makers_form(const open_database& data) : data_(data) {}

  /// Fills the table. Reads the careers; raises what read_career_table raises.
  void open();

 private:
  const open_database& data_;
};

}  // namespace velorin
