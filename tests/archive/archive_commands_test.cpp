// SPDX-License-Identifier: GPL-3.0-or-later
// velorin-cli archive and query.
#include "archive/answer_text.h"
#include "archive/archive_fixture.h"
#include "archive/classic_questions.h"
#include "archive/question.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class ArchiveCommands : public ArchiveTest {};

TEST_F(ArchiveCommands, TellThatThereIsNoArchiveYet) {
  for (const std::vector<std::string>& words :
       {std::vector<std::string>{"archive", "list"}, {"archive", "check"}, {"query", "matches"}}) {
    EXPECT_EQ(error(1, words), "velorin-cli: There is no archive yet: no match has been added (file small.matches)");
  }
}

TEST_F(ArchiveCommands, ListAndShowTheMatches) {
  const std::vector<json> objects = play("3", 4);
  EXPECT_EQ(lines_of(text({"archive", "list"})).size(), 5U);
  const json listed = json::parse(text({"archive", "list", "--json"}));
  ASSERT_EQ(listed.at("matches").size(), 4U);
  EXPECT_EQ(listed.at("matches").at(2).at("winner"), objects[2].at("result").at("result_winner"));
  const json shown = json::parse(text({"archive", "show", "3", "--json"}));
  EXPECT_EQ(shown.at("innings").at(0).at("runs"), objects[2].at("scorecards").at(1).at("first_total"));
  EXPECT_THAT(text({"archive", "show", "3"}), HasSubstr(shown.at("ground").get<std::string>()));
  EXPECT_EQ(error(1, {"archive", "show", "5"}), "velorin-cli: No match 5 in the archive");
}

TEST_F(ArchiveCommands, CheckNamesDifferencesAndFails) {
  play("3", 2);
  const run_result sound = run({"archive", "check"});
  EXPECT_EQ(sound.status, 0);
  EXPECT_EQ(sound.out, "");
  EXPECT_EQ(sound.err, "2 matches checked: no difference found\n");
  change("UPDATE innings_row SET runs = runs + 1, noted_wickets = 0 WHERE match_id = 1 AND innings = 1");
  const run_result wrong = run({"archive", "check"});
  EXPECT_EQ(wrong.status, 1);
  EXPECT_THAT(wrong.out, HasSubstr("the archive gives"));
}

TEST_F(ArchiveCommands, CheckNamesAMatchWhoseRowsContradictOneAnother) {
  play("3", 5);
  const std::vector<std::pair<std::string, std::string>> harm = {
      {"UPDATE match_row SET first_runs = first_runs + 1 WHERE id = 2", "archive: match 2: totals of the match"},
      {"UPDATE innings_row SET fours = fours + 1 WHERE match_id = 3 AND innings = 1", "archive: match 3: runs, bound"},
      {"UPDATE innings_row SET byes = byes + 1 WHERE match_id = 5 AND innings = 2", "archive: match 5: runs, bound"},
      {"UPDATE over_row SET runs = runs + 7 WHERE match_id = 4 AND innings = 1 AND over = 3", "match 4: the overs"},
      {"UPDATE batting_row SET fifty_balls = 400 WHERE match_id = 5 AND innings = 1 AND position = 1",
       "archive: match 5: strokes of a batsman"},
      {"UPDATE batting_row SET bowler = player WHERE match_id = 1 AND innings = 1 AND bowler <>"
       " (SELECT id FROM name WHERE text = '')",
       "archive: match 1: a dismissal"},
      {"UPDATE meeting_row SET runs = runs + 1 WHERE match_id = 1 AND innings = 1 AND position = 1",
       "balls and runs against bowlers of"},
      {"UPDATE man_sums SET matches = matches + 1", "archive: matches of"}};
  for (const auto& [sql, told] : harm) {
    EXPECT_THAT(run({"archive", "check"}).out, ::testing::Not(HasSubstr(told)));
    change(sql);
    EXPECT_THAT(run({"archive", "check"}).out, HasSubstr(told)) << sql;
  }
}

TEST_F(ArchiveCommands, QueryGivesTheColumnsOfTheViews) {
  play("3", 2);
  EXPECT_EQ(lines_of(text({"query", "matches", "--csv"})).at(0),
            "id,played_at,competition,stage,ground,country,first,second,winner,margin,first_runs,first_wickets,"
            "first_balls,second_runs,second_wickets,second_balls,human\r");
  EXPECT_EQ(lines_of(text({"query", "innings", "--csv"})).at(0),
            "match_id,innings,team,opponent,runs,wickets,balls,wides,no_balls,byes,leg_byes\r");
  EXPECT_EQ(
      lines_of(text({"query", "batting", "--csv"})).at(0),
      "match_id,innings,team,opponent,position,player,out,how_out,bowler,fielder,runs,balls,dots,ones,twos,threes,"
      "fours,sixes\r");
  EXPECT_EQ(lines_of(text({"query", "bowling", "--csv"})).at(0),
            "match_id,innings,team,opponent,player,balls,maidens,runs,wickets\r");
  EXPECT_EQ(lines_of(text({"query", "stands", "--csv"})).at(0),
            "match_id,innings,team,wicket,runs,player1,player2,unbroken\r");
}

