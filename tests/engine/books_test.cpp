// SPDX-License-Identifier: GPL-3.0-or-later
// The books of a ball: runs on the cards, falls of wicket, kinds of dismissal.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "database/elevens.h"
#include "engine/ball_books.h"
#include "model/random.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"

namespace velorin::testing {
namespace {

class Books : public ::testing::Test {
 protected:
  void SetUp() override {
    set_up_sample_match();
    match.striker = 3;
    match.non_striker = 5;
    match.bowler = 8;
    match.maiden_flag = true;
  }
  void TearDown() override {
    match = match_state();
    chance.use_clock();
  }

  static batting_card_rec& striker() { return match.batting_card[3]; }
  static batting_card_rec& partner() { return match.batting_card[5]; }

  /// Dismisses the striker with these faces of the dice of 110 and of 11. Returns the delivery's dismissal, which is
  /// also the card's.
  static dismissal dismiss(int kind, int fielder = 0) {
    striker().how_out.clear();
    striker().fielder.clear();
    striker().how = dismissal::none;
    striker().fielder_position = 0;
    std::vector<double> draws = {die_draw(kind, 110)};
    if (fielder != 0) draws.push_back(die_draw(fielder, 11));
    const auto count = draws.size();
    script_draws(draws);
    delivery ball;
    record_dismissal(match, chance, ball);
    EXPECT_EQ(chance.draws_used(), count) << "kind " << kind;
    EXPECT_EQ(ball.how, striker().how) << "kind " << kind;
    if (ball.how == dismissal::run_out) {
      EXPECT_EQ(ball.fielder, fielder) << "kind " << kind;
      EXPECT_EQ(striker().fielder_position, 0) << "kind " << kind;
    } else {
      EXPECT_EQ(ball.fielder, striker().fielder_position) << "kind " << kind;
    }
    return ball.how;
  }
};

TEST_F(Books, RunsGoToTheManWhoHitThem) {
  struct row {
    int outcome;
    int batsman;  // after one and three the two have changed ends
    integer batting_card_rec::*stroke;
  };
  const row rows[] = {{0, 3, &batting_card_rec::dots},  {1, 5, &batting_card_rec::singles},
                      {2, 3, &batting_card_rec::twos},  {3, 5, &batting_card_rec::threes},
                      {4, 3, &batting_card_rec::fours}, {6, 3, &batting_card_rec::sixes}};
  for (const row& r : rows) {
    SCOPED_TRACE(r.outcome);
    match.batting_card = {};
    match.bowling_card = {};
    match.maiden_flag = true;
    match.ball_outcome = r.outcome;
    record_runs(match);
    const batting_card_rec& man = match.batting_card[r.batsman];
    EXPECT_EQ(man.runs, r.outcome);
    EXPECT_EQ(man.balls, 1);
    EXPECT_EQ(man.*r.stroke, 1);
    EXPECT_EQ(man.dots + man.singles + man.twos + man.threes + man.fours + man.sixes, 1);
    EXPECT_EQ(match.batting_card[8 - r.batsman].balls, 0);
    EXPECT_EQ(match.batting_card[8 - r.batsman].runs, 0);
    EXPECT_EQ(match.bowling_card[8].runs, r.outcome);
    EXPECT_EQ(match.bowling_card[8].balls, 0);
    EXPECT_EQ(match.maiden_flag, r.outcome == 0);
  }
}

TEST_F(Books, OtherOutcomesCreditNothing) {
  for (const int outcome : {7, 8, 9, 10, 11}) {
    match.ball_outcome = outcome;
    record_runs(match);
    EXPECT_EQ(striker().balls + striker().runs + striker().dots, 0) << outcome;
    EXPECT_EQ(partner().balls + partner().runs + partner().dots, 0) << outcome;
    EXPECT_EQ(match.bowling_card[8].runs, 0) << outcome;
    EXPECT_TRUE(match.maiden_flag) << outcome;
  }
}

TEST_F(Books, Bowled) {
  for (const int kind : {1, 11}) {
    EXPECT_EQ(dismiss(kind), dismissal::bowled) << kind;
    EXPECT_EQ(striker().fielder_position, 0) << kind;
    EXPECT_EQ(striker().how_out, " b A.Bowl8") << kind;
    EXPECT_EQ(striker().fielder, "") << kind;
  }
}

TEST_F(Books, CaughtBehind) {
  for (const int kind : {12, 30}) {
    EXPECT_EQ(dismiss(kind), dismissal::caught) << kind;
    EXPECT_EQ(striker().fielder_position, 7) << kind;
    EXPECT_EQ(striker().how_out, " b A.Bowl8") << kind;
    EXPECT_EQ(striker().fielder, " c A.Bowl7") << kind;
  }
}

TEST_F(Books, RunOutByAnyone) {
  for (const int kind : {31, 40}) {
    for (int fielder = 1; fielder <= 11; ++fielder) {
      EXPECT_EQ(dismiss(kind, fielder), dismissal::run_out) << kind;
      EXPECT_EQ(striker().how_out, " run out (A.Bowl" + std::to_string(fielder) + ")");
      EXPECT_EQ(striker().fielder, "");
    }
  }
}

TEST_F(Books, StumpedOffASpinnerOnly) {
  for (const int kind : {41, 45}) {
    for (const char* type : {"spinner", "Fast Bowler", "Medium Pacer", "Spinner", "off spinner", ""}) {
      match.bowling_xi[8].bowler_type = type;
      EXPECT_EQ(dismiss(kind), type == std::string("spinner") ? dismissal::stumped : dismissal::caught) << type;
      EXPECT_EQ(striker().fielder_position, 7) << type;
      EXPECT_EQ(striker().how_out, " b A.Bowl8") << type;
      EXPECT_EQ(striker().fielder, type == std::string("spinner") ? " st A.Bowl7" : " c A.Bowl7") << type;
    }
  }
}

TEST_F(Books, CaughtInTheField) {
  for (const int kind : {46, 100}) {
    for (int fielder = 1; fielder <= 11; ++fielder) {
      EXPECT_EQ(dismiss(kind, fielder), fielder == 8 ? dismissal::caught_and_bowled : dismissal::caught) << kind;
      EXPECT_EQ(striker().fielder_position, fielder) << kind;
      if (fielder == 8) {
        EXPECT_EQ(striker().how_out, " c && b A.Bowl8");
        EXPECT_EQ(striker().fielder, "");
      } else {
        EXPECT_EQ(striker().how_out, " b A.Bowl8");
        EXPECT_EQ(striker().fielder, " c A.Bowl" + std::to_string(fielder));
      }
    }
  }
}

TEST_F(Books, LegBefore) {
  for (const int kind : {101, 110}) {
    EXPECT_EQ(dismiss(kind), dismissal::leg_before) << kind;
    EXPECT_EQ(striker().fielder_position, 0) << kind;
    EXPECT_EQ(striker().how_out, " lbw A.Bowl8") << kind;
    EXPECT_EQ(striker().fielder, "") << kind;
  }
}

TEST_F(Books, OfSeveralKeepersTheHighestPositionCounts) {
  match.bowling_xi[2].is_keeper = flag_true;
  match.bowling_xi[9].is_keeper = flag_true;
  dismiss(12);
  EXPECT_EQ(striker().fielder, " c A.Bowl9");
  match.bowling_xi[8].is_keeper = flag_true;
  match.bowling_xi[9].is_keeper = 0;
  match.bowling_xi[8].bowler_type = "spinner";
  dismiss(41);
  EXPECT_EQ(striker().fielder, " st A.Bowl8");
  match.bowling_xi[11].is_keeper = flag_true;
  dismiss(30);
  EXPECT_EQ(striker().fielder, " c A.Bowl11");
}

TEST_F(Books, WithoutAKeeperTheFielderStaysAsItWas) {
  match.bowling_xi[7].is_keeper = 0;
  match.bowling_xi[8].bowler_type = "spinner";
  for (const int kind : {12, 30, 41, 45}) {
    dismiss(kind);
    EXPECT_EQ(striker().how_out, " b A.Bowl8") << kind;
    EXPECT_EQ(striker().fielder, "") << kind;
    striker().fielder = "kept";
    striker().taken = fielding::caught;
    script_draws({die_draw(kind, 110)});
    delivery ball;
    record_dismissal(match, chance, ball);
    EXPECT_EQ(striker().fielder, "kept") << kind;
    EXPECT_EQ(striker().taken, fielding::caught) << kind;
    EXPECT_EQ(ball.fielder, 0) << kind;
  }
}

TEST_F(Books, ARunOutLeavesTheFielderAndOthersClearHim) {
  const auto fielder_after = [](int kind, int face) {
    striker().fielder = "before";
    striker().taken = fielding::stumped;
    script_draws({die_draw(kind, 110), die_draw(face, 11)});
    delivery ball;
    record_dismissal(match, chance, ball);
    EXPECT_EQ(striker().taken == fielding::none, striker().fielder.empty()) << kind;
    return striker().fielder;
  };
  EXPECT_EQ(fielder_after(35, 4), "before");
  EXPECT_EQ(fielder_after(5, 1), "");
  EXPECT_EQ(fielder_after(50, 8), "");
  EXPECT_EQ(fielder_after(105, 1), "");
}

TEST_F(Books, ADismissalContinuesTheDrawsBeforeIt) {
  chance.use_clock();
  random_source before = chance;
  delivery ball;
  record_dismissal(match, chance, ball);
  const auto draws = chance.draws_used();
  while (before.draws_used() < draws) before.rnd();
  EXPECT_EQ(chance.rnd(), before.rnd());
}

TEST_F(Books, NamesComeFromTheElevensAndNotFromTheCards) {
  match.bowling_card[8].name = "another";
  match.batting_card[5].name = "another";
  dismiss(1);
  EXPECT_EQ(striker().how_out, " b A.Bowl8");
}

TEST_F(Books, TheElevensAreReadInTheirOrder) {
  write_eleven(data, side::first, sample_eleven("X."));
  write_eleven(data, side::second, sample_eleven("Y."));
  load_elevens(match, data);
  EXPECT_EQ(match.batting_xi[1].name, "X.1");
  EXPECT_EQ(match.batting_xi[11].name, "X.11");
  EXPECT_EQ(match.bowling_xi[1].name, "Y.1");
  EXPECT_EQ(match.bowling_xi[11].bowler_type, "Medium Pacer");
}

}  // namespace
}  // namespace velorin::testing
