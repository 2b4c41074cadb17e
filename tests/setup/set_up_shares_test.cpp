// SPDX-License-Identifier: GPL-3.0-or-later
// The chance of the set-up in large numbers: weather and outfield, what the conditions tell, and every kind of toss.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <utility>

#include "database/elevens.h"
#include "headless/headless_user.h"
#include "model/random.h"
#include "setup/conditions.h"
#include "setup/match_steps.h"
#include "setup/toss.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"
#include "support/shares.h"
#include "support/test_user.h"

namespace velorin::testing {
namespace {

class SetUpShares : public ::testing::Test {
 protected:
  void TearDown() override {
    match = match_state();
    chance.use_clock();
  }

  /// What strays among the samples of a procedure, on a seed that follows from the name.
  static void expect_shares(const std::string& what, const std::function<void(share_check&)>& sample) {
    std::uint64_t seed = 1971;
    for (const char letter : what) seed = 31 * seed + static_cast<unsigned char>(letter);
    chance.use_seed(seed);
    share_check shares;
    sample(shares);
    EXPECT_EQ(shares.strays(), "");
    shares.report(what, sample_size);
  }

  /// The same on the clock, which gives another sample in each run. A fair one strays now and then, a second time in a
  /// row hardly ever.
  static void expect_shares_on_the_clock(const std::string& what, const std::function<void(share_check&)>& sample) {
    chance.use_clock();
    share_check first;
    sample(first);
    first.report(what + " on the clock", sample_size);
    if (first.strays().empty()) return;
    share_check second;
    sample(second);
    EXPECT_EQ(second.strays(), "") << "twice in a row; before: " << first.strays();
  }
};

/// The share of a value of weather or outfield: 1 twice as often as the others.
double condition_share(int value) { return value == 1 ? 0.4 : 0.2; }

struct range {
  int lowest;
  int highest;
};
constexpr std::array<range, 5> temperatures = {{{0, 0}, {5, 20}, {5, 20}, {20, 32}, {29, 40}}};
constexpr std::array<range, 5> humidities = {{{0, 0}, {30, 50}, {30, 50}, {30, 70}, {70, 90}}};

/// The two numbers in the line on temperature and humidity.
std::pair<int, int> numbers_in(const std::string& line) {
  std::size_t end = 0;
  const std::size_t at = std::string("The temperature is ").size();
  const int temperature = std::stoi(line.substr(at), &end);
  const std::size_t then = line.find_last_of(' ') + 1;
  return {temperature, std::stoi(line.substr(then))};
}

/// Figures of one weather against equal shares over a range; nothing outside of it.
void check_range(share_check& shares, const std::string& what, const std::map<int, int>& counts, const range& in,
                 int all) {
  int inside = 0;
  for (int value = in.lowest; value <= in.highest; ++value) {
    const auto found = counts.find(value);
    const int count = found == counts.end() ? 0 : found->second;
    inside += count;
    shares.cell(what + " " + std::to_string(value), count, 1.0 / (in.highest - in.lowest + 1), all);
  }
  EXPECT_EQ(inside, all) << what << ": values outside of its range";
}

void sample_conditions(share_check& shares, int bounce, int surface) {
  set_up_sample_match();
  match.ground.pitch_bounce = bounce;
  match.ground.pitch_surface = surface;
  std::array<std::array<int, 5>, 5> counts{};
  std::array<std::map<int, int>, 5> warmth;
  std::array<std::map<int, int>, 5> damp;
  std::array<int, 5> of_weather{};
  std::array<int, 5> of_outfield{};
  int warm_and_damp = 0;  // both above their middles, at weather 3
  for (int i = 0; i < sample_size; ++i) {
    conditions_form form(in_play());
    form.open();
    ++counts[form.weather][form.outfield];
    ++of_weather[form.weather];
    ++of_outfield[form.outfield];
    const auto [temperature, humidity] = numbers_in(form.temperature_line());
    ++warmth[form.weather][temperature];
    ++damp[form.weather][humidity];
    warm_and_damp += form.weather == 3 && temperature > 26 && humidity > 50 ? 1 : 0;
  }
  for (int weather = 1; weather <= 4; ++weather) {
    const std::string name = std::to_string(weather);
    shares.cell("weather " + name, of_weather[weather], condition_share(weather));
    shares.cell("outfield " + name, of_outfield[weather], condition_share(weather));
    for (int outfield = 1; outfield <= 4; ++outfield) {
      shares.cell("weather " + name + " with outfield " + std::to_string(outfield), counts[weather][outfield],
                  condition_share(weather) * condition_share(outfield));
    }
    check_range(shares, "temperature in weather " + name, warmth[weather], temperatures[weather], of_weather[weather]);
    check_range(shares, "humidity in weather " + name, damp[weather], humidities[weather], of_weather[weather]);
  }
  shares.cell("warm and damp in weather 3", warm_and_damp, 6.0 / 13 * 20 / 41, of_weather[3]);
}

TEST_F(SetUpShares, ConditionsOnAGreenTop) {
  expect_shares("conditions on a green top", [](share_check& shares) { sample_conditions(shares, 1, 1); });
}

TEST_F(SetUpShares, ConditionsOnADeadPitch) {
  expect_shares("conditions on a dead pitch", [](share_check& shares) { sample_conditions(shares, 4, 4); });
}

TEST_F(SetUpShares, ConditionsOnTheClock) {
  expect_shares_on_the_clock("conditions", [](share_check& shares) { sample_conditions(shares, 2, 3); });
}

/// Cuts a match off once the toss is decided, and notes what the toss showed and who bats first.
class toss_watcher : public test_user {
 public:
  struct decided {};

