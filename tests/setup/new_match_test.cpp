// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/run_time_error.h"
#include "model/teams.h"
#include "setup/teamfrm.h"
#include "setup/teamsel.h"
#include "setup/wecond.h"
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
    user_.on_teamsel.push_back([](teamsel&) { throw leave(); });
    EXPECT_THROW(form_.command1_click(), leave);
  }

  small_database database_;
  scripted_user user_;
  front_end_scope shown_{user_};
  teamfrm form_;
};

TEST_F(NewMatch, ListsTheTeamsWithTheirRecordNumbers) {
  usual_database();
  ASSERT_EQ(form_.combo1.size(), 4U);
  for (int i = 0; i < 4; ++i) EXPECT_EQ(form_.combo1[static_cast<std::size_t>(i)].record, i + 2);
  EXPECT_EQ(form_.combo1[0].name, "First");
  EXPECT_EQ(form_.combo1[3].name, "Fourth");
  EXPECT_EQ(match.team_count, 4);
  EXPECT_EQ(match.team_list[1], "First");
  EXPECT_EQ(match.team_list[4], "Fourth");
  EXPECT_TRUE(form_.visible);
}

TEST_F(NewMatch, PreselectsTheSecondTheThirdAndTheSecondGround) {
  usual_database();
  EXPECT_EQ(form_.combo1_text(), "Second");
  EXPECT_EQ(form_.combo2_text(), "Third");
  EXPECT_EQ(form_.combo3_text(), "Mid Park");
}

TEST_F(NewMatch, WithFewerThanThreeTeamsTextsStayEmpty) {
  add_teams({"First", "Second"});
  database_.write();
  form_.open();
  EXPECT_EQ(form_.combo1_text(), "Second");
  EXPECT_EQ(form_.combo2_text(), "");
  EXPECT_EQ(form_.combo3_text(), "");
  EXPECT_THAT(form_.combo3, IsEmpty());
}

TEST_F(NewMatch, WithOneTeamOrNoneNothingIsChosen) {
  database_.write();
  form_.open();
  EXPECT_EQ(form_.combo1_text(), "");
  EXPECT_THAT(form_.combo1, IsEmpty());
  small_database single;
  single.add_team("First");
  single.write();
  form_.open();
  EXPECT_EQ(form_.combo1.size(), 1U);
  EXPECT_EQ(form_.combo1_text(), "");
  EXPECT_EQ(form_.combo2_text(), "");
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
  EXPECT_THAT(form_.combo3, ElementsAre("Green Lane", "Mid Park", "Hill Road", "Old Field"));
}

TEST_F(NewMatch, GroundsFollowEitherTeam) {
  usual_database();
  form_.choose_first_team(3);
  EXPECT_THAT(form_.combo3, ElementsAre("Mid Park", "Far End", "Hill Road"));
  EXPECT_EQ(form_.combo3_text(), "Far End");
  form_.choose_second_team(0);
  EXPECT_THAT(form_.combo3, ElementsAre("Mid Park", "Far End"));
  form_.choose_first_team(0);
  EXPECT_THAT(form_.combo3, ElementsAre("Mid Park"));
  EXPECT_EQ(form_.combo3_text(), "") << "there is no second one to show";
  form_.choose_second_team(1);
  EXPECT_THAT(form_.combo3, ElementsAre("Green Lane", "Mid Park", "Old Field"));
}

TEST_F(NewMatch, ATeamCalledNeutralHasItsGroundsTwice) {
  add_teams({"First", "Neutral", "Third"});
  database_.add_ground("Third", "Hill Road");
  database_.add_ground("Neutral", "Mid Park");
  database_.add_ground("Neutral", "Side Park");
  database_.write();
  form_.open();
  EXPECT_THAT(form_.combo3, ElementsAre("Hill Road", "Mid Park", "Mid Park", "Side Park", "Side Park"));
  form_.choose_first_team(0);
  EXPECT_THAT(form_.combo3, ElementsAre("Hill Road", "Mid Park", "Side Park"));
}

TEST_F(NewMatch, OneTeamAgainstItselfHasItsGroundsOnce) {
  usual_database();
  form_.choose_second_team(1);
  EXPECT_THAT(form_.combo3, ElementsAre("Green Lane", "Mid Park", "Old Field"));
}

