// SPDX-License-Identifier: GPL-3.0-or-later
// Questions as they are kept, and answers as files have them.
#include "archive/written_question.h"

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "archive/answer_text.h"
#include "archive/classic_questions.h"

namespace velorin::testing {
namespace {

TEST(WrittenQuestion, OfEachClassicOneIsReadAsItWas) {
  for (const classic_question& one : classic_questions()) {
    SCOPED_TRACE(one.title);
    EXPECT_EQ(question_written(written_question(one.asked)), one.asked);
  }
}

TEST(WrittenQuestion, HasALineForEachPart) {
  const question asked{.from = rows_of::batting,
                       .by = {"player", "team"},
                       .where = {condition_from("country=Orland"), condition_from("runs>=50")},
                       .having = {condition_from("innings>=20")},
                       .sort = "average",
                       .descending = true,
                       .top = 15};
  const std::string text =
      "from batting\nby player,team\nwhere country=Orland\nwhere runs>=50\nhaving innings>=20\nsort average\n"
      "descending\ntop 15\n";
  EXPECT_EQ(written_question(asked), text);
  EXPECT_EQ(question_written(text), asked);
}

TEST(WrittenQuestion, IsRefusedWithAPartThatNobodyKnows) {
  for (const char* text : {"from songs\n", "from batting\nby songs\n", "from batting\nwhere songs=1\n",
                           "from batting\nhaving innings>=2\n", "from batting\nsort songs\n", "from batting\ntop -1\n",
                           "from batting\ntop 1x\n", "sing\n", "from batting\nwhere runs\n"}) {
    EXPECT_THROW(question_written(text), question_error) << text;
  }
}

TEST(WrittenQuestion, TakesAFigureOfSumsWhereRowsHaveNoSuchField) {
  question asked{.from = rows_of::batting};
  add_condition(asked, condition_from("innings>=20"));
  add_condition(asked, condition_from("hundreds>=2"));
  EXPECT_EQ(asked.where.size(), 2U) << "rows that are not summed have no figures";
  asked = {.from = rows_of::batting, .by = {"player"}};
  add_condition(asked, condition_from("runs>=50"));
  add_condition(asked, condition_from("hundreds>=2"));
  ASSERT_EQ(asked.where.size(), 1U);
  ASSERT_EQ(asked.having.size(), 1U);
  EXPECT_EQ(asked.having[0].field, "hundreds");
}

answer some_answer() {
  answer told;
  told.columns = {{"player", column_kind::text}, {"runs", column_kind::number}, {"average", column_kind::rate}};
  told.rows = {{"O'Neil, \"Jos\u00e9\"\t\x01\\", std::int64_t{-3}, 45.0}, {"", std::int64_t{120}, 33.33}};
  told.rows.push_back({"B", std::int64_t{0}, std::monostate()});
  return told;
}

TEST(AnswerText, IsJsonThatAnyReaderTakes) {
  const question asked{.from = rows_of::batting};
  const std::string text = answer_json(some_answer(), asked);
  const auto read = nlohmann::ordered_json::parse(text);
  EXPECT_EQ(read.dump() + "\n", text);
  EXPECT_THAT(text, ::testing::HasSubstr("-3,45.0]")) << "a rate has a decimal point";
  EXPECT_EQ(read["title"], sentence_of(asked));
  EXPECT_EQ(read["rows"][0][0], "O'Neil, \"Jos\u00e9\"\t\x01\\");
  EXPECT_EQ(read["rows"][1][2], 33.33);
  EXPECT_TRUE(read["rows"][2][2].is_null());
}

TEST(AnswerText, IsCsvInUtf8) {
  answer told = some_answer();
  told.rows[0][0] = "Jos\u00e9, \"J\"";
  EXPECT_EQ(answer_csv(told), "player,runs,average\r\n\"Jos\u00e9, \"\"J\"\"\",-3,45\r\n,120,33.33\r\nB,0,\r\n");
}

}  // namespace
}  // namespace velorin::testing
