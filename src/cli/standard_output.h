// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <iosfwd>

namespace velorin::cli {

/// Writes out what is held back. Raises run_time_error (file) if standard output is bad then or was before, with the
/// cause where it writes to a file_buffer.
void require_written(std::ostream& out);

}  // namespace velorin::cli
