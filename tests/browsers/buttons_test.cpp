// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include "browsers/figures_fixture.h"
#include "browsers/player_profile.h"
#include "browsers/player_rankings.h"
#include "engine/over_play.h"
#include "model/match_state.h"
#include "setup/team_selection.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"
#include "support/scripted_user.h"

// The buttons of other forms that lead to the browsers.

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Notes what is shown.
class reader : public scripted_user {
 public:
  using scripted_user::show;
  void show(player_profile_form& form) override {
    shown.push_back(under(form.person, "Name").value_or("nobody") + " of " + form.teams[form.chosen_team] +
                    (form.locked ? "" : " unlocked"));
  }
  void show(player_rankings_form& form) override { shown.push_back(form.table.title); }

  std::vector<std::string> shown;
};

class Buttons : public figures_fixture {
 protected:
  void SetUp() override {
    const database_files ours = data.files;
    set_up_sample_match(false, false);
    data.files = ours;
    data.files.updates = false;
    match.bowling_card[8].name = "A.Bowl8";
    match.bowling_card[9].name = "A.Bowl9";
    match.batting_card[3].name = "H.Bat3";
    match.batting_card[5].name = "H.Bat5";
    match.bowler = 9;
    match.next_bowler = 8;
    match.striker = 5;
    match.non_striker = 3;
  }
  void TearDown() override { match = match_state(); }

  reader user_;
  front_end_scope scope_{user_};
};

TEST_F(Buttons, OfTheConsoleOpenTheProfilesOfBowlersAndBatsmen) {
  for (const char* name : {"A.Bowl8", "A.Bowl9"}) add("Away", bowler(name, 6, 5, 0));
  for (const char* name : {"H.Bat3", "H.Bat5"}) add("Home", batsman(name, 1, 0, 5, 5));
  write();
  console_form console(in_play());
  console.show_bowler_profile();
  console.show_lower_batsman_profile();
  console.show_next_bowler_profile();
  console.show_higher_batsman_profile();
  EXPECT_THAT(user_.shown, ElementsAre("A.Bowl9 of Away", "H.Bat3 of Home", "A.Bowl8 of Away", "H.Bat5 of Home"));
  EXPECT_THAT(user_.messages, IsEmpty());
}

TEST_F(Buttons, OfTheConsoleTellOfAManWithoutACareer) {
  console_form console(in_play());
  console.show_bowler_profile();
  console.show_lower_batsman_profile();
  console.show_next_bowler_profile();
  console.show_higher_batsman_profile();
  EXPECT_THAT(user_.shown, IsEmpty());
  ASSERT_EQ(user_.messages.size(), 4U);
  for (const message_box& message : user_.messages) {
    EXPECT_EQ(message.title, "Error - Player Details");
    EXPECT_NE(message.text, "");
  }
}

TEST_F(Buttons, OfTheSelectionOpenTheCareersOfItsTeam) {
  const squad men = sample_squad("H.Bat");
  team_selection_form form(in_play());
  form.open("Home", men);
  form.show_career_averages(0);
  form.show_career_averages(1);
  EXPECT_THAT(user_.shown, ElementsAre("Home - Career Batting Records", "Home - Career Bowling Records"));
  EXPECT_FALSE(form.closed);
}

}  // namespace
}  // namespace velorin::testing
