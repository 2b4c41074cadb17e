// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/tri_series.h"
#include "competitions/competition_fixture.h"
#include "model/run_time_error.h"
#include "model/texts.h"
#include "setup/conditions.h"
#include "support/game_in_play.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class TriSeries : public CompetitionTest {
 protected:
  void SetUp() override {
    CompetitionTest::SetUp();
    add_teams({"Alpha", "Beta", "Gamma", "Delta"});
    form_.open();
  }

  /// Plays the competition; the last showing of its table.
  tri_series_table_form play(int rounds = 1) {
    form_.set_rounds(rounds);
    form_.accept();
    EXPECT_EQ(user_.matches.size(), 3U * rounds + 1);
    EXPECT_EQ(user_.tri_tables.size(), 3U * rounds + 1) << "the table is shown after every match";
    return user_.tri_tables.back();
  }

  tri_series_form form_{in_play(), tri};
};

std::vector<std::string> teams_of(const tri_series_table_form& shown) {
  return {shown.rows[0][0], shown.rows[1][0], shown.rows[2][0]};
}

std::vector<std::string> pairs_of(const std::vector<entered_match>& matches) {
  std::vector<std::string> pairs;
  for (const entered_match& played : matches) pairs.push_back(played.first + " " + played.second);
  return pairs;
}

TEST_F(TriSeries, TheFormOpensOnTheSecondToTheFourthTeam) {
  EXPECT_THAT(form_.team_index, ElementsAre(1, 2, 3));
  EXPECT_THAT(form_.grounds, ElementsAre("Beta Oval", "Beta Park"));
  EXPECT_EQ(form_.ground_index, 1);
  EXPECT_EQ(form_.typed_rounds, "1");
  EXPECT_THAT(form_.computer_captains, ElementsAre(true, true, true));
  form_.choose_team(0, 0);
  EXPECT_THAT(form_.grounds, ElementsAre("Alpha Oval", "Alpha Park")) << "the grounds follow the host";
  form_.choose_team(2, 1);
  EXPECT_THAT(form_.grounds, ElementsAre("Alpha Oval", "Alpha Park"));
}

TEST_F(TriSeries, CancelAndAWrongNumberPlayNothing) {
  for (const char* text : {"6", "0", "", "1.5"}) {
    form_.typed_rounds = text;
    EXPECT_THROW(form_.accept(), run_time_error) << text;
  }
  EXPECT_FALSE(form_.closed);
  form_.cancel();
  EXPECT_TRUE(form_.closed);
  EXPECT_THAT(user_.requests, IsEmpty());
}

TEST_F(TriSeries, ARoundIsThreeMatchesInAFixedOrder) {
  force({1, 1, 1, 1, 1, 1, 1});
  play(2);
  EXPECT_THAT(pairs_of(user_.matches), ElementsAre("Beta Gamma", "Beta Delta", "Gamma Delta", "Beta Gamma",
                                                   "Beta Delta", "Gamma Delta", "Beta Gamma"));
  EXPECT_TRUE(form_.closed);
}

TEST_F(TriSeries, FiveRoundsAreSixteenMatches) {
  force(std::vector<int>(16, 2));
  const tri_series_table_form shown = play(5);
  EXPECT_THAT(shown.rows[0], ElementsAre("Delta", "10", "10", "0", "0", "20", "10"));
  EXPECT_THAT(shown.rows[1], ElementsAre("Gamma", "10", "5", "5", "0", "10", "0"));
  EXPECT_THAT(shown.rows[2], ElementsAre("Beta", "10", "0", "10", "0", "0", "-10"));
  EXPECT_EQ(user_.matches.back().first, "Delta");
  EXPECT_EQ(user_.matches.back().second, "Gamma");
}

