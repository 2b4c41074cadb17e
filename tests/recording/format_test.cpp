// SPDX-License-Identifier: GPL-3.0-or-later
// The worked example of docs/formats/recording.md is what is written, and is read as what it tells.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <sstream>
#include <string>

#include "recording/entry_writer.h"
#include "recording/packing.h"
#include "recording/recording.h"

namespace velorin::testing {
namespace {

/// The bytes of the page's blocks of hexadecimal pairs, with a remark behind ";", one behind the other.
std::string bytes_of_page() {
  std::ifstream page(std::string(VELORIN_TEST_DATA) + "/../docs/formats/recording.md");
  std::string bytes;
  bool in_block = false;
  for (std::string line; std::getline(page, line);) {
    if (line.starts_with("```")) {
      in_block = line == "```hex";
      continue;
    }
    if (!in_block) continue;
    std::istringstream pairs(line.substr(0, line.find(';')));
    for (std::string pair; pairs >> pair;) bytes += static_cast<char>(std::stoi(pair, nullptr, 16));
  }
  return bytes;
}

recorded_beginning beginning_of_example() {
  recorded_beginning begun;
  for (std::size_t i = 0; i < begun.id.size(); ++i) begun.id[i] = static_cast<std::uint8_t>(i);
  begun.begun_at = 1000000;
  begun.program = "1.2";
  begun.game = {game_kind::match, {{"Asia", 2, true}, {"Rest", 3, false}}, "Lake", 0, {}};
  team_rec team;
  team.team_name = "Asia";
  team.squad[1].name = "Bo";
  team.squad[1].bat_skill = 30;
  team.squad[1].bowl_sr = 0.5F;
  team.squad[1].econ = 4;
  team.squad[1].is_keeper = -1;
  team.squad[1].bat_type = "RH Opener";
  team.squad[1].bowler_type = "spinner";
  begun.teams = {{2, team}};
  ground_rec ground;
  ground.country = "Asia";
  ground.ground_name = "Lake";
  ground.pitch_bounce = 3;
  ground.pitch_surface = 4;
  ground.start_time = 1030;
  begun.grounds = {ground};
  begun.database = "world";
  begun.text_color = "000000";
  begun.back_color = "FFFFFF";
  begun.chance = random_source::kind::clock;
  begun.chance_state = 0x0102030405060708U;
  return begun;
}

std::string example() {
  entry_writer out;
  out.beginning(beginning_of_example());
  chance_log log;
  log.readings = {1000, 1300};
  out.chance(log);
  out.event(captain_answer{answer_kind::conditions, 0x4321});
  out.event(captain_answer{answer_kind::next_batsman, 3, 5});
  log.readings = {1299};
  log.draws = {0.5};
  out.chance(log);
  out.event(captain_answer{answer_kind::read});
  out.event(recorded_check{0x11223344});
  out.event(recorded_saving{});
  out.event(recorded_end{});
  return out.take();
}

std::string shown(const std::string& bytes) {
  std::ostringstream text;
  for (const char byte : bytes) text << std::hex << (static_cast<unsigned>(byte) & 0xFFU) << ' ';
  return text.str();
}

TEST(RecordingFormat, TheExampleIsWrittenToTheByte) { EXPECT_EQ(shown(example()), shown(bytes_of_page())); }

TEST(RecordingFormat, TheExampleIsReadAsWhatItTells) {
  const recording read = read_recording(bytes_of_page(), "page");
  const recorded_beginning told = beginning_of_example();
  EXPECT_EQ(read.beginning.id, told.id);
  EXPECT_EQ(text_of(read.beginning.id), "000102030405060708090a0b0c0d0e0f");
  EXPECT_EQ(read.beginning.begun_at, 1000000);
  EXPECT_EQ(read.beginning.program, "1.2");
  EXPECT_EQ(read.beginning.game, told.game);
  ASSERT_EQ(read.beginning.teams.size(), 1U);
  EXPECT_EQ(read.beginning.teams[0].first, 2);
  const player_rec& man = read.beginning.teams[0].second.squad[1];
  EXPECT_EQ(man.name, "Bo");
  EXPECT_EQ(man.bat_skill, 30);
  EXPECT_EQ(man.bowl_sr, 0.5F);
  EXPECT_EQ(man.is_keeper, -1);
  EXPECT_EQ(read.beginning.teams[0].second.squad[2].name, "");
  ASSERT_EQ(read.beginning.grounds.size(), 1U);
  EXPECT_EQ(read.beginning.grounds[0].start_time, 1030);
  EXPECT_EQ(read.beginning.database, "world");
  EXPECT_EQ(read.beginning.chance, random_source::kind::clock);
  EXPECT_EQ(read.beginning.chance_state, told.chance_state);
  EXPECT_EQ(read.readings, (std::vector<std::uint64_t>{1000, 1300, 1299}));
  EXPECT_EQ(read.draws, std::vector<double>{0.5});
  const std::vector<recorded_event> events = {captain_answer{answer_kind::conditions, 0x4321},
                                              captain_answer{answer_kind::next_batsman, 3, 5},
                                              captain_answer{answer_kind::read},
                                              recorded_check{0x11223344},
                                              recorded_saving{},
                                              recorded_end{}};
  EXPECT_TRUE(read.events == events);
  EXPECT_TRUE(read.ended());
  EXPECT_EQ(read.whole_bytes, example().size());
}

// The polynomial's check value, as its standard gives it.
TEST(RecordingFormat, TheCheckIsTheCrcOfIeee802) {
  EXPECT_EQ(crc_32("123456789"), 0xCBF43926U);
  EXPECT_EQ(crc_32("6789", crc_32("12345")), 0xCBF43926U);
  EXPECT_EQ(crc_32(""), 0U);
}

TEST(RecordingFormat, BytesSummedOnceGiveTheSameCheckBehindAnyOthers) {
  std::string bytes;
  for (int length = 0; length < 300; ++length) {
    const summed_bytes behind(bytes);
    EXPECT_EQ(behind.crc_32_behind(0), crc_32(bytes)) << length;
    EXPECT_EQ(behind.crc_32_behind(crc_32("ahead")), crc_32("ahead" + bytes)) << length;
    bytes += static_cast<char>(length * 37);
  }
}

TEST(RecordingFormat, ABeginningOfTheSameSquadsHasTheBytesOfTheFirst) {
  recorded_beginning begun = beginning_of_example();
  entry_writer out;
  out.beginning(begun);
  out.take();
  begun.id[0] = 77;
  begun.game.ground = "Elsewhere";
  begun.database = "another";
  for (const bool same_squads : {false, true}) {
    entry_writer fresh;
    fresh.beginning(begun);
    out.start();
    out.beginning(begun, same_squads);
    EXPECT_EQ(shown(out.take()), shown(fresh.take()));
  }
}

TEST(RecordingFormat, WholeNumbersComeBackWhateverTheirSize) {
  packer out;
  const std::vector<std::int64_t> numbers = {0, -1, 1, 63, 64, -64, -65, 1 << 20, INT64_MAX, INT64_MIN};
  for (const std::int64_t number : numbers) out.signed_number(number);
  unpacker in(out.bytes());
  for (const std::int64_t number : numbers) EXPECT_EQ(in.signed_number(), number);
  EXPECT_TRUE(in.done());
}

TEST(RecordingFormat, ANumberOfTooManyBytesIsNone) {
  unpacker in(std::string_view("\xff\xff\xff\xff\xff\xff\xff\xff\xff\x02", 10));
  EXPECT_EQ(in.number(), 0U);
  EXPECT_FALSE(in.whole());
}

}  // namespace
}  // namespace velorin::testing