  std::map<std::string, int> seen;
  std::string shown;
  int coin_button = 0;

  using headless_user::show;
  void show(const message_box& message) override {
    if (message.title == "The toss") shown += message.text + "; ";
  }
  void show(toss_form& form) override {
    if (form.coin_visible) form.call_coin(coin_button);
    shown += form.headline + "; ";
    headless_user::show(form);
    throw decided();
  }
  void progress(int) override { throw decided(); }

  /// Holds the toss of two sides with these captains, and counts what was shown with the side that bats first.
  void hold_toss(bool first_computer, bool second_computer) {
    match.team1_name = "Home";
    match.team2_name = "Away";
    match.computer_bats = first_computer;
    match.computer_bowls = second_computer;
    shown.clear();
    try {
      begin_toss(in_play());
      resume_match(in_play());
    } catch (const decided&) {
      ++seen[shown + match.team1_name];
    }
  }
};

struct captains {
  const char* what;
  bool first_computer;
  bool second_computer;
  int button;
  std::map<std::string, double> shares;  ///< what is shown, with the side that bats first
};

/// The headless user bats where he may decide. An election can only be confirmed.
const std::array<captains, 5> tosses = {{
    {"human against human, heads",
     false,
     false,
     0,
     {{"Home have won the toss.; Home", 0.5}, {"Away have won the toss.; Away", 0.5}}},
    {"human against human, tails",
     false,
     false,
     1,
     {{"Home have won the toss.; Home", 0.5}, {"Away have won the toss.; Away", 0.5}}},
    {"human against computer",
     false,
     true,
     0,
     {{"Home have won the toss.; Home", 0.5},
      {"Away have won the toss and have elected to field first.; Home", 0.25},
      {"Away have won the toss and have elected to bat first.; Away", 0.25}}},
    {"computer against human",
     true,
     false,
     0,
     {{"Home have taken Heads; Away have won the toss.; Away", 0.25},
      {"Home have taken Tails; Away have won the toss.; Away", 0.25},
      {"Home have taken Heads; Home have won the toss.They have elected to field first.; Away", 0.125},
      {"Home have taken Tails; Home have won the toss.They have elected to field first.; Away", 0.125},
      {"Home have taken Heads; Home have won the toss.They have elected to bat first.; Home", 0.125},
      {"Home have taken Tails; Home have won the toss.They have elected to bat first.; Home", 0.125}}},
    {"computer against computer", true, true, 0, {{"Home", 0.5}, {"Away", 0.5}}},
}};

void sample_tosses(share_check& shares, const captains& who, const std::array<int, 4>& conditions) {
  set_up_sample_match();
  write_eleven(data, side::first, match.batting_xi);
  write_eleven(data, side::second, match.bowling_xi);
  match.weather = conditions[0];
  match.ground.pitch_surface = conditions[1];
  match.ground.pitch_bounce = conditions[2];
  match.outfield = conditions[3];
  toss_watcher watcher;
  const front_end_scope scope(watcher);
  watcher.coin_button = who.button;
  for (int i = 0; i < sample_size; ++i) watcher.hold_toss(who.first_computer, who.second_computer);
  int all = 0;
  for (const auto& [shown, share] : who.shares) {
    shares.cell(std::string(who.what) + ": " + shown, watcher.seen[shown], share);
    all += watcher.seen[shown];
  }
  EXPECT_EQ(all, sample_size) << who.what << ": something else was shown";
}

TEST_F(SetUpShares, Tosses) {
  for (const captains& who : tosses) {
    expect_shares(who.what, [&](share_check& shares) { sample_tosses(shares, who, {3, 3, 3, 3}); });
  }
}

TEST_F(SetUpShares, AnElectionAsksNoConditions) {
  for (const auto& conditions : {std::array{1, 1, 1, 1}, std::array{4, 4, 4, 4}, std::array{1, 4, 4, 2}}) {
    for (const captains& who : {tosses[2], tosses[3]}) {
      const std::string what = std::string(who.what) + " in weather " + std::to_string(conditions[0]) + " on surface " +
                               std::to_string(conditions[1]);
      expect_shares(what, [&](share_check& shares) { sample_tosses(shares, who, conditions); });
    }
  }
}

TEST_F(SetUpShares, TossesOnTheClock) {
  for (const captains& who : {tosses[2], tosses[3]}) {
    expect_shares_on_the_clock(who.what, [&](share_check& shares) { sample_tosses(shares, who, {3, 3, 3, 3}); });
  }
}

}  // namespace
}  // namespace velorin::testing
