// SPDX-License-Identifier: GPL-3.0-or-later
#include <cmath>

#include "database/database_fixture.h"
#include "database/lasting_records.h"

namespace velorin {
namespace {

using testing::error_of;

TEST(Tagged, AnEmptyValueIsZeroAndNothing) {
  const tagged value;
  EXPECT_TRUE(value.is_empty());
  EXPECT_EQ(value.number(), 0);
  EXPECT_EQ(value.text(), "");
}

TEST(Tagged, EveryTypeIsANumberAndAText) {
  EXPECT_EQ(tagged{integer(231)}.number(), 231);
  EXPECT_EQ(tagged{integer(231)}.text(), "231");
  EXPECT_EQ(tagged{std::int32_t{70000}}.number(), 70000);
  EXPECT_EQ(tagged{std::int32_t{70000}}.text(), "70000");
  EXPECT_EQ(tagged{2.5}.number(), 2.5);
  EXPECT_EQ(tagged{2.0}.text(), "2");
  EXPECT_EQ(tagged{std::string("174")}.number(), 174);
  EXPECT_EQ(tagged{std::string("174")}.text(), "174");
}

TEST(Tagged, ATextThatIsNoNumberIsATypeMismatch) {
  EXPECT_EQ(error_of([] { tagged{std::string("Tamar")}.number(); }).kind(), failure::type);
  EXPECT_EQ(error_of([] { tagged{std::string()}.number(); }).kind(), failure::type);
  EXPECT_EQ(tagged{std::string("Tamar")}.text(), "Tamar");
}

TEST(Tagged, ADoubleThatIsNoNumberIsATypeMismatch) {
  EXPECT_EQ(error_of([] { tagged{std::nan("")}.number(); }).kind(), failure::type);
  EXPECT_EQ(error_of([] { tagged{HUGE_VAL}.text(); }).kind(), failure::type);
}

}  // namespace
}  // namespace velorin
