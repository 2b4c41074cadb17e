// SPDX-License-Identifier: GPL-3.0-or-later
#include <fmt/format.h>

#include "database/careers_fixture.h"
#include "database/slots.h"
#include "support/cards.h"
#include "support/game_in_play.h"

namespace velorin {
namespace {

using testing::bytes_of;

class Careers : public testing::careers_fixture {
 protected:
  /// Plays the same match with another innings of T.Man1 (second innings) for the high-score rules.
  static void bat_again(int runs, bool not_out, const std::string& opponent) {
    match.team2_name = opponent;
    match.batting_card[1].runs = runs;
    put_out(match.batting_card[1], not_out ? dismissal::none : dismissal::bowled, "A.Man9");
    update_career(match, data);
  }

  /// Plays the same match with other figures of A.Man9 (second innings).
  static void bowl_again(int wickets, int runs, const std::string& opponent) {
    match.team1_name = opponent;
    match.bowling_card[9].wickets = wickets;
    match.bowling_card[9].runs = runs;
    update_career(match, data);
  }
};

TEST_F(Careers, TheFirstMatchEnrolsBothSides) {
  update_career(match, data);
  const career_table table = read_career_table(data);
  ASSERT_EQ(table.career_team_count, 2);
  EXPECT_EQ(table.teams[1].team_name, "Tamar") << "the side that batted second comes first";
  EXPECT_EQ(table.teams[2].team_name, "Alba");
  for (int t = 1; t <= 2; ++t) {
    ASSERT_EQ(table.teams[t].player_count, 11);
    for (int p = 1; p <= 11; ++p) {
      EXPECT_EQ(table.teams[t].players[p].name, fmt::format("{}.Man{}", t == 1 ? "T" : "A", p));
      EXPECT_EQ(table.teams[t].players[p].matches, 1);
      EXPECT_EQ(table.teams[t].players[p].innings, t == 1 || p <= 5 ? 1 : 0);
    }
  }
  EXPECT_EQ(bytes_of(data.files.career_file).size(), 3 * career_slot);
  EXPECT_EQ(bytes_of(data.files.career_file).substr(0, 4), testing::hex("02 00 02 00"));
}

TEST_F(Careers, BattingIsAdded) {
  update_career(match, data);
  update_career(match, data);
  const career_rec man = career_of("Alba", "A.Man2");
  EXPECT_EQ(man.matches, 2);
  EXPECT_EQ(man.innings, 2);
  EXPECT_EQ(man.runs, 240);
  EXPECT_EQ(man.balls_faced, 220);
  EXPECT_EQ(man.fours, 12);
  EXPECT_EQ(man.sixes, 4);
  EXPECT_EQ(man.twos, 2);
  EXPECT_EQ(man.threes, 4);
  EXPECT_EQ(man.singles, 6);
  EXPECT_EQ(man.dots, 110);
  EXPECT_EQ(man.hundreds, 2);
  EXPECT_EQ(man.fifties, 0) << "a hundred is no fifty";
  EXPECT_EQ(man.not_outs, 0);
  EXPECT_EQ(man.high_score, 120);
  EXPECT_EQ(man.high_not_out, 0);
  EXPECT_EQ(man.high_against, "Tamar");
}

TEST_F(Careers, TheTwoInningsTellANotOutInTheirOwnWays) {
  update_career(match, data);
  const career_rec first = career_of("Alba", "A.Man1");
  EXPECT_EQ(first.not_outs, 1);
  EXPECT_EQ(first.fifties, 1);
  EXPECT_EQ(first.high_not_out, flag_true);
  const career_rec second = career_of("Tamar", "T.Man1");
  EXPECT_EQ(second.innings, 1);
  EXPECT_EQ(second.not_outs, 1);
  EXPECT_EQ(second.fifties, 1);
  EXPECT_EQ(second.high_score, 50);
  EXPECT_EQ(second.high_not_out, flag_true);
  EXPECT_EQ(second.high_against, "Alba");
}

TEST_F(Careers, TheMarkOfTheOtherInningsIsNoNotOut) {
  put_out(match.batting_card[1], dismissal::not_out);
  put_out(match.first_batting_card[1], dismissal::none);
  update_career(match, data);
  EXPECT_EQ(career_of("Tamar", "T.Man1").not_outs, 0);
  EXPECT_EQ(career_of("Alba", "A.Man1").not_outs, 0);
}

TEST_F(Careers, BowlingIsAdded) {
  update_career(match, data);
  update_career(match, data);
  const career_rec man = career_of("Alba", "A.Man9");
  EXPECT_EQ(man.wickets, 10);
  EXPECT_EQ(man.balls_bowled, 120);
  EXPECT_EQ(man.runs_given, 62);
  EXPECT_EQ(man.maidens, 6);
  EXPECT_EQ(man.five_wickets, 2);
  EXPECT_EQ(man.best_wickets, 5);
  EXPECT_EQ(man.best_runs, 31);
  EXPECT_EQ(man.best_against, "Tamar");
  const career_rec other = career_of("Tamar", "T.Man9");
  EXPECT_EQ(other.wickets, 4) << "from the first innings";
  EXPECT_EQ(other.five_wickets, 0);
}

TEST_F(Careers, NoWicketIsNoBestBowling) {
  update_career(match, data);
  const career_rec man = career_of("Tamar", "T.Man11");
  EXPECT_EQ(man.runs_given, 61);
  EXPECT_EQ(man.best_wickets, 0);
  EXPECT_EQ(man.best_runs, 0);
  EXPECT_EQ(man.best_against, "");
}

TEST_F(Careers, FieldingIsReadOffTheOpposingCard) {
  update_career(match, data);
  EXPECT_EQ(career_of("Tamar", "T.Man10").catches, 1) << "c && b";
  EXPECT_EQ(career_of("Tamar", "T.Man3").catches, 1);
  EXPECT_EQ(career_of("Tamar", "T.Man9").catches, 0);
  EXPECT_EQ(career_of("Alba", "A.Man7").stumpings, 1);
  EXPECT_EQ(career_of("Alba", "A.Man7").catches, 0);
}

TEST_F(Careers, FieldingComparesWholeNames) {
  match.first_bowling_card[1].name = "T.Man33";
  match.first_bowling_card[2].name = " T.Man3";
  put_out(match.first_batting_card[4], dismissal::caught, "T.Man9", {1, "T.Man33"});
  put_out(match.first_batting_card[5], dismissal::caught, "T.Man9", {2, " T.Man3"});
  update_career(match, data);
  EXPECT_EQ(career_of("Tamar", "T.Man3").catches, 0);
  EXPECT_EQ(career_of("Tamar", "T.Man33").catches, 1);
  EXPECT_EQ(career_of("Tamar", " T.Man3").catches, 1);
}

TEST_F(Careers, FieldingIsNotReadOffTheWords) {
  put_out(match.first_batting_card[3], dismissal::bowled, "T.Man10");
  match.first_batting_card[3].how_out = " c && b T.Man10";
  match.first_batting_card[4].fielder_position = 0;
  update_career(match, data);
  EXPECT_EQ(match.first_batting_card[4].fielder, " c T.Man3");
  EXPECT_EQ(career_of("Tamar", "T.Man3").catches, 0);
  EXPECT_EQ(career_of("Tamar", "T.Man10").catches, 0);
}

TEST_F(Careers, ANotOutOutranksTheSameScoreOut) {
  bat_again(50, false, "Alba");
  EXPECT_EQ(career_of("Tamar", "T.Man1").high_not_out, 0);
  bat_again(50, true, "Corran");
  const career_rec man = career_of("Tamar", "T.Man1");
  EXPECT_EQ(man.high_score, 50);
  EXPECT_EQ(man.high_not_out, flag_true);
  EXPECT_EQ(man.high_against, "Corran");
  bat_again(50, true, "Alba");
  EXPECT_EQ(career_of("Tamar", "T.Man1").high_against, "Corran") << "an equal not out changes nothing";
}

TEST_F(Careers, AHigherScoreOutLeavesTheFlag) {
  bat_again(50, false, "Alba");
  bat_again(60, false, "Corran");
  career_rec man = career_of("Tamar", "T.Man1");
  EXPECT_EQ(man.high_score, 60);
  EXPECT_EQ(man.high_not_out, 0);
  EXPECT_EQ(man.high_against, "Corran");
  bat_again(70, true, "Alba");
  bat_again(80, false, "Corran");
  man = career_of("Tamar", "T.Man1");
  EXPECT_EQ(man.high_score, 80);
  EXPECT_EQ(man.high_not_out, flag_true) << "as the earlier score left it";
}

TEST_F(Careers, ANotOutOfZeroInTheFirstInningsOfACareerIsAHighScore) {
  bat_again(0, true, "Alba");
  const career_rec man = career_of("Tamar", "T.Man1");
  EXPECT_EQ(man.high_score, 0);
  EXPECT_EQ(man.high_not_out, flag_true);
  EXPECT_EQ(man.high_against, "Alba");
}

TEST_F(Careers, TheBestBowlingNeedsMoreWicketsOrFewerRuns) {
  bowl_again(3, 20, "Tamar");
  bowl_again(3, 20, "Corran");
  EXPECT_EQ(career_of("Alba", "A.Man9").best_against, "Tamar");
  bowl_again(3, 19, "Corran");
  career_rec man = career_of("Alba", "A.Man9");
  EXPECT_EQ(man.best_runs, 19);
  EXPECT_EQ(man.best_against, "Corran");
  bowl_again(4, 70, "Tamar");
  man = career_of("Alba", "A.Man9");
  EXPECT_EQ(man.best_wickets, 4);
  EXPECT_EQ(man.best_runs, 70);
  EXPECT_EQ(man.best_against, "Tamar");
}

TEST_F(Careers, ATeamAgainstItselfCountsBothWays) {
  match.team2_name = "Tamar";
  match.bowling_card = match.first_bowling_card;
  match.first_batting_card = match.batting_card;
  update_career(match, data);
  EXPECT_EQ(read_career_table(data).career_team_count, 1);
  EXPECT_EQ(career_of("Tamar", "T.Man1").matches, 2);
  EXPECT_EQ(career_of("Tamar", "T.Man1").innings, 2);
}

}  // namespace
}  // namespace velorin
