// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>

namespace velorin::testing {

/// Standard output goes on at the end of a file while this lives.
class redirected_output {
 public:
  explicit redirected_output(const std::filesystem::path& path) {
    std::fflush(stdout);
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
    ::dup2(file, STDOUT_FILENO);
    ::close(file);
  }
  ~redirected_output() {
    ::dup2(before_, STDOUT_FILENO);
    ::close(before_);
  }
  redirected_output(const redirected_output&) = delete;
  redirected_output& operator=(const redirected_output&) = delete;

 private:
  int before_ = ::dup(STDOUT_FILENO);
};

}  // namespace velorin::testing
