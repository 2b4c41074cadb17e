// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

#include "browsers/figures_fixture.h"
#include "browsers/player_profile.h"
#include "database/configuration.h"
#include "support/game_in_play.h"
#include "support/scripted_user.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

/// A man all of whose figures differ.
career_rec full_career() {
  career_rec man = batsman("A.Man", 20, 4, 600, 700);
  man.matches = 21;
  man.fours = 50;
  man.sixes = 6;
  man.twos = 71;
  man.threes = 7;
  man.singles = 201;
  man.dots = 307;
  man.wickets = 12;
  man.catches = 8;
  man.stumpings = 2;
  man.balls_bowled = 400;
  man.maidens = 5;
  man.runs_given = 333;
  man.hundreds = 1;
  man.fifties = 3;
  man.five_wickets = 9;
  man.best_wickets = 5;
  man.best_runs = 23;
  man.high_score = 107;
  man.high_not_out = -1;
  man.high_against = "Tamar";
  man.best_against = "Umbria";
  return man;
}

std::vector<std::string> captions(const std::vector<shown_field>& fields) {
  std::vector<std::string> found;
  for (const shown_field& field : fields) found.emplace_back(field.caption);
  return found;
}

class Profile : public figures_fixture {
 protected:
  /// The profile of one man, alone in his team.
  player_profile_form profile_of(const career_rec& man) {
    add("Alba", man);
    write();
    player_profile_form form(data);
    form.open_locked("Alba", man.name);
    return form;
  }
};

TEST_F(Profile, ShowsEachFigureUnderItsCaption) {
  const player_profile_form form = profile_of(full_career());
  EXPECT_THAT(captions(form.person), ElementsAre("Name", "Matches"));
  EXPECT_THAT(captions(form.batting),
              ElementsAre("Innings", "Not Outs", "Runs ", "Balls faced", "Highest Score:", "Average", "Strike Rate",
                          "Hundreds", "Fifties", "% 50 +", "Fours", "Sixes"));
  EXPECT_THAT(captions(form.bowling), ElementsAre("Overs", "Balls Bowled", "Maidens", "Runs Given", "Wickets",
                                                  "Best Bowling:", "Average", "Strike Rate", "Economy", "5 wkts "));
  EXPECT_THAT(captions(form.fielding), ElementsAre("Catches", "Stumpings"));

  EXPECT_EQ(under(form.person, "Name"), "A.Man");
  EXPECT_EQ(under(form.person, "Matches"), "21");
  EXPECT_EQ(under(form.batting, "Innings"), "20");
  EXPECT_EQ(under(form.batting, "Not Outs"), "4");
  EXPECT_EQ(under(form.batting, "Runs "), "600");
  EXPECT_EQ(under(form.batting, "Balls faced"), "700");
  EXPECT_EQ(under(form.batting, "Fours"), "50");
  EXPECT_EQ(under(form.batting, "Sixes"), "6");
  EXPECT_EQ(under(form.batting, "Fifties"), "3");
  EXPECT_EQ(under(form.batting, "Hundreds"), "1");
  EXPECT_EQ(under(form.batting, "Highest Score:"), "107*  vs  Tamar");
  EXPECT_EQ(under(form.bowling, "Balls Bowled"), "400");
  EXPECT_EQ(under(form.bowling, "Runs Given"), "333");
  EXPECT_EQ(under(form.bowling, "Maidens"), "5");
  EXPECT_EQ(under(form.bowling, "Wickets"), "12");
  EXPECT_EQ(under(form.bowling, "5 wkts "), "9");
  EXPECT_EQ(under(form.bowling, "Best Bowling:"), "5/23  vs  Umbria");
  EXPECT_EQ(under(form.fielding, "Catches"), "8");
  EXPECT_EQ(under(form.fielding, "Stumpings"), "2");
}

TEST_F(Profile, DerivesTheRates) {
  const player_profile_form form = profile_of(full_career());
  EXPECT_EQ(under(form.batting, "Average"), "37.5");       // 600 / 16
  EXPECT_EQ(under(form.batting, "Strike Rate"), "85.71");  // 60000 / 700 = 85.714...
  EXPECT_EQ(under(form.batting, "% 50 +"), "20");          // 4 of 20
  EXPECT_EQ(under(form.bowling, "Overs"), "66.4");
  EXPECT_EQ(under(form.bowling, "Average"), "27.75");      // 333 / 12
  EXPECT_EQ(under(form.bowling, "Strike Rate"), "33.33");  // 400 / 12
  EXPECT_EQ(under(form.bowling, "Economy"), "5");          // 1998 / 400 = 4.995, a half to the even 500 hundredths
}

