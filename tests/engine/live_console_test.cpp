// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "console/commentary_rows.h"
#include "console/innings_course.h"
#include "console/recent_play.h"
#include "console/side_views.h"
#include "engine/match_fixture.h"
#include "engine/over_play.h"
#include "headless/headless_user.h"
#include "model/random.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class LiveConsole : public match_test {
 protected:
  void SetUp() override {
    match_test::SetUp();
    open(false, false);
  }
};

TEST_F(LiveConsole, TheBallsOfAManAreHisOwn) {
  play({hit(0), hit(1), hit(4), off_the_pad(leg_byes, 2), hit(6), hit(no_ball), hit(0)});
  EXPECT_THAT(balls_faced(match, 1, 8), ElementsAre("0", "1"));
  EXPECT_THAT(balls_faced(match, 2, 8), ElementsAre("4", "2lb", "6", "0"));
  EXPECT_THAT(balls_faced(match, 2, 2), ElementsAre("6", "0"));
  EXPECT_THAT(balls_bowled(match, match.next_bowler, 9), ElementsAre("0", "1", "4", "2lb", "6", "nb", "0"));
  EXPECT_THAT(balls_bowled(match, match.bowler, 9), IsEmpty());
}

TEST_F(LiveConsole, AWicketIsTheLastBallOfTheManWhoIsOut) {
  play({hit(2), out(), off_the_pad(byes, 3), hit(wide_ball)});
  EXPECT_THAT(balls_faced(match, 1, 8), ElementsAre("2", "W"));
  EXPECT_THAT(balls_faced(match, 3, 8), ElementsAre("3b"));
  EXPECT_THAT(balls_bowled(match, match.bowler, 9), ElementsAre("2", "W", "3b", "wd"));
}

TEST_F(LiveConsole, WhatAnOverHasAddedIsToldOfTheLastOneOnly) {
  EXPECT_FALSE(batsman_in_last_over(match, 1).any);
  play({hit(4), hit(1), hit(2), hit(0), hit(0), hit(0)});
  const over_share first = batsman_in_last_over(match, 1);
  EXPECT_EQ(first.runs, 5);
  EXPECT_EQ(first.balls, 2);
  play({hit(0), hit(0), hit(3), hit(0), hit(0), off_the_pad(byes, 2)});
  const over_share second = batsman_in_last_over(match, 1);
  EXPECT_EQ(second.runs, 3);
  EXPECT_EQ(second.balls, 3);
  const over_share bowler = bowler_in_his_last_over(match, match.bowler);
  EXPECT_EQ(bowler.runs, 7) << "his over was the one before";
  EXPECT_EQ(bowler.wickets, 0);
  EXPECT_EQ(bowler_in_his_last_over(match, match.next_bowler).runs, 3);
}

TEST_F(LiveConsole, AStandBeginsAnewWithAWicket) {
  play({hit(4), hit(1), hit(2), out(), off_the_pad(byes, 2), hit(wide_ball), hit(6)});
  const stand_view stand = view_stand(match);
  EXPECT_EQ(stand.runs, 8);
  EXPECT_EQ(stand.balls, 2);
  EXPECT_THAT(stand.shares, ElementsAre(0, 6));
}

TEST_F(LiveConsole, TheStripHoldsTheLastOvers) {
  EXPECT_THAT(last_overs(match, 6), IsEmpty());
  for (int over = 1; over <= 7; ++over) play(times(6, hit(over == 4 ? 2 : 0)));
  play({hit(1), out()});
  const auto strip = last_overs(match, 6);
  ASSERT_THAT(strip, SizeIs(6));
  EXPECT_EQ(strip.front().over, 3);
  EXPECT_EQ(strip[1].runs, 12);
  EXPECT_EQ(strip[1].bowler, bowler_of_over(match, 4));
  EXPECT_EQ(strip.back().over, 8);
  EXPECT_EQ(strip.back().wickets, 1);
  EXPECT_THAT(strip.back().balls, ElementsAre("1", "W"));
}

