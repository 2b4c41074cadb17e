// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/slots.h"

namespace velorin {

/// The file of record lists and team table of the database in use with the match added, as it stands at its end. Reads
/// match and <base>.ptr, changes neither. Raises run_time_error as update_records().
slot_file records_with_match();

/// Finishes an update of both files that was cut off between them, before one of them is replaced alone. Requires the
/// lock of their folder. Raises run_time_error (file).
void settle_update();

}  // namespace velorin