// OK.

TEST_F(NewMatch, OkKeepsTheGroundOfThatName) {
  usual_database();
  form_.combo3_index = 2;
  user_.on_wecond.push_back([](wecond& form) {
    EXPECT_EQ(form.label8(), "Conditions in Hill Road:");
    throw leave();
  });
  EXPECT_THROW(form_.command1_click(), leave);
  EXPECT_EQ(match.ground.country, "Third");
  EXPECT_EQ(match.venue_name(), "Hill Road");
  EXPECT_EQ(match.ground.pitch_bounce, 2);
  EXPECT_EQ(match.ground.pitch_surface, 3);
  EXPECT_EQ(match.ground.start_time, 945);
}

TEST_F(NewMatch, AGroundOfNoSuchNameLeavesTheOneBefore) {
  usual_database();
  form_.combo3_index = 2;
  ok_to_selection();
  form_.enter("Second", "Third", "Nowhere");
  EXPECT_EQ(form_.combo3_text(), "Nowhere");
  script_draws({0.5, 0.5, 0.5, 0.5});
  ok_to_selection();
  EXPECT_EQ(match.venue_name(), "Hill Road");
}

TEST_F(NewMatch, CaptainsAreSetBeforeTheConditionsAreShown) {
  usual_database();
  for (const bool first : {true, false}) {
    for (const bool second : {true, false}) {
      form_.option1_cpu = first;
      form_.option3_cpu = second;
      script_draws({0.5, 0.5, 0.5, 0.5});
      user_.on_wecond.push_back([&](wecond&) {
        EXPECT_EQ(match.computer_bats, first);
        EXPECT_EQ(match.computer_bowls, second);
        EXPECT_FALSE(form_.visible);
        EXPECT_EQ(match.team1_name, "") << "the teams come after the conditions";
        throw leave();
      });
      EXPECT_THROW(form_.command1_click(), leave);
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
  form_.combo3_index = 0;
  user_.on_teamsel.push_back([](teamsel& form) {
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
  EXPECT_THROW(form_.command1_click(), leave);
  EXPECT_EQ(match.team1_name, "Second");
  EXPECT_EQ(match.squads[0][1].name, "p3");
}

TEST_F(NewMatch, AnOldMarkOfTheFirstSelectionIsForgotten) {
  usual_database();
  match.first_team_done = true;
  user_.on_teamsel.push_back([](teamsel&) {
    EXPECT_FALSE(match.first_team_done);
    throw leave();
  });
  EXPECT_THROW(form_.command1_click(), leave);
}

TEST_F(NewMatch, TheTwentiethTeamCannotBePlayed) {
  for (int i = 1; i <= 20; ++i) database_.add_team("Team " + std::to_string(i));
  database_.add_ground("Neutral", "Mid Park");
  database_.add_ground("Neutral", "Side Park");
  database_.write();
  form_.open();
  EXPECT_EQ(form_.combo1.back().record, 21);
  form_.choose_first_team(18);
  user_.on_teamsel.push_back([](teamsel& form) {
    EXPECT_EQ(form.man(1).name, "Team 191");
    throw leave();
  });
  EXPECT_THROW(form_.command1_click(), leave);
  form_.choose_first_team(19);
  script_draws({0.5, 0.5, 0.5, 0.5});
  user_.requests.clear();
  try {
    form_.command1_click();
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
    form_.command1_click();
    ADD_FAILURE() << "no error";
  } catch (const run_time_error& error) {
    EXPECT_EQ(error.kind(), failure::subscript);
  }
}

TEST_F(NewMatch, CancelClosesAndDoesNothingElse) {
  usual_database();
  form_.command2_click();
  EXPECT_FALSE(form_.visible);
  EXPECT_THAT(user_.requests, IsEmpty());
  EXPECT_EQ(match.team1_name, "");
  EXPECT_EQ(match.venue_name(), "");
}

TEST_F(NewMatch, ACompetitionEntersTeamsByName) {
  usual_database();
  form_.enter("Fourth", "First", "Hill Road");
  EXPECT_EQ(form_.combo1_text(), "Fourth");
  EXPECT_EQ(form_.combo2_text(), "First");
  EXPECT_EQ(form_.combo3_text(), "Hill Road");
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
