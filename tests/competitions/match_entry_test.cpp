// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/match_entry.h"

#include "competitions/competition_fixture.h"
#include "model/run_time_error.h"
#include "support/game_in_play.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

class MatchEntry : public CompetitionTest {
 protected:
  void SetUp() override {
    CompetitionTest::SetUp();
    add_teams({"Alpha", "Beta", "Gamma"});
  }
};

TEST_F(MatchEntry, TeamsComeInFileOrderWithTheirRecords) {
  const std::vector<team_entry> teams = list_teams(data);
  ASSERT_EQ(teams.size(), 3U);
  EXPECT_EQ(teams[0].name, "Alpha");
  EXPECT_EQ(teams[0].record, 2);
  EXPECT_EQ(teams[2].name, "Gamma");
  EXPECT_EQ(teams[2].record, 4);
}

TEST_F(MatchEntry, GroundsAreThoseOfTheCountriesInFileOrder) {
  EXPECT_THAT(list_grounds(data, {"Beta"}), ElementsAre("Beta Oval", "Beta Park"));
  EXPECT_THAT(list_grounds(data, {"Gamma", "Alpha"}),
              ElementsAre("Alpha Oval", "Gamma Oval", "Alpha Park", "Gamma Park"));
  EXPECT_THAT(list_grounds(data, {"Gamma", "Gamma", ""}), ElementsAre("Gamma Oval", "Gamma Park"));
  EXPECT_THAT(list_grounds(data, {"", "", ""}), IsEmpty());
  EXPECT_THAT(list_grounds(data, {"gamma", "Delta"}), IsEmpty());
}

TEST_F(MatchEntry, AnEmptyHostMatchesNoGround) {
  database_.add_ground("", "Nowhere");
  database_.write();
  EXPECT_THAT(list_grounds(data, {"Beta", "", ""}), ElementsAre("Beta Oval", "Beta Park"));
}

TEST_F(MatchEntry, AGroundIsDrawnWithOneNumber) {
  const std::vector<std::string> grounds = {"a", "b", "c"};
  script_draws({0, 0.33, 0.34, 0.66, 0.67, 0.999999999});
  std::string drawn;
  for (int i = 0; i < 6; ++i) drawn += draw_ground(chance, grounds);
  EXPECT_EQ(drawn, "aabbcc");
  EXPECT_EQ(chance.draws_used(), 6U);
}

TEST_F(MatchEntry, WithoutGroundsANumberIsDrawnAllTheSame) {
  script_draws({0.7});
  EXPECT_EQ(draw_ground(chance, {}), "");
  EXPECT_EQ(chance.draws_used(), 1U);
}

TEST_F(MatchEntry, ATypedNumberIsAWholeOneInItsRange) {
  EXPECT_EQ(typed_number("1", 10, "Text1"), 1);
  EXPECT_EQ(typed_number("10", 10, "Text1"), 10);
  for (const char* text : {"", "0", "11", "-1", "2.5", "two", "3x"}) {
    try {
      typed_number(text, 10, "Text1");
      ADD_FAILURE() << '"' << text << "\" was taken";
    } catch (const run_time_error& error) {
      EXPECT_EQ(error.kind(), failure::type);
      EXPECT_EQ(error.place().field, "Text1");
    }
  }
}

TEST_F(MatchEntry, AMatchGoesThroughTheChainOfANewMatch) {
  play_entered({"Gamma", false}, {"Alpha", false}, "Gamma Park");
  ASSERT_EQ(user_.matches.size(), 1U);
  EXPECT_EQ(user_.matches[0].first, "Gamma");
  EXPECT_EQ(user_.matches[0].second, "Alpha");
  EXPECT_EQ(user_.matches[0].ground, "Gamma Park");
  ASSERT_EQ(user_.messages.size(), 1U);
  EXPECT_THAT(user_.requests, ElementsAre("wecond", "teamsel Gamma", "teamsel Alpha", "report 0",
                                          "message End of Match | " + user_.messages[0].text, "report 0"));
  EXPECT_FALSE(user_.progress_open);
  EXPECT_TRUE(match.computer_bats);
  EXPECT_TRUE(match.computer_bowls);
  EXPECT_EQ(match.team1_name, "") << "the match has been reset";
  EXPECT_EQ(match.result_ground, "Gamma Park") << "its result has not";
}

TEST_F(MatchEntry, AHumanSidePlaysByHand) {
  play_entered({"Alpha", true}, {"Beta", false}, "Alpha Oval");
  play_entered({"Alpha", false}, {"Beta", true}, "Alpha Oval");
  EXPECT_TRUE(user_.matches[0].first_human);
  EXPECT_FALSE(user_.matches[0].second_human);
  EXPECT_FALSE(user_.matches[1].first_human);
  EXPECT_TRUE(user_.matches[1].second_human);
  EXPECT_EQ(user_.requests_of("console").size(), 2U);
  EXPECT_EQ(user_.progress_calls, 0);
  EXPECT_GE(user_.requests_of("toss").size(), 2U);
  EXPECT_TRUE(match.computer_bats && match.computer_bowls) << "the next match starts with two computers";
}

TEST_F(MatchEntry, AGroundThatIsNotInTheFileHasNoPitchToPlayOn) {
  play_entered({"Alpha", true}, {"Beta", false}, "Alpha Oval");
  EXPECT_EQ(match.result_ground, "Alpha Oval");
  try {
    play_entered({"Alpha", false}, {"Beta", false}, "No Such Place");
    ADD_FAILURE() << "the reset has cleared the ground before, so its pitch cannot go on the sliders";
  } catch (const run_time_error& error) {
    EXPECT_EQ(error.kind(), failure::type);
  }
  EXPECT_EQ(user_.matches.size(), 1U);
}

