// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/output_files.h"

#include <array>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include <fmt/format.h>

#include "database/configuration.h"
#include "database/file_calls.h"
#include "database/whole_file.h"
#include "model/run_time_error.h"

namespace velorin::cli {

namespace {

namespace fs = std::filesystem;

bool are_one(const fs::path& one, const fs::path& other) {
  std::error_code missing;
  if (fs::equivalent(one, other, missing)) return true;
  return one.filename() == other.filename() && fs::equivalent(folder_of(one), folder_of(other), missing);
}

/// A terminal, a pipe and the like take what several write.
bool is_shared(const fs::path& file) {
  std::error_code missing;
  const fs::file_status status = fs::status(file, missing);
  return fs::exists(status) && !fs::is_regular_file(status) && !fs::is_directory(status);
}

}  // namespace

void require_outputs_apart(const match_options& options, const fs::path& draws) {
  std::vector<std::pair<std::string, fs::path>> named = {{"the teams", files.team},
                                                         {"the grounds", files.grd},
                                                         {"the careers", files.rec},
                                                         {"the records", files.ptr},
                                                         {"the settings", files.folder / "options.mc"}};
  if (!draws.empty()) named.emplace_back("--draws", draws);
  const std::array<std::pair<const char*, std::string>, 4> outputs = {
      {{"--json", options.json == "-" ? std::string() : options.json},
       {"--html", options.html},
       {"--text", options.text},
       {"--ball-by-ball", options.ball_by_ball}}};
  for (const auto& [option, file] : outputs) {
    if (file.empty() || is_shared(file)) continue;
    for (const auto& [other, taken] : named) {
      if (!are_one(file, taken)) continue;
      throw run_time_error(failure::file, fmt::format("{} names the file of {}", option, other),
                           {.file = file_name_text(file), .record = 0, .field = {}, .player = {}});
    }
    named.emplace_back(option, file);
  }
}

}  // namespace velorin::cli
