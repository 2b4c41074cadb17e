// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "forecast/rest_player.h"

// What many rests of a match add up to. Whole numbers alone are summed, so that the order of the runs does not matter.

namespace velorin {

/// A side's total at the end of the match.
struct total_forecast {
  double mean = 0;
  int p10 = 0;  ///< the least total that so many hundredths of the runs do not exceed
  int p50 = 0;
  int p90 = 0;
};

/// What is to be expected of a match.
struct forecast_answer {
  std::string first;  ///< bats first; as long as nobody has seen the coin fall, the team chosen first
  std::string second;
  long runs = 0;       ///< rests that were played
  long undecided = 0;  ///< of these, those without a result or broken off; all figures leave them out
  double win_first = 0;
  double tie = 0;  ///< the three sum to 1, or are 0 where no rest was decided
  double win_second = 0;
  total_forecast first_total;
  total_forecast second_total;
};

class result_tally {
 public:
  void add(const played_rest& rest);
  void add(const result_tally& other);

  long runs() const { return runs_; }
  /// The sides are left empty.
  forecast_answer answer() const;

 private:
  using histogram = std::vector<std::uint32_t>;  // [total] how often

  std::array<long, 4> outcomes_{};
  std::array<histogram, 2> totals_;
  long runs_ = 0;
};

}  // namespace velorin
