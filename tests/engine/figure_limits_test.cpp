// SPDX-License-Identifier: GPL-3.0-or-later
// Every figure of the match at its last value: what would pass it ends the match with an overflow that names the figure
// and whose it is, and leaves the files as they were.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "captain/computer_captain.h"
#include "database/configuration.h"
#include "engine/delivery_model.h"
#include "engine/match_fixture.h"
#include "engine/over_play.h"
#include "engine/play_steps.h"
#include "model/random.h"
#include "model/run_time_error.h"
#include "support/folder_contents.h"
#include "support/game_in_play.h"
#include "support/small_database.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::Key;

constexpr int last = 32767;

/// A figure that a delivery changes, brought near its limit after the first ball of an over.
struct near_limit {
  const char* field;
  const char* of;  ///< what else tells the case from others
  std::function<integer*()> figure;
  int value;                           ///< of the figure before the ball
  ball next;                           ///< the ball that passes it
  int too_great;                       ///< the value that does not fit
  const char* concerned;               ///< the player or team of the figure
  std::function<void()> besides = {};  ///< what else must be the case
};

std::ostream& operator<<(std::ostream& out, const near_limit& limit) { return out << limit.field << limit.of; }

batting_card_rec& striker() { return match.batting_card[match.striker]; }
bowling_card_rec& bowler() { return match.bowling_card[match.bowler]; }

const std::vector<near_limit> limits = {
    {"batting_card.runs", "", [] { return &striker().runs; }, last - 5, hit(6), last + 1, "H.Bat1"},
    {"batting_card.balls", "", [] { return &striker().balls; }, last, hit(0), last + 1, "H.Bat1"},
    {"batting_card.dots", "", [] { return &striker().dots; }, last, hit(0), last + 1, "H.Bat1"},
    {"batting_card.singles", "", [] { return &striker().singles; }, last, hit(1), last + 1, "H.Bat1"},
    {"batting_card.twos", "", [] { return &striker().twos; }, last, hit(2), last + 1, "H.Bat1"},
    {"batting_card.threes", "", [] { return &striker().threes; }, last, hit(3), last + 1, "H.Bat1"},
    {"batting_card.fours", "", [] { return &striker().fours; }, last, hit(4), last + 1, "H.Bat1"},
    {"batting_card.sixes", "", [] { return &striker().sixes; }, last, hit(6), last + 1, "H.Bat1"},
    {"batting_card.balls", " of leg byes", [] { return &striker().balls; }, last, off_the_pad(leg_byes, 1), last + 1,
     "H.Bat1"},
    {"batting_card.dots", " of a wicket", [] { return &striker().dots; }, last, out(), last + 1, "H.Bat1"},
    {"bowling_card.runs", "", [] { return &bowler().runs; }, last - 3, hit(4), last + 1, "A.Bowl1"},
    {"bowling_card.balls", "", [] { return &bowler().balls; }, last, hit(0), last + 1, "A.Bowl1"},
    {"bowling_card.wickets", "", [] { return &bowler().wickets; }, last, out(), last + 1, "A.Bowl1"},
    {"innings_balls", "", [] { return &match.innings_balls; }, last, hit(0), last + 1, "Home"},
    {"innings_no_balls", "", [] { return &match.innings_no_balls; }, last, hit(no_ball), last + 1, "A.Bowl1"},
    {"innings_wides", "", [] { return &match.innings_wides; }, last, hit(wide_ball), last + 1, "A.Bowl1"},
    {"innings_leg_byes", "", [] { return &match.innings_leg_byes; }, last - 1, off_the_pad(leg_byes, 4), last + 3,
     "Home"},
    {"innings_byes", "", [] { return &match.innings_byes; }, last - 2, off_the_pad(byes, 3), last + 1, "Home"},
};

/// Plays in a folder that has careers and records, with updates on.
class FigureLimits : public match_test {
 protected:
  void SetUp() override {
    match_test::SetUp();
    play_first_innings(false, false);
    data.files.updates = true;
    play(times(4, hit(6)));
    ASSERT_THAT(contents_of(database_.folder()), ElementsAre(Key("world.ptr"), Key("world.rec")));
  }

  void open_match() {
    open(false, false);
    data.files.updates = true;
  }

  /// The message of the overflow, or of another failure. Nothing in the folder may change.
  std::string refusal(const std::function<void()>& procedure, failure kind = failure::overflow) const {
    const auto before = contents_of(database_.folder());
    std::string message = "no failure";
    try {
      procedure();
    } catch (const run_time_error& error) {
      EXPECT_EQ(error.kind(), kind);
      message = error.what();
    }
    EXPECT_EQ(contents_of(database_.folder()), before);
    return message;
  }

  static std::string does_not_fit(int value, const std::string& field, const std::string& concerned) {
    return "Overflow: " + std::to_string(value) + " does not fit a 16-bit figure (field " + field + ", at \"" +
           concerned + "\")";
  }

 private:
  small_database database_;
};

class BallFigures : public FigureLimits, public ::testing::WithParamInterface<near_limit> {};

