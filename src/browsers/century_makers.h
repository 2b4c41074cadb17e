// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "browsers/shown_table.h"

namespace velorin {

/// The 15 players of most hundreds. A row without a hundred is hidden.
struct century_makers_form : table_form {
  /// Fills the table. Reads the careers; raises what read_career_table raises.
  void open();
};

}  // namespace velorin
