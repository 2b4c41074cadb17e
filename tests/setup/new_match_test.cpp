// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/match_state.h"
#include "model/run_time_error.h"
#include "setup/conditions.h"
#include "setup/new_match.h"
#include "setup/team_selection.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"
#include "support/scripted_user.h"
#include "support/small_database.h"
#include "support/squad_table.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Leaves the chain of an OK.
struct leave {};

class NewMatch : public ::testing::Test {
 protected:
  void SetUp() override {
    match = match_state();
    script_draws({0.5, 0.5, 0.5, 0.5});
  }
  void add_teams(const std::vector<std::string>& names) {
    for (const std::string& name : names) database_.add_team(name);
  }
  /// Three teams with a ground or two, one neutral ground, one far away.
  void usual_database() {
    add_teams({"First", "Second", "Third", "Fourth"});
    database_.add_ground("Second", "Green Lane");
    database_.add_ground("Neutral", "Mid Park", 1, 4, 1430);
    database_.add_ground("Fourth", "Far End");
    database_.add_ground("Third", "Hill Road", 2, 3, 945);
    database_.add_ground("Elsewhere", "Nobody's");
    database_.add_ground("Second", "Old Field");
    database_.write();
    form_.open();
  }
  /// OK, left at the first team's selection; what the match holds then is looked at afterwards.
  void ok_to_selection() {
    user_.on_team_selection.push_back([](team_selection_form&) { throw leave(); });
    EXPECT_THROW(form_.accept(), leave);
  }

  small_database database_;
  scripted_user user_;
  front_end_scope shown_{user_};
  new_match_form form_{in_play()};
};

TEST_F(NewMatch, ListsTheTeamsWithTheirRecordNumbers) {
  usual_database();
  ASSERT_EQ(form_.teams.size(), 4U);
  for (int i = 0; i < 4; ++i) EXPECT_EQ(form_.teams[static_cast<std::size_t>(i)].record, i + 2);
  EXPECT_EQ(form_.teams[0].name, "First");
  EXPECT_EQ(form_.teams[3].name, "Fourth");
  EXPECT_EQ(match.team_count, 4);
  EXPECT_EQ(match.team_list[1], "First");
  EXPECT_EQ(match.team_list[4], "Fourth");
  EXPECT_TRUE(form_.visible);
}

TEST_F(NewMatch, PreselectsTheSecondTheThirdAndTheSecondGround) {
  usual_database();
  EXPECT_EQ(form_.first_team_name(), "Second");
  EXPECT_EQ(form_.second_team_name(), "Third");
  EXPECT_EQ(form_.ground_name(), "Mid Park");
}

TEST_F(NewMatch, WithFewerThanThreeTeamsTextsStayEmpty) {
  add_teams({"First", "Second"});
  database_.write();
  form_.open();
  EXPECT_EQ(form_.first_team_name(), "Second");
  EXPECT_EQ(form_.second_team_name(), "");
  EXPECT_EQ(form_.ground_name(), "");
  EXPECT_THAT(form_.grounds, IsEmpty());
}

TEST_F(NewMatch, WithOneTeamOrNoneNothingIsChosen) {
  database_.write();
  form_.open();
  EXPECT_EQ(form_.first_team_name(), "");
  EXPECT_THAT(form_.teams, IsEmpty());
  small_database single;
  single.add_team("First");
  single.write();
  form_.open();
  EXPECT_EQ(form_.teams.size(), 1U);
  EXPECT_EQ(form_.first_team_name(), "");
  EXPECT_EQ(form_.second_team_name(), "");
}

TEST_F(NewMatch, MoreThanTwentyTeamsAreASubscriptError) {
  for (int i = 1; i <= 21; ++i) database_.add_team("Team " + std::to_string(i), squad());
  database_.write();
  try {
    form_.open();
    ADD_FAILURE() << "no error";
  } catch (const run_time_error& error) {
    EXPECT_EQ(error.kind(), failure::subscript);
  }
}

// Grounds.

