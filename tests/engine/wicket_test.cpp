// SPDX-License-Identifier: GPL-3.0-or-later
// The fall of a wicket: what is booked, who is asked, who comes in.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "console/captain_forms.h"
#include "console/console_view.h"
#include "engine/delivery_model.h"
#include "engine/match_fixture.h"
#include "model/check_match.h"
#include "model/stands.h"
#include "support/game_in_play.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;

class Wicket : public match_test {
 protected:
  void SetUp() override {
    match_test::SetUp();
    open(false, false);
    user.requests.clear();
  }

  /// Answers the next pick of a batsman.
  void next_man(int row, int aggression) {
    user.on_next_batsman.emplace_back([row, aggression](next_batsman_form& form) {
      form.choose(row);
      form.aggression = aggression;
      form.accept();
    });
  }
};

TEST_F(Wicket, BooksTheBall) {
  play({hit(4), out()});
  EXPECT_EQ(match.score_wickets, 1);
  EXPECT_EQ(match.score_runs, 4);
  EXPECT_EQ(match.innings_balls, 2);
  EXPECT_EQ(log_of_over(innings_in_play(match), 1)[1], "W");
  EXPECT_EQ(over_symbols(match)[1], "W");
  const batting_card_rec& gone = match.batting_card[1];
  EXPECT_EQ(gone.balls, 2);
  EXPECT_EQ(gone.dots, 1);
  EXPECT_EQ(gone.runs, 4);
  EXPECT_EQ(gone.how_out, " b A.Bowl1");
  EXPECT_EQ(gone.how, dismissal::bowled);
  EXPECT_EQ(match.bowling_card[1].wickets, 1);
  EXPECT_EQ(match.bowling_card[1].balls, 2);
  EXPECT_EQ(falls_in_play(match)[1].score, 4);
  EXPECT_EQ(falls_in_play(match)[1].balls, 2);
  EXPECT_EQ(falls_in_play(match)[1].batsman_a, "H.Bat2");
  EXPECT_EQ(falls_in_play(match)[1].batsman_b, "H.Bat1");
  EXPECT_FALSE(match.innings_over_flag);
  EXPECT_EQ(check_match(match), "");
}

TEST_F(Wicket, TheNewManTakesStrike) {
  play({out()});
  EXPECT_EQ(match.striker, 3);
  EXPECT_EQ(match.non_striker, 2);
  EXPECT_EQ(match.next_batsman_slot, 2);
  EXPECT_EQ(match.batting_card[3].name, "H.Bat3");
  EXPECT_EQ(match.batting_card[4].name, "");
}

TEST_F(Wicket, ARunOutIsNoWicketOfTheBowler) {
  play({out(31, 5)});
  EXPECT_EQ(match.score_wickets, 1);
  EXPECT_EQ(match.bowling_card[1].wickets, 0);
  EXPECT_EQ(match.batting_card[1].how_out, " run out (A.Bowl5)");
  EXPECT_EQ(match.striker, 3);
  EXPECT_EQ(check_match(match), "");
}

TEST_F(Wicket, EveryOtherDismissalIsTheBowlers) {
  play({out(1), out(12), out(41), out(46, 1), out(46, 3), out(101)});
  EXPECT_EQ(match.bowling_card[1].wickets, 6);
  EXPECT_EQ(match.bowling_card[1].maidens, 1);
  EXPECT_EQ(match.batting_card[5].how_out, " c && b A.Bowl1");
}

TEST_F(Wicket, OffTheSixthBallTheNewManIsTheNonStriker) {
  play(times(5, hit(0)) + std::vector{out()});
  EXPECT_EQ(match.over_no, 2);
  EXPECT_EQ(match.non_striker, 3);
  EXPECT_EQ(match.striker, 2);
}

TEST_F(Wicket, AHumanSeesTheFigures) {
  batsman_details_form seen;
  user.on_batsman_details = [&seen](const batsman_details_form& form) { seen = form; };
  play({hit(4), hit(6), hit(0), hit(2), hit(3), hit(1)});
  play({hit(1), hit(0), out(12)});
  EXPECT_EQ(seen.title, "Fall Of Wicket");
  EXPECT_EQ(seen.figures.headline, "H.Bat1  c A.Bowl7  b A.Bowl2  15 (7).");
  EXPECT_EQ(seen.figures.runs, 15);
  EXPECT_EQ(seen.figures.balls, 7);
  EXPECT_EQ(seen.figures.dots, 3);
  EXPECT_EQ(seen.figures.singles, 0);
  EXPECT_EQ(seen.figures.twos, 1);
  EXPECT_EQ(seen.figures.threes, 1);
  EXPECT_EQ(seen.figures.fours, 1);
  EXPECT_EQ(seen.figures.sixes, 1);
  EXPECT_EQ(seen.figures.strike_rate, "214.29");
}