TEST_P(BallFigures, EndTheMatchPastTheirLimit) {
  const near_limit& limit = GetParam();
  const integer* figure = nullptr;
  open_match();
  user.balls_bowled = 0;
  user.on_ball = [&] {
    if (limit.besides) limit.besides();
    *limit.figure() = limit.value;
    figure = limit.figure();
    std::vector<double> draws = {draw_outcome(limit.next.outcome)};
    draws.insert(draws.end(), limit.next.then.begin(), limit.next.then.end());
    script_draws(draws);
  };
  script_draws({draw_outcome(dot_ball)});
  EXPECT_EQ(refusal([] { next_over(in_play()); }), does_not_fit(limit.too_great, limit.field, limit.concerned));
  EXPECT_EQ(user.balls_bowled, 1) << "the ball is not announced";
  EXPECT_EQ(*figure, limit.value) << "what does not fit is not booked";
}

INSTANTIATE_TEST_SUITE_P(, BallFigures, ::testing::ValuesIn(limits), [](const auto& limit) {
  std::string name = std::string(limit.param.field) + limit.param.of;
  for (char& letter : name) {
    if (letter == '.' || letter == ' ') letter = '_';
  }
  return name;
});

TEST_F(FigureLimits, NoBallsBeyondTheFigureAreAnError) {
  open_match();
  EXPECT_EQ(refusal([&] { play(std::vector{hit(0)} + times(last + 1, hit(no_ball))); }),
            does_not_fit(last + 1, "innings_no_balls", "A.Bowl1"));
  EXPECT_EQ(match.innings_no_balls, last);
}

TEST_F(FigureLimits, WidesBeyondTheFigureAreAnError) {
  open_match();
  play(std::vector{hit(0)} + times(last, hit(wide_ball)));
  EXPECT_EQ(match.innings_wides, last);
  EXPECT_EQ(log_of_over(innings_in_play(match), 1)[0], "32767");
  open_match();
  EXPECT_EQ(refusal([&] { play(std::vector{hit(0)} + times(last + 1, hit(wide_ball))); }),
            does_not_fit(last + 1, "innings_wides", "A.Bowl1"));
}

TEST_F(FigureLimits, MaidensAndTheClockCountOvers) {
  struct booked {
    const char* field;
    const char* concerned;
    std::function<integer*()> figure;
    int value;
  };
  for (const auto& over : {booked{"bowling_card.maidens", "A.Bowl1", [] { return &bowler().maidens; }, last},
                           booked{"clock_minutes", "The Oval", [] { return &match.clock_minutes; }, last - 3}}) {
    open_match();
    const integer* figure = over.figure();
    int balls = 0;
    user.on_ball = [&] {
      if (++balls == 6) *over.figure() = over.value;
    };
    script_draws(std::vector<double>(6, draw_outcome(dot_ball)));
    EXPECT_EQ(refusal([] { next_over(in_play()); }), does_not_fit(last + 1, over.field, over.concerned));
    EXPECT_EQ(balls, 6);
    EXPECT_EQ(*figure, over.value);
  }
}

TEST_F(FigureLimits, TheTotalOfAnInnings) {
  open_match();
  match.score_runs = last;
  match.innings_over_flag = true;
  match.next_step = play_step::innings_judged;
  take_steps(in_play());
  EXPECT_EQ(match.first_total, last);
  open_match();
  match.score_runs = last + 1;
  match.innings_over_flag = true;
  EXPECT_EQ(refusal([] { close_innings(match); }), does_not_fit(last + 1, "innings_total", "Home"));
  EXPECT_EQ(match.innings_total, 0);
  EXPECT_EQ(match.innings_number, 1) << "the innings has not changed";
}

TEST_F(FigureLimits, TheNumberOfInnings) {
  open_match();
  match.innings_number = last;
  EXPECT_EQ(refusal([] { change_innings(match); }), does_not_fit(last + 1, "innings_number", "Away"));
  EXPECT_EQ(match.innings_number, last);
}

TEST_F(FigureLimits, AFiftyFirstOver) {
  open_match();
  play(times(300, hit(0)));
  play(std::vector{hit(1)} + times(10, out()));
  EXPECT_EQ(match.innings_number, 3) << "a first innings of 0 is no first innings";
  EXPECT_EQ(match.innings_balls, 300) << "which the side bats on from";
  play(times(300, hit(0)));
  EXPECT_EQ(match.over_no, 51);
  EXPECT_EQ(refusal([] { next_over(in_play()); }, failure::subscript),
            "Subscript out of range: an innings of more than 50 overs (field ball_log, at \"Home\")");
}

TEST_F(FigureLimits, TheClassOfAnEconomy) {
  set_up_sample_match();
  script_draws({0.5, 0.5});
  match.bowling_xi[5].econ = 32767.4F;
  choose_opening_bowlers(match, chance);
  match.bowling_xi[5].econ = 32768.0F;
  EXPECT_EQ(refusal([] { choose_opening_bowlers(match, chance); }), does_not_fit(last + 1, "econ_class", "A.Bowl5"));
}

}  // namespace
}  // namespace velorin::testing