TEST_F(TriSeries, TheTableGrowsMatchByMatch) {
  force({1, 0, 2, 1}, 1.25);
  play();
  EXPECT_THAT(user_.tri_tables[0].rows[0], ElementsAre("Beta", "1", "1", "0", "0", "2", "1.25"));
  EXPECT_THAT(user_.tri_tables[0].rows[1], ElementsAre("Delta", "0", "0", "0", "0", "0", "0"));
  EXPECT_THAT(user_.tri_tables[0].rows[2], ElementsAre("Gamma", "1", "0", "1", "0", "0", "-1.25"));
  EXPECT_THAT(user_.tri_tables[1].rows[0], ElementsAre("Beta", "2", "1", "0", "1", "3", "1.25"));
  EXPECT_THAT(user_.tri_tables[1].rows[1], ElementsAre("Delta", "1", "0", "0", "1", "1", "0"));
  EXPECT_THAT(user_.tri_tables[2].rows[0], ElementsAre("Beta", "2", "1", "0", "1", "3", "1.25"));
  EXPECT_THAT(user_.tri_tables[2].rows[1], ElementsAre("Delta", "2", "1", "0", "1", "3", "1.25"));
  EXPECT_THAT(user_.tri_tables[2].rows[2], ElementsAre("Gamma", "2", "0", "2", "0", "0", "-2.5"));
  EXPECT_THAT(user_.tri_tables[3].rows[0], ElementsAre("Beta", "2", "1", "0", "1", "3", "1.25"))
      << "the final is no match of the league";
}

TEST_F(TriSeries, TheFinalistsAreTheFirstTwoOfTheMoment) {
  force({2, 2, 2, 1});
  play();
  EXPECT_EQ(user_.tri_tables[0].final_line, "Final (from above table) - Gamma vs Delta");
  EXPECT_EQ(user_.tri_tables[2].final_line, "Final (from above table) - Delta vs Gamma");
  EXPECT_EQ(user_.tri_tables[2].final_result, "") << "the final is still to come";
  EXPECT_EQ(user_.tri_tables[3].final_line, "Final (from above table) - Delta vs Gamma");
  EXPECT_EQ(user_.tri_tables[3].final_result, "Delta   won by  7  runs");
}

TEST_F(TriSeries, ATiedFinalHasNoWinner) {
  force({1, 1, 1, 0});
  EXPECT_EQ(play().final_result, " Match tied.");
}

TEST_F(TriSeries, ThreeTeamsLevelOnPointsStandByTheirRates) {
  user_.endings = {{ending::first_wins, 1.0}, {ending::second_wins, -1.003}, {ending::first_wins, 1.001}};
  force({2});
  const tri_series_table_form shown = play();
  // Beta 1 - 1.003 = -0.003, Gamma -1 + 1.001 = 0.001, Delta 1.003 - 1.001 = 0.002
  EXPECT_THAT(shown.rows[0], ElementsAre("Delta", "2", "1", "1", "0", "2", "0"));
  EXPECT_THAT(shown.rows[1], ElementsAre("Gamma", "2", "1", "1", "0", "2", "0"));
  EXPECT_THAT(shown.rows[2], ElementsAre("Beta", "2", "1", "1", "0", "2", "0"));
  EXPECT_EQ(shown.final_line, "Final (from above table) - Delta vs Gamma");
  EXPECT_EQ(shown.final_result, "Gamma   won by  7  runs");
}

TEST_F(TriSeries, TeamsLevelInEverythingStandAsOnTheForm) {
  force({0, 0, 0, 1});
  EXPECT_THAT(teams_of(play()), ElementsAre("Beta", "Gamma", "Delta"));
}

TEST_F(TriSeries, TheTableItselfIsNeverSorted) {
  force({2, 2, 2, 1});
  user_.on_tri_series_table.resize(2, [](tri_series_table_form& shown) { shown.accept(); });
  user_.on_tri_series_table.push_back([](tri_series_table_form& shown) {
    EXPECT_EQ(tri.tri_table[1].team, "Beta");
    EXPECT_EQ(tri.tri_table[1].points, 0);
    EXPECT_EQ(tri.tri_table[3].team, "Delta");
    EXPECT_EQ(tri.tri_table[3].points, 4);
    EXPECT_EQ(tri.tri_table[1].note, "Delta");
    EXPECT_EQ(tri.tri_table[2].note, "Gamma");
    EXPECT_EQ(tri.tri_table[3].note, "");
    EXPECT_EQ(match.result_winner, "");
    EXPECT_EQ(match.rate_first.team, "");
    shown.accept();
    EXPECT_TRUE(shown.closed);
  });
  play();
  for (int i = 1; i <= 3; ++i) {
    EXPECT_EQ(tri.tri_table[i].team, "") << "cleared at the end";
    EXPECT_EQ(tri.tri_table[i].note, "");
    EXPECT_EQ(tri.tri_table[i].played, 0);
  }
}

