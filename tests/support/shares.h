// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace velorin::testing {

/// Draws of one sample: a million in optimised builds, and a tenth of that with checks or sanitizers woven in.
#if defined(NDEBUG) && !defined(VELORIN_SANITIZED)
inline constexpr int sample_size = 1000000;
#else
inline constexpr int sample_size = 100000;
#endif

/// Counts of samples held against the shares that they should have.
class share_check {
 public:
  /// `count` of `all` draws, each of which has this share. More than four standard errors away is a stray; a share of 0
  /// or 1 leaves no room at all.
  void cell(const std::string& what, double count, double share, double all = sample_size);

  /// Every stray with its figures, or "".
  const std::string& strays() const { return strays_; }
  /// Prints the cells, the draws that the caller tells and the worst deviation.
  void report(const std::string& what, double draws) const;

 private:
  int cells_ = 0;
  double worst_ = 0;  ///< standard errors
  std::string worst_cell_;
  std::string strays_;
};

}  // namespace velorin::testing
