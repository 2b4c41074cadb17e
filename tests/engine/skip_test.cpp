// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/skip.h"

#include <gmock/gmock.h>

#include "captain/computer_captain.h"
#include "engine/match_fixture.h"
#include "engine/over_play.h"
#include "model/random.h"
#include "support/whole_match.h"

namespace velorin::testing {
namespace {

class Skip : public match_test {
 protected:
  void open_seeded(std::uint64_t seed, bool computer_bats, bool computer_bowls) {
    set_up_sample_match(computer_bats, computer_bowls);
    chance.use_seed(seed);
    user.requests.clear();
    open_console(in_play());
  }
  /// The match at its report, and all that the captains were asked on the way.
  std::string end_of(const std::function<void(console_form&)>& act) {
    std::string end;
    user.on_match_report = [&](match_report_form&) { end = whole_match(match); };
    console_form console(in_play());
    while (match.next_step != play_step::closed) act(console);
    for (const std::string& line : user.requests) end += line + '\n';
    return end + std::to_string(chance.draws_used());
  }
};

TEST_F(Skip, IsTheSameMatchAsOverAfterOver) {
  for (std::uint64_t seed = 1; seed <= 12; ++seed) {
    const bool bats = seed % 2 == 0;
    const bool bowls = seed % 3 == 0 && !bats;
    open_seeded(seed, bats, bowls);
    const std::string overs = end_of([](console_form& console) { console.bowl_next_over(); });
    ASSERT_GT(overs.size(), 10000U);
    for (const skip_target target : every_skip_target) {
      open_seeded(seed, bats, bowls);
      const std::string skipped = end_of([&](console_form& console) { console.play_to(nearest_ahead(match, target)); });
      EXPECT_EQ(skipped, overs) << "seed " << seed << ", target " << int(target);
    }
  }
}

TEST_F(Skip, BallAfterBallIsTheSameMatchToo) {
  for (std::uint64_t seed = 1; seed <= 6; ++seed) {
    open_seeded(seed, seed % 2 == 0, false);
    const std::string overs = end_of([](console_form& console) { console.bowl_next_over(); });
    open_seeded(seed, seed % 2 == 0, false);
    EXPECT_EQ(end_of([](console_form&) { bowl_next_ball(in_play()); }), overs) << seed;
  }
}

TEST_F(Skip, ToTheNextWicketStopsAfterThatBall) {
  int within_an_over = 0;
  for (std::uint64_t seed = 1; seed <= 20; ++seed) {
    open_seeded(seed, false, true);
    console_form console(in_play());
    for (int wickets = 1; wickets <= 4; ++wickets) {
      console.play_to(skip_target::next_wicket);
      if (match.innings_number != 1) break;
      ASSERT_EQ(match.score_wickets, wickets);
      ASSERT_TRUE(match.deliveries.back().is_wicket());
      within_an_over += console.has_over_in_play();
      EXPECT_EQ(match.next_step, console.has_over_in_play() ? play_step::ball_bowled : play_step::between_overs);
      EXPECT_NE(match.striker, match.non_striker) << "the next man is in";
    }
  }
  EXPECT_GT(within_an_over, 20);
}

TEST_F(Skip, ToAnOverStopsOnceItIsBowled) {
  open_seeded(3, false, false);
  console_form console(in_play());
  int over = 0;
  for (const skip_target target :
       {skip_target::over_10, skip_target::over_20, skip_target::over_30, skip_target::over_40}) {
    over += 10;
    ASSERT_TRUE(is_ahead(match, target));
    console.play_to(target);
    ASSERT_EQ(overs_closed(match), over);
    EXPECT_EQ(match.next_step, play_step::between_overs);
    EXPECT_FALSE(is_ahead(match, target));
    const std::size_t balls = match.deliveries.size();
    console.play_to(target);
    EXPECT_EQ(match.deliveries.size(), balls) << "it is past";
  }
  console.play_to(skip_target::end_of_innings);
  EXPECT_EQ(match.innings_number, 2);
  EXPECT_TRUE(match.deliveries.empty());
  EXPECT_TRUE(is_ahead(match, skip_target::over_10)) << "of the second innings";
}

TEST_F(Skip, ASpellEndsWhenTheBowlerIsTakenOff) {
  int taken_off = 0;
  for (std::uint64_t seed = 1; seed <= 6; ++seed) {
    open_seeded(seed, false, true);
    console_form console(in_play());
    while (match.innings_number == 1) {
      const std::size_t before = match.deliveries.size();
      console.play_to(skip_target::end_of_spell);
      if (match.innings_number != 1) break;
      const int bowler = match.deliveries[before].bowler;
      const bool off = match.bowler != bowler && match.next_bowler != bowler;
      EXPECT_TRUE(off || match.bowling_card[static_cast<std::size_t>(bowler)].balls == 60);
      taken_off += off;
      // Until then he had bowled every other over.
      for (std::size_t i = before; i < match.deliveries.size(); ++i) {
        const delivery& ball = match.deliveries[i];
        if ((ball.over - match.deliveries[before].over) % 2 != 0) continue;
        ASSERT_EQ(ball.bowler, bowler) << int(ball.over);
      }
    }
  }
  EXPECT_GT(taken_off, 10);
}

TEST_F(Skip, ASpellOfAHumansBowlerEndsWithHisTenOvers) {
  open_seeded(2, true, false);
  console_form console(in_play());
  const int bowler = match.bowler;
  console.play_to(skip_target::end_of_spell);
  ASSERT_EQ(match.innings_number, 1);
  EXPECT_EQ(match.bowling_card[static_cast<std::size_t>(bowler)].balls, 60);
  EXPECT_EQ(overs_closed(match), 19);
  console.play_to(skip_target::end_of_spell);
  EXPECT_EQ(overs_closed(match), 20) << "the man at the other end";
  user.requests.clear();
  console.play_to(skip_target::end_of_spell);
  EXPECT_EQ(overs_closed(match), 39) << "the spell of the man who came on";
  EXPECT_THAT(user.requests, ::testing::Contains(::testing::HasSubstr("chgbowler")))
      << "who has bowled his overs is replaced on the way";
}

TEST_F(Skip, TwoComputersThatAreWatchedSkipAlike) {
  for (std::uint64_t seed = 1; seed <= 4; ++seed) {
    std::vector<std::string> ends;
    for (const bool skipped : {false, true}) {
      open_seeded(seed, false, true);
      set_captain(match, match_side::batting, true);
      ends.push_back(end_of([&](console_form& console) {
        if (skipped) {
          console.play_to(skip_target::next_wicket);
        } else {
          console.bowl_next_over();
        }
      }));
    }
    EXPECT_EQ(ends[1], ends[0]) << seed;
  }
}

TEST_F(Skip, StopsAfterTheBallAtWhichItIsAsked) {
  open_seeded(4, false, true);
  console_form console(in_play());
  user.on_ball = [&] {
    if (match.deliveries.size() == 27) console.stop();
  };
  console.play_to(skip_target::end_of_innings);
  EXPECT_EQ(match.deliveries.size(), 27U);
  EXPECT_TRUE(console.has_over_in_play());
  user.on_ball = nullptr;
  console.play_to(skip_target::over_20);
  EXPECT_EQ(overs_closed(match), 20) << "the wish is spent";
}

TEST_F(Skip, WithinAnOverTheBowlerStays) {
  open_seeded(5, false, false);
  console_form console(in_play());
  do console.play_to(skip_target::next_wicket);
  while (match.next_step != play_step::ball_bowled);
  const int bowler = match.bowler;
  user.requests.clear();
  console.change_bowler();
  for (int position = 1; position <= 11; ++position) console.choose_bowler(position);
  EXPECT_EQ(match.bowler, bowler);
  EXPECT_THAT(user.requests, ::testing::IsEmpty());
  console.set_batsman_aggression(0, 5);
  EXPECT_EQ(match.batsman_aggression[0], 5) << "each ball is a fair moment for that";
}

TEST_F(Skip, TheNearestTargetFollowsTheInnings) {
  open_seeded(3, false, false);
  EXPECT_EQ(nearest_ahead(match, skip_target::over_20), skip_target::over_20);
  EXPECT_EQ(nearest_ahead(match, skip_target::next_wicket), skip_target::next_wicket);
  match.over_no = 22;
  EXPECT_EQ(nearest_ahead(match, skip_target::over_10), skip_target::over_30);
  EXPECT_EQ(nearest_ahead(match, skip_target::over_20), skip_target::over_30);
  EXPECT_EQ(nearest_ahead(match, skip_target::end_of_spell), skip_target::end_of_spell);
  match.over_no = 45;
  EXPECT_EQ(nearest_ahead(match, skip_target::over_10), skip_target::end_of_innings);
}

}  // namespace
}  // namespace velorin::testing
