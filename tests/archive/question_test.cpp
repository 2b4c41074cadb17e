// SPDX-License-Identifier: GPL-3.0-or-later
// Questions to the archive against a second telling over its matches.
#include "archive/question.h"

#include <set>

#include "archive/archive_fixture.h"
#include "archive/classic_questions.h"
#include "archive/second_telling.h"

namespace velorin::testing {
namespace {

using ::testing::HasSubstr;

// The woven-in checks of a sanitizer take their time.
#ifdef VELORIN_SANITIZED
constexpr int one_question_in = 10;
constexpr int one_part_in = 11;
constexpr int more_matches = 10;
#else
constexpr int one_question_in = 1;
constexpr int one_part_in = 3;
constexpr int more_matches = 200;
#endif

class Question : public ArchiveTest {
 protected:
  /// Matches of every competition, and more of their own.
  void SetUp() override {
    ArchiveTest::SetUp();
    play_everything();
    text({"--seed", "9", "match", "--update", "--matches", std::to_string(more_matches), "--quiet"});
  }

  static told_row texts_of(const answer& told, const std::vector<answer_value>& row) {
    told_row texts;
    for (std::size_t i = 0; i < row.size(); ++i) texts[told.columns[i].name] = value_text(row[i]);
    return texts;
  }

  /// The rows are the first of the second telling, but that rows of one place may stand in any order.
  void expect_told(const std::vector<archived_match>& matches, const question& asked) const {
    const answer told = ask(archive(), asked);
    const std::vector<told_row> wanted = tell(matches, asked);
    const std::size_t rows = asked.top > 0 ? std::min<std::size_t>(wanted.size(), asked.top) : wanted.size();
    ASSERT_EQ(told.rows.size(), rows);
    std::multiset<told_row> left;
    for (const told_row& line : wanted) left.insert(line);
    for (std::size_t i = 0; i < rows; ++i) {
      told_row found = texts_of(told, told.rows[i]);
      if (!asked.sort.empty()) {
        EXPECT_EQ(found.at(asked.sort), wanted[i].at(asked.sort)) << i;
      }
      found.erase("played_at");
      const auto same = std::find_if(left.begin(), left.end(), [&](const told_row& line) {
        return std::all_of(found.begin(), found.end(), [&](const auto& field) {
          const auto at = line.find(field.first);
          return at == line.end() || at->second == field.second;
        });
      });
      ASSERT_NE(same, left.end()) << "row " << i << " is told by nobody";
      left.erase(same);
    }
  }
};

TEST_F(Question, ClassicOnesAreAnsweredAsTheMatchesTell) {
  const std::vector<archived_match> matches = archived_matches();
  ASSERT_GT(matches.size(), std::size_t{more_matches});
  int answered = 0;
  int asked = 0;
  for (const classic_question& classic : classic_questions()) {
    if (asked++ % one_question_in != 0) continue;
    SCOPED_TRACE(classic.title);
    expect_told(matches, classic.asked);
    answered += ask(archive(), classic.asked).rows.empty() ? 0 : 1;
  }
  EXPECT_GE(answered * one_question_in, 40) << "of fifty";
}

TEST(QuestionSentences, ThereAreFiftyClassicOnesAndNoTwoAlike) {
  std::set<std::string_view> titles;
  std::set<std::string> sentences;
  for (const classic_question& classic : classic_questions()) {
    titles.insert(classic.title);
    sentences.insert(sentence_of(classic.asked));
  }
  EXPECT_EQ(titles.size(), 50U);
  EXPECT_EQ(sentences.size(), 50U);
}

TEST_F(Question, AnyPartsAreAnsweredAsTheMatchesTell) {
  const std::vector<archived_match> matches = archived_matches();
  int parts = 0;
  for (const rows_of from :
       {rows_of::innings, rows_of::batting, rows_of::bowling, rows_of::stands, rows_of::meetings}) {
    for (const char* typed : {"team=Vestria", "runs>=30", "runs<12", "ground~Park", "country!=Vestria", "result=won",
                              "stage<M", "competition=World Cup"}) {
      if (parts++ % one_part_in != 0) continue;
      SCOPED_TRACE(std::string(source_name(from)) + " " + typed);
      question asked{.from = from, .by = {}, .where = {condition_from(typed)}, .having = {}, .sort = "runs"};
      expect_told(matches, asked);
      asked.descending = true;
      asked.top = 7;
      expect_told(matches, asked);
      if (from == rows_of::stands) continue;
      asked.by = {"opponent", "innings"};
      expect_told(matches, asked);
      asked.by = {"ground"};
      asked.having = {condition_from("matches>=3")};
      expect_told(matches, asked);
    }
  }
}

TEST_F(Question, TheSumsKeptAlongAreThoseOfTheRows) {
  const std::vector<archived_match> matches = archived_matches();
  for (const rows_of from : {rows_of::batting, rows_of::bowling}) {
    question asked{.from = from, .by = {"team", "player"}, .where = {}, .having = {}, .sort = "average"};
    expect_told(matches, asked);
    asked.where = {condition_from("team=Orland")};
    expect_told(matches, asked);
    asked.where = {condition_from("country=Orland")};
    expect_told(matches, asked);
  }
}

TEST(QuestionSentences, ASentenceTellsThePartsInPlainEnglish) {
  EXPECT_EQ(
      sentence_of({.from = rows_of::batting,
                   .by = {"player", "team"},
                   .where = {condition_from("country=India"), condition_from("runs>=50")},
                   .having = {condition_from("innings>=20")},
                   .sort = "average",
                   .descending = true,
                   .top = 15}),
      "Innings of batsmen with country India and 50 or more runs, summed by player and team, where there are 20 or"
      " more innings, highest average first, the first 15.");
  EXPECT_EQ(sentence_of({.from = rows_of::innings,
                         .by = {},
                         .where = {condition_from("top_score<50"), condition_from("result=lost")},
                         .having = {},
                         .sort = "runs",
                         .descending = true}),
            "Innings of teams with fewer than 50 highest score of a man and result lost, most runs first.");
}

TEST(QuestionSentences, StatesAndRangesHaveWordsOfTheirOwn) {
  EXPECT_EQ(sentence_of({.from = rows_of::batting,
                         .where = {condition_from("runs>=90"), condition_from("runs<100"), condition_from("out=0")},
                         .sort = "runs",
                         .descending = true}),
            "Innings of batsmen with 90 to 99 runs, not out, most runs first.");
  EXPECT_EQ(sentence_of({.from = rows_of::matches, .where = {condition_from("winner=")}}), "Matches, tied.");
  EXPECT_EQ(sentence_of({.from = rows_of::matches, .where = {condition_from("human=1"), condition_from("runs>=500")}}),
            "Matches with 500 or more runs of both sides, led by a user.");
}

class QuestionValues : public ArchiveTest {};

TEST_F(QuestionValues, AValueIsNeverPartOfTheStatement) {
  play("7", 3);
  const std::size_t before = archived_matches().size();
  ASSERT_EQ(before, 3U);
  for (const char* value : {"x'; DELETE FROM match_row; --", "\" OR 1=1", "%"}) {
    EXPECT_THROW(ask(archive(),
                     {.from = rows_of::batting, .by = {}, .where = {{"player", "=", value}}, .having = {}, .sort = {}}),
                 question_error);
    const answer told = ask(
        archive(), {.from = rows_of::batting, .by = {}, .where = {{"player", "~", value}}, .having = {}, .sort = {}});
    EXPECT_TRUE(told.rows.empty()) << value;
  }
  EXPECT_EQ(archived_matches().size(), before);
}

}  // namespace
}  // namespace velorin::testing
