// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "browsers/figures_fixture.h"
#include "cli/report_run.h"
#include "database/configuration.h"
#include "support/game_in_play.h"

namespace velorin::testing {
namespace {

using json = nlohmann::ordered_json;
using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

/// The lists of the report, and the titles of their windows.
const std::vector<std::pair<std::string, std::string>> list_titles = {
    {"highest-scores", "Highest Induvidual Scores"},
    {"best-bowling", "Best Bowling Figures"},
    {"highest-totals", "Highest Totals in ODI's"},
    {"lowest-totals", "Lowest Totals in ODI's"},
    {"partnerships", "Record Partnerships"},
    {"averages", "Records - Highest Averages"},
    {"most-runs", "Records - Most Runs"},
    {"strike-rates", "Records - Highest Strike Rate"},
    {"fifty-plus", "Records - Innings% (50 or more)"},
    {"most-wickets", "Bowling Records - Most Wickets"},
    {"economy", "Bowling Records - Best Economy Rate"},
    {"bowling-averages", "Bowling Records - Best Average"},
    {"centuries", "Top Century Makers"},
    {"career-batting", "Alba - Career Batting Records"},
    {"career-bowling", "Alba - Career Bowling Records"}};

bool is_of_team(const std::string& list) { return list.starts_with("career-"); }

class Report : public figures_fixture {
 protected:
  void SetUp() override {
    database.add_team("Alba");
    database.add_team("Tamar");
    database.add_ground("Alba", "Harbour Park");
    database.write();
  }
  void TearDown() override { data.settings = configuration(); }

  run_result report(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), "report");
    return run_on(database.folder(), arguments);
  }
  /// The standard output of a run that works.
  std::string text(const std::vector<std::string>& arguments) const {
    const run_result result = report(arguments);
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.err, "");
    return result.out;
  }
  json object(std::vector<std::string> arguments) const {
    arguments.emplace_back("--json");
    const std::string out = text(arguments);
    EXPECT_EQ(out.find('\n'), out.size() - 1);
    return json::parse(out);
  }
  json list(const std::string& name) const {
    if (is_of_team(name)) return object({"list", name, "--team", "Alba"});
    return object({"list", name});
  }
  /// The error line of a run that fails with `status`.
  std::string error(int status, const std::vector<std::string>& arguments) const {
    const run_result result = report(arguments);
    EXPECT_EQ(result.status, status);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err.find('\n'), result.err.size() - 1) << result.err;
    return result.err;
  }

  /// Careers of two men of Alba and one of Tamar, and the table of both teams.
  void lay_down_figures() {
    career_rec man = batsman("A.Long", 20, 4, 600, 700);
    man.matches = 21;
    man.fours = 50;
    man.sixes = 6;
    man.high_score = 107;
    man.high_not_out = -1;
    man.high_against = "Tamar";
    man.hundreds = 1;
    man.fifties = 3;
    add("Alba", man);
    man = bowler("B.M\xFCller", 400, 333, 12);
    man.maidens = 5;
    man.best_wickets = 5;
    man.best_runs = 23;
    man.best_against = "Tamar";
    man.five_wickets = 1;
    man.catches = 8;
    add("Alba", man);
    add("Tamar", batsman("T.Short", 3, 0, 30, 60));
    team_table& alba = add_team("Alba", {2, 1, 0}, {});
    alba.high_for = {std::string("250")};
    alba.high_for_against = {std::string("Tamar")};
    alba.high_for_venue = {std::string("Harbour Park")};
    add_team("Tamar", {}, {1, 2, 0});
    lists.partnerships[1] = {150, "", 150, 181, 300, "A.Long", "B.M\xFCller * ", {}, "Alba", "Tamar", "Harbour Park"};
    lists.top_scores[1] = {"A.Long", 107, 99, "Alba", "Tamar", "Harbour Park", -1};
    lists.top_scores[2] = {"T.Short", 9, 120, "Tamar", "Alba", "Harbour Park", 0};
    write();
  }
};

