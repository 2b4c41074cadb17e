// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/series.h"

#include "competitions/competition_fixture.h"
#include "model/run_time_error.h"
#include "support/game_in_play.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Series : public CompetitionTest {
 protected:
  void SetUp() override {
    CompetitionTest::SetUp();
    add_teams({"Alpha", "Beta", "Gamma"});
    form_.open();
  }

  /// Plays a series of as many matches as there are endings; Beta is at home to Gamma. The last showing of the results.
  series_results_form play(const std::vector<int>& endings) {
    force(endings);
    form_.set_matches(static_cast<int>(endings.size()));
    form_.accept();
    EXPECT_EQ(user_.matches.size(), endings.size());
    EXPECT_EQ(user_.series_results.size(), endings.size()) << "the results are shown after every match";
    return user_.series_results.back();
  }

  /// The final line of each showing.
  std::vector<std::string> final_lines() const {
    std::vector<std::string> lines;
    for (const series_results_form& shown : user_.series_results) lines.push_back(shown.standing_line);
    return lines;
  }

  series_form form_{in_play(), series};
};

TEST_F(Series, TheFormOpensOnTheSecondAndTheThirdTeam) {
  ASSERT_EQ(form_.teams.size(), 3U);
  EXPECT_EQ(form_.teams[form_.home_team_index].name, "Beta");
  EXPECT_EQ(form_.teams[form_.away_team_index].name, "Gamma");
  EXPECT_THAT(form_.grounds, ElementsAre("Beta Oval", "Beta Park"));
  EXPECT_EQ(form_.ground_index, 1) << "the second ground";
  EXPECT_EQ(form_.typed_matches, "1");
  EXPECT_TRUE(form_.computer_captains_home);
  EXPECT_TRUE(form_.computer_captains_away);
  EXPECT_FALSE(form_.closed);
}

TEST_F(Series, TheGroundsAreThoseOfTheHomeTeam) {
  form_.choose_home(0);
  EXPECT_THAT(form_.grounds, ElementsAre("Alpha Oval", "Alpha Park"));
  form_.choose_away(1);
  EXPECT_THAT(form_.grounds, ElementsAre("Alpha Oval", "Alpha Park")) << "neither away nor neutral ones";
}

TEST_F(Series, ASingleGroundIsNotShownBeforeTheDraw) {
  database_.add_team("Delta");
  database_.add_ground("Delta", "Delta Green");
  database_.write();
  form_.open();
  form_.choose_home(3);
  EXPECT_THAT(form_.grounds, ElementsAre("Delta Green"));
  EXPECT_EQ(form_.ground_index, -1);
  play({1, 1});
  EXPECT_EQ(user_.matches[0].ground, "Delta Green");
  EXPECT_EQ(user_.matches[1].ground, "Delta Green");
}

TEST_F(Series, TheSpinControlWritesTheNumberOfMatches) {
  form_.set_matches(10);
  EXPECT_EQ(form_.typed_matches, "10");
}

TEST_F(Series, CancelKeepsNothing) {
  form_.cancel();
  EXPECT_TRUE(form_.closed);
  EXPECT_THAT(user_.requests, IsEmpty());
}

TEST_F(Series, ANumberBeyondTenIsRefusedBeforeAnyMatch) {
  for (const char* text : {"11", "0", "", "three"}) {
    form_.typed_matches = text;
    EXPECT_THROW(form_.accept(), run_time_error) << text;
  }
  EXPECT_THAT(user_.requests, IsEmpty());
  EXPECT_FALSE(form_.closed);
}

TEST_F(Series, ASeriesOfOneWonAtHome) {
  const series_results_form shown = play({1});
  EXPECT_EQ(shown.heading, "Beta vs Gamma Series Result:");
  ASSERT_EQ(shown.rows.size(), 1U);
  EXPECT_EQ(shown.rows[0].match_and_ground, "1st ODI - " + user_.matches[0].ground);
  EXPECT_EQ(shown.rows[0].result, "Beta  won by  7  runs");
  EXPECT_EQ(shown.standing_line, "Beta wins the series 1 - 0");
  EXPECT_TRUE(form_.closed);
}

TEST_F(Series, ASeriesOfOneWonByTheVisitors) { EXPECT_EQ(play({2}).standing_line, "Gamma wins the series 1 - 0"); }

TEST_F(Series, ASeriesOfOneThatIsTied) {
  const series_results_form shown = play({0});
  EXPECT_THAT(shown.rows, IsEmpty());
  EXPECT_EQ(shown.standing_line, "The series is tied 0 - 0");
}

TEST_F(Series, ThreeMatchesTellWhoLeadsAndWhoWins) {
  play({2, 1, 1});
  EXPECT_THAT(final_lines(),
              ElementsAre("Gamma leads the series 1 - 0", "The series is tied 1 - 1", "Beta wins the series 2 - 1"));
  for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(user_.series_results[i].rows.size(), i + 1);
}

TEST_F(Series, ALevelSeriesIsTiedAlsoAtItsEnd) { EXPECT_EQ(play({2, 1}).standing_line, "The series is tied 1 - 1"); }

TEST_F(Series, AnUnassailableLeadDoesNotEndIt) {
  play({1, 1, 1, 1, 1});
  EXPECT_THAT(final_lines(),
              ElementsAre("Beta leads the series 1 - 0", "Beta leads the series 2 - 0", "Beta leads the series 3 - 0",
                          "Beta leads the series 4 - 0", "Beta wins the series 5 - 0"));
}

