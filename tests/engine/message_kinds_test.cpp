// SPDX-License-Identifier: GPL-3.0-or-later
// Each message of play says of what kind it is, so that a user may let it pass.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "console/captain_forms.h"
#include "engine/over_play.h"
#include "headless/headless_user.h"
#include "model/random.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"

namespace velorin::testing {
namespace {

class listening_user : public headless_user {
 public:
  using headless_user::headless_user;
  using headless_user::show;
  std::set<message_kind> kinds;
  int falls = 0;

  void show(const message_box& message) override {
    EXPECT_NE(message.kind, message_kind::other) << message.title << ": " << message.text;
    EXPECT_EQ(message.kind == message_kind::hundred, message.text.find("entury!") != std::string::npos) << message.text;
    kinds.insert(message.kind);
  }
  void show(batsman_details_form& form) override {
    EXPECT_EQ(form.kind, message_kind::fall_of_wicket);
    ++falls;
  }
};

TEST(MessageKinds, EveryMessageOfPlayHasOne) {
  listening_user user(match);
  const front_end_scope in_use(user);
  for (int seed = 1; seed <= 30; ++seed) {
    match = match_state();
    // The computer bowls, bats, does neither: with a captain of flesh it is told.
    set_up_sample_match(seed % 3 == 1, seed % 3 == 0);
    chance.use_seed(static_cast<std::uint64_t>(seed));
    open_console(in_play());
    while (match.over_no != 0) next_over(in_play());
  }
  match = match_state();
  chance.use_clock();
  EXPECT_GT(user.falls, 100);
  for (const message_kind kind :
       {message_kind::opening_bowlers, message_kind::bowler_change, message_kind::batting_milestone,
        message_kind::hundred, message_kind::bowling_milestone, message_kind::stand_milestone,
        message_kind::end_of_innings, message_kind::end_of_match}) {
    EXPECT_TRUE(user.kinds.contains(kind)) << static_cast<int>(kind);
  }
}

}  // namespace
}  // namespace velorin::testing
