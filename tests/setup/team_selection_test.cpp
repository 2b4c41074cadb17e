// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/team_selection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "browsers/player_rankings.h"
#include "database/slots.h"
#include "model/match_state.h"
#include "model/random.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"
#include "support/scripted_user.h"
#include "support/small_database.h"
#include "support/squad_table.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(TeamSelectionRows, ShowThePlayersFields) {
  squad men = squad_of({{"Opener", 41, 36.5F, 4.7F, true, "Medium Pacer"}, {l, -3, 70, 5, false, ""}});
  selection screen(men, "New Home");
  EXPECT_EQ(screen.form.heading(), "New Home");
  EXPECT_EQ(screen.form.title(), "New Home - Team Selection ");
  EXPECT_EQ(screen.form.man(1).name, "p1");
  EXPECT_EQ(screen.form.batting_type(1), "RH Opener");
  EXPECT_EQ(screen.form.batting_skill(1), "41");
  EXPECT_EQ(screen.form.bowling_type(1), "Medium Pacer/Wk");
  EXPECT_EQ(screen.form.balls_per_wicket(1), "36.5");
  EXPECT_EQ(screen.form.economy(1), "4.7");
  EXPECT_EQ(screen.form.batting_skill(2), "-3");
  EXPECT_EQ(screen.form.bowling_type(2), "");
  EXPECT_EQ(screen.form.balls_per_wicket(2), "70");
  EXPECT_EQ(screen.form.economy(2), "5");
}

TEST(TeamSelectionRows, OfEmptyPlacesAreHidden) {
  squad men = squad_of({{l}, {l}, {l}});
  men[2].name.clear();
  selection screen(men);
  EXPECT_TRUE(screen.form.row_visible(1));
  EXPECT_FALSE(screen.form.row_visible(2));
  EXPECT_TRUE(screen.form.row_visible(3));
  for (int place = 4; place <= 20; ++place) EXPECT_FALSE(screen.form.row_visible(place)) << place;
}

TEST(TeamSelectionCounter, StartsInItsOwnFormAndFollowsTheBoxes) {
  selection screen(squad_of(std::vector<squad_row>(14, {l, 30})));
  EXPECT_EQ(screen.form.selected_count(), " 0 /11 players selected so far.");
  screen.form.clear_selection();
  EXPECT_EQ(screen.form.selected_count(), " 0 /11 players selected so far.") << "no box has changed";
  screen.form.toggle(14);
  EXPECT_EQ(screen.form.selected_count(), "1/11 players selected so far.");
  screen.form.toggle(1);
  EXPECT_EQ(screen.form.selected_count(), "2/11 players selected so far.");
  screen.form.toggle(14);
  EXPECT_EQ(screen.form.selected_count(), "1/11 players selected so far.");
  screen.form.clear_selection();
  EXPECT_EQ(screen.form.selected_count(), "0/11 players selected so far.");
  EXPECT_THAT(ticked_places(screen.form), IsEmpty());
  screen.form.auto_select();
  EXPECT_EQ(screen.form.selected_count(), "11/11 players selected so far.");
}

TEST(TeamSelectionCounter, AutoSelectForgetsWhatWasTicked) {
  selection screen(squad_of(std::vector<squad_row>(14, {l, 30})));
  for (int place = 12; place <= 14; ++place) screen.form.toggle(place);
  screen.form.auto_select();
  EXPECT_THAT(ticked_places(screen.form), ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11));
}

TEST(TeamSelectionCareers, OpenInTheirTwoModesForTheTeam) {
  class reader : public scripted_user {
   public:
    using scripted_user::show;
    void show(player_rankings_form& form) override { titles.push_back(form.table.title); }
    std::vector<std::string> titles;
  };
  small_database database;
  reader user;
  front_end_scope shown(user);
  selection screen(squad_of({{l, 30}}), "New Home");
  screen.form.toggle(1);
  screen.form.show_career_averages(0);
  screen.form.show_career_averages(1);
  EXPECT_THAT(user.titles, ElementsAre("New Home - Career Batting Records", "New Home - Career Bowling Records"));
  EXPECT_THAT(ticked_places(screen.form), ElementsAre(1));
  EXPECT_FALSE(screen.form.closed);
}

/// The OK of either team, with the elevens in files of a folder of their own.
class TeamSelectionOk : public ::testing::Test {
 protected:
  void SetUp() override {
    match = match_state();
    match.team1_name = "Home";
    match.team2_name = "Away";
  }

