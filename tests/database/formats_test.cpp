// SPDX-License-Identifier: GPL-3.0-or-later
// The worked examples of docs/formats are the bytes that the files really have.
#include <fmt/format.h>

#include <map>
#include <sstream>

#include "database/database_fixture.h"
#include "database/elevens.h"
#include "database/lasting_records.h"
#include "database/layout.h"
#include "database/world.h"
#include "support/game_in_play.h"

namespace velorin {
namespace {

using testing::bytes_of;
using testing::hex;
using testing::padded;
using testing::write_bytes;

/// The blocks of code of a page by the words behind their opening fence; of two blocks of one kind the first.
std::map<std::string, std::string> blocks_of(const std::string& page) {
  std::istringstream in(bytes_of(std::filesystem::path(VELORIN_TEST_DATA) / ".." / "docs" / "formats" / page));
  std::map<std::string, std::string> blocks;
  std::string line;
  std::optional<std::string> open;
  std::string text;
  while (std::getline(in, line)) {
    if (!line.starts_with("```")) {
      text += line + "\n";
    } else if (open) {
      blocks.emplace(*open, text);
      open.reset();
    } else {
      open = line.substr(3);
      text.clear();
    }
  }
  return blocks;
}

/// The bytes of an example: lines of hexadecimal pairs, or "00 x count", with a remark behind ";".
std::string example_bytes(const std::string& block) {
  std::istringstream in(block);
  std::string bytes;
  for (std::string line; std::getline(in, line);) {
    line.resize(std::min(line.size(), line.find(';')));
    const std::size_t times = line.find(" x ");
    if (times == std::string::npos) {
      bytes += hex(line);
    } else {
      bytes.append(std::stoul(line.substr(times + 3)), '\0');
    }
  }
  return bytes;
}

/// Compares every record that a page shows with the file, and counts them.
int compare_records(const std::string& page, const std::filesystem::path& file, std::size_t slot) {
  const std::string bytes = bytes_of(file);
  int records = 0;
  for (const auto& [name, block] : blocks_of(page)) {
    if (!name.starts_with("hex record ")) continue;
    ++records;
    const std::size_t record = std::stoul(name.substr(11));
    EXPECT_GE(bytes.size(), record * slot) << page << " " << name;
    if (bytes.size() < record * slot) continue;
    EXPECT_EQ(bytes.substr((record - 1) * slot, slot), padded(example_bytes(block), slot)) << page << " " << name;
  }
  return records;
}

class FormatPages : public testing::database_fixture {
 protected:
  /// The two records of a page as a file.
  static std::string file_on(const std::string& page) {
    const auto blocks = blocks_of(page);
    return padded(example_bytes(blocks.at("hex record 1")), team_slot) +
           padded(example_bytes(blocks.at("hex record 2")), team_slot);
  }
  /// The table of a page with the line ends of a dump.
  static std::string table_on(const std::string& page) {
    const std::string lines = blocks_of(page).at("csv");
    std::string table;
    for (const char c : lines) table += c == '\n' ? "\r\n" : std::string(1, c);
    return table;
  }
};

TEST_F(FormatPages, TeamsAndGrounds) {
  write_bytes(data.files.team_file, file_on("team.md"));
  write_bytes(data.files.ground_file, file_on("grd.md"));
  dump_database(data.files, folder / "dump");
  EXPECT_EQ(bytes_of(folder / "dump" / "players.csv"), table_on("team.md"));
  EXPECT_EQ(bytes_of(folder / "dump" / "grounds.csv"), table_on("grd.md"));
}

TEST_F(FormatPages, Careers) {
  career_table table;
  table.career_team_count = 1;
  table.teams[1].team_name = "Alba";
  table.teams[1].player_count = 1;
  career_rec& man = table.teams[1].players[1];
  man.name = "R.M.Halden";
  man.matches = 3;
  man.innings = 2;
  man.runs = 71;
  man.balls_faced = 80;
  man.fours = 6;
  man.sixes = 1;
  man.twos = 8;
  man.threes = 1;
  man.singles = 22;
  man.dots = 42;
  man.wickets = 4;
  man.catches = 2;
  man.balls_bowled = 120;
  man.maidens = 1;
  man.runs_given = 88;
  man.fifties = 1;
  man.not_outs = 1;
  man.best_wickets = 3;
  man.best_runs = 29;
  man.high_score = 64;
  man.high_not_out = flag_true;
  man.high_against = "Tamar";
  man.best_against = "Corran";
  write_career_table(data, table);
  EXPECT_EQ(compare_records("rec.md", data.files.career_file, career_slot), 2);
  EXPECT_EQ(bytes_of(data.files.career_file).size(), 11000U);
}

void fill_lists(record_lists& lists) {
  lists.top_scores[1] = {"R.M.Halden", 64, 71, "Alba", "Tamar", "Harbour Park", flag_true};
  lists.top_bowling[1] = {"K.Orr", 29, 54, 3, "Alba", "Tamar", "Harbour Park"};
  lists.highest_totals[1] = {231, 300, 8, "Alba", "Tamar", "Harbour Park"};
  lists.lowest_totals[1] = {174, 262, 10, "Tamar", "Alba", "Harbour Park"};
  for (int i = 2; i <= 15; ++i) lists.lowest_totals[i].total = no_total_yet;
  lists.partnerships[1] = {88, "16.2", 88, 98, 98, "R.M.Halden", "K.Orr * ", {}, "Alba", "Tamar", "Harbour Park"};
}

team_table alba_row() {
  const std::string tamar = "Tamar";
  const std::string park = "Harbour Park";
  team_table row;
  row.away_won = {2.0};
  row.home_won = {1.0};
  row.high_for = {std::string("231")};
  row.high_for_against = {tamar};
  row.high_for_venue = {park};
  row.high_against = {integer(174)};
  row.high_against_by = {tamar};
  row.high_against_venue = {park};
  row.low_for = {integer(1000)};
  row.low_against = {integer(174)};
  row.low_against_by = {tamar};
  row.low_against_venue = {park};
  row.team_name = {std::string("Alba")};
  return row;
}

TEST_F(FormatPages, Records) {
  record_lists lists;
  fill_lists(lists);
  lists.table_team_count = 1;
  lists.teams[1] = alba_row();
  write_record_lists(data, lists);
  EXPECT_EQ(compare_records("ptr.md", data.files.record_file, records_slot), 7 + 19);
  EXPECT_EQ(bytes_of(data.files.record_file).size(), 90 * records_slot);
}

TEST_F(FormatPages, Elevens) {
  eleven men;
  men[1].name = "R.M.Halden";
  men[1].bat_skill = 42;
  men[1].bowl_sr = 31.5F;
  men[1].econ = 4.7F;
  men[1].bat_type = "RH Opener";
  men[1].bowler_type = "Medium Pacer";
  write_eleven(data, side::first, men);
  EXPECT_EQ(compare_records("elevens.md", folder / "team1r.txt", eleven_slot), 1);
  EXPECT_EQ(bytes_of(folder / "team1r.txt").size(), 1375U);
}

TEST_F(FormatPages, Options) {
  data.settings = {"/srv/photos", "world", "101010", "F4ECD8", "Sans Serif"};
  write_options(data);
  EXPECT_EQ(bytes_of(folder / "options.mc"), example_bytes(blocks_of("options.md").at("hex file")));
}

}  // namespace
}  // namespace velorin
