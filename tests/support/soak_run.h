// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <chrono>
#include <string>

namespace velorin::testing {

/// How many matches a soak plays: those that the environment's VELORIN_SOAK_MATCHES tells, else `optimised`, or, in a
/// build with checks or sanitizers woven in, `checked`. Fails the test and plays `checked` if the variable is no number
/// from 1 to 100 million.
int soak_matches(int optimised, int checked);

/// The clock, the balls and the resident memory of a soak.
class soak_run {
 public:
  explicit soak_run(int matches);

  int matches() const { return matches_; }
  long balls() const { return balls_; }

  /// After each match. Reads the resident memory once a tenth, the half and all of them are played.
  void after_match(int balls);

  /// "" if the resident memory after all matches, and after half of them, is within a mebibyte of that after a tenth;
  /// else the figures. A sanitizer keeps what is freed and looks for leaks itself: then always "".
  std::string growth() const;

  /// Prints matches, balls, seconds, the resident memory at the three points and its peak.
  void report() const;

 private:
  std::string figures() const;

  int matches_;
  int played_ = 0;
  long balls_ = 0;
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
  std::array<long, 3> resident_{};  ///< KiB after a tenth, the half, all
};

}  // namespace velorin::testing
