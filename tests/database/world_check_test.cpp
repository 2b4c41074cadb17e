// SPDX-License-Identifier: GPL-3.0-or-later
#include <fmt/format.h>
#include <gmock/gmock.h>

#include <limits>
#include <memory>

#include "database/career_update.h"
#include "database/database_fixture.h"
#include "database/slots.h"
#include "database/world.h"
#include "support/game_in_play.h"

namespace velorin {
namespace {

using testing::bytes_of;
using ::testing::ElementsAre;
using testing::hex;
using ::testing::IsEmpty;
using testing::write_bytes;

player_rec man_called(const std::string& name) {
  player_rec man;
  man.name = name;
  man.bat_skill = 30;
  man.bowl_sr = 40;
  man.econ = 5;
  man.bat_type = "RH Opener";
  man.bowler_type = "anything goes";
  return man;
}

/// A sound team of eleven players.
team_rec team_called(const std::string& name) {
  team_rec team;
  team.team_name = name;
  team.squad[1] = man_called("One");
  team.squad[2] = man_called("Two");
  for (int i = 3; i <= 11; ++i) team.squad[i] = man_called(fmt::format("Man{}", i));
  return team;
}

ground_rec ground_in(const std::string& country) {
  ground_rec ground;
  ground.country = country;
  ground.ground_name = "Park";
  ground.pitch_bounce = 1;
  ground.pitch_surface = 4;
  ground.start_time = 1030;
  return ground;
}

class WorldCheck : public testing::database_fixture {
 protected:
  void SetUp() override {
    database_fixture::SetUp();
    write_teams(2, {team_called("Alba"), team_called("Tamar")});
    write_grounds(2, {ground_in("Alba"), ground_in("Neutral")});
  }

  void write_teams(int count, const std::vector<team_rec>& teams) { write_counted(data.files.team_file, count, teams); }
  void write_grounds(int count, const std::vector<ground_rec>& grounds) {
    write_counted(data.files.ground_file, count, grounds);
  }

  /// The faults as lines.
  std::vector<std::string> faults() const {
    std::vector<std::string> lines;
    for (const database_fault& fault : check_database(data.files)) {
      lines.push_back(fmt::format("{}:{}:{}: {}", fault.file, fault.record, fault.field, fault.what));
    }
    return lines;
  }

  /// The files that a match leaves.
  static void play() {
    testing::set_up_finished_match();
    update_career(match, data);
    update_records(match, data);
  }

