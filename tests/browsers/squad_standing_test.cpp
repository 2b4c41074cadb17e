// SPDX-License-Identifier: GPL-3.0-or-later
#include "browsers/squad_standing.h"

#include <gmock/gmock.h>

#include <fstream>

#include "browsers/figures_fixture.h"
#include "browsers/player_profile.h"
#include "support/game_in_play.h"
#include "support/scripted_user.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

player_rec man(const std::string& name, const std::string& type, int skill, float strike, float econ) {
  player_rec made;
  made.name = name;
  made.bat_type = type;
  made.bat_skill = skill;
  made.bowl_sr = strike;
  made.econ = econ;
  made.bowler_type = "spinner";
  return made;
}

class SquadStanding : public figures_fixture {
 protected:
  SquadStanding() {
    squads[0].team_name = "Alba";
    squads[0].squad[1] = man("A.One", "RH Opener", 50, 40.5F, 5.0F);
    squads[0].squad[2] = man("A.Two", "LH Opener", 40, 30, 6.25F);
    squads[0].squad[3] = man("A.Last", "RH Lower Order", 90, 20, 4);
    squads[1].team_name = "Bora";
    squads[1].squad[1] = man("B.One", "RH Opener", 60, 50, 7);
    squads[1].squad[2] = man("B.Two", "RH Opener", 40, 60, 5);
  }

  squad_standing of(const std::string& team, const std::string& name) const {
    return standing_of(squads, *squad_man(squads, team, name));
  }
  std::vector<std::string> places(const std::string& team, const std::string& name) const {
    std::vector<std::string> texts;
    for (const rated_skill& skill : of(team, name).skills) texts.push_back(skill.place_text);
    return texts;
  }

  std::vector<team_rec> squads = std::vector<team_rec>(2);
};

TEST_F(SquadStanding, RanksAManAmongThoseOfHisRole) {
  EXPECT_THAT(places("Alba", "A.One"), ElementsAre("2nd of 4 openers", "2nd of 4 openers", "joint 1st of 4 openers"));
  EXPECT_THAT(places("Bora", "B.One"), ElementsAre("1st of 4 openers", "3rd of 4 openers", "4th of 4 openers"));
  EXPECT_THAT(places("Alba", "A.Last"), ElementsAre("1st of 1 lower order batsman", "1st of 1 lower order batsman",
                                                    "1st of 1 lower order batsman"));
}

TEST_F(SquadStanding, EqualsShareTheirPlaceAndTheNextOneComesBehindThem) {
  EXPECT_EQ(of("Alba", "A.Two").skills[0].place_text, "joint 3rd of 4 openers");
  EXPECT_EQ(of("Bora", "B.Two").skills[0].place_text, "joint 3rd of 4 openers");
  EXPECT_EQ(of("Alba", "A.Two").skills[2].place, 3) << "behind two who share the first";
}

TEST_F(SquadStanding, SharesGoFromTheLastToTheFirst) {
  EXPECT_DOUBLE_EQ(of("Bora", "B.One").skills[0].share(), 1);
  EXPECT_DOUBLE_EQ(of("Bora", "B.One").skills[2].share(), 0);
  EXPECT_DOUBLE_EQ(of("Alba", "A.One").skills[0].share(), 2.0 / 3);
  EXPECT_DOUBLE_EQ(of("Alba", "A.Last").skills[0].share(), 1) << "alone";
}

TEST_F(SquadStanding, TellsWhatAManIs) {
  squads[0].squad[1].is_keeper = -1;
  const squad_standing opener = of("Alba", "A.One");
  EXPECT_EQ(opener.role, "Opener");
  EXPECT_EQ(opener.hand, "Right-handed");
  EXPECT_EQ(opener.bowls, "spinner");
  EXPECT_TRUE(opener.keeps_wicket);
  EXPECT_EQ(of("Alba", "A.Two").hand, "Left-handed");
  EXPECT_FALSE(of("Alba", "A.Two").keeps_wicket);
  EXPECT_EQ(opener.skills[0].text, "50");
  EXPECT_EQ(opener.skills[1].text, "40.5");
  EXPECT_EQ(of("Alba", "A.Two").skills[2].text, "6.25");
  squads[0].squad[1].bat_type = "?";
  EXPECT_EQ(of("Alba", "A.One").hand, "?");
  EXPECT_EQ(of("Alba", "A.One").skills[0].place_text, "1st of 1 man");
}

