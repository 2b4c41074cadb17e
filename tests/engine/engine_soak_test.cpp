// SPDX-License-Identifier: GPL-3.0-or-later
// Many matches between elevens of all kinds, each checked after every ball, and all of it again by rules of its own.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <span>
#include <sstream>
#include <string>
#include <vector>

#include "console/captain_forms.h"
#include "engine/driver.h"
#include "headless/headless_user.h"
#include "model/check_match.h"
#include "model/random.h"
#include "support/sample_match.h"

namespace velorin::testing {
namespace {

#if defined(NDEBUG) && !defined(__SANITIZE_ADDRESS__)
constexpr int unattended_matches = 100000;
constexpr int attended_matches = 20000;
#else
constexpr int unattended_matches = 500;
constexpr int attended_matches = 300;
#endif

using generator = std::mt19937;

int between(generator& any, int low, int high) { return std::uniform_int_distribution<int>(low, high)(any); }

/// An eleven with ratings from hopeless to legendary, roles and kinds of bowler at will, one keeper or two.
eleven any_eleven(generator& any, const std::string& prefix) {
  static const char* const roles[] = {"RH Opener", "LH Middle Order", "RH Middle Order", "RH Lower Order",
                                      "RH Unknown"};
  static const char* const kinds[] = {"Fast Bowler", "Medium Pacer", "spinner", "Wk", ""};
  eleven men;
  const int strength = between(any, 5, 60);
  for (int i = 1; i <= 11; ++i) {
    player_rec& man = men[i];
    man.name = prefix + std::to_string(i);
    man.bat_skill = std::max(1, strength + between(any, -20, 20));
    man.bowl_sr = static_cast<float>(between(any, 180, 900)) / 10;
    man.econ = static_cast<float>(between(any, 25, 90)) / 10;
    man.bat_type = roles[between(any, 0, 4)];
    man.bowler_type = kinds[between(any, 0, 4)];
  }
  for (int keepers = between(any, 1, 2); keepers > 0; --keepers) men[between(any, 1, 11)].is_keeper = flag_true;
  return men;
}

/// What must hold in the innings in play after every ball, kept apart from the match's own books.
class referee {
 public:
  explicit referee(int match_number) : match_number_(match_number) {}

  void watch_ball() {
    ++balls_;
    complain(check_match());
    if (match.innings_number != innings_) start_innings();
    if (match.over_no != over_) start_over();
    if (match.bowler != bowler_) complain("the bowler changed within the over");
    if (match.striker > highest_ + 1 || match.non_striker > highest_ + 1) complain("a batsman was passed over");
    highest_ = std::max<int>({highest_, match.striker, match.non_striker});
    if (!match.innings_over_flag && highest_ != match.score_wickets + 2) complain("the batsmen do not fit the wickets");
    if (match.score_runs < score_ || match.score_runs > score_ + 6) complain("the score jumped");
    score_ = match.score_runs;
    check_lists();
  }

  void watch_innings_end() {
    ++innings_ended_;
    const bool closed = match.innings_balls == 300 || match.score_wickets == 10;
    if (!closed && match.score_runs <= match.first_total) complain("the innings ended early");
  }

  void watch_result(bool finished) {
    if (!finished) return;
    if (innings_ended_ != 2) complain("not two innings");
    if (match.result_winner.empty() && match.result_margin != "Match tied.") complain("no winner and no tie");
    if (match.rate_first.delta + match.rate_second.delta != 0) complain("the rates are no mirror");
  }

  bool ok() const { return complaint_.empty(); }
  const std::string& complaint() const { return complaint_; }
  int balls() const { return balls_; }

 private:
  void complain(const std::string& what) {
    if (what.empty() || !complaint_.empty()) return;
    std::ostringstream said;
    said << "match " << match_number_ << ", innings " << match.innings_number << ", over " << match.over_no << ": "
         << what;
    complaint_ = said.str();
  }

  void start_innings() {
    innings_ = match.innings_number;
    over_ = 0;
    score_ = 0;
    highest_ = 2;
  }

  void start_over() {
    over_ = match.over_no;
    bowler_ = match.bowler;
    // The first ball of an over is on his card already.
    if (match.bowling_card[bowler_].balls > 60) complain("a bowler began an over beyond his quota");
  }