TEST_F(Series, ATiedFirstMatchHidesAllOthers) {
  play({0, 1, 2, 1});
  for (const series_results_form& shown : user_.series_results) {
    EXPECT_THAT(shown.rows, IsEmpty());
    EXPECT_EQ(shown.standing_line, "The series is tied 0 - 0");
  }
}

TEST_F(Series, ATieInTheMiddleStopsTheScan) {
  play({1, 1, 0, 2, 2, 2});
  EXPECT_THAT(final_lines(),
              ElementsAre("Beta leads the series 1 - 0", "Beta leads the series 2 - 0", "Beta leads the series 2 - 0",
                          "Beta leads the series 2 - 0", "Beta leads the series 2 - 0", "Beta wins the series 2 - 0"));
  EXPECT_EQ(user_.series_results.back().rows.size(), 2U);
}

TEST_F(Series, TenMatchesFillTheListAndHaveTheirOrdinals) {
  const series_results_form shown = play({1, 2, 1, 2, 1, 2, 1, 2, 1, 1});
  ASSERT_EQ(shown.rows.size(), 10U);
  const char* ordinals[] = {"1st", "2nd", "3rd", "4th", "5th", "6th", "7th", "8th", "9th", "10th"};
  for (std::size_t i = 0; i < 10; ++i) {
    EXPECT_EQ(shown.rows[i].match_and_ground, std::string(ordinals[i]) + " ODI - " + user_.matches[i].ground);
    EXPECT_EQ(shown.rows[i].result, user_.matches[i].result.result_winner + "  won by  7  runs");
  }
  EXPECT_EQ(shown.standing_line, "Beta wins the series 6 - 4");
}

TEST_F(Series, ATeamAgainstItselfWinsEveryMatchAsTheHomeTeam) {
  form_.choose_away(1);
  const series_results_form shown = play({2, 2});
  EXPECT_EQ(shown.heading, "Beta vs Beta Series Result:");
  EXPECT_EQ(shown.standing_line, "Beta wins the series 2 - 0");
}

TEST_F(Series, EveryMatchDrawsItsGround) {
  const auto ground_drawn_with = [this](double draw) {
    script_draws({draw, 0.5, 0.5, 0.5, 0.5});  // the ground, then the conditions, where the run is broken off
    user_.on_conditions.push_back([](conditions_form&) { throw std::runtime_error("seen"); });
    EXPECT_THROW(form_.accept(), std::runtime_error);
    EXPECT_EQ(chance.draws_used(), 5U);
    return user_.matches.back().ground;
  };
  EXPECT_EQ(ground_drawn_with(0.9), "Beta Park");
  EXPECT_EQ(ground_drawn_with(0.4), "Beta Oval");
}

TEST_F(Series, GroundsMayRepeatAndBothAreUsed) {
  play({1, 1, 1, 1, 1, 1, 1, 1, 1, 1});
  int oval = 0;
  for (const entered_match& played : user_.matches) oval += played.ground == "Beta Oval" ? 1 : 0;
  EXPECT_GT(oval, 0);
  EXPECT_LT(oval, 10);
}

TEST_F(Series, TheSidesKeepTheirOrderAndTheirCaptains) {
  form_.computer_captains_away = false;
  play({1, 2});
  for (const entered_match& played : user_.matches) {
    EXPECT_EQ(played.first, "Beta");
    EXPECT_EQ(played.second, "Gamma");
    EXPECT_FALSE(played.first_human);
    EXPECT_TRUE(played.second_human);
  }
}

TEST_F(Series, TheResultIsTakenAwayAfterEachMatchAndTheRecordAtTheEnd) {
  user_.on_series_results.push_back([](series_results_form& shown) {
    EXPECT_EQ(match.result_winner, "");
    EXPECT_EQ(match.result_margin, "");
    EXPECT_EQ(match.result_ground, "");
    EXPECT_FALSE(series.series_over);
    shown.accept();
    EXPECT_TRUE(shown.closed);
    EXPECT_EQ(series.series_winner[1], "Beta") << "closing before the end clears nothing";
  });
  user_.on_series_results.push_back([](series_results_form& shown) {
    EXPECT_TRUE(series.series_over);
    EXPECT_EQ(series.series_ground[2], "Beta " + series.series_ground[2].substr(5));
    shown.accept();
  });
  play({1, 2});
  for (int i = 1; i <= 10; ++i) {
    EXPECT_EQ(series.series_ground[i], "");
    EXPECT_EQ(series.series_winner[i], "");
    EXPECT_EQ(series.series_margin[i], "");
  }
  EXPECT_FALSE(series.series_over);
}

TEST_F(Series, ASecondSeriesStartsFromNothing) {
  play({1, 1, 1});
  user_.series_results.clear();
  user_.matches.clear();
  EXPECT_EQ(play({2}).standing_line, "Gamma wins the series 1 - 0");
  EXPECT_EQ(user_.series_results[0].rows.size(), 1U);
}

TEST_F(Series, AMatchThatIsPlayedToItsOwnEndIsListedAsItEnded) {
  form_.set_matches(4);
  form_.accept();
  const std::vector<std::string> winners = user_.winners();
  const std::size_t listed = std::find(winners.begin(), winners.end(), "") - winners.begin();
  const series_results_form& shown = user_.series_results.back();
  ASSERT_EQ(shown.rows.size(), listed);
  for (std::size_t i = 0; i < listed; ++i) {
    const match_result& result = user_.matches[i].result;
    EXPECT_EQ(shown.rows[i].result, result.result_winner + result.result_margin);
    EXPECT_EQ(shown.rows[i].match_and_ground.substr(10), result.result_ground);
  }
}

}  // namespace
}  // namespace velorin::testing
