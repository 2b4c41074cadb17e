// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/slots.h"

#include <gmock/gmock.h>

#include <memory>

#include "database/database_fixture.h"

namespace velorin {
namespace {

using testing::error_of;
using ::testing::HasSubstr;
using testing::hex;
using testing::padded;

TEST(SlotWriter, NumbersAreLittleEndian) {
  EXPECT_EQ(encoded_field(integer(0x1234)), hex("34 12"));
  EXPECT_EQ(encoded_field(integer(-1)), hex("FF FF"));
  EXPECT_EQ(encoded_field(integer(-32768)), hex("00 80"));
  EXPECT_EQ(encoded_field(std::int32_t{1030}), hex("06 04 00 00"));
  EXPECT_EQ(encoded_field(std::int32_t{-2}), hex("FE FF FF FF"));
  EXPECT_EQ(encoded_field(1.5F), hex("00 00 C0 3F"));
}

TEST(SlotWriter, ATextHasItsLengthAhead) {
  EXPECT_EQ(encoded_field(std::string()), hex("00 00"));
  EXPECT_EQ(encoded_field(std::string("Jos\xE9")), hex("04 00 4A 6F 73 E9"));
  EXPECT_EQ(encoded_field(std::string(300, 'x')).substr(0, 3), hex("2C 01 78"));
}

TEST(SlotWriter, ATaggedValueHasItsTypeAhead) {
  EXPECT_EQ(encoded_field(tagged{}), hex("00 00"));
  EXPECT_EQ(encoded_field(tagged{integer(2)}), hex("02 00 02 00"));
  EXPECT_EQ(encoded_field(tagged{std::int32_t{70000}}), hex("03 00 70 11 01 00"));
  EXPECT_EQ(encoded_field(tagged{1.0}), hex("05 00 00 00 00 00 00 00 F0 3F"));
  EXPECT_EQ(encoded_field(tagged{std::string("174")}), hex("08 00 03 00 31 37 34"));
}

template <typename Value>
Value read_back(const Value& value) {
  slot_file file({}, 100, "x");
  file.put(3, encoded_field(value), {});
  Value back;
  file.get_field(3, "value", back);
  return back;
}

TEST(SlotReader, ReadsWhatTheWriterWrote) {
  EXPECT_EQ(read_back(integer(-32768)), -32768);
  EXPECT_EQ(read_back(std::int32_t{-2147483647}), -2147483647);
  EXPECT_EQ(read_back(4.7F), 4.7F);
  EXPECT_EQ(read_back(std::string("Jos\xE9")), "Jos\xE9");
  EXPECT_EQ(read_back(tagged{}), tagged{});
  EXPECT_EQ(read_back(tagged{integer(-3)}), tagged{integer(-3)});
  EXPECT_EQ(read_back(tagged{std::int32_t{70000}}), tagged{std::int32_t{70000}});
  EXPECT_EQ(read_back(tagged{2.5}), tagged{2.5});
  EXPECT_EQ(read_back(tagged{std::string("231")}), tagged{std::string("231")});
}

TEST(Layout, EmptyRecordsTakeTheirFixedParts) {
  EXPECT_EQ(encoded(player_rec()), std::string(30, '\0'));
  EXPECT_EQ(encoded(team_rec()), std::string(2 + 2 + 20 * 30, '\0'));
  EXPECT_EQ(encoded(ground_rec()), std::string(18, '\0'));
  EXPECT_EQ(encoded(career_rec()), std::string(114, '\0'));
  EXPECT_EQ(encoded(*std::make_unique<career_team_rec>()), std::string(2 + 2 + 20 * 114, '\0'));
  EXPECT_EQ(encoded(top_score_rec()), std::string(14, '\0'));
  EXPECT_EQ(encoded(top_bowling_rec()), std::string(14, '\0'));
  EXPECT_EQ(encoded(top_total_rec()), std::string(12, '\0'));
  EXPECT_EQ(encoded(top_partnership_rec()), std::string(24, '\0'));
}

TEST(Layout, TheTeamTableHasNineteenFields) {
  const team_table team;
  int fields = 0;
  visit_fields(team, [&](table_value, const char*, const tagged&) { ++fields; });
  EXPECT_EQ(fields, team_table_fields);
}

TEST(SlotReader, ATextBeyondItsSlotIsAFault) {
  // 96 characters from byte 2 on are two more than a slot of 96 bytes has.
  const slot_file file(padded(hex("60 00"), 96), 96, "base.team");
  std::string text;
  const auto error = error_of([&] { file.get_field(1, "team_name", text); });
  EXPECT_EQ(error.kind(), failure::type);
  EXPECT_STREQ(error.what(),
               "Type mismatch: 96 bytes from byte 2 on run beyond the slot of 96 (file base.team, record 1, "
               "field team_name)");
}

TEST(SlotReader, ATextUpToTheEndOfItsSlotIsWhole) {
  const slot_file file(hex("03 00") + "abc", 5, "x");
  std::string text;
  file.get_field(1, "text", text);
  EXPECT_EQ(text, "abc");
}

TEST(SlotReader, ANumberBeyondItsSlotIsAFault) {
  slot_file file(hex("03 00") + "abc" + hex("00"), 6, "x");
  slot_reader reader = file.reader(1);
  std::string text;
  integer number;
  reader("text", text);
  reader("number", number);
  ASSERT_TRUE(reader.fault().has_value());
  EXPECT_EQ(reader.fault()->field, "number");
}

TEST(SlotReader, AFaultNamesThePlaceInAList) {
  team_rec team;
  team.team_name = "Alba";
  team.squad[1].name = "A.Man";
  std::string bytes = encoded(team);
  bytes[2 + 4 + 2 + (30 + 5) + 2 * 30 + 1] = '\x7F';  // the fourth man's name becomes longer than the slot
  const slot_file file(padded(bytes, 1500), 1500, "base.team");
  const auto error = error_of([&] {
    team_rec read;
    file.get(1, read);
  });
  EXPECT_EQ(error.place().field, "squad[4].name");
  EXPECT_EQ(error.place().record, 1);
}

TEST(SlotReader, AnUnknownTagIsAFault) {
  const slot_file file(hex("07 00 01 00"), 100, "base.ptr");
  const auto error = error_of([&] {
    tagged value;
    file.get_field(1, "high_for", value);
  });
  EXPECT_EQ(error.kind(), failure::type);
  EXPECT_THAT(error.what(), HasSubstr("unknown tag 7 (file base.ptr, record 1, field high_for)"));
}

TEST(SlotReader, BeyondTheEndOfTheFileAllIsEmpty) {
  const slot_file file(std::string(100, 'x'), 100, "x");
  player_rec man;
  tagged value{integer(1)};
  file.get(2, man);
  file.get_field(2, "value", value);
  EXPECT_EQ(encoded(man), encoded(player_rec()));
  EXPECT_TRUE(value.is_empty());
}

TEST(SlotReader, WhatTheEndOfTheFileCutsOffReadsAsEmpty) {
  const slot_file file(hex("05 00") + "Al", 100, "x");
  slot_reader reader = file.reader(1);
  ground_rec ground;
  visit_fields(ground, reader);
  EXPECT_FALSE(reader.fault().has_value());
  ASSERT_TRUE(reader.cut().has_value());
  EXPECT_EQ(reader.cut()->field, "country");
  EXPECT_EQ(ground.country, "Al");
  EXPECT_EQ(ground.ground_name, "");
  EXPECT_EQ(ground.start_time, 0);
}

TEST(SlotReader, ATextIsCutWhereItsBytesBegin) {
  slot_reader reader(std::string_view("\x04\0", 2), 1500);
  std::string name;
  reader("name", name);
  EXPECT_EQ(name, "");
  ASSERT_TRUE(reader.cut().has_value());
  EXPECT_EQ(reader.cut()->field, "name");
  ASSERT_TRUE(reader.missing().has_value());
  EXPECT_EQ(reader.missing()->what, "the file ends within this field");
}

TEST(SlotReader, AnEndBetweenTwoFieldsCutsNone) {
  slot_reader reader(std::string_view("\x01\0x", 3), 1500);
  std::string name;
  integer number;
  reader("name", name);
  EXPECT_FALSE(reader.missing().has_value());
  reader("number", number);
  EXPECT_EQ(number, 0);
  EXPECT_FALSE(reader.cut().has_value());
  ASSERT_TRUE(reader.missing().has_value());
  EXPECT_EQ(reader.missing()->field, "number");
  EXPECT_EQ(reader.missing()->what, "the file ends before this field");
}

TEST(SlotFile, LaysRecordsOverTheirSlots) {
  slot_file file(std::string(10, 'x'), 10, "f");
  file.put(1, "ab", {});
  file.put(3, "cd", {});
  EXPECT_EQ(file.bytes(), "abxxxxxxxx" + std::string(10, '\0') + "cd" + std::string(8, '\0'));
}

TEST(SlotFile, EndsAtAFullSlot) {
  slot_file file("xxxxxxxxxxxxx", 10, "f");
  file.put(1, "ab", {});
  EXPECT_EQ(file.bytes(), "abxxxxxxxxxxx" + std::string(7, '\0'));
}

TEST(SlotFile, RefusesARecordBeyondItsSlot) {
  slot_file file({}, 10, "base.rec");
  file.put(1, "0123456789", "Alba");
  const std::string before = file.bytes();
  const auto error = error_of([&] { file.put(2, "0123456789a", "Alba"); });
  EXPECT_EQ(error.kind(), failure::overflow);
  EXPECT_STREQ(error.what(), "Overflow: a record of 11 bytes in a slot of 10 (file base.rec, record 2, at \"Alba\")");
  EXPECT_EQ(file.bytes(), before);
}

TEST(SlotFile, RefusesATextWhoseLengthHasNoPlace) {
  player_rec man;
  man.name = std::string(70000, 'x');
  slot_file file({}, 125, "team1r.txt");
  EXPECT_EQ(error_of([&] { file.put(1, encoded(man), man.name); }).kind(), failure::overflow);
}

}  // namespace
}  // namespace velorin
