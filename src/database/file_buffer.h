// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <streambuf>
#include <vector>

#include "database/file_calls.h"

namespace velorin {

/// Collects what a stream writes, and passes it on to an open file. What has not been passed on at its end is dropped.
class file_buffer : public std::streambuf {
 public:
  explicit file_buffer(const descriptor& file);
  int cause() const { return cause_; }  ///< number of the error that a write came to, or 0

 protected:
  int_type overflow(int_type next) override;
  int sync() override;

 private:
  const descriptor& file_;
  std::vector<char> held_;
  int cause_ = 0;
};

}  // namespace velorin
