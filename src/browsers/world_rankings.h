// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "browsers/shown_table.h"

namespace velorin {

struct open_database;

/// The ranking of all teams. It has ten rows.
struct world_rankings_form : table_form {
  explicit world_rankings_form(const open_database& data) : data_(data) {}

  /// Fills the table. Reads the record lists. Raises run_time_error: an eleventh team (subscript), what ranking the
  /// teams raises, whatever read_record_lists raises.
  void open();

 private:
  const open_database& data_;
};

}  // namespace velorin
