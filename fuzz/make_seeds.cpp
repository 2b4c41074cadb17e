// SPDX-License-Identifier: GPL-3.0-or-later
// Makes the first inputs of the targets that read binary files, in the folders of those targets below the one folder
// given: small databases and careers, whole and cut short. The inputs that are text stand there by hand.
#include <cmath>
#include <cstdio>
#include <initializer_list>
#include <vector>

#include "database/configuration.h"
#include "database/lasting_records.h"
#include "database/slots.h"
#include "database/teams_file.h"
#include "finished_match.h"
#include "model/match_state.h"
#include "slots_of.h"
#include "support.h"
#include "support/game_in_play.h"

namespace velorin::fuzz {
namespace {

namespace fs = std::filesystem;

/// A file of the first records of another.
std::string first_records(const std::string& file, std::size_t slot_length, int count) {
  slot_file records(file.substr(0, (static_cast<std::size_t>(count) + 1) * slot_length), slot_length, {});
  records.put(1, encoded_field(integer(count)), {});
  return records.bytes();
}

void make_teams(const fs::path& folder) {
  const std::string teams = bytes_of(data.files.team_file);
  const std::string two = first_records(teams, team_slot, 2);
  write_bytes(folder / "two-teams", '\0' + folded(two, team_slot));
  write_bytes(folder / "two-teams-play", '\1' + folded(two, team_slot));
  write_bytes(folder / "two-teams-dump", '\2' + folded(two, team_slot));
  write_bytes(folder / "team-cut-short", '\0' + folded(two.substr(0, two.size() - team_slot / 2 - 400), team_slot));
  slot_file odd(two, team_slot, {});
  team_rec numberless = read_team(data, 2);
  for (player_rec& man : numberless.squad) man.bowl_sr = man.econ = std::nanf("");
  odd.put(2, encoded(numberless), {});
  write_bytes(folder / "no-numbers-play", '\1' + folded(odd.bytes(), team_slot));
  write_bytes(folder / "no-team", '\0' + folded(first_records(teams, team_slot, 0), team_slot));
  write_bytes(folder / "more-teams-than-records", '\0' + folded("\x14" + two.substr(1), team_slot));
  team_rec small;
  small.team_name = "Alba";
  small.team_flag = 3;
  small.squad[1] = read_team(data, 2).squad[1];
  small.squad[1].reserved.fill("kept");
  slot_file one({}, team_slot, {});
  one.put(1, encoded_field(integer(1)), {});
  one.put(2, encoded(small), {});
  write_bytes(folder / "one-man", '\2' + folded(one.bytes(), team_slot));
}

void make_grounds(const fs::path& folder) {
  const std::string grounds = bytes_of(data.files.ground_file);
  const std::string two = first_records(grounds, team_slot, 2);
  write_bytes(folder / "all", '\1' + folded(grounds, team_slot));
  write_bytes(folder / "all-dump", '\2' + folded(grounds, team_slot));
  write_bytes(folder / "two", '\0' + folded(two, team_slot));
  write_bytes(folder / "two-dump", '\2' + folded(two, team_slot));
  write_bytes(folder / "cut-short", '\0' + folded(two.substr(0, 2 * team_slot + 15), team_slot));
  write_bytes(folder / "none", '\2' + folded(first_records(grounds, team_slot, 0), team_slot));
}

void make_careers(const fs::path& folder) {
  const std::string rec = bytes_of(data.files.career_file);
  for (const int choice : {3, 6, 9, 12, 13, 14, 16, 24, 28}) {
    write_bytes(folder / ("match-" + std::to_string(choice)), static_cast<char>(choice) + folded(rec, career_slot));
  }
  write_bytes(folder / "cut-short", '\0' + folded(rec.substr(0, career_slot + 200), career_slot));
  career_table careers = read_career_table(data.files.career_file);
  careers.career_team_count = 1;
  careers.teams[1].player_count = 2;
  for (int p = 3; p <= player_limit; ++p) careers.teams[1].players[p] = career_rec();
  careers.teams[1].players[1].career_reserved_1 = "kept";
  careers.teams[1].players[2].runs = 2'147'483'640;
  fs::remove(data.files.career_file);
  write_career_table(data, careers);
  for (const int choice : {1, 4, 11, 12, 15, 16, 24, 28}) {
    write_bytes(folder / ("two-men-" + std::to_string(choice)),
                static_cast<char>(choice) + folded(bytes_of(data.files.career_file), career_slot));
  }
}

/// Writes an input for each choice with the file of these lists.
void make_records_of(const record_lists& lists, const fs::path& name, std::initializer_list<int> choices) {
  fs::remove(data.files.record_file);
  write_record_lists(data, lists);
  for (const int choice : choices) {
    write_bytes(name.native() + "-" + std::to_string(choice),
                static_cast<char>(choice) + folded(bytes_of(data.files.record_file), records_slot));
  }
}

void make_records(const fs::path& folder) {
  const std::string ptr = bytes_of(data.files.record_file);
  write_bytes(folder / "cut-short", '\5' + folded(ptr.substr(0, 80 * records_slot + 3), records_slot));
  make_records_of(read_record_lists(data), folder / "match", {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 12, 14});
  record_lists lists;
  lists.table_team_count = 1;
  team_table& team = lists.teams[1];
  team.away_won.value = std::int32_t{70'000};
  team.away_lost.value = 1e300;
  team.home_won.value = std::string("12");
  team.high_for.value = std::string(" 231 ");
  team.low_for.value = integer(no_total_yet);
  team.team_name.value = std::string("Alba");
  make_records_of(lists, folder / "every-tag", {5, 6, 7, 8, 9, 10, 12, 14});
  team.home_won.value = team.away_won.value = 1.7e308;
  make_records_of(lists, folder / "beyond-double", {5, 6, 12, 14});
}

void make_elevens(const fs::path& folder) {
  stage_finished_match();
  slot_file both({}, eleven_slot, {});
  for (int i = 1; i <= 11; ++i) {
    both.put(i, encoded(match.batting_xi[i]), {});
    both.put(i + 11, encoded(match.bowling_xi[i]), {});
  }
  const std::string bytes = both.bytes();
  write_bytes(folder / "match", folded(bytes, eleven_slot));
  write_bytes(folder / "one-man", folded(bytes.substr(0, eleven_slot), eleven_slot));
  write_bytes(folder / "cut-short", folded(bytes.substr(0, 12 * eleven_slot + 20), eleven_slot));
}

void make_seeds(const fs::path& corpus) {
  const auto folder = [&corpus](const char* target) {
    fs::create_directories(corpus / target);
    return corpus / target;
  };
  lay_out_database();
  make_teams(folder("team_file"));
  make_grounds(folder("ground_file"));
  make_careers(folder("career_file"));
  make_records(folder("record_file"));
  make_elevens(folder("elevens"));
}

}  // namespace
}  // namespace velorin::fuzz

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage: fuzz-seeds CORPUS_DIR\n", stderr);
    return 2;
  }
  velorin::fuzz::make_seeds(argv[1]);
  return 0;
}
