// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/shares.h"

#include <fmt/format.h>

#include <cmath>
#include <iostream>

namespace velorin::testing {

void share_check::cell(const std::string& what, double count, double share, double all) {
  ++cells_;
  const double expected = all * share;
  const double error = std::sqrt(expected * (1 - share));
  const double away = std::fabs(count - expected);
  if (error > 0 && away / error > worst_) {
    worst_ = away / error;
    worst_cell_ = what;
  }
  if (away <= 4 * error) return;
  strays_ += fmt::format("{}: {} of {}, expected {:.1f} +- {:.1f}; ", what, count, all, expected, error);
}

void share_check::report(const std::string& what, double draws) const {
  std::cout << fmt::format("{}: {} cells, {:.0f} draws, worst deviation {:.2f} standard errors ({})\n", what, cells_,
                           draws, worst_, worst_cell_);
}

}  // namespace velorin::testing
