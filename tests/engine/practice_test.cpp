// SPDX-License-Identifier: GPL-3.0-or-later
// Balls of a practice match that are taken back.
#include <gmock/gmock.h>

#include <set>

#include "console/captain_forms.h"
#include "engine/match_fixture.h"
#include "engine/over_play.h"
#include "model/random.h"
#include "support/whole_match.h"

namespace velorin::testing {
namespace {

enum class source { seed, clock };

class Practice : public match_test {
 protected:
  void open_practice(source from, std::uint64_t seed = 1, bool computer_bats = false, bool computer_bowls = true) {
    set_up_sample_match(computer_bats, computer_bowls);
    match.practice = true;
    if (from == source::clock) {
      chance.use_clock();
    } else {
      chance.use_seed(seed);
    }
    open_console(in_play());
  }
  /// Plays to the end; the match at its report.
  std::string play_on(console_form& console) {
    std::string end;
    user.on_match_report = [&](match_report_form&) { end = whole_match(match); };
    while (match.next_step != play_step::closed) console.bowl_next_over();
    return end;
  }
  /// Bowls so many balls, one after the other.
  void bowl(console_form& console, int balls) {
    user.on_ball = [&, wanted = balls]() mutable {
      if (--wanted == 0) console.stop();
    };
    console.play_to(skip_target::end_of_innings);
    user.on_ball = nullptr;
  }
};

TEST_F(Practice, WithTheSameLuckTheSameMatchComesAgain) {
  for (const source from : {source::seed, source::clock}) {
    for (std::uint64_t seed = 1; seed <= 4; ++seed) {
      open_practice(from, seed, seed == 2, seed % 2 == 1);
      console_form console(in_play());
      for (int over = 0; over < 20; ++over) console.bowl_next_over();
      const std::string there = whole_match(match);
      const std::uint64_t draws = chance.draws_used();
      for (int over = 0; over < 15; ++over) console.take_back(taken_back::over, luck::same);
      ASSERT_EQ(overs_closed(match), 5);
      for (int over = 0; over < 15; ++over) console.bowl_next_over();
      EXPECT_EQ(whole_match(match), there);
      EXPECT_EQ(chance.draws_used(), draws);
    }
  }
}

TEST_F(Practice, TheSeededMatchEndsAsItWouldHaveEndedWithoutTakingBack) {
  for (std::uint64_t seed = 1; seed <= 6; ++seed) {
    open_practice(source::seed, seed);
    console_form plain(in_play());
    const std::string wanted = play_on(plain);
    open_practice(source::seed, seed);
    console_form console(in_play());
    for (int round = 1; round <= 25; ++round) {
      bowl(console, 5 + round % 7);
      const taken_back how_far = round % 3 == 0 ? taken_back::over : taken_back::ball;
      for (int step = 0; step < round % 5; ++step) console.take_back(how_far, luck::same);
    }
    EXPECT_EQ(play_on(console), wanted) << seed;
  }
}

TEST_F(Practice, FreshLuckIsKeptByTheBallsThatItCameTo) {
  for (const source from : {source::seed, source::clock}) {
    open_practice(from);
    console_form console(in_play());
    for (int over = 0; over < 6; ++over) console.bowl_next_over();
    for (int over = 0; over < 2; ++over) console.take_back(taken_back::over, luck::fresh);
    for (int over = 0; over < 8; ++over) console.bowl_next_over();
    const std::string there = whole_match(match);
    for (int over = 0; over < 11; ++over) console.take_back(taken_back::over, luck::same);
    ASSERT_EQ(overs_closed(match), 1) << "before the overs that had fresh luck";
    for (int over = 0; over < 11; ++over) console.bowl_next_over();
    EXPECT_EQ(whole_match(match), there);
  }
}

TEST_F(Practice, WithFreshLuckNothingOfTheOldFutureComes) {
  open_practice(source::seed, 9);
  console_form console(in_play());
  for (int over = 0; over < 4; ++over) console.bowl_next_over();
  const random_source before = chance;
  // What the generator gave, and would have given.
  random_source old = chance;
  for (int over = 0; over < 3; ++over) console.take_back(taken_back::over, luck::same);
  old = chance;
  std::set<double> future;
  for (int i = 0; i < 4000; ++i) future.insert(old.rnd());
  ASSERT_EQ(future.size(), 4000U);
  for (int over = 0; over < 3; ++over) console.bowl_next_over();
  ASSERT_EQ(chance.here().state, before.here().state);
  for (int over = 0; over < 3; ++over) console.take_back(taken_back::over, luck::fresh);
  random_source fresh = chance;
  for (int i = 0; i < 4000; ++i) EXPECT_EQ(future.count(fresh.rnd()), 0U);
}

TEST_F(Practice, TheClockIsReadAnewForFreshLuck) {
  open_practice(source::clock);
  console_form console(in_play());
  std::set<std::string> courses;
  for (int round = 0; round < 12; ++round) {
    for (int over = 0; over < 5; ++over) console.bowl_next_over();
    courses.insert(whole_match(match));
    for (int over = 0; over < 5; ++over) console.take_back(taken_back::over, luck::fresh);
  }
  EXPECT_EQ(courses.size(), 12U) << "thirty balls fall alike hardly ever";
}

TEST_F(Practice, ABallIsTakenBackWithWhatItDid) {
  open_practice(source::seed, 5, false, false);
  console_form console(in_play());
  std::vector<std::string> before;
  for (int ball = 0; ball < 120; ++ball) {
    before.push_back(whole_match(match));
    bowl(console, 1);
  }
  ASSERT_GE(match.score_wickets, 1) << "a wicket, and the man who came in, among them";
  while (!before.empty()) {
    ASSERT_TRUE(console.can_take_back());
    console.take_back(taken_back::ball, luck::same);
    ASSERT_EQ(whole_match(match), before.back()) << before.size();
    before.pop_back();
  }
  EXPECT_FALSE(console.can_take_back());
  const std::string first = whole_match(match);
  console.take_back(taken_back::over, luck::fresh);
  EXPECT_EQ(whole_match(match), first) << "there is nothing left";
}

TEST_F(Practice, AnOverIsTakenBackToItsBeginning) {
  open_practice(source::seed);
  console_form console(in_play());
  for (int over = 0; over < 3; ++over) console.bowl_next_over();
  const std::string third = whole_match(match);
  bowl(console, 4);
  ASSERT_TRUE(console.has_over_in_play());
  console.take_back(taken_back::over, luck::same);
  EXPECT_EQ(whole_match(match), third) << "the over in play";
  console.take_back(taken_back::over, luck::same);
  EXPECT_EQ(overs_closed(match), 2) << "the last one where none is in play";
  EXPECT_FALSE(console.has_over_in_play());
}

TEST_F(Practice, TheEndOfAnInningsIsTakenBack) {
  for (const taken_back how_far : {taken_back::ball, taken_back::over}) {
    open_practice(source::seed, 3, false, true);
    console_form console(in_play());
    std::vector<std::string> starts;
    while (match.innings_number == 1) {
      starts.push_back(whole_match(match));
      console.bowl_next_over();
    }
    const std::string second = whole_match(match);
    for (int over = 0; over < 3; ++over) console.bowl_next_over();
    for (int over = 0; over < 3; ++over) console.take_back(taken_back::over, luck::same);
    ASSERT_EQ(whole_match(match), second);
    console.take_back(how_far, luck::same);
    ASSERT_EQ(match.innings_number, 1);
    EXPECT_EQ(match.team1_name, "Home");
    EXPECT_EQ(console.has_over_in_play(), how_far == taken_back::ball);
    console.bowl_next_over();
    EXPECT_EQ(whole_match(match), second) << "played again";
    for (std::size_t over = starts.size(); over > 0; --over) console.take_back(taken_back::over, luck::same);
    EXPECT_EQ(whole_match(match), starts.front()) << "back to the first ball of the match";
    EXPECT_FALSE(console.can_take_back());
  }
}

TEST_F(Practice, AnotherChoiceMakesAnotherOver) {
  open_practice(source::seed, 7, false, true);
  console_form console(in_play());
  console.set_batsman_aggression(0, 1);
  console.set_batsman_aggression(1, 1);
  for (int over = 0; over < 3; ++over) console.bowl_next_over();
  const std::string careful = whole_match(match);
  for (int over = 0; over < 3; ++over) console.take_back(taken_back::over, luck::same);
  EXPECT_EQ(match.batsman_aggression[0], 1) << "as it was when the over began";
  console.set_batsman_aggression(0, 5);
  console.set_batsman_aggression(1, 5);
  for (int over = 0; over < 3; ++over) console.bowl_next_over();
  EXPECT_NE(whole_match(match), careful);
}

TEST_F(Practice, NothingIsTakenBackInAMatchThatCounts) {
  open_practice(source::seed);
  match.practice = false;
  console_form console(in_play());
  console.bowl_next_over();
  console.play_to(skip_target::over_10);
  EXPECT_FALSE(console.can_take_back());
  const std::string there = whole_match(match);
  for (const taken_back how_far : {taken_back::ball, taken_back::over}) console.take_back(how_far, luck::fresh);
  EXPECT_EQ(whole_match(match), there);
  EXPECT_FALSE(chance.keeps_readings());
}

TEST_F(Practice, TheLastBallOfTheMatchEndsIt) {
  open_practice(source::clock);
  console_form console(in_play());
  user.requests.clear();
  EXPECT_FALSE(play_on(console).empty());
  EXPECT_THAT(user.requests, ::testing::Contains(::testing::HasSubstr("message End of Match")));
  EXPECT_FALSE(console.can_take_back());
  EXPECT_FALSE(chance.keeps_readings());
  EXPECT_FALSE(match.practice);
}

TEST_F(Practice, ABallTakenBackAtTheLastOverOfTheMatchIsPlayedToTheSameEnd) {
  open_practice(source::clock);
  console_form console(in_play());
  while (match.innings_number == 1) console.bowl_next_over();
  for (int over = 0; over < 12; ++over) console.bowl_next_over();
  bowl(console, 3);
  const std::string there = whole_match(match);
  for (int ball = 0; ball < 3; ++ball) console.take_back(taken_back::ball, luck::same);
  bowl(console, 3);
  EXPECT_EQ(whole_match(match), there);
}

// While a captain is asked, the ball that asks has been noted: it is taken back once he has answered.
TEST_F(Practice, AWicketIsTakenBackWithTheManWhoCameIn) {
  open_practice(source::clock, 1, false, true);
  console_form console(in_play());
  std::string asked;
  user.on_batsman_details = [&](batsman_details_form& form) { asked = form.figures.headline; };
  do console.play_to(skip_target::next_wicket);
  while (!console.has_over_in_play() && match.innings_number == 1);
  ASSERT_EQ(match.innings_number, 1);
  const std::string out = whole_match(match);
  const std::string headline = std::exchange(asked, "");
  const int wickets = match.score_wickets;
  console.take_back(taken_back::ball, luck::same);
  EXPECT_EQ(match.score_wickets, wickets - 1);
  bowl(console, 1);
  EXPECT_EQ(asked, headline) << "the same man is out, and told of again";
  EXPECT_EQ(whole_match(match), out);
}

}  // namespace
}  // namespace velorin::testing