  /// Nobody is listed twice, and nobody without the figures.
  void check_lists() {
    if (balls_ % 61 != 0) return;
    const auto twice = [this](std::span<const std::string> list, const char* what) {
      for (std::size_t i = 1; i < list.size() && !list[i].empty(); ++i) {
        if (std::count(list.begin() + 1, list.end(), list[i]) > 1) complain(what);
      }
    };
    twice(match.fifty_list, "a fifty is listed twice");
    twice(match.hundred_list, "a hundred is listed twice");
    twice(match.five_wicket_list, "a five-wicket haul is listed twice");
    twice(match.stand50_list, "a stand is listed twice");
    for (int i = 1; i <= 11; ++i) check_fifty(match.batting_card[i]);
  }

  void check_fifty(const batting_card_rec& man) {
    const auto& list = match.fifty_list;
    const bool listed = !man.name.empty() && std::find(list.begin() + 1, list.end(), man.name) != list.end();
    if (listed && man.runs < 50) complain("a fifty of fewer runs is listed");
    // The ball just booked is not announced yet.
    if (!listed && man.runs > 55) complain("a fifty is not listed");
  }

  int match_number_;
  int balls_ = 0;
  int innings_ended_ = 0;
  int innings_ = 0;
  int over_ = 0;
  int bowler_ = 0;
  int score_ = 0;
  int highest_ = 2;
  std::string complaint_;
};

/// A user who watches, and, given a generator, chooses at will.
class watching_user : public headless_user {
 public:
  referee* watch = nullptr;
  generator* any = nullptr;

  using headless_user::show;
  void ball_bowled() override { watch->watch_ball(); }
  void open(report) override { watch->watch_innings_end(); }

  void show(batorder& form) override {
    if (any == nullptr) return headless_user::show(form);
    form.option1_click(between(*any, match.next_batsman_slot + 1, 11));
    form.vscroll1 = between(*any, 1, 5);
    form.command1_click();
  }
  void show(chgbowler& form) override {
    if (any == nullptr) return headless_user::show(form);
    std::vector<int> rows;
    for (int row = 1; row <= 11; ++row) {
      if (form.enabled[row] && match.bowling_card[row].balls < 60) rows.push_back(row);
    }
    ASSERT_FALSE(rows.empty());
    form.option1_click(rows[static_cast<std::size_t>(between(*any, 0, static_cast<int>(rows.size()) - 1))]);
    form.command_click();
  }
  void show(aggr& form) override {
    form.vscroll1 = between(*any, 1, 5);
    form.command_click();
  }
};

class Soak : public ::testing::Test {
 protected:
  void TearDown() override {
    match = match_state();
    chance.use_clock();
  }

  void set_up(int match_number, bool computer_bats, bool computer_bowls) {
    set_up_sample_match(computer_bats, computer_bowls);
    match.batting_xi = any_eleven(any_, "H.Bat");
    match.bowling_xi = any_eleven(any_, "A.Bowl");
    match.ground.pitch_bounce = between(any_, 1, 4);
    match.ground.pitch_surface = between(any_, 1, 4);
    match.weather = between(any_, 1, 4);
    match.outfield = between(any_, 1, 4);
    chance.use_seed(static_cast<std::uint64_t>(match_number));
  }

  generator any_{1983};
  watching_user user_;
  front_end_scope scope_{user_};
};

TEST_F(Soak, Unattended) {
  long balls = 0;
  int without_result = 0;
  for (int number = 1; number <= unattended_matches; ++number) {
    referee watch(number);
    user_.watch = &watch;
    set_up(number, true, true);
    open_console();
    ASSERT_EQ(match.over_no, 0) << "match " << number;
    without_result += match.result_margin.empty() ? 1 : 0;
    watch.watch_result(!match.result_margin.empty());
    ASSERT_EQ(watch.complaint(), "");
    balls += watch.balls();
  }
  EXPECT_GT(balls, 200L * unattended_matches);
  EXPECT_LE(without_result, unattended_matches / 1000);
}

TEST_F(Soak, HumansAndComputersMixed) {
  user_.any = &any_;
  for (int number = 1; number <= attended_matches; ++number) {
    referee watch(number);
    user_.watch = &watch;
    set_up(number, number % 3 == 1, number % 3 == 2);
    open_console();
    main_console console;
    while (!console.closed()) {
      console.command1_click();
      ASSERT_EQ(watch.complaint(), "");
      if (console.closed()) break;
      if (between(any_, 1, 4) == 1) console.command3_click();
      console.command4_click(between(any_, 0, 1));
      console.command5_click(between(any_, 0, 1));
    }
    watch.watch_result(true);
    ASSERT_EQ(watch.complaint(), "");
  }
}

}  // namespace
}  // namespace velorin::testing
