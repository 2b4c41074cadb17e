// SPDX-License-Identifier: GPL-3.0-or-later
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "captain/captains_rules.h"
#include "captain/computer_captain.h"
#include "model/run_time_error.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"
#include "support/scripted_user.h"

// The computer captain against his rules told a second time, on sides and scores made up at random.

namespace velorin::testing {
namespace {

class RandomCaptains : public ::testing::Test {
 protected:
  int number(int from, int to) { return std::uniform_int_distribution(from, to)(dice_); }
  template <class List>
  const char* one_of(const List& texts) {
    return texts[static_cast<std::size_t>(number(0, static_cast<int>(std::size(texts)) - 1))];
  }

  /// Many ties, a few roles that nobody knows, a few skills that count for nothing.
  eleven batting_side() {
    static const std::vector<const char*> roles = {
        "Opener", "Middle Order", "Middle Order", "Lower Order", "Lower Order", "Keeper", ""};
    eleven men;
    for (int i = 1; i <= 11; ++i) {
      men[i].name = "bat" + std::to_string(i);
      men[i].bat_skill = number(0, 9) == 0 ? number(-2, 0) : number(1, 12);
      men[i].bat_type = number(0, 19) == 0 ? "RH" : std::string("RH ") + one_of(roles);
    }
    return men;
  }
  /// Rates in steps of a quarter, so that halves and equal keys are frequent.
  eleven bowling_side() {
    static const std::vector<const char*> kinds = {"Fast Bowler", "Medium Pacer", "spinner", "spinner", "spinner", "",
                                                   "Part timer"};
    eleven men;
    for (int i = 1; i <= 11; ++i) {
      men[i].name = "bowl" + std::to_string(i);
      men[i].bowl_sr = static_cast<float>(number(80, 160)) / 4;
      men[i].econ = static_cast<float>(number(12, 28)) / 4;
      men[i].bowler_type = one_of(kinds);
    }
    return men;
  }
  /// The end of an over somewhere in an innings.
  void random_over_end() {
    set_up_sample_match(number(0, 1) == 1, true);
    match.batting_xi = batting_side();
    for (int i = 1; i <= 11; ++i) match.batting_xi[i].bat_skill = number(1, 60);
    match.bowling_xi = bowling_side();
    rules::opening_bowlers(match, number(-10, 10));
    match.innings_balls = number(0, 3) == 0 ? number(1, 300) : 6 * number(1, 50);
    match.score_runs = number(0, 330);
    match.score_wickets = number(0, 9);
    match.first_total = number(0, 1) * number(1, 300);
    match.first_innings_projection = {projection_text::kind::number,
                                      number(0, 3) == 0 ? number(150, 400) : number(0, 30)};
    match.bowler = number(1, 11);
    match.next_bowler = number(1, 11);
    match.opening_bowlers = {number(1, 11), number(1, 11)};
    for (int i = 1; i <= 11; ++i) {
      match.bowling_card[i].balls = number(1, 62);
      match.bowling_card[i].runs = number(0, 70);
      match.bowling_card[i].wickets = number(0, 4);
      match.batting_card[i].runs = number(0, 120);
      match.batting_card[i].balls = number(0, 120);
    }
    match.striker = number(1, 11);
    match.non_striker = match.striker % 11 + 1;
    if (number(0, 2) != 0) return;
    match.bowler_change_pending = true;
    match.bowler_change_out = number(1, 11);
    match.bowler_change_in = number(1, 11);
  }

  std::mt19937 dice_{20240607};
};

std::string names(const eleven& men) {
  std::string all;
  for (int i = 1; i <= 11; ++i) all += men[i].name + " ";
  return all;
}

TEST_F(RandomCaptains, SendInTheSameBatsmen) {
  for (int round = 0; round < 2000; ++round) {
    set_up_sample_match();
    match.batting_xi = batting_side();
    match_state told = match;
    for (int in = 0; in < 11; ++in) {
      match.striker = told.striker = in;
      match.non_striker = told.non_striker = in > 0 ? number(0, in - 1) : 0;
      choose_next_batsman(match);
      rules::next_batsman(told);
      ASSERT_EQ(match.next_batsman_slot, told.next_batsman_slot);
      ASSERT_EQ(names(match.batting_xi), names(told.batting_xi)) << "round " << round << ", man " << in + 1;
    }
  }
}

TEST_F(RandomCaptains, OpenWithTheSameBowlers) {
  int same_man_twice = 0;
  for (int round = 0; round < 3000; ++round) {
    set_up_sample_match();
    match.bowling_xi = bowling_side();
    match_state told = match;
    const int offset = number(-10, 10);
    script_draws({die_draw(offset + 11, 21)});
    choose_opening_bowlers(match, chance);
    rules::opening_bowlers(told, offset);
    for (int i = 1; i <= 11; ++i) {
      const bowler_pool_rec& line = match.bowler_pool[i];
      const bowler_pool_rec& expected = told.bowler_pool[i];
      ASSERT_EQ(line.position, expected.position) << "round " << round << ", place " << i;
      ASSERT_EQ(line.name, expected.name);
      ASSERT_EQ(line.rating, expected.rating);
      ASSERT_EQ(line.econ_class, expected.econ_class);
      ASSERT_EQ(line.bowler_type, expected.bowler_type);
    }
    ASSERT_EQ(match.bowler, told.bowler) << "round " << round;
    ASSERT_EQ(match.next_bowler, told.next_bowler) << "round " << round;
    if (match.bowler == match.next_bowler) ++same_man_twice;
  }
  EXPECT_GT(same_man_twice, 0) << "one man at both ends is among the cases";
}

TEST_F(RandomCaptains, BatWithTheSameAggression) {
  for (int round = 0; round < 5000; ++round) {
    random_over_end();
    match_state told = match;
    set_batting_aggression(match);
    rules::batting_aggression(told);
    ASSERT_EQ(match.batsman_aggression, told.batsman_aggression) << "round " << round;
  }
}

TEST_F(RandomCaptains, ReviewTheBowlersAlike) {
  int changes = 0;
  int without_a_man = 0;
  for (int round = 0; round < 5000; ++round) {
    random_over_end();
    match_state told = match;
    const rules::review_result expected = rules::review(told);
    const std::string announcement = has_bowler_change_to_tell(match) ? bowler_change_message(match).text : "";
    bool nobody_found = false;
    try {
      review_bowler(match);
    } catch (const run_time_error& error) {
      ASSERT_EQ(error.kind(), failure::endless);
      nobody_found = true;
    }
    ASSERT_EQ(nobody_found, expected.nobody_found) << "round " << round;
    ASSERT_EQ(match.next_bowler, told.next_bowler) << "round " << round << " after " << match.innings_balls;
    ASSERT_EQ(match.bowler, told.bowler);
    ASSERT_EQ(match.bowler_change_pending, told.bowler_change_pending);
    ASSERT_EQ(match.bowler_change_out, told.bowler_change_out);
    ASSERT_EQ(match.bowler_change_in, told.bowler_change_in);
    ASSERT_EQ(match.opening_bowlers[0], told.opening_bowlers[0]);
    ASSERT_EQ(match.opening_bowlers[1], told.opening_bowlers[1]);
    ASSERT_EQ(match.bowling_aggression, told.bowling_aggression) << "round " << round;
    ASSERT_EQ(announcement, expected.announcement.value_or(""));
    changes += match.bowler_change_pending ? 1 : 0;
    without_a_man += nobody_found ? 1 : 0;
  }
  EXPECT_GT(changes, 500);
  EXPECT_GT(without_a_man, 0);
}

}  // namespace
}  // namespace velorin::testing
