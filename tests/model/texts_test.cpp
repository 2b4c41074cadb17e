// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/texts.h"

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>

#include <gtest/gtest.h>

namespace velorin {
namespace {

/// Finite doubles and singles of every size: random bits, the few that are no number left out.
template <class Value, class Bits>
class any_value {
 public:
  Value next() {
    for (;;) {
      const auto value = std::bit_cast<Value>(static_cast<Bits>(draw_()));
      if (std::isfinite(value)) return value;
    }
  }

 private:
  std::mt19937_64 draw_{11};
};

TEST(NumberText, WritesWholeNumbersWithoutAPoint) {
  EXPECT_EQ(number_text(0), "0");
  EXPECT_EQ(number_text(100), "100");
  EXPECT_EQ(number_text(-7), "-7");
  EXPECT_EQ(number_text(100.0), "100");
  EXPECT_EQ(number_text(100.0F), "100");
  EXPECT_EQ(number_text(std::numeric_limits<long>::min()), "-9223372036854775808");
}

TEST(NumberText, WritesFractionsWithTheZeroBeforeThePoint) {
  EXPECT_EQ(number_text(0.5), "0.5");
  EXPECT_EQ(number_text(-0.5), "-0.5");
  EXPECT_EQ(number_text(5.6), "5.6") << "no zero is added to two places";
  EXPECT_EQ(number_text(5.69), "5.69");
  EXPECT_EQ(number_text(83.33), "83.33");
}

TEST(NumberText, WritesMinusZeroAsZero) {
  EXPECT_EQ(number_text(-0.0), "0");
  EXPECT_EQ(number_text(-0.0F), "0");
}

TEST(NumberText, WritesNoExponent) {
  EXPECT_EQ(number_text(1e21), "1000000000000000000000");
  EXPECT_EQ(number_text(1e-7), "0.0000001");
  EXPECT_EQ(number_text(-2.5e-10), "-0.00000000025");
  EXPECT_EQ(number_text(1e20F), "100000002004087734272");
}

TEST(NumberText, AnIntegerOfTheMatchIsWrittenAsAWholeNumber) {
  EXPECT_EQ(number_text(static_cast<int>(std::int16_t{-32768})), "-32768");
}

TEST(NumberText, ASingleIsWrittenByItsOwnShortestDecimal) {
  EXPECT_EQ(number_text(4.7F), "4.7");
  EXPECT_EQ(number_text(static_cast<double>(4.7F)), "4.699999809265137") << "widened, it is another number";
  EXPECT_EQ(number_text(36.45F), "36.45");
  EXPECT_EQ(number_text(0.1F), "0.1");
}

TEST(NumberText, ReadsBackAsTheSameValueAndHasOnlyDigitsAndAPoint) {
  any_value<double, std::uint64_t> values;
  for (int i = 0; i < 200000; ++i) {
    const double value = values.next();
    const std::string text = number_text(value);
    double back = 0;
    const auto end = std::from_chars(text.data(), text.data() + text.size(), back).ptr;
    ASSERT_EQ(end, text.data() + text.size()) << text;
    ASSERT_EQ(back, value) << text;
    ASSERT_EQ(text.find_first_not_of("-0123456789."), std::string::npos) << text;
    if (text.find('.') != std::string::npos) {
      ASSERT_NE(text.back(), '0') << text;
      ASSERT_NE(text.back(), '.') << text;
    }
    ASSERT_NE(text[text[0] == '-' ? 1 : 0], '.') << text;
  }
}

TEST(NumberText, AppendsWholeNumbersToAText) {
  std::string text = "No.";
  append_number(text, 7);
  append_number(text, -12);
  EXPECT_EQ(text, "No.7-12");
}

/// The value of the shortest decimal of a single, by way of its text.
double by_text(float value) {
  char text[400];
  const auto written = std::to_chars(text, text + sizeof text, value, std::chars_format::fixed);
  double back = 0;
  std::from_chars(text, written.ptr, back);
  return back;
}

TEST(ShownValue, IsTheNumberThatTheTextSays) {
  EXPECT_EQ(shown_value(4.7F), 4.7);
  EXPECT_EQ(shown_value(36.45F), 36.45);
  EXPECT_EQ(shown_value(-4.7F), -4.7);
  EXPECT_EQ(shown_value(0), 0);
  EXPECT_FALSE(std::signbit(shown_value(-0.0F)));
}

TEST(ShownValue, EveryRatingOfTwoPlaces) {
  for (int hundredths = 0; hundredths < 200000; ++hundredths) {
    const double value = hundredths / 100.0;
    ASSERT_EQ(shown_value(static_cast<float>(value)), value);
  }
}

TEST(ShownValue, EverySingleNextToARatingOfTwoPlaces) {
  for (int hundredths = 1; hundredths < 100100; ++hundredths) {
    const auto rating = static_cast<float>(hundredths / 100.0);
    for (const float beside : {std::nextafter(rating, 0.0F), std::nextafter(rating, 1e6F)}) {
      ASSERT_EQ(shown_value(beside), by_text(beside)) << beside;
    }
  }
}

TEST(ShownValue, AgreesWithTheTextOverRandomSingles) {
  any_value<float, std::uint32_t> values;
  for (int i = 0; i < 500000; ++i) {
    const float value = values.next();
    ASSERT_EQ(shown_value(value), by_text(value)) << value;
  }
  std::mt19937 draw(5);
  std::uniform_real_distribution<float> ratings(0, 120);
  for (int i = 0; i < 500000; ++i) {
    const float value = ratings(draw);
    ASSERT_EQ(shown_value(value), by_text(value)) << value;
  }
}

TEST(NumberIn, ReadsDecimalsWithBlanksAround) {
  EXPECT_EQ(number_in("0"), 0);
  EXPECT_EQ(number_in("42"), 42);
  EXPECT_EQ(number_in("  5.69 "), 5.69);
  EXPECT_EQ(number_in("-3.5"), -3.5);
  EXPECT_EQ(number_in(".5"), 0.5);
  EXPECT_EQ(number_in("49.5"), 49.5);
  EXPECT_EQ(number_in("50.0"), 50);
}

TEST(NumberIn, RefusesEverythingElse) {
  for (const char* text : {"", " ", "-", " - ", ".", "W", "1e5", "12a", "1 2", "1,5", "0x10", "inf", "nan", "-inf",
                           "--1", "1.2.3", "\t1"}) {
    EXPECT_FALSE(number_in(text).has_value()) << '"' << text << '"';
  }
  EXPECT_FALSE(number_in(std::string(400, '9')).has_value()) << "beyond all doubles";
}

TEST(NumberIn, ReadsBackEveryNumberText) {
  any_value<double, std::uint64_t> values;
  for (int i = 0; i < 20000; ++i) {
    const double value = values.next();
    ASSERT_EQ(number_in(number_text(value)), value);
  }
}

TEST(Overs, WholeOversAndTheBallsOfTheNext) {
  EXPECT_EQ(overs_from_balls(0), "0.0");
  EXPECT_EQ(overs_from_balls(1), "0.1");
  EXPECT_EQ(overs_from_balls(5), "0.5");
  EXPECT_EQ(overs_from_balls(6), "1.0");
  EXPECT_EQ(overs_from_balls(60), "10.0");
  EXPECT_EQ(overs_from_balls(299), "49.5");
  EXPECT_EQ(overs_from_balls(300), "50.0");
  EXPECT_EQ(overs_from_balls(1234567), "205761.1");
  std::string text = "after ";
  append_overs(text, 75);
  EXPECT_EQ(text, "after 12.3");
}

TEST(BowlingFigures, JoinsOversMaidensRunsAndWickets) {
  EXPECT_EQ(bowling_figures(60, 2, 30, 4), "10.0-2-30-4");
  EXPECT_EQ(bowling_figures(57, 0, 41, 1, " - "), "9.3 - 0 - 41 - 1");
  EXPECT_EQ(bowling_figures(0, 0, 0, 0), "0.0-0-0-0");
}

TEST(ShortName, ThreeLettersOfOneWord) {
  EXPECT_EQ(short_name("Norvale"), "Nor");
  EXPECT_EQ(short_name("Oba"), "Oba");
  EXPECT_EQ(short_name("Ur"), "Ur");
  EXPECT_EQ(short_name(""), "");
}

TEST(ShortName, FirstLetterAndTheOneBehindTheFirstBlank) {
  EXPECT_EQ(short_name("East Marrow"), "EM");
  EXPECT_EQ(short_name("Isles of Tarn"), "Io");
  EXPECT_EQ(short_name("A  Bel"), "A ") << "the character behind the first blank may be a blank";
  EXPECT_EQ(short_name("Tarn "), "T") << "nothing stands behind the blank";
}

TEST(EqualsJoined, ComparesWithTwoTextsInARow) {
  EXPECT_TRUE(equals_joined("T.MarrowB.Hale", "T.Marrow", "B.Hale"));
  EXPECT_TRUE(equals_joined("", "", ""));
  EXPECT_TRUE(equals_joined("abc", "", "abc"));
  EXPECT_FALSE(equals_joined("T.MarrowB.Hale", "B.Hale", "T.Marrow"));
  EXPECT_FALSE(equals_joined("T.MarrowB.Hal", "T.Marrow", "B.Hale"));
  EXPECT_FALSE(equals_joined("T.MarrowB.Hales", "T.Marrow", "B.Hale"));
}

}  // namespace
}  // namespace velorin
