// SPDX-License-Identifier: GPL-3.0-or-later
#include "forecast/forecast_words.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

namespace velorin {

std::string chance_words(double chance, bool certain) {
  const double percent = 100 * chance;
  if (certain && (chance == 0 || chance == 1)) return chance == 0 ? "0 %" : "100 %";
  if (percent < 0.5) return "<1 %";
  if (percent > 99.5) return ">99 %";
  return fmt::format("{} %", std::lround(percent));
}

std::string stage_words(const std::vector<double>& stages, int settled, std::size_t stage) {
  const auto known = std::min(static_cast<std::size_t>(settled), stages.size());
  const bool out = std::any_of(stages.begin(), stages.begin() + static_cast<std::ptrdiff_t>(known),
                               [](double chance) { return chance == 0; });
  return chance_words(stages[stage], out || stage < known);
}

std::string chances_sentence(const forecast_answer& answer) {
  constexpr double least_told = 0.005;
  std::string sentence = fmt::format("{} {}, {} {}", answer.first, chance_words(answer.win_first), answer.second,
                                     chance_words(answer.win_second));
  if (answer.tie >= least_told) sentence += ", tie " + chance_words(answer.tie);
  return sentence;
}

std::string total_words(const total_forecast& total) {
  return fmt::format("{} ({}\x96{})", std::lround(total.mean), total.p10, total.p90);
}

std::string total_sentence(const total_forecast& total) {
  return fmt::format("{}, four times in five from {} to {}", std::lround(total.mean), total.p10, total.p90);
}

std::string win_words(const advice& told, long runs) {
  const double error = std::sqrt(told.win * (1 - told.win) / static_cast<double>(runs));
  return fmt::format("{:.1f} % \xB1 {:.1f}", 100 * told.win, 100 * error);
}

std::string difference_words(const advice& told) {
  return fmt::format("{:+.1f} % \xB1 {:.1f}", 100 * told.difference, 100 * told.standard_error);
}

}  // namespace velorin
