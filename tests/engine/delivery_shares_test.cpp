// SPDX-License-Identifier: GPL-3.0-or-later
// Very many deliveries of each of many settings, against windows worked out here anew.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

#include "engine/delivery_model.h"
#include "model/random.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"
#include "support/shares.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;

struct setting {
  const char* what;
  int bat_skill = 40;
  double bowl_sr = 36;
  double econ = 4.5;
  int batting = 3;                               ///< aggression of the striker
  double meter = 0;                              ///< his settled meter
  int slot = 0;                                  ///< his slot
  int bowling = 3;                               ///< aggression of the bowler
  std::array<int, 4> conditions = {3, 3, 3, 3};  ///< weather, surface, bounce, outfield
  const char* kind = "Fast Bowler";
};

const std::vector<setting> settings_tried = {
    {.what = "even"},
    {.what = "all-out attack", .batting = 5, .meter = 400},
    {.what = "all-out defence, upper slot", .batting = 1, .meter = 400, .slot = 1},
    {.what = "aggression 1", .batting = 1, .meter = 150},
    {.what = "aggression 2", .batting = 2, .meter = 150},
    {.what = "aggression 3", .batting = 3, .meter = 150},
    {.what = "aggression 4", .batting = 4, .meter = 150},
    {.what = "aggression 5", .batting = 5, .meter = 150},
    {.what = "upper slot, aggression 1", .batting = 1, .meter = 615, .slot = 1},
    {.what = "upper slot, aggression 2", .batting = 2, .meter = 615, .slot = 1},
    {.what = "upper slot, aggression 3", .batting = 3, .meter = 615, .slot = 1},
    {.what = "upper slot, aggression 4", .batting = 4, .meter = 615, .slot = 1},
    {.what = "upper slot, aggression 5", .batting = 5, .meter = 615, .slot = 1},
    {.what = "bowling 1", .bowling = 1},
    {.what = "bowling 2", .bowling = 2},
    {.what = "bowling 4", .bowling = 4},
    {.what = "bowling 5", .bowling = 5},
    {.what = "new man", .batting = 2, .meter = 2.5},
    {.what = "fully settled", .batting = 3, .meter = 915},
    {.what = "fully settled and defensive", .batting = 1, .meter = 915, .slot = 1},
    {.what = "fully settled and free", .batting = 5, .meter = 915},
    {.what = "all out attack on both sides", .batting = 5, .meter = 200, .bowling = 5},
    {.what = "defence on both sides", .batting = 1, .meter = 200, .bowling = 1},
    {.what = "free bat, tight bowling", .batting = 5, .meter = 90, .slot = 1, .bowling = 1},
    {.what = "tight bat, free bowling", .batting = 1, .meter = 90, .bowling = 5},
    {.what = "worst conditions", .conditions = {1, 1, 1, 1}},
    {.what = "best conditions", .conditions = {4, 4, 4, 4}},
    {.what = "rain on a road", .conditions = {1, 4, 4, 1}},
    {.what = "heat on a green top", .conditions = {4, 1, 1, 4}},
    {.what = "spin on cracks", .conditions = {3, 2, 3, 3}, .kind = "spinner"},
    {.what = "pace on cracks", .conditions = {3, 2, 3, 3}, .kind = "Medium Pacer"},
    {.what = "a great batsman and a poor bowler", .bat_skill = 62, .bowl_sr = 88, .econ = 7.35},
    {.what = "a tail-ender and a great bowler", .bat_skill = 4, .bowl_sr = 24.5, .econ = 3.2, .bowling = 4},
    {.what = "aggression outside the scale", .batting = 6, .meter = 500},
    {.what = "no dot ball is left", .econ = 16.5, .batting = 5, .meter = 915},
    {.what = "no wicket is possible", .bat_skill = 6000, .bowl_sr = 500},
    {.what = "windows below zero", .econ = 0.55, .batting = 1, .bowling = 1},
    {.what = "nothing but wickets", .bat_skill = 1, .bowl_sr = 0.5},
    {.what = "a wicket window below zero", .bat_skill = 10, .bowl_sr = -90},
};

/// Rounded to single precision.
double single(double value) {
  const volatile float rounded = static_cast<float>(value);
  return static_cast<double>(rounded);
}

/// To a whole number, a half to the even neighbour.
double whole(double value) {
  const double below = std::floor(value);
  if (value - below != 0.5) return std::floor(value + 0.5);
  return std::fmod(below, 2) == 0 ? below : below + 1;
}

double three_places(double value) { return whole(value * 1000) / 1000; }

