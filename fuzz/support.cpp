// SPDX-License-Identifier: GPL-3.0-or-later
#include "support.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>

#include "competitions/series.h"
#include "competitions/tri_series.h"
#include "competitions/world_cup.h"
#include "database/configuration.h"
#include "database/teams_file.h"
#include "database/whole_file.h"
#include "model/match_state.h"
#include "model/random.h"
#include "support/game_in_play.h"

namespace velorin::fuzz {

namespace {

/// A folder that is gone with the object.
struct scratch_folder {
  std::filesystem::path path;

  scratch_folder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "velorin-fuzz-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) std::abort();
    path = pattern;
  }
  ~scratch_folder() {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
  }
  scratch_folder(const scratch_folder&) = delete;
  scratch_folder& operator=(const scratch_folder&) = delete;
};

}  // namespace

const std::filesystem::path& scratch() {
  static const scratch_folder folder;
  return folder.path;
}

void fresh_state() {
  match = match_state();
  series = series_record();
  tri = tri_record();
  world_cup = world_cup_record();
  data.settings = configuration();
  data.files = database_paths(scratch(), "base");
  forget_teams_and_grounds(data);
  chance.use_seed(1);
}

std::filesystem::path small_tables() { return VELORIN_FUZZ_TABLES; }

void write_bytes(const std::filesystem::path& file, std::string_view bytes) {
  const int opened = ::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  const bool written = opened >= 0 && ::write(opened, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size());
  if (opened >= 0) ::close(opened);
  require(written, "the scratch folder takes files");
}

std::string bytes_of(const std::filesystem::path& file) {
  const auto bytes = read_file(file);
  require(bytes.has_value(), "the file is there", file.native());
  return *bytes;
}

void require(bool kept, std::string_view promise, std::string_view shown) {
  if (kept) return;
  std::fprintf(stderr, "Broken promise: %.*s\n", static_cast<int>(promise.size()), promise.data());
  if (!shown.empty()) std::fprintf(stderr, "  %.*s\n", static_cast<int>(shown.size()), shown.data());
  std::abort();
}

void require_named(const run_time_error& error, std::string_view file) {
  const std::string text = error.what();
  require(text.find(file) != std::string::npos, "an error names the file", text);
  const auto ends_line = [](char c) { return static_cast<unsigned char>(c) < ' '; };
  require(std::none_of(text.begin(), text.end(), ends_line), "an error is one line", text);
  // What concerns a whole file needs no field, and the place in a table is its line.
  const bool line_told = text.starts_with("Line ") || text.starts_with("Header line: ");
  const bool placed = error.kind() == failure::file || !error.place().field.empty() || line_told;
  require(placed, "an error names the field", text);
}

void require_bytes(const std::filesystem::path& file, std::string_view bytes) {
  static std::array<char, 65536> piece;
  const int opened = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
  require(opened >= 0, "the file is there", file.native());
  for (;;) {
    const ssize_t got = ::read(opened, piece.data(), piece.size());
    require(got >= 0, "the file can be read", file.native());
    if (got == 0) break;
    const auto size = static_cast<std::size_t>(got);
    require(bytes.substr(0, size) == std::string_view(piece.data(), size), "the file stays as it was", file.native());
    bytes.remove_prefix(size);
  }
  ::close(opened);
  require(bytes.empty(), "the file stays as it was", file.native());
}

unchanged::unchanged(std::filesystem::path file, std::string_view bytes) : file_(std::move(file)), bytes_(bytes) {
  write_bytes(file_, bytes_);
}

unchanged::~unchanged() { require_bytes(file_, bytes_); }

}  // namespace velorin::fuzz
