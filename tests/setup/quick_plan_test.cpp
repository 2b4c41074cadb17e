// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/quick_plan.h"

#include <gtest/gtest.h>

#include <vector>

#include "headless/headless_user.h"
#include "model/match_state.h"
#include "model/random.h"
#include "setup/conditions.h"
#include "setup/new_match.h"
#include "setup/team_selection.h"
#include "support/game_in_play.h"
#include "support/small_database.h"

namespace velorin::testing {
namespace {

class QuickPlan : public ::testing::Test {
 protected:
  QuickPlan() {
    for (const char* team : {"Avon", "Bern"}) database_.add_team(team);
    database_.add_ground("Avon", "The Green", 2, 4);
    database_.write();
  }
  small_database database_;
};

TEST_F(QuickPlan, TheSkyOfASeedIsTheOneThatIsDrawn) {
  for (const std::uint64_t seed : {1, 2, 3, 4, 5, 6, 7}) {
    chance.use_seed(seed);
    const auto before = chance.draws_used();
    const sky_ahead sky = draw_sky_ahead(chance);
    EXPECT_EQ(chance.draws_used(), before) << "the match draws as without it";
    EXPECT_EQ(sky.weather, draw_condition(chance));
    EXPECT_EQ(sky.outfield, draw_condition(chance));
  }
}

TEST_F(QuickPlan, ThePitchIsThatOfTheGround) {
  const pitch_of_ground pitch = pitch_ahead(in_play(), "The Green");
  match.ground.pitch_bounce = 2;
  match.ground.pitch_surface = 4;
  chance.use_seed(1);
  conditions_form form(in_play());
  form.open();
  EXPECT_EQ(pitch.surface, form.pitch_surface);
  EXPECT_EQ(pitch.bounce, form.pitch_bounce);
}

TEST_F(QuickPlan, AnElevenIsTheOneThatTheComputerSelects) {
  const eleven men = eleven_ahead(in_play(), {"Bern", 3});
  class Selector : public headless_user {
   public:
    using headless_user::headless_user;
    using headless_user::show;
    void show(team_selection_form& form) override {
      form.select_eleven();
      selected.push_back(form.chosen_men());
      selected.size() == 1 ? form.accept() : form.leave();
    }
    std::vector<eleven> selected;
  };
  Selector user(match);
  const front_end_scope in_use(user);
  chance.use_seed(1);
  new_match_form form(in_play());
  form.open();
  form.enter("Avon", "Bern", "The Green");
  form.accept();
  ASSERT_EQ(user.selected.size(), 2U);
  for (int row = 1; row <= 11; ++row) EXPECT_EQ(men[row].name, user.selected[1][row].name) << row;
}

TEST_F(QuickPlan, TheBestBowlersTakeWicketsSoonerThenGiveLess) {
  eleven men = eleven_ahead(in_play(), {"Avon", 2});
  for (int row = 1; row <= 11; ++row) {
    men[row].bowl_sr = 60;
    men[row].econ = 5;
    men[row].is_keeper = row == 1 ? -1 : 0;
  }
  men[1].bowl_sr = 20;
  men[7].bowl_sr = 40;
  men[9].econ = 4;
  EXPECT_EQ(best_bowlers_of(men), (std::array<int, 2>{7, 9})) << "a keeper does not bowl";
}

}  // namespace
}  // namespace velorin::testing
