// SPDX-License-Identifier: GPL-3.0-or-later
#include <fmt/format.h>
#include <gmock/gmock.h>

#include "database/records_fixture.h"
#include "database/slots.h"
#include "support/game_in_play.h"

namespace velorin {
namespace {

using testing::bytes_of;
using testing::error_of;
using ::testing::HasSubstr;
using testing::write_bytes;

class RecordFile : public testing::records_fixture {};

TEST_F(RecordFile, TheFileHasItsRecordsWhereTheyBelong) {
  update_records(match, data);
  const std::string bytes = bytes_of(data.files.record_file);
  EXPECT_EQ(bytes.size(), (71 + 2 * 19) * records_slot);
  EXPECT_EQ(bytes.substr(70 * records_slot, 4), testing::hex("02 00 02 00"));
  EXPECT_EQ(bytes.substr(71 * records_slot, 2), testing::hex("00 00")) << "Tamar's away_won";
  EXPECT_EQ(bytes.substr((71 + 19 + 3) * records_slot, 10), testing::hex("05 00 00 00 00 00 00 00 F0 3F"))
      << "Alba's home_won";
}

TEST_F(RecordFile, ATwentySixthTeamIsASubscriptError) {
  set_up_quiet_match();
  for (int i = 0; i < 25; ++i) {
    match.team1_name = fmt::format("Team {}", i);
    match.team2_name = "Team 0";
    update_records(match, data);
  }
  EXPECT_EQ(read_record_lists(data).table_team_count, 25);
  EXPECT_EQ(bytes_of(data.files.record_file).size(), (71 + 25 * 19) * records_slot);
  const std::string before = bytes_of(data.files.record_file);
  match.team2_name = "Team 25";
  const auto error = error_of([] { update_records(match, data); });
  EXPECT_EQ(error.kind(), failure::subscript);
  EXPECT_EQ(error.place().file, "base.ptr");
  EXPECT_EQ(error.place().player, "Team 25");
  EXPECT_EQ(bytes_of(data.files.record_file), before);
}

TEST_F(RecordFile, AScoreBeyond16BitsIsAnOverflow) {
  update_records(match, data);
  const std::string before = bytes_of(data.files.record_file);
  match.score_runs = 32768;
  EXPECT_EQ(error_of([] { update_records(match, data); }).kind(), failure::overflow);
  EXPECT_EQ(bytes_of(data.files.record_file), before);
}

TEST_F(RecordFile, ALineBeyondItsSlotIsRefused) {
  update_records(match, data);
  const std::string before = bytes_of(data.files.record_file);
  match.ground.ground_name = std::string(2500, 'x');
  match.batting_card[1].runs = 200;
  const auto error = error_of([] { update_records(match, data); });
  EXPECT_EQ(error.kind(), failure::overflow);
  EXPECT_THAT(error.what(), HasSubstr("(file base.ptr, record 1, at \"T.Man1\")"));
  EXPECT_EQ(bytes_of(data.files.record_file), before);
}

TEST_F(RecordFile, AFieldOfTheTeamTableBeyondItsSlotNamesTheTeam) {
  set_up_quiet_match();
  match.ground.ground_name = std::string(2497, 'x');
  match.first_total = 0;
  match.score_runs = 1;
  // 2497 characters fill a Tagged slot by one too many, and a line of the totals by far.
  EXPECT_EQ(error_of([] { update_records(match, data); }).kind(), failure::overflow);
  record_lists lists;
  lists.table_team_count = 1;
  lists.teams[1].team_name = {std::string("Alba")};
  lists.teams[1].high_for_venue = {std::string(2497, 'x')};
  const auto error = error_of([&] { write_record_lists(data, lists); });
  EXPECT_EQ(error.kind(), failure::overflow);
  EXPECT_EQ(error.place().record, 80);
  EXPECT_EQ(error.place().field, "high_for_venue");
  EXPECT_EQ(error.place().player, "Alba");
  lists.teams[1].high_for_venue = {std::string(2496, 'x')};
  write_record_lists(data, lists);
  EXPECT_EQ(read_record_lists(data).teams[1].high_for_venue.text().size(), 2496U);
}

TEST_F(RecordFile, ACounterThatIsNoNumberIsATypeMismatch) {
  update_records(match, data);
  record_lists lists = read_record_lists(data);
  lists.teams[2].home_won = {std::string("many")};
  write_record_lists(data, lists);
  const auto error = error_of([] { read_record_lists(data); });
  EXPECT_EQ(error.kind(), failure::type);
  EXPECT_THAT(error.what(), HasSubstr("\"many\" is no number (file base.ptr, record 94, field home_won)"));
}

TEST_F(RecordFile, CountsOutOfRange) {
  const auto kind_of = [&](const tagged& count) {
    slot_file file({}, records_slot, "x");
    file.put(table_count_record, encoded_field(count), {});
    write_bytes(data.files.record_file, file.bytes());
    return error_of([] { read_record_lists(data); }).kind();
  };
  EXPECT_EQ(kind_of({integer(-1)}), failure::type);
  EXPECT_EQ(kind_of({integer(26)}), failure::subscript);
  EXPECT_EQ(kind_of({std::string("x")}), failure::type);
}

TEST_F(RecordFile, ATextBeyondItsSlotIsATypeMismatch) {
  update_records(match, data);
  std::string bytes = bytes_of(data.files.record_file);
  bytes[16 * records_slot + 1] = '\x7F';
  write_bytes(data.files.record_file, bytes);
  const auto error = error_of([] { read_record_lists(data); });
  EXPECT_EQ(error.kind(), failure::type);
  EXPECT_EQ(error.place().record, 17);
  EXPECT_EQ(error.place().field, "player");
}

}  // namespace
}  // namespace velorin