TEST_F(TriSeries, TheCaptainsFollowTheirTeamsIntoTheFinal) {
  form_.computer_captains = {true, true, false};
  force({2, 2, 1, 1});
  play();
  const std::vector<entered_match>& played = user_.matches;
  EXPECT_FALSE(played[0].first_human || played[0].second_human);
  EXPECT_FALSE(played[1].first_human);
  EXPECT_TRUE(played[1].second_human);
  EXPECT_TRUE(played[2].second_human);
  EXPECT_EQ(played[3].first, "Gamma");
  EXPECT_FALSE(played[3].first_human);
  EXPECT_EQ(played[3].second, "Delta");
  EXPECT_TRUE(played[3].second_human);
}

TEST_F(TriSeries, OfTeamsOfOneNameTheFirstCaptainCounts) {
  form_.choose_team(1, 1);
  form_.computer_captains = {false, true, true};
  force({1, 1, 1, 1});
  const tri_series_table_form shown = play();
  // Beta v Beta: both rows count it twice, the second row wins and loses. Beta v Delta twice: the second row wins.
  EXPECT_THAT(shown.rows[0], ElementsAre("Beta", "4", "3", "1", "0", "6", "2"));
  EXPECT_THAT(shown.rows[1], ElementsAre("Beta", "4", "0", "0", "0", "0", "2"));
  EXPECT_THAT(shown.rows[2], ElementsAre("Delta", "2", "0", "2", "0", "0", "-2"));
  EXPECT_EQ(user_.matches[3].first, "Beta");
  EXPECT_EQ(user_.matches[3].second, "Beta");
  EXPECT_TRUE(user_.matches[3].first_human);
  EXPECT_TRUE(user_.matches[3].second_human);
}

TEST_F(TriSeries, AllMatchesAreInTheHostsCountryEachOnItsOwnDraw) {
  force(std::vector<int>(16, 1));
  play(5);
  int oval = 0;
  for (const entered_match& played : user_.matches) {
    EXPECT_TRUE(played.ground == "Beta Oval" || played.ground == "Beta Park") << played.ground;
    oval += played.ground == "Beta Oval" ? 1 : 0;
  }
  EXPECT_GT(oval, 0);
  EXPECT_LT(oval, 16);
}

TEST_F(TriSeries, TheFirstDrawIsTheGroundOfTheFirstMatch) {
  for (const auto& [draw, ground] : {std::pair{0.1, "Beta Oval"}, std::pair{0.5, "Beta Park"}}) {
    script_draws({draw, 0.5, 0.5, 0.5, 0.5});
    user_.on_conditions.push_back([](conditions_form&) { throw std::runtime_error("seen"); });
    EXPECT_THROW(form_.accept(), std::runtime_error);
    EXPECT_EQ(user_.matches.back().ground, ground);
    EXPECT_EQ(chance.draws_used(), 5U) << "the ground and the four of the conditions";
  }
}

