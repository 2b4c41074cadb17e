// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/cli_fixture.h"
#include "support/game_in_play.h"

namespace velorin::testing {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;

using MatchCommand = CliTest;

TEST_F(MatchCommand, ASeedPlaysTheSameMatchAgain) {
  const std::string once = text({"--seed", "1", "match"});
  EXPECT_EQ(text({"--seed", "1", "match"}), once);
  EXPECT_NE(text({"--seed", "2", "match"}), once);
}

TEST_F(MatchCommand, NothingOfAnotherCommandReachesIt) {
  const std::string match = text({"--seed", "1", "match", "--json", "-"});
  const std::string series = text({"--seed", "1", "series", "--home", "Vestria", "--away", "Orland", "--matches", "3"});
  const std::string tri = text({"--seed", "1", "tri", "--team1", "Vestria", "--team2", "Orland", "--team3", "Marenne"});
  const std::string cup = text({"--seed", "1", "worldcup"});
  const auto all_again = [&] {
    EXPECT_EQ(text({"--seed", "1", "match", "--json", "-"}), match);
    EXPECT_EQ(text({"--seed", "1", "worldcup"}), cup);
    EXPECT_EQ(text({"--seed", "1", "tri", "--team1", "Vestria", "--team2", "Orland", "--team3", "Marenne"}), tri);
    EXPECT_EQ(text({"--seed", "1", "series", "--home", "Vestria", "--away", "Orland", "--matches", "3"}), series);
  };
  all_again();
  run({"--seed", "5", "match", "--captain1", "human", "--conditions", "1,1,1,1"});
  run({"match", "--team1", "nobody"});
  run({"--seed", "6", "tri", "--team1", "Vestria", "--team2", "Orland", "--team3", "Marenne", "--rounds", "2"});
  run({"db", "check", "small"});
  run({"report", "rankings"});
  all_again();
}

TEST_F(MatchCommand, ABrokenOffMatchLeavesNothingBehind) {
  const std::string once = text({"--seed", "1", "match", "--json", "-"});
  write_bytes(file("few"), "0.5\n0.5\n0.5\n0.5\n0.5\n0.5\n0.5\n0.5\n0.5\n0.5\n");
  EXPECT_EQ(run({"--draws", file("few"), "match"}).status, 1) << "ends in the middle of an over";
  EXPECT_EQ(text({"--seed", "1", "match", "--json", "-"}), once);
}

TEST_F(MatchCommand, SettingsOfAnotherFolderDoNotStay) {
  const std::string page = file("page.html");
  EXPECT_EQ(run({"--seed", "1", "match", "--quiet", "--html", page}).status, 0);
  const std::string plain = file_bytes(page);
  write_bytes(teams() / "options.mc", "\r\nsmall\r\n112233\r\nAABBCC\r\nSans\r\n");
  EXPECT_EQ(run({"--seed", "1", "match", "--quiet", "--html", page}).status, 0);
  EXPECT_THAT(file_bytes(page), HasSubstr("<BODY TEXT =#112233 BGCOLOR=#AABBCC LINK"));
  std::filesystem::remove(teams() / "options.mc");
  EXPECT_EQ(run({"--seed", "1", "match", "--quiet", "--html", page}).status, 0);
  EXPECT_EQ(file_bytes(page), plain);
}

TEST_F(MatchCommand, LeftOutNamesAreThePreselection) {
  const std::string out = text({"--seed", "1", "match"});
  EXPECT_THAT(out, HasSubstr("Played at: Palm Head\n")) << "the second ground of the second and the third team";
  EXPECT_EQ(out, text({"--seed", "1", "match", "--team1", "South Isles", "--team2", "Harrowmark"}));
  EXPECT_EQ(out, text({"--seed", "1", "match", "--ground", "Palm Head"}));
  EXPECT_THAT(text({"match", "--team1", "Orland", "--team2", "Marenne"}), HasSubstr("Played at: Ferry Ground\n"))
      << "the neutral ground comes first in the file";
}

TEST_F(MatchCommand, TheTeamsPlayWhereTheyAreTold) {
  const json object = matches("1", {"--team1", "Marenne", "--team2", "Cape Tavor", "--ground", "Crossways Field"})[0];
  const json& state = object["scorecards"][0];
  EXPECT_THAT((std::vector<std::string>{state["team1_name"], state["team2_name"]}),
              ::testing::UnorderedElementsAre("Marenne", "Cape Tavor"));
  EXPECT_EQ(state["venue_name"], "Crossways Field");
  EXPECT_EQ(state["start_time"], 1000);
}

TEST_F(MatchCommand, ATeamMayPlayItself) {
  const json object = matches("1", {"--team1", "Marenne", "--team2", "Marenne"})[0];
  EXPECT_EQ(object["scorecards"][0]["team1_name"], "Marenne");
  EXPECT_EQ(object["scorecards"][0]["team2_name"], "Marenne");
}

TEST_F(MatchCommand, QuietPrintsNothing) {
  EXPECT_EQ(text({"match", "--quiet"}), "");
  EXPECT_EQ(run({"match", "--quiet", "--matches", "3"}).out, "");
}

TEST_F(MatchCommand, ConditionsAreThoseOfTheSliders) {
  const json state = matches("1", {"--conditions", "4,2,3,1"})[0]["scorecards"][0];
  EXPECT_EQ(state["weather"], 4);
  EXPECT_EQ(state["pitch_surface"], 2);
  EXPECT_EQ(state["pitch_bounce"], 3);
  EXPECT_EQ(state["outfield"], 1);
}

TEST_F(MatchCommand, ConditionsTakeTheirDrawsAllTheSame) {
  const json plain = matches("1")[0]["scorecards"][0];
  const auto text_of = [&](const char* field) { return std::to_string(plain[field].get<int>()); };
  const std::string same =
      text_of("weather") + "," + text_of("pitch_surface") + "," + text_of("pitch_bounce") + "," + text_of("outfield");
  EXPECT_EQ(text({"--seed", "1", "match", "--json", "-", "--conditions", same}),
            text({"--seed", "1", "match", "--json", "-"}));
}

TEST_F(MatchCommand, TheCaptainsAreThoseAsked) {
  for (const bool first : {false, true}) {
    for (const bool second : {false, true}) {
      const json object =
          matches("2", {"--captain1", first ? "human" : "cpu", "--captain2", second ? "human" : "cpu"})[0];
      const json& state = object["scorecards"][0];
      const bool first_bats = state["team1_name"] == "South Isles";
      EXPECT_EQ(state["computer_bats"], first_bats ? !first : !second);
      EXPECT_EQ(state["computer_bowls"], first_bats ? !second : !first);
      EXPECT_EQ(object["messages"].size() > 1, first || second);
    }
  }
}

TEST_F(MatchCommand, AHumanSideBatsAndBowlsInListedOrder) {
  const json state = matches("2", {"--captain1", "human", "--captain2", "human"})[0]["scorecards"][0];
  const json& eleven = state["batting_xi"];
  const json& card = state["batting_card"];
  for (std::size_t i = 0; i < 11 && card[i]["name"] != ""; ++i) EXPECT_EQ(card[i]["name"], eleven[i]["name"]);
  // Two bowlers take turns up to their quota of ten overs; then the next on the list come on.
  const json& bowlers = state["bowling_card"];
  std::vector<std::string> came_on;
  for (const json& over : state["ball_log"]) {
    const std::string bowler = over[6];
    if (bowler != "" && std::find(came_on.begin(), came_on.end(), bowler) == came_on.end()) came_on.push_back(bowler);
  }
  ASSERT_GT(came_on.size(), 2U);
  for (std::size_t i = 0; i < came_on.size(); ++i) {
    EXPECT_EQ(came_on[i], bowlers[i]["name"]);
    if (i + 2 < came_on.size()) {
      EXPECT_GE(bowlers[i]["balls"].get<int>(), 60);
    }
  }
  for (std::size_t i = came_on.size() + 1; i < 11; ++i) EXPECT_EQ(bowlers[i]["balls"], 0);
}

TEST_F(MatchCommand, TheResultStandsUnderTheScorecard) {
  for (int seed = 1; seed <= 6; ++seed) {
    const std::string number = std::to_string(seed);
    const json result = matches(number)[0]["result"];
    const std::string winner = result["result_winner"];
    const std::string margin = result["result_margin"];
    EXPECT_THAT(text({"--seed", number, "match"}), EndsWith("\n\n" + winner + margin + "\n"));
  }
}

TEST_F(MatchCommand, WithoutASeedMatchesDiffer) {
  const std::string once = text({"match", "--json", "-"});
  EXPECT_NE(text({"match", "--json", "-"}), once);
}

}  // namespace
}  // namespace velorin::testing
