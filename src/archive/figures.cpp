// SPDX-License-Identifier: GPL-3.0-or-later
#include "archive/figures.h"

#include "model/texts.h"

namespace velorin {

std::string best_score_text(std::int64_t value) {
  return number_text(static_cast<long>(value / 2)) + (value % 2 != 0 ? "*" : "");
}

std::string best_bowling_text(std::int64_t value) {
  const std::int64_t wickets = (value + most_runs_given - 1) / most_runs_given;
  return number_text(static_cast<long>(wickets)) + "/" +
         number_text(static_cast<long>(wickets * most_runs_given - value));
}

}  // namespace velorin
