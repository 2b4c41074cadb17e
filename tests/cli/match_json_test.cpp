// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/cli_fixture.h"
#include "cli/match_schema.h"

namespace velorin::testing {
namespace {

using MatchJson = CliTest;

int sum(const json& lines, const char* field) {
  int total = 0;
  for (const json& line : lines) total += line.at(field).get<int>();
  return total;
}

TEST_F(MatchJson, EveryFieldIsThere) {
  for (const char* seed : {"1", "2", "3"}) {
    const std::vector<json> objects = matches(seed);
    ASSERT_EQ(objects.size(), 1U);
    expect_match_object(objects[0]);
    EXPECT_EQ(objects[0]["scorecards"].size(), 2U) << "one at the end of each innings";
  }
}

TEST_F(MatchJson, AHumanMatchHasThemToo) {
  const json object = matches("4", {"--captain1", "human", "--captain2", "human"})[0];
  expect_match_object(object);
  const json& state = object["scorecards"][0];
  EXPECT_EQ(state["computer_bats"], false);
  EXPECT_EQ(state["computer_bowls"], false);
  std::vector<std::string> titles;
  for (const json& message : object["messages"]) titles.push_back(message["title"]);
  EXPECT_THAT(titles, ::testing::Contains("End of Innings").Times(2));
  EXPECT_THAT(titles, ::testing::Contains("End of Match").Times(1));
}

TEST_F(MatchJson, AnUnattendedMatchHasOneMessage) {
  const json object = matches("5")[0];
  ASSERT_EQ(object["messages"].size(), 1U);
  EXPECT_EQ(object["messages"][0]["title"], "End of Match");
}

TEST_F(MatchJson, TheStatesAreThoseOfTheTwoInnings) {
  const json object = matches("6")[0];
  const json& first = object["scorecards"][0];
  const json& second = object["scorecards"][1];
  EXPECT_EQ(first["first_total"], 0);
  EXPECT_EQ(first["innings_total"], first["score_runs"]);
  EXPECT_TRUE(first["commentary_store"].empty());
  EXPECT_EQ(second["first_total"], first["score_runs"]);
  EXPECT_EQ(second["first_balls"], first["innings_balls"]);
  EXPECT_EQ(second["team1_name"], first["team2_name"]);
  EXPECT_EQ(second["first_bowling_card"], first["bowling_card"]);
  EXPECT_EQ(second["first_ball_log"], first["ball_log"]);
  EXPECT_EQ(second["batting_xi"][0]["name"].get<std::string>().empty(), false);
  json stored = first["ball_commentary"];
  stored.push_back("");
  EXPECT_EQ(second["commentary_store"], stored) << "with the empty line before the marker, without the marker";
}

TEST_F(MatchJson, TheFiguresAddUp) {
  for (int seed = 10; seed < 30; ++seed) {
    const json object = matches(std::to_string(seed))[0];
    for (const json& state : object["scorecards"]) {
      const int extras = state["innings_byes"].get<int>() + state["innings_leg_byes"].get<int>();
      EXPECT_EQ(state["score_runs"], sum(state["batting_card"], "runs") + extras);
      EXPECT_EQ(sum(state["bowling_card"], "runs"), sum(state["batting_card"], "runs"));
      EXPECT_EQ(sum(state["bowling_card"], "balls"), state["innings_balls"]);
      const int balls = state["innings_balls"];
      const json& batting = state["batting_card"];
      int strokes = 0;
      for (const char* kind : {"dots", "singles", "twos", "threes", "fours", "sixes"}) strokes += sum(batting, kind);
      EXPECT_EQ(sum(batting, "balls"), strokes);
      EXPECT_LE(strokes, balls) << "a wide behind a wicket counts as a ball that nobody faces";
      EXPECT_EQ(state["overs_text"], std::to_string(balls / 6) + "." + std::to_string(balls % 6));
      EXPECT_EQ(state["fall_of_wicket"][0]["score"], 0);
      for (const json& row : state["bowler_list"]) EXPECT_NE(row, "");
    }
    const json& result = object["result"];
    EXPECT_EQ(result["result_ground"], object["scorecards"][0]["venue_name"]);
    EXPECT_EQ(result["rate_first"]["team"], object["scorecards"][0]["team1_name"]);
    EXPECT_EQ(result["rate_second"]["team"], object["scorecards"][1]["team1_name"]);
  }
}

TEST_F(MatchJson, RatingsAreThoseOfTheTables) {
  const json object = matches("7", {"--team1", "South Isles", "--team2", "Vestria"})[0];
  const json& state = object["scorecards"][0];
  const json& eleven = state[state["team1_name"] == "South Isles" ? "batting_xi" : "bowling_xi"];
  int found = 0;
  for (const json& man : eleven) {
    if (man["name"] != "W.E.Jarley") continue;
    ++found;
    EXPECT_EQ(man["bat_skill"], 43);
    EXPECT_EQ(man["bowl_sr"], 35.8) << "as the single is shown, and not 35.79999923706055";
    EXPECT_EQ(man["econ"], 5.05);
    EXPECT_EQ(man["is_keeper"], false);
    EXPECT_EQ(man["bat_type"], "RH Middle Order");
    EXPECT_EQ(man["bowler_type"], "Medium Pacer");
  }
  EXPECT_EQ(found, 1);
}

TEST_F(MatchJson, SeveralMatchesAreALineEach) {
  const std::string out = text({"--seed", "8", "match", "--matches", "3", "--json", "-"});
  const std::vector<std::string> lines = lines_of(out);
  ASSERT_EQ(lines.size(), 3U);
  for (const std::string& line : lines) expect_match_object(json::parse(line));
  EXPECT_EQ(lines[0] + "\n", text({"--seed", "8", "match", "--json", "-"})) << "the first is the only one of one";
  EXPECT_NE(lines[1], lines[0]);
}

TEST_F(MatchJson, AFileTakesTheObjectsAndStandardOutputTheRest) {
  const std::string json_file = file("match.json");
  const std::string out = text({"--seed", "9", "match", "--json", json_file});
  EXPECT_EQ(out, text({"--seed", "9", "match"}));
  EXPECT_EQ(file_bytes(json_file), text({"--seed", "9", "match", "--json", "-"}));
  EXPECT_EQ(run({"--seed", "9", "match", "--matches", "2", "--quiet", "--json", json_file}).out, "");
  EXPECT_EQ(lines_of(file_bytes(json_file)).size(), 2U) << "the file is replaced";
}

TEST_F(MatchJson, AFileThatCannotBeWrittenIsAnError) {
  EXPECT_THAT(error(1, {"match", "--json", file("missing/match.json")}), ::testing::HasSubstr("match.json"));
}

TEST_F(MatchJson, DrawsAreCountedForEachMatch) {
  const std::vector<json> objects = matches("3", {"--matches", "4"});
  ASSERT_EQ(objects.size(), 4U);
  for (const json& object : objects) {
    const json& states = object["scorecards"];
    const int balls = states[0]["innings_balls"].get<int>() + states[1]["innings_balls"].get<int>();
    EXPECT_GT(object["draws_used"].get<int>(), balls);
    EXPECT_LT(object["draws_used"].get<int>(), 2 * balls);
  }
}

TEST_F(MatchJson, NamesAreUtf8) {
  const json object = matches("3", {"--team1", "Northland", "--ground", "Högby Vale"})[0];
  EXPECT_EQ(object["result"]["result_ground"], "Högby Vale");
}

}  // namespace
}  // namespace velorin::testing