/// Sizes of the windows of a setting: wicket, one, two, three, four, six, no ball, wide, leg byes, byes.
std::vector<double> window_sizes(const setting& s) {
  const double sum = s.conditions[0] + s.conditions[1] + s.conditions[2] + s.conditions[3];
  const double factor = (7 * sum + 180) / 300;
  const double strike = single(s.bowl_sr);
  const double economy = single(s.econ);
  const double adjusted = whole(s.bat_skill / factor);
  double balls = (adjusted + strike) / 2;
  double runs = (economy + s.bat_skill / adjusted * 6) / 2;
  const double guard = single(s.meter / (s.batting == 1 && s.slot == 1 ? 100 : 150));
  const double pace = single(s.meter / 1000);
  if (s.batting >= 1 && s.batting <= 5) {
    constexpr std::array<double, 6> of_skill = {0, 0.5, 0.25, 0, -0.15, -0.4};
    constexpr std::array<double, 6> of_runs = {0, -1.75, -1, 0, 0.75, 1};
    const auto a = static_cast<std::size_t>(s.batting);
    balls = balls + of_skill[a] * adjusted + guard;
    runs = runs + of_runs[a] + pace;
  }
  if (s.bowling == 1) balls += 0.25 * strike, runs -= three_places(3 / economy);
  if (s.bowling == 2) balls += 0.15 * strike, runs -= three_places(1 / economy);
  if (s.bowling == 4) balls -= 0.15 * strike, runs += three_places(1 / economy);
  if (s.bowling == 5) balls -= 0.25 * strike, runs += three_places(3 / economy);
  std::vector<double> sizes = {whole(1 / balls * 1000)};
  for (const double part : {63.33, 15.333, 3.8666, 12.6666, 1.4666, 1.6666, 1.8666, 1.0, 0.6666}) {
    sizes.push_back(whole(part * runs));
  }
  return sizes;
}

/// How many of the thousand places of the scale belong to each outcome.
std::array<int, 12> places_of(const setting& s) {
  constexpr std::array<int, 10> order = {7, 1, 2, 3, 4, 6, 8, 9, 10, 11};
  const std::vector<double> sizes = window_sizes(s);
  std::array<int, 12> places{};
  for (int draw = 1; draw <= 1000; ++draw) {
    std::size_t outcome = 0;
    double first = 1;
    for (std::size_t i = 0; i < order.size() && outcome == 0; ++i) {
      if (draw >= first && draw < first + sizes[i]) outcome = static_cast<std::size_t>(order[i]);
      first += sizes[i];
    }
    ++places[outcome];
  }
  return places;
}

class DeliveryShares : public ::testing::Test {
 protected:
  void TearDown() override {
    match = match_state();
    chance.use_clock();
  }

  /// The setting in play. What the model must not look at is filled with other values.
  static void set_up(const setting& s) {
    set_up_sample_match();
    match.striker = s.slot == 0 ? 1 : 2;
    match.non_striker = s.slot == 0 ? 2 : 1;
    match.bowler = 8;
    match.next_bowler = 9;
    match.batting_xi[match.striker].bat_skill = s.bat_skill;
    match.bowling_xi[8].bowl_sr = static_cast<float>(s.bowl_sr);
    match.bowling_xi[8].econ = static_cast<float>(s.econ);
    match.bowling_xi[8].bowler_type = s.kind;
    match.batsman_aggression = {6 - s.batting, 6 - s.batting};
    match.batsman_aggression[s.slot] = s.batting;
    match.settled_meter = {333, 333};
    match.settled_meter[s.slot] = s.meter;
    match.bowling_aggression = {s.bowling, 6 - s.bowling};
    match.weather = s.conditions[0];
    match.ground.pitch_surface = s.conditions[1];
    match.ground.pitch_bounce = s.conditions[2];
    match.outfield = s.conditions[3];
  }

  static void count(const setting& s, share_check& shares) {
    set_up(s);
    std::array<int, 12> counts{};
    for (int i = 0; i < sample_size; ++i) {
      deliver_ball(match, chance);
      ++counts[static_cast<std::size_t>(static_cast<int>(match.ball_outcome))];
    }
    const std::array<int, 12> places = places_of(s);
    for (std::size_t outcome = 0; outcome < counts.size(); ++outcome) {
      const double share = places[outcome] / 1000.0;
      shares.cell(std::string(s.what) + ", outcome " + std::to_string(outcome), counts[outcome], share);
    }
  }
};

TEST_F(DeliveryShares, TheWindowsWorkedOutHereAreTheWorkedFigures) {
  EXPECT_THAT(window_sizes(settings_tried[0]), ElementsAre(25, 311, 75, 19, 62, 7, 8, 9, 5, 3));
  EXPECT_THAT(window_sizes(settings_tried[1]), ElementsAre(40, 400, 97, 24, 80, 9, 11, 12, 6, 4));
  EXPECT_EQ(window_sizes(settings_tried[2])[0], 15);
  EXPECT_THAT(places_of(settings_tried[0]), ElementsAre(476, 311, 75, 19, 62, 0, 7, 25, 8, 9, 5, 3));
  EXPECT_EQ(places_of(settings_tried[1])[0], 317);
  EXPECT_EQ(places_of(settings_tried[2])[0], 621);
}

TEST_F(DeliveryShares, FillTheirWindowsInEverySetting) {
  chance.use_seed(19830625);
  share_check shares;
  for (const setting& s : settings_tried) count(s, shares);
  EXPECT_EQ(shares.strays(), "");
  shares.report("deliveries", 1.0 * sample_size * static_cast<double>(settings_tried.size()));
}

}  // namespace
}  // namespace velorin::testing
