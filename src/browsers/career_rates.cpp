// SPDX-License-Identifier: GPL-3.0-or-later
#include "browsers/career_rates.h"

#include "model/rounding.h"
#include "model/texts.h"

namespace velorin {

namespace {

/// Figures have 32 bits, so their products and sums are exact in doubles.
career_rate quotient(double dividend, double divisor) {
  if (!(divisor > 0)) return std::nullopt;
  return round_to(dividend / divisor, 2);
}

}  // namespace

career_rate batting_average(const career_rec& career) {
  return quotient(career.runs, static_cast<double>(career.innings) - career.not_outs);
}

career_rate batting_strike_rate(const career_rec& career) { return quotient(career.runs * 100.0, career.balls_faced); }

career_rate fifty_plus_rate(const career_rec& career) {
  return quotient((static_cast<double>(career.hundreds) + career.fifties) * 100.0, career.innings);
}

career_rate bowling_average(const career_rec& career) { return quotient(career.runs_given, career.wickets); }

career_rate bowling_strike_rate(const career_rec& career) { return quotient(career.balls_bowled, career.wickets); }

career_rate economy_rate(const career_rec& career) { return quotient(career.runs_given * 6.0, career.balls_bowled); }

std::string rate_text(const career_rate& rate, std::string_view none) {
  return rate ? number_text(*rate) : std::string(none);
}

std::string high_score_text(const career_rec& career) {
  return number_text(career.high_score) + (career.high_not_out != 0 ? "*" : "");
}

std::string best_bowling_text(const career_rec& career) {
  return number_text(career.best_wickets) + "/" + number_text(career.best_runs);
}

}  // namespace velorin
