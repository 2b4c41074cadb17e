// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/line_printer.h"

#include <gtest/gtest.h>

namespace velorin {
namespace {

TEST(LinePrinter, StartsEmpty) { EXPECT_EQ(line_printer().written(), ""); }

TEST(LinePrinter, EndsLinesWithCrLf) {
  line_printer out;
  out.line("one").line().text("t").line("wo");
  EXPECT_EQ(out.written(), "one\r\n\r\ntwo\r\n");
}

TEST(LinePrinter, TabMovesByBlanks) {
  line_printer out;
  out.tab(1).text("a").tab(4).text("b").end();
  EXPECT_EQ(out.written(), "a  b\r\n");
}

TEST(LinePrinter, TabToTheNextFreeColumnWritesNothing) {
  line_printer out;
  out.text("abc").tab(4).text("d");
  EXPECT_EQ(out.written(), "abcd");
}

TEST(LinePrinter, TabBehindTheColumnBreaksTheLine) {
  line_printer out;
  out.text("abcd").tab(4).text("e");
  EXPECT_EQ(out.written(), "abcd\r\n   e");
}

TEST(LinePrinter, TabCountsFromTheStartOfItsOwnLine) {
  line_printer out;
  out.line("a long first line").text("x").tab(3).text("y");
  EXPECT_EQ(out.written(), "a long first line\r\nx y");
}

TEST(LinePrinter, TabToColumn1OfAStartedLineBreaksIt) {
  line_printer out;
  out.text("a").tab(1).text("b");
  EXPECT_EQ(out.written(), "a\r\nb");
}

TEST(LinePrinter, AByteIsAColumn) {
  line_printer out;
  out.text("\xE9\xE9").tab(4).text("x");
  EXPECT_EQ(out.written(), "\xE9\xE9 x");
}

TEST(LinePrinter, NumbersHaveABlankOnBothSides) {
  line_printer out;
  out.number(0).number(45).number(300);
  EXPECT_EQ(out.written(), " 0  45  300 ");
}

TEST(LinePrinter, AMinusTakesThePlaceOfTheFirstBlank) {
  line_printer out;
  out.number(-7);
  EXPECT_EQ(out.written(), "-7 ");
}

}  // namespace
}  // namespace velorin