TEST_F(ArchiveCommands, QuerySumsSortsAndCutsOff) {
  play("3", 20);
  const json told = json::parse(text({"query", "batting", "--by", "player,team", "--where", "runs>=10", "--sort",
                                      "runs", "--descending", "--top", "3", "--json"}));
  ASSERT_EQ(told.at("rows").size(), 3U);
  EXPECT_EQ(told.at("columns").at(0), "player");
  const auto runs = [&](std::size_t i) { return told.at("rows").at(i).at(5).get<int>(); };
  EXPECT_EQ(told.at("columns").at(5), "runs");
  EXPECT_GE(runs(0), runs(1));
  EXPECT_GE(runs(1), runs(2));
  const json often = json::parse(text({"query", "batting", "--by", "player", "--where", "hundreds>=1", "--json"}));
  for (const json& row : often.at("rows")) EXPECT_GE(row.at(9).get<int>(), 1);
}

/// The words by which the companion is asked the same.
std::vector<std::string> query_words(const question& asked) {
  std::vector<std::string> words = {"query", std::string(source_name(asked.from)), "--csv"};
  std::string by;
  for (const std::string& field : asked.by) by += (by.empty() ? "" : ",") + field;
  const auto add = [&](const char* option, const std::string& value) { words.insert(words.end(), {option, value}); };
  if (!by.empty()) add("--by", by);
  for (const condition& part : asked.where) add("--where", part.field + part.op + part.value);
  for (const condition& part : asked.having) add("--having", part.field + part.op + part.value);
  if (!asked.sort.empty()) add("--sort", asked.sort);
  if (asked.descending) words.emplace_back("--descending");
  if (asked.top > 0) add("--top", std::to_string(asked.top));
  return words;
}

TEST_F(ArchiveCommands, QueryAnswersEachClassicQuestionAsTheRecordBook) {
  play("3", 60);
  int with_sums = 0;
  for (const classic_question& classic : classic_questions()) {
    SCOPED_TRACE(classic.title);
    EXPECT_EQ(text(query_words(classic.asked)), answer_csv(ask(archive(), classic.asked)));
    if (!classic.asked.having.empty() && !ask(archive(), classic.asked).rows.empty()) ++with_sums;
  }
  EXPECT_GE(with_sums, 2) << "where there are so many";
}

TEST_F(ArchiveCommands, AConditionOfSumsNeedsSums) {
  play("3", 2);
  EXPECT_THAT(error(2, {"query", "batting", "--having", "innings>=2"}), HasSubstr("needs fields to sum by"));
  EXPECT_THAT(error(2, {"query", "batting", "--by", "player", "--having", "inings>=2"}), HasSubstr("near: innings"));
}

TEST_F(ArchiveCommands, ACompetitionThatWasNotPlayedYetHasNoRows) {
  play("3", 1);
  EXPECT_EQ(lines_of(text({"query", "batting", "--where", "competition=World Cup"})).size(), 1U);
  EXPECT_EQ(lines_of(text({"query", "matches", "--where", "stage!=Final", "--csv"})).size(), 2U);
}

TEST_F(ArchiveCommands, QueryRefusesWrongPartsWithNearNames) {
  play("3", 2);
  EXPECT_EQ(error(2, {"query", "batting", "--where", "plaer=x"}),
            "velorin-cli: query: Unknown field of batting \"plaer\"; near: player, played_at (try --help)");
  EXPECT_EQ(error(2, {"query", "batting", "--where", "runs=many"}),
            "velorin-cli: query: No number for runs \"many\" (try --help)");
  EXPECT_THAT(error(2, {"query", "batting", "--where", "runs"}), HasSubstr("A condition needs an operator \"runs\""));
  EXPECT_THAT(error(2, {"query", "matches", "--where", "first=Vestia"}), HasSubstr("Unknown first \"Vestia\""));
  EXPECT_THAT(error(2, {"query", "bowling", "--by", "player", "--sort", "econmy"}),
              HasSubstr("Unknown figure of bowling \"econmy\"; near: economy"));
  EXPECT_THAT(error(2, {"query", "bowling", "--by", "plyer"}), HasSubstr("near: player"));
  EXPECT_THAT(error(2, {"query", "overs"}), HasSubstr("FROM"));
  EXPECT_THAT(error(2, {"query", "matches", "--json", "--csv"}), HasSubstr("--json"));
  EXPECT_THAT(error(2, {"query", "matches", "--top", "0"}), HasSubstr("--top"));
}

}  // namespace
}  // namespace velorin::testing