TEST_F(LiveConsole, TheCourseOfAnInningsEndsAtItsScore) {
  play(times(6, hit(4)));
  play({hit(1), hit(wide_ball), hit(0), out(), hit(2), off_the_pad(leg_byes, 4), hit(0)});
  const auto course = course_in_play(match);
  ASSERT_THAT(course, SizeIs(2));
  EXPECT_EQ(course[0].runs, 24);
  EXPECT_EQ(course[0].run_rate, 24);
  EXPECT_EQ(course[1].runs, 8) << "as the log has it, the wide with it";
  EXPECT_EQ(course[1].wickets, 1);
  EXPECT_EQ(course[1].score, match.score_runs);
  EXPECT_EQ(course[1].score, 31);
  EXPECT_EQ(course[1].balls, 12);
  EXPECT_FALSE(course[1].required_rate);
  EXPECT_THAT(course_before(match), IsEmpty());
}

TEST(LiveConsoleInAChase, TheRequiredRateFollowsTheScore) {
  scripted_user user;
  const front_end_scope scope(user);
  chance.use_seed(41);
  set_up_sample_match(false, true);
  open_console(in_play());
  while (match.first_total == 0) next_over(in_play());
  const int first_total = match.first_total;
  EXPECT_EQ(course_before(match).back().score, first_total);
  EXPECT_EQ(course_before(match).back().balls, match.first_balls);
  for (int over = 0; over < 8; ++over) next_over(in_play());
  ASSERT_NE(match.next_step, play_step::closed);
  const auto course = course_in_play(match);
  ASSERT_THAT(course, SizeIs(8));
  const over_stage& last = course.back();
  EXPECT_EQ(last.score, match.score_runs);
  EXPECT_EQ(last.balls, match.innings_balls);
  EXPECT_DOUBLE_EQ(last.required_rate.value(), 6.0 * (first_total + 1 - last.score) / (300 - last.balls));
}

TEST(LiveConsoleOfAMatch, EveryLineOfTheCommentaryStandsInOneRow) {
  scripted_user user;
  const front_end_scope scope(user);
  chance.use_seed(17);
  set_up_sample_match(false, true);
  open_console(in_play());
  int wickets = 0;
  int overs = 0;
  int innings = 0;
  const auto hold = [&] {
    std::vector<std::string> lines;
    for (const commentary_row& row : view_commentary(match)) {
      lines.insert(lines.end(), row.lines.begin(), row.lines.end());
      if (row.kind == line_kind::over_end) {
        overs += 1;
        EXPECT_THAT(row.lines, SizeIs(12));
        continue;
      }
      EXPECT_EQ(row.lines.front().rfind(row.bowler + " to " + row.batsman + " : ", 0), 0U) << row.lines.front();
      EXPECT_FALSE(row.batsman.empty());
      EXPECT_EQ(row.kind == line_kind::wicket, row.symbol == "W");
      EXPECT_EQ(row.kind == line_kind::four, row.symbol == "4");
      EXPECT_EQ(row.kind == line_kind::six, row.symbol == "6");
      EXPECT_THAT(row.lines, SizeIs(row.kind == line_kind::wicket ? 5 : 1));
      wickets += int(row.kind == line_kind::wicket);
    }
    EXPECT_EQ(lines, commentary_lines(match));
  };
  user.on_ball = hold;
  while (match.console_open && match.next_step != play_step::closed) {
    next_over(in_play());
    innings = std::max(innings, int(match.innings_number));
    hold();
  }
  EXPECT_EQ(innings, 2);
  EXPECT_GT(wickets, 0);
  EXPECT_GT(overs, 20);
}

TEST_F(LiveConsole, RowsTellTheirWicketAndTheirOverInBrief) {
  play({hit(1), out(), hit(0), hit(0), hit(4), hit(0)});
  const auto rows = view_commentary(match);
  ASSERT_THAT(rows, SizeIs(7));
  EXPECT_EQ(rows[1].ball, 2);
  EXPECT_THAT(rows[1].brief, ::testing::HasSubstr("b A.Bowl"));
  EXPECT_THAT(rows[1].brief, ::testing::Not(::testing::HasSubstr("H.Bat"))) << "the row names him";
  EXPECT_THAT(rows[1].brief, ::testing::EndsWith(" 0 (1)"));
  EXPECT_EQ(rows[6].brief.rfind("5 runs, 1 wicket  \xB7  ", 0), 0U) << rows[6].brief;
  EXPECT_THAT(rows[6].brief, ::testing::EndsWith("5/1"));
}

