// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "archive/archived_match.h"

// The matches that wait for the archive, and what else it is to do first. docs/formats/archive.md describes the file.

namespace velorin {

/// The careers and records that were there before the first match of an archive: the bytes of both files.
struct books_before {
  std::string careers;
  std::string records;
};

struct waiting_matches {
  std::int64_t empty_until = 0;        ///< matches up to this id are gone with careers that began anew; 0 none
  std::optional<books_before> before;  ///< an archive begins on these
  std::vector<archived_match> matches;

  bool empty() const { return empty_until == 0 && !before && matches.empty(); }
};

/// No bytes are nothing waiting. Raises run_time_error (file) for damaged ones, and for those of a newer version.
/// `name` is the file's.
waiting_matches waiting_in(std::string_view bytes, const std::string& name);
std::string bytes_of(const waiting_matches& waiting);

}  // namespace velorin