TEST_F(Profile, RoundsAHalfToTheEvenNeighbour) {
  career_rec man = batsman("A.Half", 8, 0, 1, 0);  // 0.125
  man.wickets = 8;
  man.runs_given = 3;    // 0.375
  man.balls_bowled = 5;  // 0.625
  const player_profile_form form = profile_of(man);
  EXPECT_EQ(under(form.batting, "Average"), "0.12");
  EXPECT_EQ(under(form.bowling, "Average"), "0.38");
  EXPECT_EQ(under(form.bowling, "Strike Rate"), "0.62");
}

TEST_F(Profile, AManNeverDismissedHasNoAverage) {
  const player_profile_form form = profile_of(batsman("A.Stayer", 2, 2, 90, 100));
  EXPECT_EQ(under(form.batting, "Average"), " -  ");
  EXPECT_EQ(under(form.batting, "Strike Rate"), "90");
  EXPECT_EQ(under(form.batting, "% 50 +"), "0");
}

TEST_F(Profile, AManWithoutABallFaced) {
  EXPECT_EQ(under(profile_of(batsman("A.Watcher", 1, 0, 0, 0)).batting, "Strike Rate"), " 0 ");
}

TEST_F(Profile, AManWhoHasNeitherBattedNorBowled) {
  career_rec man;
  man.name = "A.Twelfth";
  man.matches = 1;
  const player_profile_form form = profile_of(man);
  EXPECT_EQ(under(form.batting, "Average"), " -  ");
  EXPECT_EQ(under(form.batting, "Strike Rate"), " 0 ");
  EXPECT_EQ(under(form.batting, "% 50 +"), " -  ");
  EXPECT_EQ(under(form.batting, "Highest Score:"), "0  vs  ");
  EXPECT_EQ(under(form.bowling, "Overs"), "0.0");
  EXPECT_EQ(under(form.bowling, "Average"), " -  ");
  EXPECT_EQ(under(form.bowling, "Strike Rate"), " -  ");
  EXPECT_EQ(under(form.bowling, "Economy"), " -  ");
  EXPECT_EQ(under(form.bowling, "Best Bowling:"), "0/0  vs  ");
}

TEST_F(Profile, AHundredBallsAreSixteenOversAndFour) {
  const player_profile_form form = profile_of(bowler("A.Bowler", 100, 80, 0));
  EXPECT_EQ(under(form.bowling, "Overs"), "16.4");
  EXPECT_EQ(under(form.bowling, "Economy"), "4.8");
  EXPECT_EQ(under(form.bowling, "Average"), " -  ");  // no wicket
}

TEST_F(Profile, FiguresBeyondSixteenBitsHaveRates) {
  const player_profile_form form = profile_of(batsman("A.Veteran", 2000000, 0, 2000000000, 2000000000));
  EXPECT_EQ(under(form.batting, "Average"), "1000");
  EXPECT_EQ(under(form.batting, "Strike Rate"), "100");
}

TEST_F(Profile, ADatabaseWithoutCareersShowsNothing) {
  player_profile_form form(data);
  form.open();
  EXPECT_THAT(form.teams, IsEmpty());
  EXPECT_THAT(form.players, IsEmpty());
  EXPECT_THAT(form.person, IsEmpty());
  EXPECT_FALSE(form.no_photo_visible);
  EXPECT_FALSE(std::filesystem::exists(data.files.career_file));  // updates are off, so nothing was created
}

TEST_F(Profile, OpeningCreatesTheFileWhileMatchesUpdateIt) {
  data.files.updates = true;
  player_profile_form form(data);
  form.open();
  EXPECT_TRUE(std::filesystem::exists(data.files.career_file));
  EXPECT_EQ(std::filesystem::file_size(data.files.career_file), 0U);
}

TEST_F(Profile, ListsTeamsAndTheirPlayersInTheOrderOfTheFile) {
  add("Tamar", batsman("T.One", 1, 0, 10, 10));
  add("Alba", batsman("A.One", 1, 0, 20, 10));
  add("Alba", batsman("A.Two", 1, 0, 30, 10));
  write();
  player_profile_form form(data);
  form.open();
  EXPECT_THAT(form.teams, ElementsAre("Tamar", "Alba"));
  EXPECT_THAT(form.players, IsEmpty());
  form.choose_team(1);
  EXPECT_THAT(form.players, ElementsAre("A.One", "A.Two"));
  EXPECT_EQ(form.chosen_player, -1);
  EXPECT_THAT(form.person, IsEmpty());
  form.choose_player(1);
  EXPECT_EQ(under(form.batting, "Runs "), "30");
}