TEST_F(Report, EachListOfAnEmptyDatabaseHasItsHeadingsOnly) {
  for (const auto& [name, title] : list_titles) {
    const json shown = list(name);
    EXPECT_EQ(shown["title"], title);
    EXPECT_THAT(shown["rows"], IsEmpty());
    EXPECT_GE(shown["columns"].size(), 3U);
    EXPECT_EQ(shown.size(), 3U);
  }
  EXPECT_THAT(object({"rankings"})["rows"], IsEmpty());
  EXPECT_EQ(text({"list", "most-runs"}), "Records - Most Runs\n\nPlayer  M  I  NO  Avge  HS  100s  50s  Runs  SR\n");
}

TEST_F(Report, CreatesNoFile) {
  for (const auto& [name, title] : list_titles) list(name);
  object({"rankings"});
  report({"team", "--team", "Alba"});
  report({"player", "--team", "Alba", "--name", "A.Long"});
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(database.folder())) {
    names.push_back(entry.path().filename());
  }
  EXPECT_THAT(names, ::testing::UnorderedElementsAre("world.team", "world.grd"));
}

TEST_F(Report, AListIsPrintedInColumns) {
  lay_down_figures();
  EXPECT_EQ(text({"list", "most-wickets"}),
            "Bowling Records - Most Wickets\n\n"
            "Player     M   Ovr  Mdn  Runs  Wkts    Avg  Econ.  5 wkt  Best\n"
            "B.Müller   1  66.4    5   333    12  27.75      5      1  5/23\n"
            "A.Long    21   0.0    0     0     0     -      -       0   0/0\n"
            "T.Short    3   0.0    0     0     0     -      -       0   0/0\n");
  EXPECT_EQ(text({"list", "highest-scores"}),
            "Highest Induvidual Scores\n\n"
            "Score     Player   For    Against  Venue\n"
            "107 (99)  A.Long   Alba   Tamar    Harbour Park\n"
            "9 (120)   T.Short  Tamar  Alba     Harbour Park\n");
}

TEST_F(Report, AListIsAnObjectOfItsShownTexts) {
  lay_down_figures();
  EXPECT_EQ(list("career-batting"),
            (json{{"title", "Alba - Career Batting Records"},
                  {"columns", {"Player", "M", "I", "NO", "Avge", "HS", "100s", "50s", "Runs", "SR"}},
                  {"rows",
                   {{"A.Long", "21", "20", "4", "37.5", "107*", "1", "3", "600", "85.71"},
                    {"B.Müller", "1", "0", "0", " - ", "0", "0", "0", "0", " - "}}}}));
  EXPECT_EQ(list("fifty-plus")["columns"].back(), "% Inns");
}

TEST_F(Report, AStandShowsOneAmpersandAndItsObjectTwo) {
  lay_down_figures();
  EXPECT_THAT(text({"list", "partnerships"}), HasSubstr("150* (181)  A.Long & B.Müller  Alba  Tamar\n"));
  EXPECT_EQ(list("partnerships")["rows"][0][1], "A.Long && B.Müller");
}

TEST_F(Report, TheRankingIsAList) {
  lay_down_figures();
  EXPECT_EQ(text({"rankings"}),
            "Top Ten Teams\n\n"
            "Rank  Team   Success %  Played  Won  Lost  Tied\n"
            "   1  Alba       66.67       3    2     1     0\n"
            "   2  Tamar      33.33       3    1     2     0\n");
  EXPECT_EQ(
      object({"rankings"}),
      (json{{"title", "Top Ten Teams"},
            {"columns", {"Rank", "Team", "Success %", "Played", "Won", "Lost", "Tied"}},
            {"rows", {{"1", "Alba", "66.67", "3", "2", "1", "0"}, {"2", "Tamar", "33.33", "3", "1", "2", "0"}}}}));
}

