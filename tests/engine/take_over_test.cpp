// SPDX-License-Identifier: GPL-3.0-or-later
// A side that changes its captain in the midst of a match.
#include <gmock/gmock.h>

#include "captain/computer_captain.h"
#include "engine/delivery_model.h"
#include "engine/match_fixture.h"
#include "engine/over_play.h"
#include "engine/play_steps.h"

namespace velorin::testing {
namespace {

using ::testing::IsEmpty;

class TakeOver : public match_test {
 protected:
  /// The ranks of the side that bowls, as the computer's own opening would have them.
  static std::vector<int> wanted_ranks() {
    match_state opened = match;
    random_source other;
    other.use_seed(1);
    choose_opening_bowlers(opened, other);
    return ranks_of(opened);
  }
  static std::vector<int> ranks_of(const match_state& of) {
    std::vector<int> ranks;
    for (int i = 1; i <= 11; ++i) ranks.push_back(of.bowler_pool[i].position);
    return ranks;
  }
};

TEST_F(TakeOver, TheComputerChoosesTheSecondOpenerToo) {
  set_up_sample_match(false, false);
  match.bowler = 1;
  match.striker = 1;
  match.next_step = play_step::second_opener;
  user.requests.clear();
  set_captain(match, match_side::batting, true);
  take_step(in_play());
  EXPECT_THAT(user.requests, IsEmpty());
  EXPECT_EQ(match.non_striker, 2);
  EXPECT_EQ(match.next_step, play_step::innings_opens);
  const auto chosen = match.batsman_aggression;
  set_batting_aggression(match);
  EXPECT_EQ(match.batsman_aggression, chosen);
}

TEST_F(TakeOver, TheComputerChoosesTheSecondOpeningBowlerToo) {
  set_up_sample_match(false, false);
  match.bowler = 5;
  match.next_step = play_step::second_opening_bowler;
  user.requests.clear();
  set_captain(match, match_side::bowling, true);
  EXPECT_EQ(ranks_of(match), wanted_ranks());
  take_step(in_play());
  EXPECT_THAT(user.requests, IsEmpty());
  EXPECT_NE(match.next_bowler, 0);
  EXPECT_NE(match.next_bowler, match.bowler);
  EXPECT_EQ(match.next_step, play_step::openers);
}

TEST_F(TakeOver, TheOpeningPairIsThatOfTheFirstTwoOvers) {
  // As a computer that bowled from the start would know it.
  open(false, true);
  play(times(12, hit(0)));
  const auto wanted = match.opening_bowlers;
  const int first = match.deliveries.front().bowler;
  const int second = match.deliveries.back().bowler;
  ASSERT_EQ(wanted[0], second);
  ASSERT_EQ(wanted[1], first);
  for (const int balls : {6, 9, 12, 15, 30}) {
    open(false, false);
    play(times(balls, hit(0)));
    set_captain(match, match_side::bowling, true);
    const int opened_with = match.deliveries.front().bowler;
    EXPECT_EQ(match.opening_bowlers[1], opened_with) << balls << " balls";
    const int other = balls == 6 ? int(match.bowler) : int(match.deliveries[6].bowler);
    EXPECT_EQ(match.opening_bowlers[0], other) << balls << " balls";
    EXPECT_EQ(ranks_of(match), wanted_ranks()) << balls << " balls";
  }
}

TEST_F(TakeOver, AChangeStillToBeToldIsTakenBack) {
  open(false, true);
  play(times(6, hit(0)));
  match.bowler_change_pending = true;
  match.bowler_change_out = 1;
  match.bowler_change_in = 2;
  set_captain(match, match_side::bowling, false);
  EXPECT_FALSE(match.bowler_change_pending);
  EXPECT_EQ(match.bowler_change_out, 0);
  EXPECT_EQ(match.bowler_change_in, 0);
}

TEST_F(TakeOver, AComputerThatComesBackKeepsItsRanking) {
  open(false, true);
  play(times(6, hit(0)));
  match.bowler_pool[1].rating = 12.5;
  set_captain(match, match_side::bowling, false);
  set_captain(match, match_side::bowling, true);
  EXPECT_EQ(match.bowler_pool[1].rating, 12.5);
}

TEST_F(TakeOver, SomebodyStillSitsBeforeAMatchOfTwoComputers) {
  open(false, true);
  play(times(3, hit(0)));
  set_captain(match, match_side::batting, true);
  EXPECT_TRUE(match.human_involved());
  EXPECT_TRUE(match.console_open);
  EXPECT_EQ(match.computer_bats, true);
}

TEST_F(TakeOver, NothingIsDrawn) {
  open(false, false);
  play(times(8, hit(0)));
  const std::uint64_t before = chance.draws_used();
  for (const bool computer : {true, false, true}) {
    set_captain(match, match_side::batting, computer);
    set_captain(match, match_side::bowling, computer);
  }
  EXPECT_EQ(chance.draws_used(), before);
}

// The commentary is the same while somebody is asked about a wicket as after it.
TEST_F(TakeOver, LinesStandWhileAWicketIsTold) {
  open(false, false);
  std::vector<std::string> seen;
  user.on_batsman_details = [&](batsman_details_form&) { seen = commentary_lines(match); };
  play(times(6, hit(4)) + std::vector{hit(1), out()});
  ASSERT_FALSE(seen.empty());
  EXPECT_EQ(seen, commentary_lines(match));
}

}  // namespace
}  // namespace velorin::testing
