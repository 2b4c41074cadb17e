// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "browsers/shown_table.h"

namespace velorin {

/// The ranking of all teams. It has ten rows.
struct world_rankings_form : table_form {
  /// Fills the table. Reads the record lists. Raises run_time_error: an eleventh team (subscript), what ranking the
  /// teams raises, whatever read_record_lists raises.
  void open();
};

}  // namespace velorin
