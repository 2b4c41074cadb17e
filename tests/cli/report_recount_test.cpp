// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <fstream>
#include <nlohmann/json.hpp>

#include "cli/recount.h"
#include "cli/report_run.h"
#include "database/configuration.h"
#include "database/teams_file.h"
#include "database/world.h"
#include "support/game_in_play.h"
#include "support/small_database.h"

// A season of 300 matches on the bundled database, every report compared with figures counted anew from the matches.

namespace velorin::testing {
namespace {

namespace fs = std::filesystem;
using json = nlohmann::json;

constexpr int rounds = 10;
constexpr int matches_a_round = 30;

class Season : public ::testing::Test {
 protected:
  void SetUp() override {
    build_database(fs::path(VELORIN_TEST_DATA).parent_path() / "data" / "world", data.files.team_file,
                   data.files.ground_file);
    for (const ground_rec& ground : read_grounds(data)) {
      ASSERT_TRUE(home_of_.emplace(ground.ground_name, ground.country).second) << ground.ground_name;
    }
  }
  void TearDown() override { data.settings = configuration(); }

  /// Plays one pairing of teams and adds its matches to the recount.
  void play_round(int round, recount& figures) {
    const auto& teams = read_team_list(data);
    const std::string team1 = teams[round % teams.size()].team_name;
    const std::string team2 = teams[(round * 3 + 1) % teams.size()].team_name;
    const std::string country = round % 3 == 2 ? "Neutral" : round % 3 == 1 ? team1 : team2;
    const fs::path out = database_.folder() / "matches.json";
    std::vector<std::string> arguments = {"--seed",     std::to_string(100 + round),
                                          "match",      "--update",
                                          "--matches",  std::to_string(matches_a_round),
                                          "--quiet",    "--json",
                                          out.string(), "--team1",
                                          team1,        "--team2",
                                          team2};
    for (const ground_rec& ground : read_grounds(data)) {
      if (ground.country != country) continue;
      arguments.insert(arguments.end(), {"--ground", ground.ground_name});
      break;
    }
    const run_result result = run_on(database_.folder(), arguments);
    ASSERT_EQ(result.status, 0) << result.err;
    std::ifstream in(out);
    std::string line;
    int played = 0;
    for (; std::getline(in, line); ++played) figures.add(json::parse(line));
    ASSERT_EQ(played, matches_a_round);
  }

  json report(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), "report");
    arguments.emplace_back("--json");
    const run_result result = run_on(database_.folder(), arguments);
    EXPECT_EQ(result.status, 0) << result.err;
    return json::parse(result.out);
  }
  text_rows rows(const std::string& list) const { return report({"list", list})["rows"].get<text_rows>(); }
  text_rows rows(const std::string& list, const std::string& team) const {
    return report({"list", list, "--team", team})["rows"].get<text_rows>();
  }

  std::map<std::string, std::string> home_of_;

 private:
  small_database database_;
};

TEST_F(Season, EveryReportAgreesWithTheMatches) {
  recount figures(home_of_);
  for (int round = 0; round < rounds; ++round) ASSERT_NO_FATAL_FAILURE(play_round(round, figures));
  ASSERT_EQ(figures.teams().size(), 10U);

  EXPECT_EQ(rows("highest-scores"), figures.highest_scores());
  EXPECT_EQ(rows("best-bowling"), figures.best_bowling());
  EXPECT_EQ(rows("highest-totals"), figures.highest_totals());
  EXPECT_EQ(rows("lowest-totals"), figures.lowest_totals());
  EXPECT_EQ(rows("partnerships"), figures.partnerships());
  EXPECT_EQ(rows("centuries"), figures.centuries());
  EXPECT_EQ(report({"rankings"})["rows"].get<text_rows>(), figures.world_ranking());
  const std::vector<career_rec> everybody = figures.everybody();
  const std::vector<std::string> lists = {"averages",     "most-runs", "strike-rates",    "fifty-plus",
                                          "most-wickets", "economy",   "bowling-averages"};
  for (std::size_t i = 0; i < lists.size(); ++i) {
    EXPECT_EQ(rows(lists[i]), recount::ranking(everybody, static_cast<int>(i) + 1)) << lists[i];
  }
  for (const std::string& team : figures.teams()) {
    EXPECT_EQ(rows("career-batting", team), recount::ranking(figures.men(team), 8)) << team;
    EXPECT_EQ(rows("career-bowling", team), recount::ranking(figures.men(team), 9)) << team;
    EXPECT_EQ(report({"team", "--team", team}), figures.team(team));
    for (const career_rec& man : figures.men(team)) {
      EXPECT_EQ(report({"player", "--team", team, "--name", man.name}), recount::player(man));
    }
  }
}

}  // namespace
}  // namespace velorin::testing
