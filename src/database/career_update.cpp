// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/career_update.h"

#include <fmt/format.h>

#include "database/agreement.h"
#include "database/configuration.h"
#include "database/counted_matches.h"
#include "database/lasting_records.h"
#include "database/match_keeper.h"
#include "database/open_database.h"
#include "database/record_update.h"
#include "database/slots.h"
#include "database/whole_file.h"
#include "model/match_state.h"
#include "model/rules.h"
#include "model/run_time_error.h"
#include "model/texts.h"

namespace velorin {

namespace {

/// One side of the match as its careers need it.
struct side_books {
  const std::string& team;
  const std::string& opponent;
  const bowling_card_table& bowling;
  const batting_card_table& batting;
  const batting_card_table& opposing;
  dismissal not_out;  ///< `how` of a man of this side who was not dismissed

  bool is_not_out(const batting_card_rec& line) const { return line.how == not_out; }
};

/// A career in its record of the file.
struct career_in_file {
  career_rec& career;
  long record;
  const std::filesystem::path& file;

  /// Adds to a figure of it. Raises run_time_error (overflow).
  void add(std::int32_t& figure, int change, const char* field) const {
    if (!__builtin_add_overflow(figure, change, &figure)) return;
    throw run_time_error(failure::overflow, "Overflow: a career figure does not fit 32 bits",
                         {.file = file_name_text(file), .record = record, .field = field, .player = career.name});
  }
};

void enrol_team(const open_database& data, career_table& table, const std::string& team) {
  for (int t = 1; t <= table.career_team_count; ++t) {
    if (table.teams[t].team_name == team) return;
  }
  if (table.career_team_count == career_team_limit) {
    throw run_time_error(failure::subscript,
                         fmt::format("Subscript out of range: more than {} teams with careers", career_team_limit),
                         {.file = file_name_text(data.files.career_file),
                          .record = career_team_limit + 2,
                          .field = "team_name",
                          .player = team});
  }
  career_team_rec& added = table.teams[++table.career_team_count];
  added = career_team_rec();
  added.team_name = team;
}

void enrol_player(const open_database& data, career_team_rec& team, long record, const std::string& name) {
  for (int p = 1; p <= team.player_count; ++p) {
    if (team.players[p].name == name) return;
  }
  if (team.player_count == player_limit) {
    throw run_time_error(
        failure::subscript,
        fmt::format("Subscript out of range: more than {} players of {} with careers", player_limit, team.team_name),
        {.file = file_name_text(data.files.career_file), .record = record, .field = "players", .player = name});
  }
  ++team.player_count;
  team.players[team.player_count] = career_rec();
  team.players[team.player_count].name = name;
}

void add_bowling(const career_in_file& to, const bowling_card_rec& line, const std::string& opponent) {
  career_rec& career = to.career;
  to.add(career.matches, 1, "matches");
  to.add(career.wickets, line.wickets, "wickets");
  to.add(career.balls_bowled, line.balls, "balls_bowled");
  to.add(career.runs_given, line.runs, "runs_given");
  to.add(career.maidens, line.maidens, "maidens");
  if (line.wickets >= five_wicket_haul) to.add(career.five_wickets, 1, "five_wickets");
  if (line.wickets == career.best_wickets && line.runs < career.best_runs) {
    career.best_runs = line.runs;
    career.best_against = opponent;
  }
  if (line.wickets > career.best_wickets) {
    career.best_wickets = line.wickets;
    career.best_runs = line.runs;
    career.best_against = opponent;
  }
}

void add_high_score(career_rec& career, const batting_card_rec& line, bool not_out, const std::string& opponent) {
  if (not_out && career.high_score == line.runs && career.high_not_out == 0) {
    career.high_not_out = flag_true;
    career.high_against = opponent;
  }
  if (career.high_score < line.runs) {
    career.high_score = line.runs;
    career.high_against = opponent;
    // A new highest score made out leaves the flag of an earlier one standing.
    if (not_out) career.high_not_out = flag_true;
  }
}

void add_batting(const career_in_file& to, const batting_card_rec& line, bool not_out, const std::string& opponent) {
  career_rec& career = to.career;
  to.add(career.balls_faced, line.balls, "balls_faced");
  to.add(career.dots, line.dots, "dots");
  to.add(career.fours, line.fours, "fours");
  to.add(career.sixes, line.sixes, "sixes");
  to.add(career.runs, line.runs, "runs");
  to.add(career.singles, line.singles, "singles");
  to.add(career.twos, line.twos, "twos");
  to.add(career.threes, line.threes, "threes");
  to.add(career.innings, 1, "innings");
  if (not_out) to.add(career.not_outs, 1, "not_outs");
  if (line.runs >= century) to.add(career.hundreds, 1, "hundreds");
  if (line.runs >= half_century && line.runs < century) to.add(career.fifties, 1, "fifties");
  add_high_score(career, line, not_out, opponent);
}

/// `fielders` are the men of the side that bowled at the batsman of the line.
void add_fielding(const career_in_file& to, const batting_card_rec& line, const bowling_card_table& fielders) {
  career_rec& career = to.career;
  if (line.fielder_position == 0 || fielders[line.fielder_position].name != career.name) return;
  if (line.taken == fielding::stumped) {
    to.add(career.stumpings, 1, "stumpings");
  } else if (line.taken == fielding::caught || line.how == dismissal::caught_and_bowled) {
    to.add(career.catches, 1, "catches");
  }
}

void add_match(const std::filesystem::path& file, career_team_rec& team, long record, const side_books& books) {
  for (int j = 1; j <= men_in_eleven; ++j) {
    for (int p = 1; p <= team.player_count; ++p) {
      const career_in_file to{team.players[p], record, file};
      const std::string& name = to.career.name;
      const batting_card_rec& batting = books.batting[j];
      if (books.bowling[j].name == name) add_bowling(to, books.bowling[j], books.opponent);
      if (batting.name == name) add_batting(to, batting, books.is_not_out(batting), books.opponent);
      add_fielding(to, books.opposing[j], books.bowling);
    }
  }
}

/// Enrols the side that the bowling card names and adds the match to its careers.
void update_side(const open_database& data, career_table& table, const side_books& books) {
  enrol_team(data, table, books.team);
  for (int t = 1; t <= table.career_team_count; ++t) {
    career_team_rec& team = table.teams[t];
    if (team.team_name != books.team) continue;
    for (int j = 1; j <= men_in_eleven; ++j) enrol_player(data, team, t + 1, books.bowling[j].name);
    add_match(data.files.career_file, team, t + 1, books);
  }
}

/// The career file as it is.
slot_file whole_careers(const open_database& data) {
  slot_file file = slot_file::read(data.files.career_file, career_slot);
  require_whole_careers(file);
  return file;
}

}  // namespace

void add_match_to_careers(const match_state& match, const open_database& data, career_table& table) {
  // The end of an innings writes "not out" into the first innings only.
  update_side(data, table,
              {match.team1_name, match.team2_name, match.first_bowling_card, match.batting_card,
               match.first_batting_card, dismissal::none});
  update_side(data, table,
              {match.team2_name, match.team1_name, match.bowling_card, match.first_batting_card, match.batting_card,
               dismissal::not_out});
}

void settle_update(const open_database& data) { const staged_files all(update_files(data.files)); }

void update_career(const match_state& match, const open_database& data) {
  if (!data.files.updates) return;
  const folder_lock turn(data.files.career_file, data.files.watcher);
  settle_update(data);
  slot_file career_file = whole_careers(data);
  career_table careers = careers_in(career_file);
  add_match_to_careers(match, data, careers);
  put_careers(career_file, careers);
  replace_file(data.files.career_file, career_file.bytes());
}

void match_update::run() {
  if (!data_.files.updates) return;
  const folder_lock turn(data_.files.career_file, data_.files.watcher);
  settle_update(data_);
  std::vector<std::filesystem::path> files = {data_.files.career_file, data_.files.record_file};
  std::string counted;
  if (!name_.empty()) {
    files.push_back(counted_file(data_.files));
    counted = read_file(files.back()).value_or("");
    added_ = added_ || is_counted(counted, name_);
  }
  match_keeper* const keeper = data_.files.keeper;
  if (keeper != nullptr) files.push_back(waiting_file(data_.files));
  staged_files staged(files);
  if (added_) return staged.synchronise_folders();
  slot_file career_file = whole_careers(data_);
  slot_file record_file = whole_records(data_);
  career_table careers = careers_in(career_file);
  record_lists lists = records_in(record_file);
  require_agreement({careers, lists, career_file.name(), record_file.name()});
  std::string waiting;
  if (keeper != nullptr) {
    const counted_match added{match_, name_, recording_, career_file.bytes(), record_file.bytes()};
    waiting = keeper->waiting_with(data_.files, read_file(files.back()).value_or(""), added);
  }
  add_match_to_careers(match_, data_, careers);
  put_careers(career_file, careers);
  staged.write(career_file.bytes());
  add_match_to_records(match_, data_, record_file, lists);
  staged.write(record_file.bytes());
  if (!name_.empty()) staged.write(list_with(counted, name_));
  if (keeper != nullptr) staged.write(waiting);
  try {
    staged.put_in_place();
  } catch (const run_time_error&) {
    added_ = staged.begun();
    throw;
  }
  if (keeper != nullptr) keeper->take_in(data_.files);
}

void update_career_and_records(const match_state& match, const open_database& data) {
  bool added = false;
  match_update(match, data, added).run();
}

}  // namespace velorin
