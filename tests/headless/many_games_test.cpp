// SPDX-License-Identifier: GPL-3.0-or-later
// Several games in one process: each goes as if it were alone.
#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "engine/over_play.h"
#include "engine/play_steps.h"
#include "headless/headless_user.h"
#include "reports/export.h"
#include "reports/scorecard.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"
#include "ui/match_play.h"

namespace velorin::testing {
namespace {

/// A game with nothing in common with any other: a match of the sample sides with a seed of its own.
class lone_game : public headless_user {
 public:
  lone_game(const match_state& sample, const open_database& files, std::uint64_t seed)
      : headless_user(match_), match_(sample), data_(files) {
    chance_.use_seed(seed);
    open_console(play());
  }

  /// Bowls an over. False once the match is over.
  bool bowl_over() {
    if (!match_.console_open) return false;
    next_over(play());
    return match_.console_open;
  }
  /// Plays up to the end of the next ball. False once the match is over.
  bool bowl_one_ball() {
    if (!match_.console_open) return false;
    if (match_.next_step == play_step::between_overs) match_.next_step = play_step::over_begins;
    do take_step(play());
    while (match_.console_open && match_.next_step != play_step::ball_bowled &&
           match_.next_step != play_step::between_overs);
    return match_.console_open;
  }
  void bowl_to_the_end() {
    while (bowl_over()) continue;
  }

  using headless_user::show;
  void open(report which) override {
    if (which != report::scorecard) return;
    scorecard_form card(match_);
    card.open();
    seen_ += text_scorecard(match_, card) + ball_by_ball(match_, card);
  }
  void show(const message_box& message) override { seen_ += message.title + message.text; }

  /// All that was shown, and how many numbers were drawn.
  std::string seen() const { return seen_ + std::to_string(chance_.draws_used()); }

 private:
  match_play play() { return {match_, chance_, *this, data_}; }

  match_state match_;
  random_source chance_;
  open_database data_;
  std::string seen_;
};

class ManyGames : public ::testing::Test {
 protected:
  static constexpr std::uint64_t games = 8;

  // The computer bowls and a user bats, so that the match stands still between two overs.
  void SetUp() override { set_up_sample_match(false, true); }

  static std::unique_ptr<lone_game> new_game(std::uint64_t seed) {
    return std::make_unique<lone_game>(match, data, seed);
  }
  static std::string played_alone(std::uint64_t seed) {
    const auto game = new_game(seed);
    game->bowl_to_the_end();
    return game->seen();
  }
};

TEST_F(ManyGames, DifferBySeedAlone) {
  EXPECT_EQ(played_alone(1), played_alone(1));
  EXPECT_NE(played_alone(1), played_alone(2));
}

TEST_F(ManyGames, BallByBallInTurnGoAsAlone) {
  const auto first = new_game(1);
  const auto second = new_game(2);
  bool first_on = true;
  bool second_on = true;
  int turns = 0;
  while (first_on || second_on) {
    first_on = first->bowl_one_ball();
    second_on = second->bowl_one_ball();
    ++turns;
  }
  EXPECT_GT(turns, 300) << "of one ball each";
  EXPECT_EQ(first->seen(), played_alone(1));
  EXPECT_EQ(second->seen(), played_alone(2));
}

TEST_F(ManyGames, OverByOverInTurnGoAsAlone) {
  const auto first = new_game(1);
  const auto second = new_game(2);
  bool first_on = true;
  bool second_on = true;
  while (first_on || second_on) {
    first_on = first->bowl_over();
    second_on = second->bowl_over();
  }
  EXPECT_EQ(first->seen(), played_alone(1));
  EXPECT_EQ(second->seen(), played_alone(2));
}

TEST_F(ManyGames, InThreadsGoAsAlone) {
  std::vector<std::unique_ptr<lone_game>> played;
  for (std::uint64_t seed = 1; seed <= games; ++seed) played.push_back(new_game(seed));
  {
    std::vector<std::jthread> threads;
    for (const auto& game : played) threads.emplace_back([&game] { game->bowl_to_the_end(); });
  }
  for (std::uint64_t seed = 1; seed <= games; ++seed) {
    EXPECT_EQ(played[seed - 1]->seen(), played_alone(seed)) << "seed " << seed;
  }
}

TEST_F(ManyGames, LeaveTheOthersAlone) {
  const auto waiting = new_game(1);
  waiting->bowl_over();
  const std::string before = waiting->seen();
  played_alone(2);
  EXPECT_EQ(waiting->seen(), before);
  waiting->bowl_to_the_end();
  EXPECT_EQ(waiting->seen(), played_alone(1));
}

}  // namespace
}  // namespace velorin::testing