TEST_F(Report, APlayerIsAnObjectOfHisCaptions) {
  lay_down_figures();
  EXPECT_EQ(object({"player", "--team", "Alba", "--name", "B.Müller"}), (json{{"Name", "B.Müller"},
                                                                              {"Matches", "1"},
                                                                              {"Innings", "0"},
                                                                              {"Not Outs", "0"},
                                                                              {"Runs ", "0"},
                                                                              {"Balls faced", "0"},
                                                                              {"Highest Score:", "0  vs  "},
                                                                              {"Batting Average", " -  "},
                                                                              {"Batting Strike Rate", " 0 "},
                                                                              {"Hundreds", "0"},
                                                                              {"Fifties", "0"},
                                                                              {"% 50 +", " -  "},
                                                                              {"Fours", "0"},
                                                                              {"Sixes", "0"},
                                                                              {"Overs", "66.4"},
                                                                              {"Balls Bowled", "400"},
                                                                              {"Maidens", "5"},
                                                                              {"Runs Given", "333"},
                                                                              {"Wickets", "12"},
                                                                              {"Best Bowling:", "5/23  vs  Tamar"},
                                                                              {"Bowling Average", "27.75"},
                                                                              {"Bowling Strike Rate", "33.33"},
                                                                              {"Economy", "5"},
                                                                              {"5 wkts ", "1"},
                                                                              {"Catches", "8"},
                                                                              {"Stumpings", "0"}}));
}

TEST_F(Report, APlayerIsPrintedInBlocks) {
  lay_down_figures();
  EXPECT_EQ(text({"player", "--team", "Alba", "--name", "A.Long"}),
            "Name            A.Long\n"
            "Matches         21\n"
            "\n"
            "BATTING\n"
            "Innings         20\n"
            "Not Outs        4\n"
            "Runs            600\n"
            "Balls faced     700\n"
            "Highest Score:  107*  vs  Tamar\n"
            "Average         37.5\n"
            "Strike Rate     85.71\n"
            "Hundreds        1\n"
            "Fifties         3\n"
            "% 50 +          20\n"
            "Fours           50\n"
            "Sixes           6\n"
            "\n"
            "BOWLING\n"
            "Overs           0.0\n"
            "Balls Bowled    0\n"
            "Maidens         0\n"
            "Runs Given      0\n"
            "Wickets         0\n"
            "Best Bowling:   0/0  vs\n"
            "Average          -\n"
            "Strike Rate      -\n"
            "Economy          -\n"
            "5 wkts          0\n"
            "\n"
            "FIELDING\n"
            "Catches         0\n"
            "Stumpings       0\n");
}

TEST_F(Report, ATeamIsAnObjectOfItsCaptions) {
  lay_down_figures();
  EXPECT_EQ(object({"team", "--team", "Alba"}), (json{{"Home Played", "3"},
                                                      {"Home Won", "2"},
                                                      {"Home Lost", "1"},
                                                      {"Home Tied", "0"},
                                                      {"Home Success %", "66.67%"},
                                                      {"Away Played", "0"},
                                                      {"Away Won", "0"},
                                                      {"Away Lost", "0"},
                                                      {"Away Tied", "0"},
                                                      {"Away Success %", "  -  "},
                                                      {"Total Played", "3"},
                                                      {"Total Won", "2"},
                                                      {"Total Lost", "1"},
                                                      {"Total Tied", "0"},
                                                      {"Total Success %", "66.67%"},
                                                      {"World Ranking : ", "1"},
                                                      {"Highest total for :", "250 vs Tamar at Harbour Park"},
                                                      {"Highest total against :", " by  at "},
                                                      {"Lowest total for :", "Not available"},
                                                      {"Lowest total against :", "Not available"},
                                                      {"Highest Score:", "A.Long  107* vs Tamar"},
                                                      {"Most Runs:", "A.Long  600 runs from 21 matches"},
                                                      {"Best Bowling:", "B.Müller  5/23 vs Tamar"},
                                                      {"Most Wickets:", "B.Müller  12 wickets from 1 matches"}}));
}

