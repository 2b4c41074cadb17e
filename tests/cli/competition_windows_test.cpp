// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/cli_fixture.h"

namespace velorin::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

/// The windows that series, tri and worldcup print.
class Windows : public CliTest {
 protected:
  json windows(std::vector<std::string> arguments) const {
    arguments.push_back("--json");
    const std::string out = text(arguments);
    EXPECT_EQ(lines_of(out).size(), 1U);
    const json object = json::parse(out);
    EXPECT_EQ(object.size(), 1U);
    return object.at("windows");
  }
};

/// Checks that an object has exactly these fields.
void expect_fields(const json& window, const std::vector<std::string>& names) {
  EXPECT_EQ(window.size(), names.size()) << window;
  for (const std::string& name : names) EXPECT_TRUE(window.contains(name)) << name << " in " << window;
}

void expect_table(const json& rows, std::size_t count) {
  ASSERT_EQ(rows.size(), count);
  for (const json& row : rows) {
    ASSERT_EQ(row.size(), 7U);
    for (const json& shown : row) EXPECT_TRUE(shown.is_string()) << shown;
    EXPECT_EQ(std::stoi(row[1].get<std::string>()), std::stoi(row[2].get<std::string>()) +
                                                        std::stoi(row[3].get<std::string>()) +
                                                        std::stoi(row[4].get<std::string>()));
  }
}

TEST_F(Windows, ASeriesShowsItsResultsAfterEveryMatch) {
  const json shown = windows({"--seed", "1", "series", "--home", "Northland", "--away", "Vestria", "--matches", "4"});
  ASSERT_EQ(shown.size(), 4U);
  for (std::size_t i = 0; i < 4; ++i) {
    expect_fields(shown[i], {"form", "heading", "rows", "final_line"});
    EXPECT_EQ(shown[i]["form"], "sri_result");
    EXPECT_EQ(shown[i]["heading"], "Northland vs Vestria Series Result:");
    ASSERT_EQ(shown[i]["rows"].size(), i + 1);
    for (const json& row : shown[i]["rows"]) ASSERT_EQ(row.size(), 2U);
  }
  const std::string first = shown[3]["rows"][0][0];
  EXPECT_TRUE(first == "1st ODI - Fjordside" || first == "1st ODI - Högby Vale") << first;
  EXPECT_THAT(shown[3]["final_line"].get<std::string>(), HasSubstr(" series "));
}

TEST_F(Windows, OneMatchIsThePreset) {
  EXPECT_EQ(windows({"series", "--home", "Northland", "--away", "Vestria"}).size(), 1U);
  EXPECT_EQ(windows({"tri", "--team1", "Northland", "--team2", "Vestria", "--team3", "Orland"}).size(), 4U);
}

TEST_F(Windows, ATriSeriesShowsItsTableAfterEveryMatch) {
  const json shown = windows(
      {"--seed", "2", "tri", "--team1", "New Zealand", "--team2", "Vestria", "--team3", "Orland", "--rounds", "2"});
  ASSERT_EQ(shown.size(), 7U);
  for (std::size_t i = 0; i < 7; ++i) {
    expect_fields(shown[i], {"form", "title", "heading", "rows", "final", "result"});
    EXPECT_EQ(shown[i]["form"], "triserresult");
    EXPECT_EQ(shown[i]["title"], "National Bank Tri Series");
    EXPECT_EQ(shown[i]["heading"], "National Bank Tri Series - Table");
    expect_table(shown[i]["rows"], 3);
    EXPECT_THAT(shown[i]["final"].get<std::string>(), StartsWith("Final (from above table) - "));
    EXPECT_EQ(shown[i]["result"] == "", i < 6);
  }
}

