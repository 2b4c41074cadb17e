// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

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
  EXPECT_FALSE(point.contains("next_ball")) << "nobody bats yet";
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

}  // namespace
}  // namespace velorin::testing
