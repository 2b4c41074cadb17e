// SPDX-License-Identifier: GPL-3.0-or-later
#include <array>
#include <string>

#include <gtest/gtest.h>

#include "console/captain_forms.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"

namespace velorin::testing {
namespace {

using slots = std::array<int, 2>;

class NextBatsman : public ::testing::Test {
 protected:
  void SetUp() override {
    set_up_sample_match(false, false);
    match.batsman_aggression = {1, 2};
    for (int i = 1; i <= 11; ++i) match.batting_xi[i].name = std::string(1, static_cast<char>('a' + i - 1));
  }
  static std::string order() {
    std::string names;
    for (int i = 1; i <= 11; ++i) names += match.batting_xi[i].name;
    return names;
  }
  /// The rows that can be chosen, as a text.
  static std::string open_rows(const next_batsman_form& form) {
    std::string rows;
    for (int i = 1; i <= 11; ++i) rows += form.enabled[i] ? form.name(i) : "-";
    return rows;
  }
  static void at_the_crease(int striker, int non_striker) {
    match.striker = striker;
    match.non_striker = non_striker;
  }
};

TEST_F(NextBatsman, RowsShowNamesAndSkills) {
  match.batting_xi[3].bat_skill = 41;
  match.batting_xi[4].bat_skill = -1;
  const next_batsman_form form(match, next_batsman_form::use::next);
  EXPECT_EQ(form.title, "Select Next Batsman");
  EXPECT_EQ(form.name(3), "c");
  EXPECT_EQ(form.skill(3), "41");
  EXPECT_EQ(form.skill(4), "-1");
  EXPECT_EQ(form.aggression, 3);
  EXPECT_EQ(form.chosen, 0);
  EXPECT_FALSE(form.closed);
}

TEST_F(NextBatsman, RowsUpToTheHigherPositionAreClosed) {
  EXPECT_EQ(open_rows(next_batsman_form(match, next_batsman_form::use::first_opener)), "abcdefghijk");
  EXPECT_EQ(match.next_batsman_slot, 0);
  at_the_crease(1, 0);
  EXPECT_EQ(open_rows(next_batsman_form(match, next_batsman_form::use::second_opener)), "-bcdefghijk");
  EXPECT_EQ(match.next_batsman_slot, 1);
  at_the_crease(2, 5);
  EXPECT_EQ(open_rows(next_batsman_form(match, next_batsman_form::use::next)), "-----fghijk");
  EXPECT_EQ(match.next_batsman_slot, 5);
  at_the_crease(10, 9);
  EXPECT_EQ(open_rows(next_batsman_form(match, next_batsman_form::use::next)), "----------k");
  EXPECT_EQ(match.next_batsman_slot, 10);
}

TEST_F(NextBatsman, AClosedRowCannotBeChosen) {
  at_the_crease(2, 1);
  next_batsman_form form(match, next_batsman_form::use::next);
  form.choose(2);
  EXPECT_EQ(form.chosen, 0);
  form.choose(5);
  form.choose(1);
  EXPECT_EQ(form.chosen, 5);
  form.choose(3);
  EXPECT_EQ(form.chosen, 3);
}

TEST_F(NextBatsman, OkMovesTheChosenManUp) {
  at_the_crease(2, 4);
  next_batsman_form form(match, next_batsman_form::use::next);
  form.choose(9);
  EXPECT_EQ(order(), "abcdefghijk") << "not before the OK";
  form.accept();
  EXPECT_TRUE(form.closed);
  EXPECT_EQ(order(), "abcdiefghjk");
  EXPECT_EQ(match.next_batsman_slot, 4);
  EXPECT_EQ(match.striker, 2) << "the caller sends him to the crease";
}

TEST_F(NextBatsman, TheFirstPickMovesToPlaceOneAndTheSecondToPlaceTwo) {
  next_batsman_form first(match, next_batsman_form::use::first_opener);
  first.choose(6);
  first.accept();
  EXPECT_EQ(order(), "fabcdeghijk");
  match.striker = 1;
  next_batsman_form second(match, next_batsman_form::use::second_opener);
  second.choose(11);
  second.accept();
  EXPECT_EQ(order(), "fkabcdeghij");
}

TEST_F(NextBatsman, TheNextFreePlaceOrNobodyMovesNobody) {
  at_the_crease(1, 2);
  next_batsman_form form(match, next_batsman_form::use::next);
  form.choose(3);
  form.accept();
  EXPECT_EQ(order(), "abcdefghijk");
  next_batsman_form nobody(match, next_batsman_form::use::next);
  nobody.accept();
  EXPECT_TRUE(nobody.closed);
  EXPECT_EQ(order(), "abcdefghijk");
}

TEST_F(NextBatsman, TheFirstOpenersAggressionGoesToBothSlots) {
  next_batsman_form form(match, next_batsman_form::use::first_opener);
  form.aggression = 5;
  form.accept();
  EXPECT_EQ(match.batsman_aggression, (slots{5, 5}));
}

TEST_F(NextBatsman, TheSecondOpenersAggressionGoesToTheSecondSlot) {
  match.batsman_aggression = {5, 5};
  match.striker = 1;
  next_batsman_form form(match, next_batsman_form::use::second_opener);
  form.aggression = 2;
  form.accept();
  EXPECT_EQ(match.batsman_aggression, (slots{5, 2}));
}

TEST_F(NextBatsman, TheSurvivorMovesToTheFirstSlotIfTheLowerManIsOut) {
  match.batsman_aggression = {4, 1};
  at_the_crease(2, 3);  // 2 is out
  next_batsman_form form(match, next_batsman_form::use::next);
  form.accept();
  EXPECT_EQ(match.batsman_aggression, (slots{1, 3}));
}

TEST_F(NextBatsman, TheSurvivorStaysInTheFirstSlotIfTheHigherManIsOut) {
  match.batsman_aggression = {4, 1};
  at_the_crease(3, 2);  // 3 is out
  next_batsman_form form(match, next_batsman_form::use::next);
  form.aggression = 2;
  form.accept();
  EXPECT_EQ(match.batsman_aggression, (slots{4, 2}));
}

TEST(BatsmanDetails, HasOneActionThatClosesIt) {
  batsman_details_form form;
  form.title = "Fall Of Wicket";
  batting_card_rec card;
  card.runs = 37;
  card.balls = 41;
  card.dots = 20;
  card.singles = 9;
  card.twos = 3;
  card.threes = 1;
  card.fours = 4;
  card.sixes = 1;
  form.figures = figures_of(card);
  EXPECT_EQ(form.figures.runs, 37);
  EXPECT_EQ(form.figures.balls, 41);
  EXPECT_EQ(form.figures.dots, 20);
  EXPECT_EQ(form.figures.singles, 9);
  EXPECT_EQ(form.figures.twos, 3);
  EXPECT_EQ(form.figures.threes, 1);
  EXPECT_EQ(form.figures.fours, 4);
  EXPECT_EQ(form.figures.sixes, 1);
  EXPECT_EQ(form.figures.strike_rate, "90.24");
  EXPECT_FALSE(form.closed);
  form.accept();
  EXPECT_TRUE(form.closed);
  EXPECT_EQ(figures_of(batting_card_rec()).strike_rate, "");
}

}  // namespace
}  // namespace velorin::testing