TEST_F(Wicket, HeadlineLabelAndDialogs) {
  play({out(46, 11), out(31, 2), out(101)});
  EXPECT_THAT(user.requests,
              ElementsAre("batsmandetails H.Bat1  c A.Bowl11  b A.Bowl1  0 (1).", "batorder Select Next Batsman",
                          "batsmandetails H.Bat3   run out (A.Bowl2)  0 (1).", "batorder Select Next Batsman",
                          "batsmandetails H.Bat4   lbw A.Bowl1  0 (1).", "batorder Select Next Batsman"));
  EXPECT_EQ(view_last_wicket(match), "H.Bat4   lbw A.Bowl1 0(1) at 0.");
}

TEST_F(Wicket, TheLabelKeepsTheScoreOfTheFall) {
  play({hit(4), out(12), hit(6)});
  EXPECT_EQ(view_last_wicket(match), "H.Bat1  c A.Bowl7  b A.Bowl1 4(2) at 4.");
}

TEST_F(Wicket, AManChosenOutOfOrderMovesUp) {
  next_man(9, 5);
  play({out()});
  EXPECT_EQ(match.batting_card[3].name, "H.Bat9");
  EXPECT_EQ(match.batting_xi[3].name, "H.Bat9");
  EXPECT_EQ(match.batting_xi[4].name, "H.Bat3");
  EXPECT_EQ(match.batting_xi[9].name, "H.Bat8");
  EXPECT_EQ(match.batting_xi[10].name, "H.Bat10");
}

TEST_F(Wicket, AggressionMovesWithTheSurvivor) {
  match.batsman_aggression = {1, 4};
  next_man(3, 5);
  play({out()});  // the lower man is out: his partner becomes the lower one
  EXPECT_THAT(match.batsman_aggression, ElementsAre(4, 5));
  next_man(4, 2);
  play({out()});  // now the higher one, who was on strike
  EXPECT_THAT(match.batsman_aggression, ElementsAre(4, 2));
}

TEST_F(Wicket, TheMeterOfTheNewManStartsAtZero) {
  play({hit(1), hit(4), out()});
  EXPECT_EQ(match.striker, 3);
  EXPECT_THAT(match.settled_meter, ElementsAre(5 * (2 + 0.5), 0));
}

TEST_F(Wicket, TheComputersNextManComesByRole) {
  open(true, false);
  match.batting_xi[8].bat_type = "LH Opener";
  user.requests.clear();
  play({out()});
  EXPECT_EQ(match.batting_card[3].name, "H.Bat8");
  EXPECT_EQ(match.striker, 3);
  EXPECT_THAT(user.requests, ElementsAre("batsmandetails H.Bat1   b A.Bowl1  0 (1)."));
}

TEST_F(Wicket, TheManAtElevenOnStrikeEndsTheInnings) {
  user.on_report = [](report) {
    EXPECT_EQ(match.striker, 11);
    EXPECT_EQ(match.non_striker, 2);
    EXPECT_EQ(match.score_wickets, 10);
    EXPECT_EQ(match.innings_wickets, 10);
    EXPECT_EQ(match.innings_balls, 11);
    EXPECT_EQ(falls_in_play(match)[10].batsman_b, "H.Bat11");
    EXPECT_EQ(falls_in_play(match)[10].batsman_a, "H.Bat2");
    EXPECT_EQ(falls_in_play(match)[10].balls, 11);
    EXPECT_EQ(match.batting_card[11].how_out, " b A.Bowl2");
    EXPECT_EQ(match.batting_card[2].how_out, "");
    EXPECT_FALSE(match.innings_over_flag);
  };
  play(times(5, out()) + std::vector{hit(1)} + times(4, out()));
  user.requests.clear();
  play({out()});
  EXPECT_EQ(user.requests.at(0), "batsmandetails H.Bat11   b A.Bowl2  0 (1).");
  EXPECT_EQ(user.requests.at(1), "message End of Innings | End of Innings");
  EXPECT_EQ(user.requests.at(2), "report 0");
  EXPECT_EQ(match.innings_number, 2);
}

TEST_F(Wicket, TheManAtElevenAtTheOtherEndEndsTheInnings) {
  user.on_report = [](report) {
    EXPECT_EQ(match.striker, 8);
    EXPECT_EQ(match.non_striker, 11);
    EXPECT_EQ(match.score_wickets, 10);
    EXPECT_EQ(falls_in_play(match)[10].batsman_b, "H.Bat8");
    EXPECT_EQ(falls_in_play(match)[10].batsman_a, "H.Bat11");
  };
  play(times(9, out()) + std::vector{hit(1), out()});
  EXPECT_EQ(user.requests_of("report").size(), 1U);
  EXPECT_EQ(match.innings_number, 2);
}

TEST_F(Wicket, OneBeforeTheLastIsStillReplaced) {
  play(times(9, out()));
  EXPECT_EQ(match.striker, 11);
  EXPECT_EQ(match.batting_card[11].name, "H.Bat11");
  EXPECT_EQ(user.requests_of("batorder").size(), 9U);
}

}  // namespace
}  // namespace velorin::testing
