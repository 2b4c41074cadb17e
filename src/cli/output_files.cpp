// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/output_files.h"

#include <sys/stat.h>

#include <array>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <fmt/format.h>

#include "database/configuration.h"
#include "database/file_calls.h"
#include "database/game_files.h"
#include "database/open_database.h"
#include "database/whole_file.h"
#include "model/run_time_error.h"

namespace velorin::cli {

namespace {

namespace fs = std::filesystem;

/// What tells a file from others, by whatever name it is called.
using identity = std::pair<dev_t, ino_t>;

/// A file that the run reads or writes, which need not be there.
class used_file {
 public:
  used_file(std::string use, const fs::path& file) : use_(std::move(use)) {
    struct stat facts {};
    if (::stat(file.c_str(), &facts) == 0) {
      itself_ = identity(facts.st_dev, facts.st_ino);
      // A terminal, a pipe and the like take what several write.
      shared_ = !S_ISREG(facts.st_mode) && !S_ISDIR(facts.st_mode);
      return;
    }
    const fs::path real = real_file(file);
    name_ = real.filename();
    if (::stat(folder_of(real).c_str(), &facts) == 0) folder_ = identity(facts.st_dev, facts.st_ino);
  }

  const std::string& use() const { return use_; }
  bool is(const used_file& other) const {
    if (itself_ || other.itself_) return itself_ == other.itself_ && !shared_;
    return folder_ && folder_ == other.folder_ && name_ == other.name_;
  }

 private:
  std::string use_;
  std::optional<identity> itself_;
  bool shared_ = false;
  fs::path name_;  ///< where it would be made
  std::optional<identity> folder_;
};

[[noreturn]] void refuse(const std::string& option, const std::string& use, const fs::path& file) {
  throw run_time_error(failure::file, fmt::format("{} names the file of {}", option, use),
                       {.file = file_name_text(file), .record = 0, .field = {}, .player = {}});
}

}  // namespace

void require_outputs_apart(const open_database& data, const match_options& options, const fs::path& draws) {
  const std::array<std::pair<const char*, std::string>, 5> outputs = {
      {{"--json", options.json == "-" ? "/proc/self/fd/1" : options.json},
       {"--html", options.html},
       {"--text", options.text},
       {"--ball-by-ball", options.ball_by_ball},
       {"--record", options.records_to_folder ? "" : options.record}}};
  std::vector<used_file> used = {{"the teams", data.files.team_file},
                                 {"the grounds", data.files.ground_file},
                                 {"the careers", data.files.career_file},
                                 {"the records", data.files.record_file},
                                 {"the settings", data.files.folder / "options.mc"}};
  if (!draws.empty()) used.emplace_back("--draws", draws);
  for (const auto& [option, file] : outputs) {
    if (file.empty()) continue;
    used_file output(option, file);
    for (const used_file& other : used) {
      if (output.is(other)) refuse(option, other.use(), file);
    }
    if (const std::string use = game_use_of(data, file); !use.empty()) refuse(option, use, file);
    used.push_back(std::move(output));
  }
}

}  // namespace velorin::cli
