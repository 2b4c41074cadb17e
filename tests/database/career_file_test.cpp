// SPDX-License-Identifier: GPL-3.0-or-later
#include <fmt/format.h>
#include <gmock/gmock.h>

#include "database/careers_fixture.h"
#include "database/slots.h"
#include "support/game_in_play.h"

namespace velorin {
namespace {

using testing::bytes_of;
using ::testing::ElementsAre;
using testing::error_of;
using ::testing::HasSubstr;
using testing::names_in;
using testing::write_bytes;

class CareerFile : public testing::careers_fixture {};

TEST_F(CareerFile, ANewManTakesTheNextPlace) {
  update_career(match, data);
  match.first_bowling_card[4].name = "T.New";
  match.batting_card[4].name = "T.New";
  update_career(match, data);
  const career_table table = read_career_table(data);
  EXPECT_EQ(table.teams[1].player_count, 12);
  EXPECT_EQ(table.teams[1].players[12].name, "T.New");
  EXPECT_EQ(table.teams[1].players[12].matches, 1);
  EXPECT_EQ(table.teams[1].players[4].matches, 1) << "the man he replaced";
}

TEST_F(CareerFile, ATwentyFirstPlayerIsASubscriptError) {
  update_career(match, data);
  for (int i = 1; i <= 9; ++i) match.first_bowling_card[i].name = fmt::format("T.New{}", i);
  update_career(match, data);
  EXPECT_EQ(read_career_table(data).teams[1].player_count, 20);
  const std::string before = bytes_of(data.files.career_file);
  match.first_bowling_card[10].name = "T.Last";
  const auto error = error_of([] { update_career(match, data); });
  EXPECT_EQ(error.kind(), failure::subscript);
  EXPECT_THAT(error.what(), HasSubstr("more than 20 players of Tamar with careers (file base.rec, record 2, "
                                      "field players, at \"T.Last\")"));
  EXPECT_EQ(bytes_of(data.files.career_file), before);
}

TEST_F(CareerFile, ATwentyFirstTeamIsASubscriptError) {
  for (int i = 0; i < 10; ++i) {
    match.team1_name = fmt::format("Team {}", 2 * i);
    match.team2_name = fmt::format("Team {}", 2 * i + 1);
    update_career(match, data);
  }
  EXPECT_EQ(read_career_table(data).career_team_count, 20);
  const std::string before = bytes_of(data.files.career_file);
  match.team1_name = "Team 0";
  match.team2_name = "Team 20";
  const auto error = error_of([] { update_career(match, data); });
  EXPECT_EQ(error.kind(), failure::subscript);
  EXPECT_EQ(error.place().file, "base.rec");
  EXPECT_EQ(error.place().player, "Team 20");
  EXPECT_EQ(bytes_of(data.files.career_file), before);
}

TEST_F(CareerFile, ARefusedFirstMatchMakesNoFile) {
  match.first_bowling_card[1].name = std::string(5600, 'x');
  const auto error = error_of([] { update_career(match, data); });
  EXPECT_EQ(error.kind(), failure::overflow);
  EXPECT_THAT(error.what(), HasSubstr("(file base.rec, record 2, at \"Tamar\")"));
  EXPECT_TRUE(names_in(folder).empty()) << "nothing is written";
}

TEST_F(CareerFile, AFigureBeyond32BitsIsAnOverflow) {
  update_career(match, data);
  career_table table = read_career_table(data);
  table.teams[1].players[1].runs = 2147483647 - 49;
  write_career_table(data, table);
  const std::string before = bytes_of(data.files.career_file);
  const auto error = error_of([] { update_career(match, data); });
  EXPECT_EQ(error.kind(), failure::overflow);
  EXPECT_EQ(error.place().field, "runs");
  EXPECT_EQ(error.place().player, "T.Man1");
  EXPECT_EQ(bytes_of(data.files.career_file), before);
}

TEST_F(CareerFile, WithoutUpdatesTheFolderIsOnlyRead) {
  data.files.updates = false;
  update_career(match, data);
  update_records(match, data);
  EXPECT_EQ(read_career_table(data).career_team_count, 0);
  EXPECT_EQ(read_record_lists(data).table_team_count, 0);
  EXPECT_TRUE(names_in(folder).empty());
}

TEST_F(CareerFile, TheFirstReadMakesTheFilesEmpty) {
  EXPECT_EQ(read_career_table(data).career_team_count, 0);
  EXPECT_EQ(read_record_lists(data).table_team_count, 0);
  EXPECT_THAT(names_in(folder), ElementsAre("base.ptr", "base.rec"));
  EXPECT_EQ(bytes_of(data.files.career_file), "");
  EXPECT_EQ(bytes_of(data.files.record_file), "");
  update_career(match, data);
  EXPECT_EQ(read_career_table(data).career_team_count, 2);
}

TEST_F(CareerFile, BytesBehindTheLastFieldAndBeyondTheCountStay) {
  write_bytes(data.files.career_file, testing::hex("00 00") + std::string(5500 * 4 + 10, 'x'));
  update_career(match, data);
  const std::string bytes = bytes_of(data.files.career_file);
  EXPECT_EQ(bytes.size(), 5 * career_slot);
  EXPECT_EQ(bytes.substr(0, 4), testing::hex("02 00 02 00"));
  EXPECT_EQ(bytes.substr(4, 5496), std::string(5496, 'x')) << "behind the count";
  EXPECT_EQ(bytes.substr(3 * career_slot, career_slot), std::string(career_slot, 'x')) << "a slot not in use";
  EXPECT_EQ(bytes.substr(2 * career_slot - 100, 100), std::string(100, 'x')) << "behind the first team";
}

TEST_F(CareerFile, ReservedFieldsAreCarriedAlong) {
  update_career(match, data);
  career_table table = read_career_table(data);
  table.teams[1].players[1].career_reserved_1 = "one";
  table.teams[1].players[1].career_reserved_2 = {1, 2, 3, 4, 5, 6, 7, 8};
  table.teams[1].players[1].career_reserved_4 = "four";
  write_career_table(data, table);
  update_career(match, data);
  const career_rec man = career_of("Tamar", "T.Man1");
  EXPECT_EQ(man.matches, 2);
  EXPECT_EQ(man.career_reserved_1, "one");
  EXPECT_EQ(man.career_reserved_2[7], 8);
  EXPECT_EQ(man.career_reserved_3, "");
  EXPECT_EQ(man.career_reserved_4, "four");
}

class CareerFaults : public testing::database_fixture {
 protected:
  /// A career file with the given count record and one team of `player_count` players.
  void write_careers(const std::string& count, int player_count) {
    slot_file file({}, career_slot, "x");
    career_team_rec team;
    team.team_name = "Alba";
    team.player_count = player_count;
    file.put(1, count, {});
    file.put(2, encoded(team), {});
    write_bytes(data.files.career_file, file.bytes());
  }
  failure kind_of_error() {
    return error_of([] { read_career_table(data); }).kind();
  }
};

TEST_F(CareerFaults, TheCountMayHaveAnyTag) {
  for (const tagged& count : {tagged{std::int32_t{1}}, tagged{1.0}, tagged{std::string("1")}}) {
    write_careers(encoded_field(count), 0);
    EXPECT_EQ(read_career_table(data).career_team_count, 1);
  }
}

TEST_F(CareerFaults, CountsOutOfRange) {
  write_careers(encoded_field(tagged{integer(-1)}), 0);
  EXPECT_EQ(kind_of_error(), failure::type);
  write_careers(encoded_field(tagged{1.5}), 0);
  EXPECT_EQ(kind_of_error(), failure::type);
  write_careers(encoded_field(tagged{std::string("one")}), 0);
  EXPECT_EQ(kind_of_error(), failure::type);
  write_careers(encoded_field(tagged{integer(21)}), 0);
  EXPECT_EQ(kind_of_error(), failure::subscript);
  write_careers(testing::hex("04 00"), 0);
  EXPECT_EQ(kind_of_error(), failure::type);
  write_careers(encoded_field(tagged{integer(1)}), -1);
  EXPECT_EQ(kind_of_error(), failure::type);
  write_careers(encoded_field(tagged{integer(1)}), 21);
  EXPECT_EQ(kind_of_error(), failure::subscript);
}

}  // namespace
}  // namespace velorin
