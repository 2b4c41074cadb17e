// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include <gtest/gtest.h>

#include "captain/computer_captain.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"
#include "support/scripted_user.h"

namespace velorin::testing {

/// The end of an over. The computer bowls to a human side; A.Bowl9, a fast bowler, has just bowled, and A.Bowl5, the
/// other fast one, is to bowl next. The computer's list, best first: 3 spinner, 8 medium, 5 and 9 fast, 1 spinner, 2 of
/// no kind, 4 medium, 6 spinner, 7 (the keeper) spinner, 10 and 11 spinner. 8 and 3 opened the bowling.
class ReviewScene : public ::testing::Test {
 protected:
  void SetUp() override {
    set_up_sample_match(false, true);
    script_draws({});
    const int order[] = {0, 3, 8, 5, 9, 1, 2, 4, 6, 7, 10, 11};
    for (int i = 1; i <= 11; ++i) {
      const int position = order[i];
      match.bowler_pool[i].position = position;
      match.bowler_pool[i].name = match.bowling_xi[position].name;
      set_kind(position, "spinner");
    }
    for (const int position : {5, 9}) set_kind(position, "Fast Bowler");
    for (const int position : {8, 4}) set_kind(position, "Medium Pacer");
    set_kind(2, "");
    match.bowler = 5;
    match.next_bowler = 9;
    match.striker = 1;
    match.non_striker = 2;
    match.opening_bowlers = {8, 3};
  }

  /// The kind of a man, in the eleven and in the list.
  static void set_kind(int position, const std::string& kind) {
    match.bowling_xi[position].bowler_type = kind;
    for (int i = 1; i <= 11; ++i) {
      if (match.bowler_pool[i].position == position) match.bowler_pool[i].bowler_type = kind;
    }
  }
  /// A man's figures.
  static void figures(int position, int balls, int runs, int wickets) {
    match.bowling_card[position].balls = balls;
    match.bowling_card[position].runs = runs;
    match.bowling_card[position].wickets = wickets;
  }
  /// Reviews after so many balls of the innings and returns who bowls the over after the next.
  int reviewed(int innings_balls) {
    match.innings_balls = innings_balls;
    if (has_bowler_change_to_tell(match)) user_.show(bowler_change_message(match));
    review_bowler(match);
    return match.next_bowler;
  }

  scripted_user user_;
  front_end_scope shown_{user_};
};

}  // namespace velorin::testing