 private:
  template <typename Record>
  static void write_counted(const std::filesystem::path& path, int count, const std::vector<Record>& records) {
    slot_file file({}, team_slot, "x");
    file.put(1, encoded_field(integer(count)), {});
    for (std::size_t i = 0; i < records.size(); ++i) file.put(static_cast<long>(i) + 2, encoded(records[i]), {});
    write_bytes(path, file.bytes());
  }
};

TEST_F(WorldCheck, ASoundDatabaseHasNoFaults) {
  EXPECT_THAT(faults(), IsEmpty());
  play();
  play();
  EXPECT_THAT(faults(), IsEmpty()) << "nor after matches";
}

TEST_F(WorldCheck, MissingFiles) {
  std::filesystem::remove(data.files.team_file);
  EXPECT_THAT(faults(), ElementsAre("base.team:0:: the file is missing")) << "the grounds are not judged by no team";
  std::filesystem::remove(data.files.ground_file);
  EXPECT_THAT(faults(), ElementsAre("base.team:0:: the file is missing", "base.grd:0:: the file is missing"));
}

TEST_F(WorldCheck, AFileThatCannotBeRead) {
  std::filesystem::create_directory(data.files.career_file);
  EXPECT_THAT(faults(), ElementsAre("base.rec:0:: The file cannot be read: Is a directory (file base.rec)"));
}

TEST_F(WorldCheck, ALinkThatLeadsNowhereIsOneFault) {
  play();
  for (const auto& path :
       {data.files.team_file, data.files.ground_file, data.files.career_file, data.files.record_file}) {
    const std::string name = path.filename().string();
    const std::string whole = bytes_of(path);
    std::filesystem::remove(path);
    std::filesystem::create_symlink(name, path);
    const bool is_records = path == data.files.record_file;
    EXPECT_THAT(faults(), ElementsAre(fmt::format(
                              "{}:0:: {}: Too many levels of symbolic links (file {})", name,
                              is_records ? "The link cannot be followed" : "The file cannot be opened", name)));
    std::filesystem::remove(path);
    write_bytes(path, whole);
  }
}

TEST_F(WorldCheck, EveryFaultOfATeam) {
  team_rec team = team_called("Alba");
  team.squad[1].bat_skill = 0;
  team.squad[1].bowl_sr = 0;
  team.squad[1].econ = std::numeric_limits<float>::infinity();
  team.squad[1].is_keeper = 1;
  team.squad[1].bat_type = "RH Bowler";
  team.squad[2].name = std::string(95 - 9 - 13 + 1, 'x');
  team.squad[3].bat_skill = 1001;
  team.squad[4].bowl_sr = 1000.5F;
  team.squad[5].econ = 36.5F;
  team.squad[13] = man_called("Thirteen");
  write_teams(2, {team_called("Alba"), team});
  EXPECT_THAT(faults(), ElementsAre("base.team:3:team_name: a second team called \"Alba\"",
                                    "base.team:3:squad[1].bat_skill: 0, must be from 1 to 1000 (One)",
                                    "base.team:3:squad[1].bowl_sr: 0, must be above 0 and at most 1000 (One)",
                                    "base.team:3:squad[1].econ: not a number, must be above 0 and at most 36 (One)",
                                    "base.team:3:squad[1].is_keeper: 1 is no flag (-1 or 0) (One)",
                                    "base.team:3:squad[1].bat_type: \"Bowler\" is no known role (One)",
                                    "base.team:3:squad[2].name: an eleven's record of 126 bytes, at most 125 (" +
                                        std::string(74, 'x') + ")",
                                    "base.team:3:squad[3].bat_skill: 1001, must be from 1 to 1000 (Man3)",
                                    "base.team:3:squad[4].bowl_sr: 1000.5, must be above 0 and at most 1000 (Man4)",
                                    "base.team:3:squad[5].econ: 36.5, must be above 0 and at most 36 (Man5)",
                                    "base.team:3:squad[13].name: a player behind a free place (Thirteen)"));
}

TEST_F(WorldCheck, FreePlacesHoldWhatATableCanKeep) {
  team_rec team = team_called("Alba");
  team.squad[12].bat_skill = -5;
  team.squad[12].econ = -5;
  team.squad[12].bowler_type = "left behind";
  write_teams(2, {team, team_called("Tamar")});
  EXPECT_THAT(faults(), IsEmpty());
  team.squad[12].bowl_sr = std::numeric_limits<float>::quiet_NaN();
  team.squad[13].is_keeper = 7;
  team.squad[14].reserved[5] = "a\tb";
  write_teams(2, {team, team_called("Tamar")});
  EXPECT_THAT(faults(), ElementsAre("base.team:2:squad[12].bowl_sr: not a number",
                                    "base.team:2:squad[13].is_keeper: 7 is no flag (-1 or 0)",
                                    "base.team:2:squad[14].reserved_6: \"a\tb\" has a control character"));
}

TEST_F(WorldCheck, TheLeastThatCanBePlayed) {
  team_rec ten = team_called("Tamar");
  ten.squad[11] = player_rec();
  write_teams(2, {team_called("Alba"), ten});
  EXPECT_THAT(faults(), ElementsAre("base.team:3:squad: 10 players, at least 11"));
  write_teams(1, {team_called("Alba")});
  EXPECT_THAT(faults(), ElementsAre("base.team:1:team_count: 1 team, at least 2"));
  write_teams(3, {team_called("Alba"), team_called("Tamar"), team_called("Zoll")});
  write_grounds(1, {ground_in("Alba")});
  EXPECT_THAT(faults(), ElementsAre("base.grd:0:country: no ground for \"Tamar\" against \"Zoll\""));
  write_grounds(2, {ground_in("Alba"), ground_in("Zoll")});
  EXPECT_THAT(faults(), IsEmpty());
}

TEST_F(WorldCheck, ControlCharactersInAnyText) {
  team_rec team = team_called("Al\nba");
  team.squad[1].bat_type = "R\x1BHOpener";
  team.squad[2].bowler_type = "a\x81z";
  ground_rec ground = ground_in("Neutral");
  ground.ground_name = "The\rPark";
  write_teams(2, {team, team_called("Tamar")});
  write_grounds(1, {ground});
  EXPECT_THAT(faults(), ElementsAre("base.team:2:team_name: \"Al\nba\" has a control character",
                                    "base.team:2:squad[1].bat_type: \"R\x1BHOpener\" has a control character (One)",
                                    "base.team:2:squad[2].bowler_type: \"a\x81z\" has a control character (Two)",
                                    "base.grd:2:ground_name: \"The\rPark\" has a control character"));
}

TEST_F(WorldCheck, CountsOfTeamsAndGrounds) {
  write_teams(-1, {});
  write_grounds(-2, {});
  EXPECT_THAT(faults(),
              ElementsAre("base.team:1:team_count: -1 is no count", "base.grd:1:ground_count: -2 is no count"));
  std::vector<team_rec> teams;
  for (int i = 0; i < 21; ++i) teams.push_back(team_called(fmt::format("Team {}", i)));
  write_teams(21, teams);
  write_grounds(1, {ground_in("Neutral")});
  EXPECT_THAT(faults(), ElementsAre("base.team:1:team_count: a count of 21, at most 20"));
}

TEST_F(WorldCheck, RecordsBeyondTheFile) {
  write_teams(3, {team_called("Alba"), team_called("Tamar")});
  EXPECT_THAT(faults(), ElementsAre("base.team:4:: the file ends before this record"));
}

TEST_F(WorldCheck, WhereTheEndOfTheFileComesEarly) {
  const auto cut_at = [this](std::size_t bytes) {
    std::filesystem::resize_file(data.files.team_file, 3000 + bytes);
    return faults();
  };
  EXPECT_THAT(cut_at(9), ElementsAre("base.team:3:squad[1].name: the file ends before this field"));
  EXPECT_THAT(cut_at(8), ElementsAre("base.team:3:team_flag: the file ends within this field"));
  EXPECT_THAT(cut_at(7), ElementsAre("base.team:3:team_flag: the file ends before this field"));
  EXPECT_THAT(cut_at(4), ElementsAre("base.team:3:team_name: the file ends within this field"));
  EXPECT_THAT(cut_at(2), ElementsAre("base.team:3:team_name: the file ends within this field")) << "where it begins";
  EXPECT_THAT(cut_at(0), ElementsAre("base.team:3:: the file ends before this record"));
}

TEST_F(WorldCheck, TextsBeyondTheirSlots) {
  std::string bytes = bytes_of(data.files.team_file);
  bytes[1501] = '\x7F';
  write_bytes(data.files.team_file, bytes);
  bytes = bytes_of(data.files.ground_file);
  bytes[3001] = '\x7F';
  write_bytes(data.files.ground_file, bytes);
  EXPECT_THAT(faults(), ElementsAre("base.team:2:team_name: 32516 bytes from byte 2 on run beyond the slot of 1500",
                                    "base.grd:2:country: \"Alba\" is neither a team nor \"Neutral\"",
                                    "base.grd:3:country: 32519 bytes from byte 2 on run beyond the slot of 1500"));
}

TEST_F(WorldCheck, EveryFaultOfAGround) {
  ground_rec ground = ground_in("Atlantis");
  ground.ground_name = "";
  ground.pitch_bounce = 0;
  ground.pitch_surface = 5;
  ground.start_time = 930;
  write_grounds(1, {ground});
  EXPECT_THAT(
      faults(),
      ElementsAre("base.grd:2:country: \"Atlantis\" is neither a team nor \"Neutral\"",
                  "base.grd:2:ground_name: the ground has no name", "base.grd:2:pitch_bounce: 0, must be from 1 to 4",
                  "base.grd:2:pitch_surface: 5, must be from 1 to 4", "base.grd:2:start_time: 930 has not four digits",
                  "base.grd:0:country: no ground for \"Alba\" against \"Tamar\""));
}

TEST_F(WorldCheck, EveryFaultOfACareer) {
  career_table table;
  table.career_team_count = 2;
  table.teams[1].team_name = "Alba";
  table.teams[2].team_name = "Alba";
  table.teams[1].player_count = 2;
  career_rec& man = table.teams[1].players[1];
  man.matches = 2;
  man.innings = 3;
  man.not_outs = 4;
  man.hundreds = 2;
  man.fifties = 2;
  man.five_wickets = 3;
  man.runs = -1;
  man.wickets = 300;
  man.high_not_out = 1;
  table.teams[2].player_count = 2;
  table.teams[2].players[1].name = "Twin";
  table.teams[2].players[2].name = "Twin";
  table.teams[1].players[2].name = "Sound";
  write_career_table(data, table);
  EXPECT_THAT(
      faults(),
      ElementsAre("base.rec:2:players[1].name: a career without a name", "base.rec:2:players[1].runs: -1 is below 0",
                  "base.rec:2:players[1].high_not_out: 1 is no flag (-1 or 0)",
                  "base.rec:2:players[1].innings: 3 in 2 matches", "base.rec:2:players[1].not_outs: 4 in 3 innings",
                  "base.rec:2:players[1].fifties: 4 in 3 innings", "base.rec:2:players[1].five_wickets: 3 in 2 matches",
                  "base.rec:3:team_name: a second team called \"Alba\"",
                  "base.rec:3:players[2].name: a second career of \"Twin\"",
                  "base.rec:2:team_name: \"Alba\" has no row in the team table",
                  "base.rec:3:team_name: \"Alba\" has no row in the team table"));
}

TEST_F(WorldCheck, CountsOfCareers) {
  const auto with_count = [&](const std::string& count, int players) {
    slot_file file({}, career_slot, "x");
    const auto team = std::make_unique<career_team_rec>();
    team->team_name = "Alba";
    team->player_count = players;
    file.put(1, count, {});
    file.put(2, encoded(*team), {});
    write_bytes(data.files.career_file, file.bytes());
    return faults();
  };
  EXPECT_THAT(with_count(hex("04 00 01 00"), 0), ElementsAre("base.rec:1:career_team_count: unknown tag 4"));
  EXPECT_THAT(with_count(hex("02 00 FF FF"), 0), ElementsAre("base.rec:1:career_team_count: -1 is no count"));
  EXPECT_THAT(with_count(hex("08 00 01 00 78"), 0),
              ElementsAre("base.rec:1:career_team_count: a value that is no number"));
  EXPECT_THAT(with_count(hex("02 00 01 00"), -1), ElementsAre("base.rec:2:player_count: -1 is no count"));
  EXPECT_THAT(with_count(hex("02 00 01 00"), 0),
              ElementsAre("base.rec:2:team_name: \"Alba\" has no row in the team table"));
  const auto many = with_count(hex("02 00 01 00"), 21);
  ASSERT_EQ(many.size(), 21U) << "and twenty places without a name";
}

TEST_F(WorldCheck, EveryFaultOfTheRecords) {
  record_lists lists;
  lists.top_scores[1].not_out = 2;
  lists.top_scores[15].runs = -1;
  lists.top_bowling[1].wickets = 11;
  lists.highest_totals[2].balls = -300;
  lists.lowest_totals[15].wickets = 12;
  lists.partnerships[10].partner_runs = -5;
  lists.table_team_count = 3;
  lists.teams[1].team_name = {std::string("Alba")};
  lists.teams[1].away_won = {std::string("many")};
  lists.teams[1].home_lost = {-1.0};
  lists.teams[2].team_name = {std::string("Alba")};
  lists.teams[3].team_name = {integer(5)};
  write_record_lists(data, lists);
  EXPECT_THAT(faults(),
              ElementsAre("base.ptr:1:not_out: 2 is no flag (-1 or 0)", "base.ptr:15:runs: -1 is below 0",
                          "base.ptr:16:wickets: 11 wickets in an innings", "base.ptr:32:balls: -300 is below 0",
                          "base.ptr:60:wickets: 12 wickets in an innings", "base.ptr:70:partner_runs: -5 is below 0",
                          "base.ptr:72:away_won: a value that is no number", "base.ptr:77:home_lost: -1 is below 0",
                          "base.ptr:91:away_won: a team that has played no match",
                          "base.ptr:109:team_name: a second team called \"Alba\"",
                          "base.ptr:110:away_won: a team that has played no match",
                          "base.ptr:128:team_name: a team without a name"));
}

TEST_F(WorldCheck, BytesOfTheRecordsThatCannotBeRead) {
  play();
  std::string bytes = bytes_of(data.files.record_file);
  bytes[1] = '\x7F';                        // the first player's name
  bytes[(73 - 1) * records_slot] = '\x04';  // the tag of Tamar's away_tied
  bytes.resize((90 - 1) * records_slot + 3);
  bytes[(71 - 1) * records_slot + 2] = '\x01';
  bytes[(90 - 1) * records_slot] = '\x08';
  write_bytes(data.files.record_file, bytes);
  EXPECT_THAT(faults(),
              ElementsAre("base.ptr:90:team_name: the file ends within this field",
                          "base.ptr:1:player: 32518 bytes from byte 2 on run beyond the slot of 2500",
                          "base.ptr:73:away_tied: unknown tag 4", "base.ptr:90:team_name: a team without a name"));
}

}  // namespace
}  // namespace velorin
