// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "console/captain_forms.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;
using slots = std::array<int, 2>;

class Aggression : public ::testing::Test {
 protected:
  void SetUp() override {
    set_up_sample_match(false, false);
    match.team1_name = "New Home";
    match.striker = 5;
    match.non_striker = 2;
    match.bowler = 8;
    match.next_bowler = 11;
    match.batsman_aggression = {4, 1};
    match.bowling_aggression = {5, 2};
    for (int i = 1; i <= 11; ++i) {
      match.batting_card[i].name = match.batting_xi[i].name;
      match.bowling_card[i].name = match.bowling_xi[i].name;
    }
  }
};

TEST_F(Aggression, OfABatsmanShowsTheManOfTheSlot) {
  match.batting_card[2].runs = 3;
  match.batting_card[2].balls = 7;
  const aggression_form form = aggression_form::of_batsman(match, 0);
  EXPECT_TRUE(form.for_batsman);
  EXPECT_EQ(form.player_slot, 0);
  EXPECT_EQ(form.aggression, 4);
  EXPECT_EQ(form.player_name, " H.Bat2 ");
  EXPECT_THAT(form.headings, ElementsAre("Runs", "Balls", "SR", "Settled  :"));
  EXPECT_EQ(form.figures[0], "3");
  EXPECT_EQ(form.figures[1], "7");
  EXPECT_EQ(form.figures[2], "42.86");
  EXPECT_TRUE(form.settled_visible);
  EXPECT_EQ(form.settled_width, 47.5);
  EXPECT_FALSE(form.closed);
  const aggression_form other = aggression_form::of_batsman(match, 1);
  EXPECT_EQ(other.player_slot, 1);
  EXPECT_EQ(other.aggression, 1);
  EXPECT_EQ(other.player_name, " H.Bat5 ");
}

TEST_F(Aggression, TheSlotsDoNotMoveWithTheEnds) {
  std::swap(match.striker, match.non_striker);
  EXPECT_EQ(aggression_form::of_batsman(match, 0).player_name, " H.Bat2 ");
  EXPECT_EQ(aggression_form::of_batsman(match, 1).player_name, " H.Bat5 ");
}

TEST_F(Aggression, StrikeRates) {
  EXPECT_EQ(aggression_form::of_batsman(match, 0).figures[2], " - ");
  EXPECT_EQ(aggression_form::of_batsman(match, 0).settled_width, 0);
  struct row {
    int runs, balls;
    const char* rate;
  };
  for (const row& r : {row{0, 1, "0"}, row{1, 1, "100"}, row{1, 3, "33.33"}, row{2, 3, "66.67"}, row{5, 8, "62.5"}}) {
    match.batting_card[2].runs = r.runs;
    match.batting_card[2].balls = r.balls;
    EXPECT_EQ(aggression_form::of_batsman(match, 0).figures[2], r.rate);
  }
}

TEST_F(Aggression, TheSettledBarEndsAt915) {
  match.batting_card[2].balls = 2;
  match.batting_card[2].runs = 91;
  EXPECT_EQ(aggression_form::of_batsman(match, 0).settled_width, 915);
  match.batting_card[2].balls = 1;
  EXPECT_EQ(aggression_form::of_batsman(match, 0).settled_width, 912.5);
  match.batting_card[2].balls = 3;
  EXPECT_EQ(aggression_form::of_batsman(match, 0).settled_width, 915);
}

TEST_F(Aggression, TheSidesScoreInASentence) {
  EXPECT_EQ(aggression_form::of_batsman(match, 0).score_sentence, "NH are 0/0 from 0.0 Overs at 0.00 runs per over.");
  match.score_runs = 77;
  match.score_wickets = 2;
  match.innings_balls = 100;
  EXPECT_EQ(aggression_form::of_batsman(match, 1).score_sentence, "NH are 77/2 from 16.4 Overs at 4.62 runs per over.");
  match.team1_name = "Home";
  match.score_runs = 0;
  EXPECT_EQ(aggression_form::of_batsman(match, 1).score_sentence, "Hom are 0/2 from 16.4 Overs at 0 runs per over.");
}

TEST_F(Aggression, OfABowlerShowsHisFigures) {
  match.bowling_card[8].balls = 51;
  match.bowling_card[8].maidens = 1;
  match.bowling_card[8].runs = 41;
  match.bowling_card[8].wickets = 2;
  const aggression_form form = aggression_form::of_bowler(match, 0);
  EXPECT_FALSE(form.for_batsman);
  EXPECT_EQ(form.player_slot, 0);
  EXPECT_EQ(form.aggression, 5);
  EXPECT_EQ(form.player_name, " A.Bowl8 ");
  EXPECT_THAT(form.headings, ElementsAre("Overs", "Mdns", "Runs", "Wkts"));
  EXPECT_THAT(form.figures, ElementsAre("8.3", "1", "41", "2"));
  EXPECT_FALSE(form.settled_visible);
  const aggression_form other = aggression_form::of_bowler(match, 1);
  EXPECT_EQ(other.player_slot, 1);
  EXPECT_EQ(other.aggression, 2);
  EXPECT_EQ(other.player_name, " A.Bowl11 ");
  EXPECT_THAT(other.figures, ElementsAre("0.0", "0", "0", "0"));
}

TEST_F(Aggression, OkWritesItsOwnSlot) {
  aggression_form form = aggression_form::of_batsman(match, 1);
  form.aggression = 3;
  EXPECT_EQ(match.batsman_aggression, (slots{4, 1}));
  form.accept();
  EXPECT_TRUE(form.closed);
  EXPECT_EQ(match.batsman_aggression, (slots{4, 3}));
  aggression_form again = aggression_form::of_batsman(match, 0);
  again.aggression = 5;
  again.accept();
  EXPECT_EQ(match.batsman_aggression, (slots{5, 3}));
  EXPECT_EQ(match.bowling_aggression, (slots{5, 2}));
  aggression_form third = aggression_form::of_bowler(match, 0);
  third.aggression = 1;
  third.accept();
  aggression_form fourth = aggression_form::of_bowler(match, 1);
  fourth.aggression = 4;
  fourth.accept();
  EXPECT_EQ(match.bowling_aggression, (slots{1, 4}));
  EXPECT_EQ(match.batsman_aggression, (slots{5, 3}));
}

}  // namespace
}  // namespace velorin::testing
