// SPDX-License-Identifier: GPL-3.0-or-later
// The chance behind deliveries and dismissals, at full speed and in large numbers.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <sstream>
#include <string>
#include <vector>

#include "engine/ball_books.h"
#include "engine/delivery_model.h"
#include "model/random.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"

namespace velorin::testing {
namespace {

constexpr int sample_size = 1000000;

class Chances : public ::testing::Test {
 protected:
  void SetUp() override {
    set_up_sample_match();
    match.striker = 1;
    match.non_striker = 2;
    match.bowler = 8;
    match.batting_xi[1].bat_skill = 40;
    match.bowling_xi[8].bowl_sr = 36.0F;
    match.bowling_xi[8].econ = 4.5F;
    match.batsman_aggression = {3, 3};
    match.bowling_aggression = {3, 3};
  }
  void TearDown() override {
    match = match_state();
    chance.use_clock();
  }
};

/// Says where a count strays from its share by more than four standard errors; "" if it does not.
std::string stray(const std::string& what, double count, double share, double all) {
  const double error = std::sqrt(all * share * (1 - share));
  if (std::fabs(count - all * share) <= 4 * error) return {};
  std::ostringstream said;
  said << what << ": " << count << " of " << all << ", expected " << all * share << " +- " << error << "; ";
  return said.str();
}

/// Correlation of each value with the one behind it.
double lag_one_correlation(const std::vector<double>& values) {
  double mean = 0;
  for (const double value : values) mean += value;
  mean /= static_cast<double>(values.size());
  double square = 0;
  double product = 0;
  for (std::size_t i = 0; i < values.size(); ++i) {
    square += (values[i] - mean) * (values[i] - mean);
    if (i > 0) product += (values[i] - mean) * (values[i - 1] - mean);
  }
  return product / square;
}

std::string stray_correlation(const std::string& what, const std::vector<double>& values) {
  const double correlation = lag_one_correlation(values);
  if (std::fabs(correlation) <= 4 / std::sqrt(static_cast<double>(values.size()))) return {};
  return what + " correlate with the next by " + std::to_string(correlation) + "; ";
}

/// A million deliveries between even men, one right behind the other. What strays, or "".
std::string strays_of_deliveries() {
  constexpr std::array<double, 12> windows = {476, 311, 75, 19, 62, 0, 7, 25, 8, 9, 5, 3};
  // The middle of each outcome's window on the scale, in its place.
  constexpr std::array<double, 12> middles = {762.5, 181, 374, 421, 461.5, 0, 496, 13, 503.5, 512, 519, 523};
  std::array<int, 12> counts{};
  std::vector<double> places;
  places.reserve(sample_size);
  for (int i = 0; i < sample_size; ++i) {
    deliver_ball(match, chance);
    const auto outcome = static_cast<std::size_t>(static_cast<int>(match.ball_outcome));
    ++counts[outcome];
    places.push_back(middles[outcome]);
  }
  EXPECT_EQ(counts[5], 0);
  std::string strays = stray_correlation("outcomes", places);
  for (std::size_t outcome = 0; outcome < counts.size(); ++outcome) {
    if (outcome == 5) continue;
    strays += stray("outcome " + std::to_string(outcome), counts[outcome], windows[outcome] / 1000, sample_size);
  }
  return strays;
}

/// A million draws, each after a reading of the clock, as deliveries take them. What strays, or "".
std::string strays_of_draws() {
  std::vector<double> draws;
  draws.reserve(sample_size);
  std::array<int, 10> tenths{};
  for (int i = 0; i < sample_size; ++i) {
    chance.reseed();
    const int draw = die(chance, 1000);
    draws.push_back(draw);
    ++tenths[static_cast<std::size_t>((draw - 1) / 100)];
  }
  std::string strays = stray_correlation("draws", draws);
  for (std::size_t i = 0; i < tenths.size(); ++i) {
    strays += stray("tenth " + std::to_string(i + 1), tenths[i], 0.1, sample_size);
  }
  return strays;
}

// The clock gives another sample in each run, and a fair one strays beyond four standard errors about once in a
// thousand runs. Only a second sample that strays as well is a fault.

TEST_F(Chances, DeliveriesOnTheClockFillTheirWindows) {
  chance.use_clock();
  if (const std::string first = strays_of_deliveries(); !first.empty()) {
    EXPECT_EQ(strays_of_deliveries(), "") << "twice in a row; before: " << first;
  }
}

TEST_F(Chances, DrawsOnTheClockAreIndependent) {
  chance.use_clock();
  if (const std::string first = strays_of_draws(); !first.empty()) {
    EXPECT_EQ(strays_of_draws(), "") << "twice in a row; before: " << first;
  }
}

TEST_F(Chances, DismissalsHaveTheirShares) {
  chance.use_seed(2026);
  match.bowling_xi[8].bowler_type = "spinner";
  int bowled = 0;
  int behind = 0;
  int run_outs = 0;
  int stumped = 0;
  int in_the_field = 0;
  int by_the_bowler = 0;
  int leg_before = 0;
  std::array<int, 12> run_out_by{};
  for (int i = 0; i < sample_size; ++i) {
    batting_card_rec& card = match.batting_card[1];
    card.how_out.clear();
    card.fielder.clear();
    delivery ball;
    record_dismissal(match, chance, ball);
    if (ball.how == dismissal::run_out) {
      ++run_outs;
      const std::string name = card.how_out.substr(16, card.how_out.size() - 17);  // behind " run out (A.Bowl"
      ++run_out_by[std::stoul(name)];
    } else if (card.fielder.starts_with(" st ")) {
      ++stumped;
    } else if (card.how_out.starts_with(" lbw ")) {
      ++leg_before;
    } else if (card.how_out.starts_with(" c && b ")) {
      ++by_the_bowler;
    } else if (card.fielder.empty()) {
      ++bowled;
    } else {
      ++(card.fielder == " c A.Bowl7" ? behind : in_the_field);
    }
  }
  const double one_catcher = 55.0 / 110 / 11;
  EXPECT_EQ(stray("bowled", bowled, 11.0 / 110, sample_size), "");
  EXPECT_EQ(stray("caught by the keeper", behind, 19.0 / 110 + one_catcher, sample_size), "");
  EXPECT_EQ(stray("run out", run_outs, 10.0 / 110, sample_size), "");
  EXPECT_EQ(stray("stumped", stumped, 5.0 / 110, sample_size), "");
  EXPECT_EQ(stray("caught and bowled", by_the_bowler, one_catcher, sample_size), "");
  EXPECT_EQ(stray("caught by one of nine", in_the_field, 9 * one_catcher, sample_size), "");
  EXPECT_EQ(stray("leg before", leg_before, 10.0 / 110, sample_size), "");
  for (std::size_t i = 1; i <= 11; ++i) {
    EXPECT_EQ(stray("run out by " + std::to_string(i), run_out_by[i], 10.0 / 110 / 11, sample_size), "");
  }
}

}  // namespace
}  // namespace velorin::testing
