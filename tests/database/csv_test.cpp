// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/csv.h"

#include <gmock/gmock.h>

#include "database/database_fixture.h"

namespace velorin {
namespace {

using testing::error_of;
using ::testing::HasSubstr;
using testing::write_bytes;

class Csv : public testing::database_fixture {
 protected:
  csv_table read(std::string_view text) {
    write_bytes(folder / "t.csv", text);
    return csv_table(folder / "t.csv", {"a", "b"}, {"c"});
  }
  std::string error_in(std::string_view text) {
    const auto error = error_of([&] { read(text); });
    EXPECT_EQ(error.kind(), failure::type);
    return error.what();
  }
};

TEST_F(Csv, ReadsEitherLineEndAndTheLastLineWithoutOne) {
  for (const char* text : {"a,b\r\n1,2\r\n3,4\r\n", "a,b\n1,2\n3,4\n", "a,b\n1,2\r\n3,4",
                           "\xEF\xBB\xBF"
                           "a,b\n1,2\n\n3,4\n\r\n"}) {
    const csv_table table = read(text);
    ASSERT_EQ(table.rows(), 2) << text;
    EXPECT_EQ(table.text(0, "a"), "1");
    EXPECT_EQ(table.text(1, "b"), "4");
    EXPECT_EQ(table.text(1, "c"), "") << "a column that is not there";
  }
}

TEST_F(Csv, ColumnsMayStandInAnyOrder) {
  const csv_table table = read("c,b,a\n3,2,1\n");
  EXPECT_EQ(table.text(0, "a"), "1");
  EXPECT_EQ(table.text(0, "c"), "3");
}

TEST_F(Csv, QuotedFieldsHoldCommasQuotesAndLineEnds) {
  const csv_table table = read("a,b\n\"x,\"\"y\"\"\",\"one\r\ntwo\"\n\"\",\" z \"\n");
  ASSERT_EQ(table.rows(), 2);
  EXPECT_EQ(table.text(0, "a"), "x,\"y\"");
  EXPECT_EQ(table.text(0, "b"), "one\r\ntwo");
  EXPECT_EQ(table.text(1, "a"), "");
  EXPECT_EQ(table.text(1, "b"), " z ");
  EXPECT_EQ(table.line(0), 2);
  EXPECT_EQ(table.line(1), 4) << "the embedded line end counts";
}

TEST_F(Csv, ALoneCarriageReturnEndsNoLine) {
  const csv_table table = read("a,b\none\rtwo,\r\n\r,4\n");
  ASSERT_EQ(table.rows(), 2);
  EXPECT_EQ(table.text(0, "a"), "one\rtwo");
  EXPECT_EQ(table.text(0, "b"), "");
  EXPECT_EQ(table.text(1, "a"), "\r");
  EXPECT_EQ(table.text(1, "b"), "4");
  EXPECT_EQ(read("a,b\n1,2\r").text(0, "b"), "2\r") << "nor the last one";
  EXPECT_EQ(csv_line({"one\rtwo"}), "\"one\rtwo\"\r\n");
}

TEST_F(Csv, BlanksBelongToTheirField) { EXPECT_EQ(read("a,b\n x , y\n").text(0, "a"), " x "); }

TEST_F(Csv, TextsBecomeWindows1252) {
  const csv_table table = read("a,b\nJos\xC3\xA9,\xE2\x82\xAC\n");
  EXPECT_EQ(table.text(0, "a"), "Jos\xE9");
  EXPECT_EQ(table.text(0, "b"), "\x80");
}

TEST_F(Csv, ACharacterWithoutAPlaceIsRefusedWithItsLineAndColumn) {
  EXPECT_EQ(error_in("a,b\nJos\xC3\xA9,x\n\xC3\xA9x\xE6\xBC\xA2,1\n"),
            "Line 3, column 3: a character that has no place in Windows-1252 (file t.csv)");
  EXPECT_EQ(error_in("a,\xFF\n"), "Line 1, column 3: a character that has no place in Windows-1252 (file t.csv)");
}

TEST_F(Csv, QuotesOutOfPlaceAreRefused) {
  EXPECT_THAT(error_in("a,b\nx\"y,1\n"), HasSubstr("Line 2, column 2: a quote within"));
  EXPECT_THAT(error_in("a,b\n\"x\"y,1\n"), HasSubstr("Line 2, column 4: text behind a closing quote"));
  EXPECT_THAT(error_in("a,b\n1,\"x\n"), HasSubstr("the closing quote is missing"));
}

TEST_F(Csv, AWrongHeaderIsRefused) {
  EXPECT_EQ(error_in(""), "Line 1, column 1: the header line is missing (file t.csv)");
  EXPECT_EQ(error_in("a,c\n"), "Header line: the column is missing (file t.csv, field b)");
  EXPECT_EQ(error_in("a,b,d\n"), "Header line: no such column is known (file t.csv, field d)");
  EXPECT_EQ(error_in("a,b,a\n"), "Header line: the column stands twice (file t.csv, field a)");
}

TEST_F(Csv, ARowOfAWrongLengthIsRefused) {
  EXPECT_EQ(error_in("a,b\n1,2\n1\n"), "Line 3: 1 columns instead of 2 (file t.csv)");
  EXPECT_EQ(error_in("a,b\n1,2,\n"), "Line 2: 3 columns instead of 2 (file t.csv)");
}

TEST_F(Csv, AMissingFileIsRefused) {
  const auto error = error_of([&] { csv_table(folder / "none.csv", {"a"}, {}); });
  EXPECT_EQ(error.kind(), failure::file);
  EXPECT_STREQ(error.what(), "The file is missing (file none.csv)");
}

TEST_F(Csv, WholeNumbers) {
  const csv_table table = read("a,b\n-32768,32767\n4.5,\nx,32768\n");
  EXPECT_EQ(table.whole_number(0, "a", -32768, 32767), -32768);
  EXPECT_EQ(table.whole_number(0, "b", -32768, 32767), 32767);
  EXPECT_EQ(table.whole_number(0, "c", -32768, 32767), 0) << "a column that is not there";
  EXPECT_STREQ(error_of([&] { table.whole_number(1, "a", -32768, 32767); }).what(),
               "Line 3: \"4.5\" is no whole number from -32768 to 32767 (file t.csv, field a)");
  for (const auto& [row, column] : {std::pair{1, "b"}, std::pair{2, "a"}, std::pair{2, "b"}}) {
    EXPECT_EQ(error_of([&, row = row, column = column] { table.whole_number(row, column, -32768, 32767); }).kind(),
              failure::type);
  }
}

TEST_F(Csv, Singles) {
  const csv_table table = read("a,b\n4.7,99\n-0,1e39\nnan,inf\n,x\n");
  EXPECT_EQ(table.single(0, "a"), 4.7F);
  EXPECT_EQ(table.single(0, "b"), 99.0F);
  EXPECT_TRUE(std::signbit(table.single(1, "a")));
  for (const auto& [row, column] :
       {std::pair{1, "b"}, std::pair{2, "a"}, std::pair{2, "b"}, std::pair{3, "a"}, std::pair{3, "b"}}) {
    EXPECT_EQ(error_of([&, row = row, column = column] { table.single(row, column); }).kind(), failure::type);
  }
}

TEST_F(Csv, LinesAreQuotedWhereNeeded) {
  EXPECT_EQ(csv_line({"a", "RH ", ""}), "a,RH ,\r\n");
  EXPECT_EQ(csv_line({"x,\"y\"", "one\r\ntwo", "caf\xE9"}), "\"x,\"\"y\"\"\",\"one\r\ntwo\",caf\xC3\xA9\r\n");
}

}  // namespace
}  // namespace velorin
