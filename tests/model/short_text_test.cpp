// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/short_text.h"

#include <sstream>
#include <string>
#include <string_view>
#include <utility>

#include <gtest/gtest.h>

namespace velorin {
namespace {

std::string text_of_size(std::size_t size) {
  std::string text;
  for (std::size_t i = 0; i < size; ++i) text += static_cast<char>('a' + i % 26);
  return text;
}

TEST(ShortText, StartsEmpty) {
  const short_text text;
  EXPECT_TRUE(text.empty());
  EXPECT_EQ(text, "");
  EXPECT_EQ(short_text(std::string_view()), "");
}

TEST(ShortText, HoldsTextsOfEverySize) {
  for (std::size_t size = 0; size <= 100; ++size) {
    const std::string wanted = text_of_size(size);
    const short_text text(wanted);
    ASSERT_EQ(text, wanted);
    ASSERT_EQ(text.empty(), size == 0);
    ASSERT_EQ(std::string_view(text).size(), size);
  }
}

TEST(ShortText, HoldsOneCharacterAndZeroBytes) {
  short_text one = "long before it became a symbol";
  one.set('W');
  EXPECT_EQ(one, "W");
  const std::string_view with_zero("a\0b", 3);
  EXPECT_EQ(std::string_view(short_text(with_zero)), with_zero);
}

TEST(ShortText, EveryChangeBetweenSizesKeepsTheNewText) {
  for (const std::size_t before : {0U, 1U, 22U, 23U, 24U, 60U}) {
    for (const std::size_t after : {0U, 1U, 22U, 23U, 24U, 60U}) {
      const std::string wanted = text_of_size(after);
      short_text assigned(text_of_size(before));
      assigned = wanted;
      ASSERT_EQ(assigned, wanted) << before << " to " << after;

      short_text copied(text_of_size(before));
      const short_text source(wanted);
      copied = source;
      ASSERT_EQ(copied, wanted) << before << " to " << after;
      ASSERT_EQ(source, wanted);

      short_text moved(text_of_size(before));
      moved = short_text(wanted);
      ASSERT_EQ(moved, wanted) << before << " to " << after;
    }
  }
}

TEST(ShortText, ACopyIsItsOwn) {
  for (const std::size_t size : {5U, 40U}) {
    short_text first(text_of_size(size));
    const short_text second(first);
    first += "!";
    EXPECT_EQ(first, text_of_size(size) + "!");
    EXPECT_EQ(second, text_of_size(size));
  }
}

TEST(ShortText, TakesItselfAndItsOwnParts) {
  for (const std::size_t size : {5U, 40U}) {
    short_text text(text_of_size(size));
    const short_text& same = text;
    text = same;
    EXPECT_EQ(text, text_of_size(size));
    text = std::string_view(text).substr(2);
    EXPECT_EQ(text, text_of_size(size).substr(2));
    text += std::string_view(text);
    EXPECT_EQ(text, text_of_size(size).substr(2) + text_of_size(size).substr(2));
  }
}

TEST(ShortText, GrowsOverItsOwnRoom) {
  short_text text;
  std::string wanted;
  for (int i = 0; i < 40; ++i) {
    text += "ab";
    wanted += "ab";
    ASSERT_EQ(text, wanted);
  }
  text.clear();
  EXPECT_TRUE(text.empty());
  EXPECT_EQ(text, "");
}

TEST(ShortText, ComparesByAllItsCharacters) {
  const short_text text("4lb");
  EXPECT_TRUE(text == "4lb");
  EXPECT_TRUE(text == std::string("4lb"));
  EXPECT_TRUE(text == short_text("4lb"));
  EXPECT_FALSE(text == "4l");
  EXPECT_FALSE(text == "4lbs");
  EXPECT_FALSE(text == short_text("4b"));
  EXPECT_FALSE(short_text(text_of_size(30)) == short_text(text_of_size(31)));
}

TEST(ShortText, IsWrittenAsItsText) {
  std::ostringstream out;
  out << short_text("K.Voss") << ' ' << short_text(text_of_size(30));
  EXPECT_EQ(out.str(), "K.Voss " + text_of_size(30));
}

}  // namespace
}  // namespace velorin