TEST_F(Windows, AWorldCupShowsTablesAndLists) {
  const json shown = windows({"--seed", "3", "worldcup"});
  ASSERT_EQ(shown.size(), 31U + 33U);
  int lists = 0;
  int tables = 0;
  for (const json& window : shown) {
    if (window["form"] == "wc_fix") {
      ++lists;
      expect_fields(window, {"form", "next_fixture", "fixtures"});
      EXPECT_EQ(window["fixtures"].size(), lists <= 21 ? 20U : 29U) << "all that are drawn so far";
      EXPECT_EQ(window["next_fixture"], lists <= 20 ? lists : lists == 21 ? 0 : lists == 31 ? 0 : lists - 1);
      for (const json& fixture : window["fixtures"]) ASSERT_EQ(fixture.size(), 5U);
    } else {
      ++tables;
      EXPECT_EQ(window["form"], "wcsstab");
      expect_fields(window, {"form", "group_a", "group_b", "super_six", "semi_final_1", "semi_final_2", "grand_final",
                             "winners"});
      expect_table(window["group_a"], 5);
      expect_table(window["group_b"], 5);
      expect_table(window["super_six"], tables <= 20 ? 0 : 6);
      EXPECT_EQ(window["semi_final_1"] == "", tables <= 30);
      EXPECT_THAT(window["winners"].get<std::string>(), StartsWith("World Cup winners : "));
    }
  }
  EXPECT_EQ(lists, 31);
  EXPECT_EQ(tables, 33);
  EXPECT_EQ(shown[0]["fixtures"][0][4], "");
  EXPECT_THAT(shown[0]["fixtures"][0][0].get<std::string>(), StartsWith("Gr "));
  const json& last = shown.back();
  EXPECT_THAT(last["semi_final_1"].get<std::string>(), HasSubstr(" vs "));
  EXPECT_THAT(last["grand_final"].get<std::string>(), ::testing::Not(HasSubstr("Grand Final")));
}

TEST_F(Windows, TablesAreHeadedAsTheWindowsAre) {
  const std::string cup = text({"--seed", "3", "worldcup"});
  EXPECT_THAT(cup, HasSubstr("Played  Won  Lost  Tied  Points"));
  EXPECT_THAT(cup, ::testing::ContainsRegex("Points +NRR\n"));
  EXPECT_THAT(cup, ::testing::Not(HasSubstr("Net RR")));
  EXPECT_THAT(text({"--seed", "3", "tri", "--team1", "Vestria", "--team2", "Orland", "--team3", "Marenne"}),
              ::testing::ContainsRegex("Tied +Pts +Net RR\n"));
}

TEST_F(Windows, GroupsAndHostsAreThoseAsked) {
  const json shown =
      windows({"--seed", "3", "worldcup", "--group-a", "Marenne,Sorrel Bay,Lindemark,Cape Tavor,Orland", "--group-b",
               "Northland,Vestria,New Zealand,Harrowmark,South Isles", "--hosts", "Sorrel Bay,Northland"});
  std::vector<std::string> a;
  for (const json& row : shown[1]["group_a"]) a.push_back(row[0]);
  EXPECT_THAT(a, ::testing::UnorderedElementsAre("Marenne", "Sorrel Bay", "Lindemark", "Cape Tavor", "Orland"));
  for (const json& fixture : shown[0]["fixtures"]) {
    const std::string venue = fixture[3];
    EXPECT_TRUE(venue == "Bay Oval" || venue == "Fjordside" || venue == "Högby Vale") << venue;
  }
}

TEST_F(Windows, TheHostIsTheFirstTeamUnlessTold) {
  const json shown = windows({"--seed", "3", "worldcup"});
  for (const json& fixture : shown[0]["fixtures"]) {
    EXPECT_TRUE(fixture[3] == "Fjordside" || fixture[3] == "Högby Vale") << fixture;
  }
}

TEST_F(Windows, TextAndObjectsTellTheSame) {
  const std::vector<std::string> command = {"--seed",  "4",      "tri",     "--team1", "Vestria",
                                            "--team2", "Orland", "--team3", "Marenne"};
  const std::string out = text(command);
  std::size_t at = 0;
  const auto expect_next = [&](const std::string& words) {
    const std::size_t found = out.find(words, at);
    ASSERT_NE(found, std::string::npos) << words;
    at = found + words.size();
  };
  for (const json& window : windows(command)) {
    expect_next(window["heading"].get<std::string>() + "\n");
    for (const json& row : window["rows"]) {
      for (const json& shown : row) expect_next(shown);
    }
    expect_next(window["final"]);
    if (window["result"] != "") expect_next(window["result"]);
  }
}

TEST_F(Windows, RunsRepeat) {
  for (const auto& command : std::vector<std::vector<std::string>>{
           {"series", "--home", "Northland", "--away", "Vestria", "--matches", "10"},
           {"tri", "--team1", "Vestria", "--team2", "Orland", "--team3", "Marenne", "--rounds", "5"},
           {"worldcup"}}) {
    std::vector<std::string> seeded = {"--seed", "9"};
    seeded.insert(seeded.end(), command.begin(), command.end());
    const std::string once = text(seeded);
    EXPECT_EQ(text(seeded), once);
    seeded[1] = "10";
    EXPECT_NE(text(seeded), once);
  }
}

}  // namespace
}  // namespace velorin::testing
