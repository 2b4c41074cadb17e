// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/code_page.h"

#include <cstdint>
#include <set>
#include <string>

#include <gtest/gtest.h>

namespace velorin {
namespace {

std::string byte(int value) { return std::string(1, static_cast<char>(value)); }

TEST(CodePage, EveryByteComesBack) {
  std::string all;
  std::set<std::string> characters;
  for (int value = 0; value < 256; ++value) {
    const std::string text = to_utf8(byte(value));
    characters.insert(text);
    EXPECT_EQ(from_utf8(text), byte(value)) << "byte " << value;
    all += byte(value);
  }
  EXPECT_EQ(characters.size(), 256U) << "no two bytes share a character";
  EXPECT_EQ(from_utf8(to_utf8(all)), all);
}

TEST(CodePage, AsciiIsItself) {
  for (int value = 0; value < 0x80; ++value) EXPECT_EQ(to_utf8(byte(value)), byte(value));
}

TEST(CodePage, TheUpperHalfIsItsOwnCodePoint) {
  EXPECT_EQ(to_utf8("\xA0"), "\xC2\xA0");
  EXPECT_EQ(to_utf8("\xBF"), "\xC2\xBF");
  EXPECT_EQ(to_utf8("\xC0"), "\xC3\x80");
  EXPECT_EQ(to_utf8("\xE9"), "\xC3\xA9");
  EXPECT_EQ(to_utf8("\xFF"), "\xC3\xBF");
}

TEST(CodePage, TheBlockOfQuotesAndDashes) {
  // The characters of the bytes 80 to 9F, written in UTF-8, in the order of the bytes.
  const std::string characters =
      "\u20AC\xC2\x81\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152\xC2\x8D\u017D\xC2\x8F"
      "\xC2\x90\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122\u0161\u203A\u0153\xC2\x9D\u017E\u0178";
  std::string bytes;
  for (int value = 0x80; value < 0xA0; ++value) bytes += byte(value);
  EXPECT_EQ(to_utf8(bytes), characters);
}

TEST(CodePage, TextsOfBothSortsInOne) {
  EXPECT_EQ(to_utf8("Jos\xE9 \x96 O\x92"
                    "Dell"),
            "Jos\u00E9 \u2013 O\u2019Dell");
  EXPECT_EQ(from_utf8("Jos\u00E9 \u2013 O\u2019Dell"),
            "Jos\xE9 \x96 O\x92"
            "Dell");
  EXPECT_EQ(from_utf8(""), "");
}

struct refusal {
  const char* what;
  std::string text;
  std::size_t offset;
};

class CodePageRefuses : public testing::TestWithParam<refusal> {};

TEST_P(CodePageRefuses, AndTellsWhere) {
  std::size_t offset = 999;
  EXPECT_FALSE(from_utf8(GetParam().text, &offset).has_value());
  EXPECT_EQ(offset, GetParam().offset);
  EXPECT_FALSE(from_utf8(GetParam().text).has_value()) << "without an offset asked for";
}

INSTANTIATE_TEST_SUITE_P(
    Texts, CodePageRefuses,
    testing::Values(refusal{"LetterWithoutAPlace", "Bra\u0101n", 3}, refusal{"OtherAlphabet", "\u0416", 0},
                    refusal{"SecondOfTwo", "a\u00E9\u0142\u0142", 3},
                    refusal{"ControlWhosePlaceIsTaken", "ab\xC2\x80", 2},
                    refusal{"FourBytes", "ok \xF0\x9F\x8F\x8F", 3}, refusal{"ByteOrderMark", "\xEF\xBB\xBFteam", 0},
                    refusal{"LoneContinuation", "ab\x80", 2}, refusal{"LoneByteOfTheCodePage", "Jos\xE9", 3},
                    refusal{"LeadAtTheEnd", "abc\xC3", 3}, refusal{"TwoOfThreeBytes", "a\xE2\x82", 1},
                    refusal{"LeadBeforeALetter", "\xC3z", 0}, refusal{"ThirdByteIsALetter", "\xE2\x82z", 0},
                    refusal{"OverlongSlash", "a\xC0\xAF", 1}, refusal{"OverlongOfThree", "\xE0\x82\xA9", 0},
                    refusal{"Surrogate", "ab\xED\xA0\x80", 2}, refusal{"NeverALead", "\xFF", 0}),
    [](const auto& tested) { return tested.param.what; });

TEST(CodePage, AGoodTextLeavesTheOffsetAlone) {
  std::size_t offset = 999;
  EXPECT_TRUE(from_utf8("caf\u00E9", &offset).has_value());
  EXPECT_EQ(offset, 999U);
}

TEST(WithoutControls, Utf8StaysUtf8) {
  EXPECT_EQ(without_controls("a\x1B\x7Fz"), "a??z");
  EXPECT_EQ(without_controls("a\xC2\x80\xC2\x9F\xC2\xA0\u00DD\u201D"), "a??\xC2\xA0\u00DD\u201D");
  EXPECT_EQ(without_controls("\u6F22\U0001F3CF"), "\u6F22\U0001F3CF");
}

TEST(WithoutControls, OtherBytesAreWindows1252) {
  EXPECT_EQ(without_controls("\x81\x8D\x8F\x90\x9D\x80\x9E"), "?????\x80\x9E");
  EXPECT_EQ(without_controls("\xF6\xC2\x9D"), "\xF6\xC2?");
}

TEST(IsUtf8, HoldsForTheShortestFormsOfCharacters) {
  for (const char* text :
       {"", "a", "\xC2\x80", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"}) {
    EXPECT_TRUE(is_utf8(text)) << text;
  }
  for (const char* text : {"\x80", "\xC2", "\xC2z", "\xC0\x80", "\xC1\xBF", "\xE0\x82\x9D", "\xED\xA0\x80",
                           "\xF0\x80\x82\x9D", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xE2\x80"}) {
    EXPECT_FALSE(is_utf8(text)) << text;
  }
}

}  // namespace
}  // namespace velorin