TEST_F(Profile, AnotherTeamLeavesNoPlayerChosenAndTheFiguresOnShow) {
  add("Tamar", batsman("T.One", 1, 0, 10, 10));
  add("Alba", batsman("A.One", 1, 0, 20, 10));
  write();
  player_profile_form form(data);
  form.open();
  form.choose_team(0);
  form.choose_player(0);
  form.choose_team(1);
  EXPECT_FALSE(form.team_changed);
  EXPECT_EQ(form.chosen_player, -1);
  EXPECT_THAT(form.players, ElementsAre("A.One"));
  EXPECT_EQ(under(form.person, "Name"), "T.One");
  form.choose_player(0);
  EXPECT_EQ(under(form.person, "Name"), "A.One");
  form.choose_team(1);  // the same team again
  EXPECT_EQ(form.chosen_player, -1);
}

TEST_F(Profile, TakingTheChoiceBackChangesNothing) {
  add("Alba", batsman("A.One", 1, 0, 20, 10));
  write();
  player_profile_form form(data);
  form.open();
  form.choose_team(-1);
  form.choose_player(0);
  EXPECT_THAT(form.person, IsEmpty());
}

TEST_F(Profile, LockedItKeepsItsPlayer) {
  add("Tamar", batsman("T.One", 1, 0, 10, 10));
  add("Alba", batsman("A.One", 1, 0, 20, 10));
  add("Alba", batsman("A.Two", 1, 0, 30, 10));
  write();
  player_profile_form form(data);
  form.open_locked("Alba", "A.Two");
  EXPECT_TRUE(form.locked);
  EXPECT_EQ(form.chosen_team, 1);
  EXPECT_THAT(form.players, ElementsAre("A.One", "A.Two"));
  EXPECT_EQ(form.chosen_player, 1);
  form.choose_team(0);
  form.choose_player(0);
  EXPECT_EQ(form.chosen_team, 1);
  EXPECT_EQ(form.chosen_player, 1);
  EXPECT_EQ(under(form.person, "Name"), "A.Two");
  form.accept();
  EXPECT_TRUE(form.closed);
}

TEST_F(Profile, LockedItNeedsTheTeamAndThePlayer) {
  add("Alba", batsman("A.One", 1, 0, 20, 10));
  write();
  player_profile_form form(data);
  EXPECT_EQ(failure_of([&] { form.open_locked("Tamar", "A.One"); }), failure::subscript);
  EXPECT_EQ(failure_of([&] { form.open_locked("Alba", "A.Two"); }), failure::subscript);
  EXPECT_EQ(failure_of([&] { form.open_locked("Alba", "a.one"); }), failure::subscript);  // compared exactly
  EXPECT_EQ(failure_of([&] { form.open_locked("Alba", ""); }), failure::subscript);
}

TEST_F(Profile, AskedForAPlayerItOpensOrTellsWhy) {
  add("Alba", batsman("A.One", 1, 0, 20, 10));
  write();
  class watching_user : public scripted_user {
   public:
    using scripted_user::show;
    void show(player_profile_form& form) override { shown.push_back(under(form.person, "Name").value_or("nobody")); }
    std::vector<std::string> shown;
  } watcher;
  const front_end_scope scope(watcher);

  EXPECT_TRUE(show_profile(user_in_use(), data, "Alba", "A.One"));
  EXPECT_THAT(watcher.shown, ElementsAre("A.One"));
  EXPECT_THAT(watcher.messages, IsEmpty());

  EXPECT_FALSE(show_profile(user_in_use(), data, "Alba", "A.Nobody"));
  EXPECT_THAT(watcher.shown, ElementsAre("A.One"));
  ASSERT_EQ(watcher.messages.size(), 1U);
  EXPECT_EQ(watcher.messages[0].title, "Error - Player Details");
  EXPECT_THAT(watcher.messages[0].text, HasSubstr("A.Nobody"));

  EXPECT_FALSE(show_profile(user_in_use(), data, "Tamar", "A.One"));
  ASSERT_EQ(watcher.messages.size(), 2U);
  EXPECT_THAT(watcher.messages[1].text, HasSubstr("Tamar"));
}

TEST_F(Profile, ShowsThePhotoOrSaysThatThereIsNone) {
  add("Alba", batsman("A.Smith", 1, 0, 20, 10));
  add("Alba", batsman("B.Smith", 1, 0, 20, 10));
  write();
  data.settings.photo_path = database.folder().string();
  std::ofstream(database.folder() / "smith ac.bmp") << "picture";
  player_profile_form form(data);
  form.open_locked("Alba", "A.Smith");
  EXPECT_EQ(form.photo, database.folder() / "smith ac.bmp");
  EXPECT_FALSE(form.no_photo_visible);
  form.open_locked("Alba", "B.Smith");
  EXPECT_EQ(form.photo, std::nullopt);
  EXPECT_TRUE(form.no_photo_visible);
  data.settings = configuration();
}

}  // namespace
}  // namespace velorin::testing
