// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "engine/over_play.h"
#include "engine/play_steps.h"
#include "forecast/match_line.h"
#include "headless/headless_user.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"
#include "ui/match_play.h"

namespace velorin::testing {
namespace {

/// Tells a line of every ball.
class line_keeper : public headless_user {
 public:
  line_keeper(const match_state& played, match_line& line) : headless_user(played), played_(played), line_(line) {}
  using headless_user::show;
  void ball_bowled() override {
    line_.add(played_);
    line_.add(played_);
    runs_of_first_innings = played_.first_total == 0 ? played_.score_runs : runs_of_first_innings;
    ++balls;
  }
  void show(match_report_form&) override { winner = played_.result_winner; }

  std::size_t balls = 0;
  int runs_of_first_innings = 0;
  std::string winner;

 private:
  const match_state& played_;
  match_line& line_;
};

/// A match and its line, which all tests read.
struct line_of_match {
  line_of_match() {
    set_up_sample_match();
    match.step = match_step::play;
    line = std::make_unique<match_line>(match, forecast_options{.runs = 40, .seed = 1, .threads = 1, .stop = {}});
    match_state played = match;
    random_source drawn;
    drawn.use_seed(4);
    line_keeper user(played, *line);
    open_console({played, drawn, user, data});
    balls = user.balls;
    winner = user.winner;
  }

  std::unique_ptr<match_line> line;
  std::size_t balls = 0;
  std::string winner;
};

class MatchLine : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { all_ = std::make_unique<line_of_match>(); }
  static void TearDownTestSuite() { all_.reset(); }

  static inline std::unique_ptr<line_of_match> all_;
  const match_line* line_ = all_->line.get();
  std::size_t balls_ = all_->balls;
  std::string winner_ = all_->winner;
};

TEST_F(MatchLine, HasAPointForEachBallAndEndsWithTheResult) {
  ASSERT_EQ(line_->points().size(), balls_);
  EXPECT_DOUBLE_EQ(line_->points().back().win_first, winner_ == line_->first() ? 1 : 0);
  EXPECT_EQ(line_->points().front().ball.over, 1);
  EXPECT_EQ(line_->points().back().ball.innings, 2);
  EXPECT_FALSE(line_->points().back().first_bats);
}

TEST_F(MatchLine, MovesByItsSwings) {
  double chance_of_first = line_->before();
  for (const line_point& point : line_->points()) {
    chance_of_first += point.swing;
    ASSERT_NEAR(point.win_first, chance_of_first, 1e-9);
  }
}

TEST_F(MatchLine, TurnsAtItsGreatestSwings) {
  const std::vector<line_point> turns = line_->turning_points();
  ASSERT_EQ(turns.size(), 5U);
  std::size_t greater = 0;
  for (const line_point& point : line_->points())
    greater += std::abs(point.swing) > std::abs(turns.back().swing) ? 1 : 0;
  EXPECT_LE(greater, 4U);
  for (std::size_t i = 1; i < turns.size(); ++i) EXPECT_GE(std::abs(turns[i - 1].swing), std::abs(turns[i].swing));
}

TEST_F(MatchLine, GivesEachManTheSwingsOfHisBalls) {
  double batted_first = 0;
  double bowled_first = 0;
  for (const man_impact& impact : line_->impacts()) {
    double with_bat = 0;
    double with_ball = 0;
    for (const line_point& point : line_->points()) {
      const double for_first = point.swing;
      if (point.striker == impact.man && point.first_bats == impact.of_first) {
        with_bat += impact.of_first ? for_first : -for_first;
      }
      if (point.bowler == impact.man && point.first_bats != impact.of_first && point.ball.how != dismissal::run_out) {
        with_ball += impact.of_first ? for_first : -for_first;
      }
    }
    EXPECT_NEAR(impact.with_bat, with_bat, 1e-9) << impact.man;
    EXPECT_NEAR(impact.with_ball, with_ball, 1e-9) << impact.man;
    (impact.of_first ? batted_first : bowled_first) += impact.with_bat;
  }
  const double all = line_->points().back().win_first - line_->before();
  EXPECT_NEAR(batted_first - bowled_first, all, 1e-9) << "every ball had a striker";
}

}  // namespace
}  // namespace velorin::testing