TEST_F(NewMatch, GroundsAreThoseOfBothTeamsAndNeutralOnesInFileOrder) {
  usual_database();
  EXPECT_THAT(form_.grounds, ElementsAre("Green Lane", "Mid Park", "Hill Road", "Old Field"));
}

TEST_F(NewMatch, GroundsFollowEitherTeam) {
  usual_database();
  form_.choose_first_team(3);
  EXPECT_THAT(form_.grounds, ElementsAre("Mid Park", "Far End", "Hill Road"));
  EXPECT_EQ(form_.ground_name(), "Far End");
  form_.choose_second_team(0);
  EXPECT_THAT(form_.grounds, ElementsAre("Mid Park", "Far End"));
  form_.choose_first_team(0);
  EXPECT_THAT(form_.grounds, ElementsAre("Mid Park"));
  EXPECT_EQ(form_.ground_name(), "") << "there is no second one to show";
  form_.choose_second_team(1);
  EXPECT_THAT(form_.grounds, ElementsAre("Green Lane", "Mid Park", "Old Field"));
}

TEST_F(NewMatch, ATeamCalledNeutralHasItsGroundsTwice) {
  add_teams({"First", "Neutral", "Third"});
  database_.add_ground("Third", "Hill Road");
  database_.add_ground("Neutral", "Mid Park");
  database_.add_ground("Neutral", "Side Park");
  database_.write();
  form_.open();
  EXPECT_THAT(form_.grounds, ElementsAre("Hill Road", "Mid Park", "Mid Park", "Side Park", "Side Park"));
  form_.choose_first_team(0);
  EXPECT_THAT(form_.grounds, ElementsAre("Hill Road", "Mid Park", "Side Park"));
}

TEST_F(NewMatch, OneTeamAgainstItselfHasItsGroundsOnce) {
  usual_database();
  form_.choose_second_team(1);
  EXPECT_THAT(form_.grounds, ElementsAre("Green Lane", "Mid Park", "Old Field"));
}

// OK.

TEST_F(NewMatch, OkKeepsTheGroundOfThatName) {
  usual_database();
  form_.ground_index = 2;
  user_.on_conditions.push_back([](conditions_form& form) {
    EXPECT_EQ(form.headline(), "Conditions in Hill Road:");
    throw leave();
  });
  EXPECT_THROW(form_.accept(), leave);
  EXPECT_EQ(match.ground.country, "Third");
  EXPECT_EQ(match.venue_name(), "Hill Road");
  EXPECT_EQ(match.ground.pitch_bounce, 2);
  EXPECT_EQ(match.ground.pitch_surface, 3);
  EXPECT_EQ(match.ground.start_time, 945);
}

TEST_F(NewMatch, AGroundOfNoSuchNameLeavesTheOneBefore) {
  usual_database();
  form_.ground_index = 2;
  ok_to_selection();
  form_.enter("Second", "Third", "Nowhere");
  EXPECT_EQ(form_.ground_name(), "Nowhere");
  script_draws({0.5, 0.5, 0.5, 0.5});
  ok_to_selection();
  EXPECT_EQ(match.venue_name(), "Hill Road");
}

TEST_F(NewMatch, CaptainsAreSetBeforeTheConditionsAreShown) {
  usual_database();
  for (const bool first : {true, false}) {
    for (const bool second : {true, false}) {
      form_.computer_captains_first = first;
      form_.computer_captains_second = second;
      script_draws({0.5, 0.5, 0.5, 0.5});
      user_.on_conditions.push_back([&](conditions_form&) {
        EXPECT_EQ(match.computer_bats, first);
        EXPECT_EQ(match.computer_bowls, second);
        EXPECT_FALSE(form_.visible);
        EXPECT_EQ(match.team1_name, "") << "the teams come after the conditions";
        throw leave();
      });
      EXPECT_THROW(form_.accept(), leave);
    }
  }
}