TEST_F(LiveConsole, TheAttackIsRankedAndCountsItsOvers) {
  const int opener = match.bowler;
  play(times(6, hit(1)));
  play({hit(1)});
  const auto attack = view_attack(match);
  ASSERT_THAT(attack, SizeIs(10)) << "all but the keeper";
  for (std::size_t i = 1; i < attack.size(); ++i) {
    EXPECT_LE(match.bowling_xi[attack[i - 1].position].bowl_sr, match.bowling_xi[attack[i].position].bowl_sr);
  }
  for (const attack_row& row : attack) {
    const bool other_end = row.position == opener;
    EXPECT_EQ(row.overs_left, row.position == match.bowler || other_end ? 9 : 10) << row.name;
    EXPECT_EQ(row.can_be_chosen, !other_end) << row.name;
    EXPECT_EQ(row.bowls_next, other_end);
    EXPECT_EQ(row.bowls_now, row.position == match.bowler);
    if (other_end) {
      EXPECT_EQ(row.overs + " " + row.maidens + " " + row.runs + " " + row.wickets + " " + row.economy,
                "1.0 0 6 0 6.0");
    }
  }
}

TEST_F(LiveConsole, AManWithoutOversLeftStandsLast) {
  const int best = view_attack(match).front().position;
  match.bowling_card[best].balls = 60;
  const attack_row last = view_attack(match).back();
  EXPECT_EQ(last.position, best);
  EXPECT_EQ(last.overs_left, 0);
  EXPECT_FALSE(last.can_be_chosen);
  match.bowling_card[best].balls = 55;
  EXPECT_EQ(view_attack(match).front().overs_left, 1);
}

TEST_F(LiveConsole, TheCardHoldsAllElevenAsFarAsTheyHaveCome) {
  play({hit(4), hit(1), hit(0), out()});
  const auto card = view_card(match);
  ASSERT_THAT(card, SizeIs(11));
  EXPECT_EQ(card[0].how_out, "not out");
  EXPECT_EQ(card[0].runs + " " + card[0].balls + " " + card[0].fours + " " + card[0].strike_rate, "5 2 1 250.0");
  EXPECT_THAT(card[1].how_out, ::testing::HasSubstr("b A.Bowl"));
  EXPECT_FALSE(card[1].at_crease);
  EXPECT_TRUE(card[2].on_strike);
  EXPECT_EQ(card[2].strike_rate, "-");
  EXPECT_TRUE(card[3].to_come);
  EXPECT_EQ(card[3].how_out + card[3].runs + card[3].balls, "");
  EXPECT_FALSE(card[3].name.empty());
}

TEST_F(LiveConsole, AggressionIsSetInPlaceUnderTheRulesOfTheDialog) {
  console_form console(in_play());
  console.set_batsman_aggression(1, 5);
  console.set_batsman_aggression(0, 1);
  console.set_bowler_aggression(0, 4);
  console.set_bowler_aggression(1, 2);
  EXPECT_THAT(match.batsman_aggression, ElementsAre(1, 5));
  EXPECT_THAT(match.bowling_aggression, ElementsAre(4, 2));
  for (const int level : {0, 6, -3}) {
    console.set_batsman_aggression(0, level);
    console.set_bowler_aggression(0, level);
  }
  EXPECT_EQ(match.batsman_aggression[0], 1);
  EXPECT_EQ(match.bowling_aggression[0], 4);
  match.computer_bats = match.computer_bowls = true;
  console.set_batsman_aggression(0, 3);
  console.set_bowler_aggression(0, 3);
  EXPECT_EQ(match.batsman_aggression[0], 1);
  EXPECT_EQ(match.bowling_aggression[0], 4);
}

TEST_F(LiveConsole, ABowlerIsChosenInPlaceUnderTheRulesOfTheDialog) {
  console_form console(in_play());
  console.choose_bowler(10);
  EXPECT_EQ(match.bowler, 10);
  for (const int refused : {int(match.next_bowler), 7, 0, 12}) {  // 7 keeps wicket
    console.choose_bowler(refused);
    EXPECT_EQ(match.bowler, 10) << refused;
  }
  match.bowling_card[11].balls = 60;
  console.choose_bowler(11);
  EXPECT_EQ(match.bowler, 10);
  match.computer_bowls = true;
  console.choose_bowler(9);
  EXPECT_EQ(match.bowler, 10);
}

}  // namespace
}  // namespace velorin::testing
