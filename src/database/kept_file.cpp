// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/kept_file.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <ctime>

#include "model/run_time_error.h"

namespace velorin {

namespace {

constexpr std::int64_t settling_time = 100'000'000;  ///< nanoseconds in which a file may change without a trace

std::int64_t nanoseconds(const timespec& time) { return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec; }

}  // namespace

file_state state_of(const std::filesystem::path& file) {
  struct stat facts {};
  if (::stat(file.c_str(), &facts) != 0) {
    if (errno == ENOENT) {
      throw run_time_error(failure::file, "The file is missing", {file_name_text(file), 0, {}, {}});
    }
    raise_file_error("The file cannot be read", errno, file);
  }
  return {facts.st_dev, facts.st_ino, facts.st_size, nanoseconds(facts.st_mtim), nanoseconds(facts.st_ctim)};
}

bool is_settled(const file_state& state) {
  timespec read_at{};
  ::clock_gettime(CLOCK_REALTIME, &read_at);
  return nanoseconds(read_at) - std::max(state.modified, state.changed) >= settling_time;
}

}  // namespace velorin