TEST_F(Report, ATeamIsPrintedInBlocks) {
  lay_down_figures();
  EXPECT_EQ(text({"team", "--team", "Alba"}),
            "Team Records - Alba\n"
            "\n"
            "             Home   Away   Total\n"
            "Played          3      0       3\n"
            "Won             2      0       2\n"
            "Lost            1      0       1\n"
            "Tied            0      0       0\n"
            "Success %  66.67%    -    66.67%\n"
            "\n"
            "World Ranking : 1\n"
            "\n"
            "Highest total for :      250 vs Tamar at Harbour Park\n"
            "Highest total against :   by  at\n"
            "Lowest total for :       Not available\n"
            "Lowest total against :   Not available\n"
            "\n"
            "Induvidual  Records\n"
            "Highest Score:           A.Long  107* vs Tamar\n"
            "Most Runs:               A.Long  600 runs from 21 matches\n"
            "Best Bowling:            B.Müller  5/23 vs Tamar\n"
            "Most Wickets:            B.Müller  12 wickets from 1 matches\n");
}

TEST_F(Report, AnUnknownNameIsAnErrorWithNearOnes) {
  lay_down_figures();
  EXPECT_THAT(error(1, {"team", "--team", "Alva"}), AllOf(HasSubstr("team \"Alva\""), EndsWith("near: Alba\n")));
  EXPECT_THAT(error(1, {"list", "career-bowling", "--team", "Tama"}), EndsWith("near: Tamar\n"));
  EXPECT_THAT(error(1, {"player", "--team", "alba", "--name", "A.Long"}), EndsWith("near: Alba\n"));
  EXPECT_THAT(error(1, {"player", "--team", "Alba", "--name", "B.Muller"}),
              AllOf(HasSubstr("player of Alba \"B.Muller\""), EndsWith("near: B.Müller\n")));
  EXPECT_THAT(error(1, {"player", "--team", "Alba", "--name", "T.Short"}), HasSubstr("player of Alba \"T.Short\""));
  EXPECT_THAT(error(1, {"team", "--team", "Ж"}), HasSubstr("Ж"));  // no file could hold it
}

TEST_F(Report, ATeamThatHasNotPlayedHasNoRecords) {
  EXPECT_THAT(error(1, {"team", "--team", "Alba"}), HasSubstr("No match of the team \"Alba\""));
  EXPECT_THAT(error(1, {"player", "--team", "Alba", "--name", "Alba1"}), HasSubstr("No match of the team \"Alba\""));
}

TEST_F(Report, ATeamThatHasLeftTheDatabaseKeepsItsCareers) {
  add("Umbria", batsman("U.One", 1, 0, 10, 10));
  write();
  EXPECT_EQ(object({"list", "career-batting", "--team", "Umbria"})["rows"].size(), 1U);
}

TEST_F(Report, AnEleventhTeamIsAnErrorOfTheRanking) {
  for (char team = 'A'; team <= 'K'; ++team) add_team(std::string("Team ") + team, {1, 0, 0}, {});
  write();
  EXPECT_THAT(error(1, {"rankings"}), HasSubstr("Subscript out of range"));
}

TEST_F(Report, WrongUsageIsRefused) {
  EXPECT_THAT(error(2, {}), HasSubstr("--help"));
  EXPECT_THAT(error(2, {"list"}), HasSubstr("NAME"));
  EXPECT_THAT(error(2, {"list", "catches"}), HasSubstr("NAME"));
  EXPECT_THAT(error(2, {"list", "career-batting"}), HasSubstr("--team"));
  EXPECT_THAT(error(2, {"list", "averages", "--team", "Alba"}), HasSubstr("--team"));
  EXPECT_THAT(error(2, {"team"}), HasSubstr("--team"));
  EXPECT_THAT(error(2, {"player", "--team", "Alba"}), HasSubstr("--name"));
  EXPECT_THAT(error(2, {"rankings", "averages"}), HasSubstr("averages"));
}

TEST_F(Report, HelpNamesTheLists) {
  const std::string help = text({"list", "--help"});
  for (const auto& [name, title] : list_titles) EXPECT_THAT(help, HasSubstr(name));
}

TEST_F(Report, ADamagedFileIsAnErrorThatNamesIt) {
  lists.table_team_count = 1;
  lists.teams[1].team_name = {std::string("Alba")};
  lists.teams[1].home_won = {std::string("many")};
  write_record_lists(data, lists);
  EXPECT_THAT(error(1, {"rankings"}), AllOf(HasSubstr("world.ptr"), HasSubstr("home_won")));
}

}  // namespace
}  // namespace velorin::testing
