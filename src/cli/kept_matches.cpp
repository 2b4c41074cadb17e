// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/kept_matches.h"

#include <charconv>
#include <cstdlib>
#include <string_view>

#include "model/run_time_error.h"

namespace velorin::cli {

namespace {

constexpr std::size_t together = 32;

std::int64_t time_of_match() {
  const char* const given = std::getenv("SOURCE_DATE_EPOCH");  // NOLINT(concurrency-mt-unsafe): nobody sets it
  if (given == nullptr) return seconds_now();
  const std::string_view text(given);
  std::int64_t seconds = 0;
  const auto [end, failed] = std::from_chars(text.data(), text.data() + text.size(), seconds);
  const bool good = failed == std::errc() && end == text.data() + text.size() && seconds >= 0;
  return good ? seconds : seconds_now();
}

}  // namespace

kept_matches::kept_matches(database_files& files) : keeper_(together, time_of_match), files_(files) {
  if (files.updates) files.keeper = &keeper_;
}

kept_matches::~kept_matches() {
  if (!files_.updates) return;
  try {
    settle_archive(files_);
  } catch (const run_time_error&) {
    // They are in place beside the careers and wait there for whoever comes next.
  }
}

}  // namespace velorin::cli
