// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "cli/cli_fixture.h"

namespace velorin::testing {
namespace {

using ::testing::HasSubstr;

class ForecastCommand : public CliTest {
 protected:
  json object(const std::vector<std::string>& options, const std::string& seed = "1") const {
    std::vector<std::string> arguments = {"--seed", seed, "forecast", "--json"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return json::parse(text(arguments));
  }
};

TEST_F(ForecastCommand, TellsOfAMatchBeforeTheToss) {
  const json told = object({"--match", "--runs", "300"});
  EXPECT_EQ(told["format"], "velorin-forecast");
  EXPECT_EQ(told["version"], 1);
  ASSERT_EQ(told["points"].size(), 1U);
  const json& point = told["points"][0];
  EXPECT_EQ(point["at"], "0:0.0");
  EXPECT_EQ(point["runs"], 300);
  EXPECT_NEAR(double(point["win_first"]) + double(point["tie"]) + double(point["win_second"]), 1, 1e-9);
  EXPECT_GT(point["next_ball"]["0"], 0.2) << "of whoever opens";
  for (const char* total : {"first_total", "second_total"}) {
    EXPECT_LE(point[total]["p10"], point[total]["p50"]);
    EXPECT_LE(point[total]["p50"], point[total]["p90"]);
    EXPECT_GT(point[total]["mean"], 20);
  }
}

TEST_F(ForecastCommand, TellsTheSameForAnyNumberOfJobs) {
  const std::vector<std::string> alone = {"--match", "--runs", "200"};
  std::vector<std::string> several = alone;
  several.insert(several.end(), {"--jobs", "3"});
  EXPECT_EQ(object(alone), object(several));
  EXPECT_NE(object(alone), object(alone, "2"));
}

TEST_F(ForecastCommand, TakesTheTeamsAndTheConditions) {
  const json usual = object({"--match", "--runs", "400", "--conditions", "1,1,1,1"});
  const json sunny = object({"--match", "--runs", "400", "--conditions", "4,4,4,4"});
  EXPECT_LT(usual["points"][0]["first_total"]["mean"], sunny["points"][0]["first_total"]["mean"]);
  const std::string first = usual["first"];
  const std::string second = usual["second"];
  const json turned = object({"--match", "--runs", "10", "--team1", second, "--team2", first});
  EXPECT_EQ(turned["first"], second);
  EXPECT_EQ(turned["second"], first);
}

TEST_F(ForecastCommand, PrintsATable) {
  const std::string table = text({"--seed", "1", "forecast", "--match", "--runs", "50"});
  EXPECT_THAT(table, HasSubstr("0:0.0"));
  EXPECT_THAT(table, HasSubstr("50 rests of the match"));
}

TEST_F(ForecastCommand, WantsToKnowWhatToForecast) {
  EXPECT_THAT(error(2, {"forecast"}), HasSubstr("--match or --worldcup"));
  EXPECT_THAT(error(2, {"forecast", "--match", "--worldcup"}), HasSubstr("--worldcup"));
  EXPECT_THAT(error(2, {"forecast", "--worldcup", "--team1", "Nowhere"}), HasSubstr("--match"));
  EXPECT_THAT(error(2, {"forecast", "--match", "--runs", "0"}), HasSubstr("--runs"));
  EXPECT_THAT(error(1, {"forecast", "--match", "--team1", "Nowhere"}), HasSubstr("Unknown team"));
}

TEST_F(ForecastCommand, TellsHowFarTheTeamsOfAWorldCupGet) {
  const json told = object({"--worldcup", "--runs", "40", "--jobs", "2"});
  EXPECT_EQ(told["format"], "velorin-cup-forecast");
  EXPECT_EQ(told["runs"], 40);
  ASSERT_EQ(told["teams"].size(), 10U);
  EXPECT_EQ(told["teams"][0]["group"], "A");
  EXPECT_EQ(told["teams"][9]["group"], "B");
  double super_six = 0;
  for (const json& team : told["teams"]) super_six += double(team["super_six"]);
  EXPECT_NEAR(super_six, 6, 1e-9);
}

/// A match on record, and what its objects tell of it.
class RecordedForecast : public ForecastCommand {
 protected:
  std::string recorded(const std::string& seed) const {
    std::string name = file("match" + seed + ".velorin");
    text({"--seed", seed, "match", "--quiet", "--record", name});
    return name;
  }
  json points(const std::vector<std::string>& options) const { return object(options)["points"]; }
};

std::vector<std::string> places_of(const json& points) {
  std::vector<std::string> places;
  for (const json& point : points) places.push_back(point["at"]);
  return places;
}

TEST_F(RecordedForecast, OfAMatchThatIsOverTellsItsWinner) {
  for (const char* seed : {"1", "2", "3", "4"}) {
    const json played = matches(seed).front();
    const json told = object({recorded(seed), "--runs", "3"});
    ASSERT_EQ(told["points"].size(), 1U);
    const json& end = told["points"][0];
    const std::string winner = end["win_first"] == 1.0 ? told["first"] : told["second"];
    EXPECT_EQ(double(end["win_first"]) + double(end["win_second"]), 1.0);
    EXPECT_THAT(std::string(played["result"]["result_winner"]), HasSubstr(winner)) << seed;
    EXPECT_FALSE(end.contains("next_ball"));
    EXPECT_EQ(end["first_total"]["p10"], end["first_total"]["p90"]) << "it is bowled already";
  }
}

TEST_F(RecordedForecast, OfEachOverGoesFromTheFirstBallToTheLast) {
  const std::string match = recorded("1");
  const json played = matches("1").front();
  const json told = points({match, "--each-over", "--runs", "20"});
  const std::vector<std::string> places = places_of(told);
  EXPECT_EQ(places.front(), "1:0.0");
  EXPECT_EQ(places[1], "1:1.0");
  EXPECT_EQ(std::count(places.begin(), places.end(), "2:0.0"), 1);
  EXPECT_EQ(places.back(), places_of(points({match, "--runs", "1"})).front()) << "the end";
  EXPECT_EQ(std::set<std::string>(places.begin(), places.end()).size(), places.size()) << "none twice";
  for (const json& point : told) {
    EXPECT_NEAR(double(point["win_first"]) + double(point["tie"]) + double(point["win_second"]), 1, 1e-9);
    if (!point.contains("next_ball")) continue;
    double sum = 0;
    for (const auto& [what, chance] : point["next_ball"].items()) sum += double(chance);
    EXPECT_NEAR(sum, 1, 1e-12) << point["at"];
  }
  EXPECT_TRUE(told[1].contains("next_ball"));
}

TEST_F(RecordedForecast, TellsThePointsAskedForInTheirOrder) {
  const std::string match = recorded("1");
  const json told = points({match, "--at", "2:10.0", "--at", "1:31.4", "--runs", "30"});
  EXPECT_EQ(places_of(told), (std::vector<std::string>{"2:10.0", "1:31.4"}));
  EXPECT_EQ(told[1], points({match, "--at", "1:31.4", "--runs", "30"})[0]) << "a point does not hang on the others";
  EXPECT_EQ(object({match, "--at", "1:31.4", "--runs", "30"}),
            object({match, "--at", "1:31.4", "--runs", "30", "--jobs", "3"}));
}

TEST_F(RecordedForecast, KnowsTheStateThatReplayStopsAt) {
  const std::string match = recorded("3");
  for (const char* place : {"1:12.3", "1:0.0", "2:7.0"}) {
    const json state = json::parse(text({"replay", match, "--quiet", "--to", place, "--json", "-"}));
    ASSERT_EQ(state["at"], place);
    const json point = points({match, "--at", place, "--runs", "5"})[0];
    EXPECT_EQ(point["at"], place);
    if (place[0] == '2') {
      // The first side has made its total by then.
      EXPECT_EQ(point["first_total"]["p10"], point["first_total"]["p90"]);
    } else {
      EXPECT_NE(point["first_total"]["p10"], point["first_total"]["p90"]);
    }
  }
}

TEST_F(RecordedForecast, GoesOnFromWhereARecordingBreaksOff) {
  const std::string match = recorded("1");
  // Its last entries go: the end, the saving and the checks of the last overs.
  std::filesystem::resize_file(match, std::filesystem::file_size(match) - 60);
  const json cut = points({match, "--runs", "200"})[0];
  EXPECT_TRUE(cut.contains("next_ball")) << "the match is not over there";
  const std::vector<std::string> places = places_of(points({match, "--each-over", "--runs", "2"}));
  EXPECT_EQ(places.back(), cut["at"]);
}

TEST_F(RecordedForecast, RefusesWhatTheMatchNeverReachedAndWhatIsNoPlace) {
  const std::string match = recorded("1");
  EXPECT_THAT(error(2, {"forecast", match, "--at", "1:3.0", "--at", "2:50.0", "--runs", "1"}),
              HasSubstr("--at: The match never reached 2:50.0"));
  EXPECT_THAT(error(2, {"forecast", match, "--at", "3:1.0"}), HasSubstr("not an innings and overs"));
  EXPECT_THAT(error(2, {"forecast", "--match", "--at", "1:1.0"}), HasSubstr("--at"));
  EXPECT_THAT(error(2, {"forecast", match, "--match"}), HasSubstr("--match"));
  EXPECT_THAT(error(2, {"forecast", match, "--each-over", "--at", "1:1.0"}), HasSubstr("--each-over"));
  EXPECT_THAT(error(1, {"forecast", file("nowhere.velorin")}), HasSubstr("nowhere.velorin"));
}

TEST_F(RecordedForecast, PrintsATableOfItsPoints) {
  const std::string table = text({"--seed", "1", "forecast", recorded("1"), "--at", "1:20.0", "--runs", "50"});
  EXPECT_THAT(table, HasSubstr("1:20.0"));
  EXPECT_THAT(table, HasSubstr("Next ball: wicket"));
}

}  // namespace
}  // namespace velorin::testing
