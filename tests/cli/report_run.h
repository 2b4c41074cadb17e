// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "cli/command_line.h"

namespace velorin::testing {

/// What a run of the companion came to.
struct run_result {
  int status = 0;
  std::string out;
  std::string err;
};

/// Runs the companion in this process on the data files in `folder`.
inline run_result run_on(const std::filesystem::path& folder, const std::vector<std::string>& arguments) {
  std::vector<std::string> all = {"--teams-dir", folder.string()};
  all.insert(all.end(), arguments.begin(), arguments.end());
  std::ostringstream out;
  std::ostringstream err;
  const int status = cli::run(all, folder, {out, err});
  return {status, out.str(), err.str()};
}

}  // namespace velorin::testing