  static void tick(team_selection_form& form, int from, int to) {
    for (int place = from; place <= to; ++place) form.toggle(place);
  }
  /// The eleven that a file holds.
  std::vector<player_rec> read(const std::string& file) const {
    const slot_file slots = slot_file::read_existing(database_.folder() / file, 125);
    std::vector<player_rec> men(11);
    for (long i = 0; i < 11; ++i) slots.get(i + 1, men[static_cast<std::size_t>(i)]);
    return men;
  }
  bool exists(const std::string& file) const { return std::filesystem::exists(database_.folder() / file); }

  small_database database_;
  squad men_ = squad_of(std::vector<squad_row>(15, {l, 30}));
  team_selection_form form_{in_play()};
};

TEST_F(TeamSelectionOk, DoesNothingUnlessElevenAreTicked) {
  form_.open("Home", men_);
  for (const int count : {0, 10, 12}) {
    form_.clear_selection();
    tick(form_, 1, count);
    form_.accept_first();
    form_.accept_second();
    form_.accept();
    EXPECT_FALSE(form_.closed) << count;
    EXPECT_FALSE(match.first_team_done);
    EXPECT_EQ(form_.ticked(), count);
  }
  EXPECT_FALSE(exists("team1r.txt"));
  EXPECT_FALSE(exists("team2r.txt"));
}

TEST_F(TeamSelectionOk, OfTheFirstTeamWritesTheTickedMenInPlaceOrder) {
  for (int i = 1; i <= 15; ++i) men_[i].reserved.fill("kept back");
  men_[3].is_keeper = flag_true;
  men_[3].bat_skill = 55;
  men_[3].bowl_sr = 33.5F;
  men_[3].econ = 4.7F;
  men_[3].bat_type = "LH Middle Order";
  men_[3].bowler_type = "Medium Pacer";
  form_.open("Home", men_);
  tick(form_, 13, 15);
  tick(form_, 2, 5);
  tick(form_, 8, 11);
  form_.accept();
  EXPECT_TRUE(form_.closed);
  EXPECT_TRUE(match.first_team_done);
  const auto eleven_read = read("team1r.txt");
  std::vector<std::string> names;
  for (const player_rec& man : eleven_read) names.push_back(man.name);
  EXPECT_THAT(names, ElementsAre("p2", "p3", "p4", "p5", "p8", "p9", "p10", "p11", "p13", "p14", "p15"));
  const player_rec& man = eleven_read[1];
  EXPECT_EQ(man.bat_skill, 55);
  EXPECT_EQ(man.bowl_sr, 33.5F);
  EXPECT_EQ(man.econ, 4.7F);
  EXPECT_EQ(man.is_keeper, flag_true);
  EXPECT_EQ(man.bat_type, "LH Middle Order");
  EXPECT_EQ(man.bowler_type, "Medium Pacer");
  for (const std::string& text : man.reserved) EXPECT_EQ(text, "") << "the reserved texts stay behind";
  EXPECT_FALSE(exists("team2r.txt"));
}

TEST_F(TeamSelectionOk, OfTheSecondTeamClearsTheMarkAndAsksNothing) {
  scripted_user user;
  front_end_scope shown(user);
  script_draws({});
  match.elevens_exchanged = true;  // by the toss of a match that broke off
  form_.open("Home", men_);
  tick(form_, 1, 11);
  form_.accept();
  ASSERT_TRUE(match.first_team_done);
  EXPECT_FALSE(match.elevens_exchanged);
  team_selection_form second(in_play());
  second.open("Away", men_);
  tick(second, 2, 12);
  second.accept();
  EXPECT_TRUE(second.closed);
  EXPECT_FALSE(match.first_team_done);
  EXPECT_FALSE(second.left);
  EXPECT_EQ(match.selected[1][1].name, "p2");
  EXPECT_THAT(user.requests, IsEmpty());
}

TEST_F(TeamSelectionOk, TwelveMenNeedABoxCleared) {
  form_.open("Home", men_);
  tick(form_, 1, 12);
  form_.accept();
  EXPECT_FALSE(form_.closed);
  form_.toggle(4);
  form_.accept();
  EXPECT_TRUE(form_.closed);
  EXPECT_EQ(read("team1r.txt")[3].name, "p5");
}

}  // namespace
}  // namespace velorin::testing
