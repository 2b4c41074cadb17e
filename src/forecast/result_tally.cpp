// SPDX-License-Identifier: GPL-3.0-or-later
#include "forecast/result_tally.h"

#include <algorithm>
#include <cstddef>

namespace velorin {

namespace {

void count(std::vector<std::uint32_t>& histogram, int total, std::uint32_t times = 1) {
  const auto place = static_cast<std::size_t>(std::max(total, 0));
  if (place >= histogram.size()) histogram.resize(place + 1);
  histogram[place] += times;
}

/// The least total that `share` of so many do not exceed, in hundredths.
int quantile(const std::vector<std::uint32_t>& histogram, long decided, int hundredths) {
  long below = 0;
  for (std::size_t total = 0; total < histogram.size(); ++total) {
    below += histogram[total];
    if (below * 100 >= decided * hundredths) return static_cast<int>(total);
  }
  return 0;
}

total_forecast summed_up(const std::vector<std::uint32_t>& histogram, long decided) {
  if (decided == 0) return {};
  std::uint64_t sum = 0;
  for (std::size_t total = 0; total < histogram.size(); ++total) sum += total * histogram[total];
  return {static_cast<double>(sum) / static_cast<double>(decided), quantile(histogram, decided, 10),
          quantile(histogram, decided, 50), quantile(histogram, decided, 90)};
}

}  // namespace

void result_tally::add(const played_rest& rest) {
  ++runs_;
  ++outcomes_[static_cast<std::size_t>(rest.outcome)];
  if (rest.outcome == rest_outcome::undecided) return;
  count(totals_[0], rest.first.runs);
  count(totals_[1], rest.second.runs);
}

void result_tally::add(const result_tally& other) {
  runs_ += other.runs_;
  for (std::size_t i = 0; i < outcomes_.size(); ++i) outcomes_[i] += other.outcomes_[i];
  for (std::size_t side = 0; side < totals_.size(); ++side) {
    const histogram& counted = other.totals_[side];
    for (std::size_t total = 0; total < counted.size(); ++total) {
      if (counted[total] != 0) count(totals_[side], static_cast<int>(total), counted[total]);
    }
  }
}

forecast_answer result_tally::answer() const {
  const auto times = [this](rest_outcome outcome) { return outcomes_[static_cast<std::size_t>(outcome)]; };
  forecast_answer told;
  told.runs = runs_;
  told.undecided = times(rest_outcome::undecided);
  const long decided = told.runs - told.undecided;
  if (decided == 0) return told;
  const auto share = [&](rest_outcome outcome) {
    return static_cast<double>(times(outcome)) / static_cast<double>(decided);
  };
  told.win_first = share(rest_outcome::first_wins);
  told.tie = share(rest_outcome::tie);
  told.win_second = share(rest_outcome::second_wins);
  told.first_total = summed_up(totals_[0], decided);
  told.second_total = summed_up(totals_[1], decided);
  return told;
}

}  // namespace velorin
