// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/standard_output.h"

#include <ostream>
#include <string>
#include <system_error>

#include "database/file_buffer.h"
#include "model/run_time_error.h"

namespace velorin::cli {

void require_written(std::ostream& out) {
  out.flush();
  if (out) return;
  std::string happened = "Standard output cannot be written";
  const auto* const file = dynamic_cast<const file_buffer*>(out.rdbuf());
  if (file != nullptr && file->cause() != 0) happened += ": " + std::generic_category().message(file->cause());
  throw run_time_error(failure::file, happened);
}

}  // namespace velorin::cli