TEST_F(TriSeries, ALeagueMatchIsBookedInItsRows) {
  tri.grounds = {"Beta Oval"};
  tri.tri_table[1].team = "Beta";
  tri.tri_table[2].team = "Gamma";
  tri.tri_table[3].team = "Delta";
  tri.sides = {{{}, {"Delta", false}, {"Gamma", true}, {"Beta", false}}};
  tri.rounds = 1;
  tri.step = tri_step::entering;
  force({1});
  user_.on_conditions.push_back([this](conditions_form& form) {
    EXPECT_EQ(tri.step, tri_step::match);
    user_.headless_user::show(form);
  });
  user_.on_tri_series_table.push_back([](tri_series_table_form&) { throw std::runtime_error("seen"); });
  EXPECT_THROW(resume_tri_series(in_play(), tri), std::runtime_error);
  EXPECT_EQ(user_.matches[0].ground, "Beta Oval");
  EXPECT_FALSE(user_.matches[0].first_human);
  EXPECT_TRUE(user_.matches[0].second_human);
  EXPECT_EQ(tri.tri_table[3].won, 1);
  EXPECT_EQ(tri.tri_table[3].net_run_rate, 1);
  EXPECT_EQ(tri.tri_table[2].lost, 1);
  EXPECT_EQ(tri.tri_table[2].net_run_rate, -1);
  EXPECT_EQ(tri.tri_table[1].played, 0);
  EXPECT_EQ(tri.matches_played, 1);
  EXPECT_EQ(match.result_winner, "") << "the result is taken away before the table is shown";
}

TEST_F(TriSeries, AMatchPlayedToItsOwnEndIsBookedFromItsResult) {
  play(3);
  // A literal account of the league from the results alone.
  struct account {
    std::string team;
    int played = 0, won = 0, lost = 0, tied = 0;
    double rate = 0;
  };
  std::vector<account> teams = {{"Beta"}, {"Gamma"}, {"Delta"}};
  for (std::size_t i = 0; i < 9; ++i) {
    const match_result& result = user_.matches[i].result;
    for (account& team : teams) {
      if (team.team != user_.matches[i].first && team.team != user_.matches[i].second) continue;
      ++team.played;
      if (result.result_winner.empty()) {
        ++team.tied;
      } else {
        ++(result.result_winner == team.team ? team.won : team.lost);
      }
      team.rate += (result.rate_first.team == team.team ? result.rate_first : result.rate_second).delta;
    }
  }
  std::stable_sort(teams.begin(), teams.end(), [](const account& a, const account& b) {
    const int points_a = 2 * a.won + a.tied;
    const int points_b = 2 * b.won + b.tied;
    return points_a != points_b ? points_a > points_b : a.rate > b.rate;
  });
  const tri_series_table_form& shown = user_.tri_tables[8];
  for (std::size_t i = 0; i < 3; ++i) {
    const account& team = teams[i];
    EXPECT_EQ(shown.rows[i][0], team.team);
    EXPECT_EQ(shown.rows[i][1], std::to_string(team.played));
    EXPECT_EQ(shown.rows[i][2], std::to_string(team.won));
    EXPECT_EQ(shown.rows[i][3], std::to_string(team.lost));
    EXPECT_EQ(shown.rows[i][4], std::to_string(team.tied));
    EXPECT_EQ(shown.rows[i][5], std::to_string(2 * team.won + team.tied));
    EXPECT_NEAR(*number_in(shown.rows[i][6]), team.rate, 0.005000001);
  }
  EXPECT_EQ(user_.matches[9].first, teams[0].team);
  EXPECT_EQ(user_.matches[9].second, teams[1].team);
}

TEST(TriSponsors, FollowTheHost) {
  const std::pair<const char*, const char*> sponsors[] = {
      {"Australia", "Orange"}, {"England", "NatWest"},  {"South Africa", "Standard Bank"},
      {"India", "Coco Cola"},  {"Sri Lanka", "Singer"}, {"West Indies", "Cable and Wireless"},
      {"Pakistan", "Pepsi"},   {"Zimbabwe", "Pepsi"},   {"New Zealand", "National Bank"},
      {"new zealand", "Pepsi"}};
  for (const auto& [host, sponsor] : sponsors) {
    tri = tri_record();
    tri.tri_table[1].team = host;
    tri.tri_table[2].team = "England";
    tri.tri_table[2].points = 2;
    tri.tri_table[3].team = "India";
    tri_series_table_form shown(tri);
    shown.open();
    EXPECT_EQ(shown.title, std::string(sponsor) + " Tri Series");
    EXPECT_EQ(shown.heading, std::string(sponsor) + " Tri Series - Table");
  }
  tri = tri_record();
}

}  // namespace
}  // namespace velorin::testing