TEST_F(NewMatch, TheSelectionShowsTheSortedSquad) {
  squad men = squad_of({{"Lower Order", 9}, {"Middle Order", 30}, {"Opener", 20}, {"Middle Order", 31}});
  database_.add_team("First");
  database_.add_team("Second", men);
  database_.add_team("Third");
  database_.add_ground("Neutral", "Mid Park");
  database_.write();
  form_.open();
  form_.ground_index = 0;
  user_.on_team_selection.push_back([](team_selection_form& form) {
    EXPECT_EQ(form.heading(), "Second");
    EXPECT_EQ(form.title(), "Second - Team Selection ");
    EXPECT_EQ(form.man(1).name, "p3");
    EXPECT_EQ(form.man(2).name, "p4");
    EXPECT_EQ(form.man(3).name, "p2");
    EXPECT_EQ(form.man(4).name, "p1");
    EXPECT_FALSE(form.row_visible(5));
    EXPECT_EQ(form.selected_count(), " 0 /11 players selected so far.");
    throw leave();
  });
  EXPECT_THROW(form_.accept(), leave);
  EXPECT_EQ(match.team1_name, "Second");
  EXPECT_EQ(match.squads[0][1].name, "p3");
}

TEST_F(NewMatch, AnOldMarkOfTheFirstSelectionIsForgotten) {
  usual_database();
  match.first_team_done = true;
  user_.on_team_selection.push_back([](team_selection_form&) {
    EXPECT_FALSE(match.first_team_done);
    throw leave();
  });
  EXPECT_THROW(form_.accept(), leave);
}

TEST_F(NewMatch, TheTwentiethTeamCannotBePlayed) {
  for (int i = 1; i <= 20; ++i) database_.add_team("Team " + std::to_string(i));
  database_.add_ground("Neutral", "Mid Park");
  database_.add_ground("Neutral", "Side Park");
  database_.write();
  form_.open();
  EXPECT_EQ(form_.teams.back().record, 21);
  form_.choose_first_team(18);
  user_.on_team_selection.push_back([](team_selection_form& form) {
    EXPECT_EQ(form.man(1).name, "Team 191");
    throw leave();
  });
  EXPECT_THROW(form_.accept(), leave);
  form_.choose_first_team(19);
  script_draws({0.5, 0.5, 0.5, 0.5});
  user_.requests.clear();
  try {
    form_.accept();
    ADD_FAILURE() << "no error";
  } catch (const run_time_error& error) {
    EXPECT_EQ(error.kind(), failure::subscript);
    EXPECT_EQ(error.place().record, 21);
    EXPECT_EQ(error.place().player, "Team 20");
  }
  EXPECT_THAT(user_.requests, ElementsAre("wecond"));
  EXPECT_TRUE(form_.visible);
}

TEST_F(NewMatch, OkWithoutATeamIsASubscriptError) {
  usual_database();
  form_.choose_first_team(-1);
  try {
    form_.accept();
    ADD_FAILURE() << "no error";
  } catch (const run_time_error& error) {
    EXPECT_EQ(error.kind(), failure::subscript);
  }
}

TEST_F(NewMatch, CancelClosesAndDoesNothingElse) {
  usual_database();
  form_.cancel();
  EXPECT_FALSE(form_.visible);
  EXPECT_THAT(user_.requests, IsEmpty());
  EXPECT_EQ(match.team1_name, "");
  EXPECT_EQ(match.venue_name(), "");
}

TEST_F(NewMatch, ACompetitionEntersTeamsByName) {
  usual_database();
  form_.enter("Fourth", "First", "Hill Road");
  EXPECT_EQ(form_.first_team_name(), "Fourth");
  EXPECT_EQ(form_.second_team_name(), "First");
  EXPECT_EQ(form_.ground_name(), "Hill Road");
  ok_to_selection();
  EXPECT_EQ(match.team1_name, "Fourth");
  EXPECT_EQ(match.venue_name(), "Hill Road") << "also at a ground of neither side";
  try {
    form_.enter("Fourth", "Fifth", "Hill Road");
    ADD_FAILURE() << "no error";
  } catch (const run_time_error& error) {
    EXPECT_EQ(error.kind(), failure::subscript);
    EXPECT_EQ(error.place().player, "Fifth");
  }
}

}  // namespace
}  // namespace velorin::testing
