// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/match_records.h"

#include <string>
#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

#include "model/batsman_figures.h"
#include "model/match_state.h"
#include "model/run_time_error.h"

namespace velorin {
namespace {

static_assert(std::is_copy_assignable_v<match_state>, "a copy of the match is a snapshot");
static_assert(std::tuple_size_v<eleven> == 12 && std::tuple_size_v<squad> == 21);
static_assert(std::tuple_size_v<fall_of_wicket_table> == 11, "0 to 10");

TEST(PlayerRec, TheRoleStandsBehindThreeCharactersOfHand) {
  player_rec man;
  EXPECT_EQ(man.role(), "");
  man.bat_type = "RH";
  EXPECT_EQ(man.role(), "");
  man.bat_type = "RH ";
  EXPECT_EQ(man.role(), "");
  man.bat_type = "RH Opener";
  EXPECT_EQ(man.role(), "Opener");
  man.bat_type = "LHBMiddle Order";
  EXPECT_EQ(man.role(), "Middle Order");
}

TEST(ReservedTexts, AreSixEmptyTextsAtFirst) {
  const reserved_texts texts;
  EXPECT_EQ(texts.size(), 6U);
  int count = 0;
  for (const std::string& text : texts) {
    EXPECT_EQ(text, "");
    ++count;
  }
  EXPECT_EQ(count, 6);
  EXPECT_EQ(texts[5], "");
}

TEST(ReservedTexts, KeepWhatIsWritten) {
  reserved_texts texts;
  texts[0] = "first";
  texts[5] = "last";
  EXPECT_EQ(std::as_const(texts)[0], "first");
  EXPECT_EQ(std::as_const(texts)[1], "");
  EXPECT_EQ(std::as_const(texts)[5], "last");
  texts.fill("same");
  for (const std::string& text : texts) EXPECT_EQ(text, "same");
}

TEST(ReservedTexts, ACopyIsItsOwn) {
  reserved_texts filled;
  filled[2] = "kept";
  reserved_texts copy(filled);
  copy[2] = "changed";
  EXPECT_EQ(std::as_const(filled)[2], "kept");

  reserved_texts assigned;
  assigned[0] = "old";
  assigned = filled;
  EXPECT_EQ(std::as_const(assigned)[0], "");
  EXPECT_EQ(std::as_const(assigned)[2], "kept");
  assigned = reserved_texts();
  EXPECT_EQ(std::as_const(assigned)[2], "");
  const reserved_texts& same = filled;
  filled = same;
  EXPECT_EQ(std::as_const(filled)[2], "kept");
}

TEST(ReservedTexts, SettlingLosesNothing) {
  reserved_texts texts;
  texts[3] = "";
  texts.settle();
  EXPECT_EQ(std::as_const(texts)[3], "");
  texts[3] = "kept";
  texts.settle();
  EXPECT_EQ(std::as_const(texts)[3], "kept");
}

TEST(MatchState, AFreshMatchBelongsToTwoComputers) {
  const match_state fresh;
  EXPECT_TRUE(fresh.computer_bats);
  EXPECT_TRUE(fresh.computer_bowls);
  EXPECT_FALSE(fresh.human_involved());
}

TEST(MatchState, AHumanIsInvolvedOnEitherSide) {
  match_state state;
  state.computer_bats = false;
  EXPECT_TRUE(state.human_involved());
  state.computer_bats = true;
  state.computer_bowls = false;
  EXPECT_TRUE(state.human_involved());
}

TEST(MatchState, AFreshConsoleHasItsStartingCaptions) {
  const match_state fresh;
  EXPECT_EQ(fresh.batsman_aggression[0], 1);
  EXPECT_EQ(fresh.batsman_aggression[1], 2);
  EXPECT_EQ(fresh.bowling_aggression[0], 1);
  EXPECT_EQ(fresh.bowling_aggression[1], 2);
  EXPECT_EQ(fresh.settled_meter[0], 0);
  EXPECT_EQ(fresh.settled_meter[1], 0);
  EXPECT_EQ(fresh.score_runs, 0);
  EXPECT_EQ(fresh.score_wickets, 0);
  EXPECT_EQ(fresh.overs_text(), "0.0");
  EXPECT_EQ(fresh.first_innings_projection.text(), "");
}

TEST(MatchState, TheOversFollowTheBalls) {
  match_state state;
  state.innings_balls = 299;
  EXPECT_EQ(state.overs_text(), "49.5");
  state.innings_balls = 300;
  EXPECT_EQ(state.overs_text(), "50.0");
}

TEST(MatchState, TheSlotsFollowTheBattingPositions) {
  match_state state;
  state.striker = 3;
  state.non_striker = 7;
  EXPECT_EQ(state.striker_slot(), 0);
  EXPECT_EQ(state.lower_batsman(), 3);
  EXPECT_EQ(state.higher_batsman(), 7);
  state.striker = 7;
  state.non_striker = 3;
  EXPECT_EQ(state.striker_slot(), 1);
  EXPECT_EQ(state.lower_batsman(), 3);
  EXPECT_EQ(state.higher_batsman(), 7);
}

TEST(MatchState, TheVenueIsTheNameOfTheGround) {
  match_state state;
  state.ground.ground_name = "Old Mill";
  EXPECT_EQ(state.venue_name(), "Old Mill");
}

TEST(MatchState, AssigningAFreshGroupResetsThatGroupAlone) {
  match_state state;
  state.first_total = 250;
  state.innings_byes = 4;
  state.over_no = 12;
  state.result_winner = "Norvale";
  static_cast<match_totals&>(state) = match_totals();
  EXPECT_EQ(state.first_total, 0);
  EXPECT_EQ(state.innings_byes, 0);
  EXPECT_EQ(state.over_no, 12);
  EXPECT_EQ(state.result_winner, "Norvale");
}

TEST(ProjectionText, IsEmptyADashOrANumber) {
  EXPECT_EQ(projection_text().text(), "");
  EXPECT_EQ((projection_text{projection_text::kind::dash, 0}).text(), "-");
  const projection_text frozen{projection_text::kind::number, 251};
  EXPECT_EQ(frozen.text(), "251");
  EXPECT_EQ(frozen.number(), 251);
}

TEST(ProjectionText, ATextThatIsNoNumberIsAFailureOfType) {
  for (const auto what : {projection_text::kind::empty, projection_text::kind::dash}) {
    try {
      projection_text{what, 7}.number();
      ADD_FAILURE() << "no failure";
    } catch (const run_time_error& error) {
      EXPECT_EQ(error.kind(), failure::type);
      EXPECT_EQ(error.place().field, "first_innings_projection");
    }
  }
}

batting_card_rec man_out() {
  batting_card_rec card;
  card.name = "T.Marrow";
  card.fielder = " c R.Ashe";
  card.how_out = " b K.Voss";
  card.runs = 67;
  card.balls = 71;
  card.dots = 30;
  card.singles = 28;
  card.twos = 4;
  card.threes = 1;
  card.fours = 7;
  card.sixes = 1;
  return card;
}

TEST(BatsmanFigures, AreThoseOfTheCard) {
  const batsman_figures figures = figures_of(man_out());
  EXPECT_EQ(figures.runs, 67);
  EXPECT_EQ(figures.balls, 71);
  EXPECT_EQ(figures.dots, 30);
  EXPECT_EQ(figures.singles, 28);
  EXPECT_EQ(figures.twos, 4);
  EXPECT_EQ(figures.threes, 1);
  EXPECT_EQ(figures.fours, 7);
  EXPECT_EQ(figures.sixes, 1);
  EXPECT_EQ(figures.strike_rate, "94.37");
  EXPECT_EQ(figures.title, "");
  EXPECT_EQ(figures.headline, "");
}

TEST(BatsmanFigures, AStrikeRateNeedsABall) {
  batting_card_rec card;
  EXPECT_EQ(figures_of(card).strike_rate, "");
  card.balls = 1;
  EXPECT_EQ(figures_of(card).strike_rate, "0");
}

TEST(BatsmanFigures, AStrikeRateIsRunsAHundredBallsToTwoPlaces) {
  EXPECT_EQ(strike_rate(1, 3), 33.33);
  EXPECT_EQ(strike_rate(2, 3), 66.67);
  EXPECT_EQ(strike_rate(36, 6), 600);
  EXPECT_EQ(strike_rate(0, 9), 0);
  EXPECT_EQ(strike_rate(1, 32), 3.12) << "3.125 goes to the even neighbour";
  EXPECT_EQ(strike_rate(3, 32), 9.38) << "9.375 goes to the even neighbour";
}

}  // namespace
}  // namespace velorin