TEST_F(MatchEntry, AnUnknownTeamIsAnError) {
  EXPECT_THROW(play_entered({"Alpha", false}, {"Delta", false}, "Alpha Oval"), run_time_error);
  EXPECT_THAT(user_.requests, IsEmpty());
}

TEST_F(MatchEntry, OneEmptyNameIsAWalkover) {
  const auto before = chance.draws_used();
  play_entered({"", false}, {"Beta", false}, "Alpha Oval");
  EXPECT_EQ(match.result_winner, "Beta");
  EXPECT_EQ(match.result_margin, "  by a walkover");
  play_entered({"Gamma", true}, {"", true}, "Alpha Oval");
  EXPECT_EQ(match.result_winner, "Gamma");
  EXPECT_EQ(match.result_margin, "  by a walkover");
  EXPECT_EQ(match.decided, match_decision::walkover);
  EXPECT_THAT(user_.requests, IsEmpty()) << "no match is played";
  EXPECT_EQ(chance.draws_used(), before);
  EXPECT_EQ(match.rate_first.team, "");
}

TEST_F(MatchEntry, TwoEmptyNamesHaveNoResult) {
  match.result_winner = "Gamma";
  match.result_margin = "  won by  7  runs";
  match.decided = match_decision::runs;
  play_entered({"", false}, {"", false}, "Alpha Oval");
  EXPECT_EQ(match.result_winner, "");
  EXPECT_EQ(match.result_margin, "");
  EXPECT_EQ(match.decided, match_decision::none);
  EXPECT_THAT(user_.requests, IsEmpty());
}

TEST_F(MatchEntry, LeavingAMatchClearsItsResult) {
  play_entered({"Alpha", false}, {"Beta", false}, "Alpha Oval");
  EXPECT_NE(match.result_margin, "");
  EXPECT_NE(match.rate_first.team, "");
  EXPECT_NE(match.decided, match_decision::none);
  clear_result(match);
  EXPECT_EQ(match.decided, match_decision::none);
  EXPECT_EQ(match.result_winner, "");
  EXPECT_EQ(match.result_margin, "");
  EXPECT_EQ(match.result_ground, "");
  EXPECT_EQ(match.rate_first.team, "");
  EXPECT_EQ(match.rate_first.delta, 0);
  EXPECT_EQ(match.rate_second.team, "");
  EXPECT_EQ(match.rate_second.delta, 0);
}

/// Runs, balls and wickets of the two innings, as the scorecards of a match show them.
struct innings_seen {
  int runs = 0;
  int balls = 0;
  int wickets = 0;
  std::string team;
};

TEST_F(MatchEntry, TheResultBlockFollowsFromTheInnings) {
  std::vector<innings_seen> innings;
  user_.on_report = [&](report) {
    innings.push_back({match.score_runs, match.innings_balls, match.score_wickets, match.team1_name});
  };
  int defended = 0;
  int chased = 0;
  for (int i = 0; i < 60; ++i) {
    innings.clear();
    play_entered({"Alpha", false}, {"Beta", false}, "Alpha Oval");
    ASSERT_EQ(innings.size(), 2U);
    const double f = innings[0].runs;
    const double s = innings[1].runs;
    const bool closed = innings[1].balls == 300 || innings[1].wickets == 10;
    EXPECT_EQ(match.rate_first.team, innings[0].team);
    EXPECT_EQ(match.rate_second.team, innings[1].team);
    const double first = closed ? (f - s) / 50 : f / 50 - s * 6 / innings[1].balls;
    EXPECT_DOUBLE_EQ(match.rate_first.delta, first);
    EXPECT_DOUBLE_EQ(match.rate_second.delta, -first);
    if (closed && s == f) {
      EXPECT_EQ(match.result_margin, "Match tied.");
      EXPECT_EQ(match.result_winner, "");
    } else if (closed) {
      ++defended;
      EXPECT_EQ(match.result_winner, innings[0].team);
      EXPECT_EQ(match.result_margin, "  won by  " + std::to_string(innings[0].runs - innings[1].runs) + "  runs");
    } else {
      ++chased;
      EXPECT_GT(s, f);
      EXPECT_EQ(match.result_winner, innings[1].team);
      EXPECT_EQ(match.result_margin, "  won by  " + std::to_string(10 - innings[1].wickets) + "  wickets ");
    }
  }
  EXPECT_GT(defended, 5) << "both branches have been seen";
  EXPECT_GT(chased, 5);
}

TEST_F(MatchEntry, ProgressCountsTheOversBowledAndNotTheShareOfTheMatch) {
  squad hopeless = sample_squad("Delta");
  for (int i = 1; i <= 13; ++i) hopeless[i].bat_skill = 1;
  database_.add_team("Delta", hopeless);
  database_.write();
  play_entered({"Delta", false}, {"Delta", false}, "Alpha Oval");
  EXPECT_GT(user_.progress_calls, 1);
  EXPECT_LT(user_.progress_calls, 60) << "both sides are out early";
  EXPECT_FALSE(user_.progress_open);
  EXPECT_THAT(user_.requests_of("message"), ElementsAre(StartsWith("message End of Match | ")));
}

TEST(MatchProgress, CountsOversAsIfTheyWerePerCent) {
  match_progress bar;
  bar.over = 1;
  EXPECT_EQ(bar.title(), "Simming Match... (1% finished )");
  EXPECT_DOUBLE_EQ(bar.bar_length(), 49.95);
  bar.over = 100;
  EXPECT_EQ(bar.title(), "Simming Match... (100% finished )");
  EXPECT_DOUBLE_EQ(bar.bar_length(), 4995) << "a little beyond the frame of 4935";
  EXPECT_EQ(match_progress::bar_position, 60);
}

}  // namespace
}  // namespace velorin::testing