TEST_F(SquadStanding, FindsAManByTeamAndName) {
  EXPECT_EQ(squad_man(squads, "Bora", "A.One"), nullptr);
  EXPECT_EQ(squad_man(squads, "Cora", "A.One"), nullptr);
  EXPECT_EQ(squad_man(squads, "Alba", ""), nullptr) << "an empty place is no man";
}

TEST_F(SquadStanding, OrdinalsAreWrittenAsSpoken) {
  std::vector<std::string> texts;
  for (const int number : {1, 2, 3, 4, 10, 11, 12, 13, 20, 21, 22, 101, 111}) texts.push_back(ordinal_text(number));
  EXPECT_THAT(texts, ElementsAre("1st", "2nd", "3rd", "4th", "10th", "11th", "12th", "13th", "20th", "21st", "22nd",
                                 "101st", "111th"));
}

TEST_F(SquadStanding, AProfileOffersTheSquadsBehindTheCareers) {
  database.add_team("Ardell");
  database.add_team("Brava");
  database.write();
  add("Brava", batsman("Brava3", 1, 0, 10, 10));
  write();
  player_profile_form form(data);
  form.open();
  EXPECT_THAT(form.teams, ElementsAre("Brava")) << "the careers alone";
  form.offer_squads();
  EXPECT_THAT(form.teams, ElementsAre("Brava", "Ardell"));
  form.choose_team(0);
  ASSERT_EQ(form.players.size(), 13U);
  EXPECT_EQ(form.players[0], "Brava3");
  EXPECT_EQ(form.players[1], "Brava1");
  EXPECT_EQ(form.players[3], "Brava4") << "none twice";
  form.choose_player(0);
  EXPECT_FALSE(form.standing.has_value());
  EXPECT_FALSE(form.batting.empty());
  form.choose_player(1);
  ASSERT_TRUE(form.standing.has_value());
  EXPECT_EQ(under(form.person, "Name"), "Brava1");
  EXPECT_EQ(under(form.person, "Matches"), "0");
  EXPECT_THAT(form.batting, IsEmpty());
  form.choose_team(1);
  form.choose_player(12);
  EXPECT_EQ(under(form.person, "Name"), form.players[12]);
  form.choose_team(0);
  form.choose_player(0);
  EXPECT_FALSE(form.standing.has_value());
}

TEST_F(SquadStanding, AProfileNeedsNoSquads) {
  add("Brava", batsman("Brava3", 1, 0, 10, 10));
  write();
  std::ofstream(data.files.team_file) << "cut";
  player_profile_form form(data);
  form.open();
  form.offer_squads();
  EXPECT_THAT(form.teams, ElementsAre("Brava"));
}

TEST_F(SquadStanding, AManOfASquadIsShownWhereHeHasNoCareer) {
  database.add_team("Ardell");
  database.write();
  class watching_user : public scripted_user {
   public:
    using scripted_user::show;
    void show(player_profile_form& form) override {
      EXPECT_TRUE(form.locked);
      names.push_back(under(form.person, "Name").value_or("nobody") + (form.standing ? " by his ratings" : ""));
    }
    std::vector<std::string> names;
  } watcher;
  const front_end_scope scope(watcher);
  EXPECT_TRUE(show_profile(user_in_use(), data, "Ardell", "Ardell5"));
  EXPECT_THAT(watcher.names, ElementsAre("Ardell5 by his ratings"));
  add("Ardell", batsman("Ardell5", 1, 0, 10, 10));
  write();
  EXPECT_TRUE(show_profile(user_in_use(), data, "Ardell", "Ardell5"));
  EXPECT_EQ(watcher.names.back(), "Ardell5");
  EXPECT_TRUE(show_profile(user_in_use(), data, "Ardell", "Ardell6"));
  EXPECT_EQ(watcher.names.back(), "Ardell6 by his ratings");
  EXPECT_THAT(watcher.messages, IsEmpty());
  EXPECT_FALSE(show_profile(user_in_use(), data, "Ardell", "Nobody"));
  EXPECT_EQ(watcher.messages.size(), 1U);
  std::ofstream(data.files.career_file) << std::string(2500, '\xFF');
  EXPECT_FALSE(show_profile(user_in_use(), data, "Ardell", "Ardell6")) << "a damaged file is told";
}

}  // namespace
}  // namespace velorin::testing
