// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/line_printer.h"

#include <gtest/gtest.h>

namespace velorin {
namespace {

TEST(LinePrinter, starts_empty) { EXPECT_EQ(line_printer().written(), ""); }

TEST(LinePrinter, ends_lines_with_cr_lf) {
  line_printer out;
  out.line("one").line().text("t").line("wo");
  EXPECT_EQ(out.written(), "one\r\n\r\ntwo\r\n");
}

TEST(LinePrinter, tab_moves_by_blanks) {
  line_printer out;
  out.tab(1).text("a").tab(4).text("b").end();
  EXPECT_EQ(out.written(), "a  b\r\n");
}

TEST(LinePrinter, tab_to_the_next_free_column_writes_nothing) {
  line_printer out;
  out.text("abc").tab(4).text("d");
  EXPECT_EQ(out.written(), "abcd");
}

TEST(LinePrinter, tab_behind_the_column_breaks_the_line) {
  line_printer out;
  out.text("abcd").tab(4).text("e");
  EXPECT_EQ(out.written(), "abcd\r\n   e");
}

TEST(LinePrinter, tab_counts_from_the_start_of_its_own_line) {
  line_printer out;
  out.line("a long first line").text("x").tab(3).text("y");
  EXPECT_EQ(out.written(), "a long first line\r\nx y");
}

TEST(LinePrinter, tab_to_column_1_of_a_started_line_breaks_it) {
  line_printer out;
  out.text("a").tab(1).text("b");
  EXPECT_EQ(out.written(), "a\r\nb");
}

TEST(LinePrinter, a_byte_is_a_column) {
  line_printer out;
  out.text("\xE9\xE9").tab(4).text("x");
  EXPECT_EQ(out.written(), "\xE9\xE9 x");
}

TEST(LinePrinter, numbers_have_a_blank_on_both_sides) {
  line_printer out;
  out.number(0).number(45).number(300);
  EXPECT_EQ(out.written(), " 0  45  300 ");
}

TEST(LinePrinter, a_minus_takes_the_place_of_the_first_blank) {
  line_printer out;
  out.number(-7);
  EXPECT_EQ(out.written(), "-7 ");
}

}  // namespace
}  // namespace velorin
