// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <deque>
#include <string>
#include <vector>

#include "competitions/match_entry.h"
#include "model/match_state.h"
#include "model/random.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"
#include "support/scripted_user.h"
#include "support/small_database.h"

namespace velorin::testing {

/// A match as a competition entered it and as it ended.
struct entered_match {
  std::string first;  ///< the teams as entered
  std::string second;
  bool first_human = false;
  bool second_human = false;
  std::string ground;
  match_result result;  ///< the result block as the competition finds it
};

/// How a match is made to end, whatever was played: the result block is replaced as the result is announced.
enum class ending { as_played, first_wins, second_wins, tie };

struct forced_ending {
  ending how = ending::as_played;
  double delta = 0;  ///< gain in runs an over of the team entered first; the other loses as much
};

/// The scripted user, who keeps every match and makes it end as told.
class competition_user : public scripted_user {
 public:
  std::vector<entered_match> matches;
  std::deque<forced_ending> endings;  ///< of the next matches; behind the last they end as played
  /// The margin of a forced win.
  static constexpr const char* forced_margin = "  won by  7  runs";

  using scripted_user::show;
  void show(conditions_form& form) override;
  void show(team_selection_form& form) override;
  void show(message_box const& message) override;

  /// Winners of all matches, "" for a tie.
  std::vector<std::string> winners() const;
};

/// Blank records, a small database and the user above. The elevens travel in memory, chance is seeded.
class CompetitionTest : public ::testing::Test {
 protected:
  void SetUp() override;

  /// Teams of these names, each with two grounds, "NAME Oval" and "NAME Park", and a neutral ground.
  void add_teams(const std::vector<std::string>& names);
  /// Makes the next matches end so: 1 for the team entered first, 2 for the second, 0 for a tie.
  void force(const std::vector<int>& endings, double delta = 1);

  small_database database_;
  competition_user user_;
  front_end_scope shown_{user_};
};

/// Enters a match and plays it to its end. False if the user leaves it.
bool play_entered(const entered_side& first, const entered_side& second, const std::string& ground);

/// The texts of an array or a vector of texts, for comparisons.
template <class Texts>
std::vector<std::string> texts_of(const Texts& texts) {
  return {texts.begin(), texts.end()};
}

}  // namespace velorin::testing
