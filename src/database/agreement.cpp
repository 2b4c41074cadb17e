// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/agreement.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "database/configuration.h"
#include "database/file_calls.h"
#include "database/slots.h"
#include "database/teams_file.h"
#include "database/whole_file.h"
#include "model/texts.h"

namespace velorin {

namespace {

constexpr int men_of_a_side = 11;

/// A tagged count as far as it can be one; else nothing.
std::optional<int> count_in(const slot_file& file, long record, int limit) {
  tagged counted;
  slot_reader fields = file.reader(record);
  fields("", counted);
  if (fields.fault() || fields.missing()) return std::nullopt;
  try {
    const double count = counted.number();
    if (count >= 0 && count <= limit) return static_cast<int>(count);
  } catch (const run_time_error&) {
  }
  return std::nullopt;
}

/// Looks for the end of a file among the records that it must have.
class end_search {
 public:
  explicit end_search(const slot_file& file) : file_(file) {}

  /// False once the file has been found to end before or within the record of these fields.
  template <typename Visit>
  bool has(long record, Visit visit) {
    if (fault_) return false;
    slot_reader fields = file_.reader(record);
    visit(fields);
    if (!fields.missing()) return true;
    if (file_.slot(record).empty()) {
      fault_ = {file_.name(), record, "", "the file ends before this record"};
    } else {
      fault_ = {file_.name(), record, fields.missing()->field, fields.missing()->what};
    }
    return false;
  }
  template <typename Record>
  bool has_record(long record) {
    return has(record, [](slot_reader& fields) {
      Record read;
      visit_fields(read, fields);
    });
  }
  bool has_value(long record, const char* name) {
    return has(record, [name](slot_reader& fields) {
      tagged read;
      fields(name, read);
    });
  }

  const std::optional<database_fault>& fault() const { return fault_; }

 private:
  const slot_file& file_;
  std::optional<database_fault> fault_;
};

template <typename Line>
void search_list(end_search& search, long first, long lines) {
  for (long record = first; record < first + lines; ++record) search.has_record<Line>(record);
}

void search_lists(end_search& search) {
  search_list<top_score_rec>(search, top_scores_record, 15);
  search_list<top_bowling_rec>(search, top_bowling_record, 15);
  search_list<top_total_rec>(search, highest_totals_record, 15);
  search_list<top_total_rec>(search, lowest_totals_record, 15);
  search_list<top_partnership_rec>(search, partnerships_record, 10);
}

void require_whole(const std::optional<database_fault>& fault) {
  if (!fault) return;
  throw run_time_error(failure::file, "The file is not whole: " + fault->what,
                       {fault->file, fault->record, fault->field, {}});
}

int table_place(const record_lists& lists, const std::string& team) {
  int t = 1;
  while (t <= lists.table_team_count && lists.teams[t].team_name.text() != team) ++t;
  return t <= lists.table_team_count ? t : 0;
}

const career_team_rec* careers_of(const career_table& careers, const std::string& team) {
  for (int t = 1; t <= careers.career_team_count; ++t) {
    if (careers.teams[t].team_name == team) return &careers.teams[t];
  }
  return nullptr;
}

const career_rec* career_of(const career_table& careers, const std::string& team, const std::string& player) {
  const career_team_rec* of_team = careers_of(careers, team);
  if (of_team == nullptr) return nullptr;
  const auto first = of_team->players.begin() + 1;
  const auto last = first + of_team->player_count;
  const auto found = std::find_if(first, last, [&](const career_rec& man) { return man.name == player; });
  return found == last ? nullptr : &*found;
}

double matches_of(const team_table& row) {
  return row.away_won.number() + row.away_tied.number() + row.away_lost.number() + row.home_won.number() +
         row.home_tied.number() + row.home_lost.number();
}

/// Compares careers and lists, and collects where they differ.
class comparison {
 public:
  explicit comparison(const record_books& books) : books_(books) {}

  std::vector<database_fault> faults() && {
    for (int t = 1; t <= books_.careers.career_team_count; ++t) compare_team(t);
    compare_lists();
    for (int t = 1; t <= books_.lists.table_team_count; ++t) {
      const std::string name = books_.lists.teams[t].team_name.text();
      if (careers_of(books_.careers, name) != nullptr) continue;
      add(books_.ptr, table_record(t + 1) - 1, "team_name", fmt::format("\"{}\" has no careers", name));
    }
    return std::move(faults_);
  }

 private:
  void compare_team(int place) {
    const career_team_rec& team = books_.careers.teams[place];
    const int row = table_place(books_.lists, team.team_name);
    if (row == 0) {
      add(books_.rec, place + 1, "team_name", fmt::format("\"{}\" has no row in the team table", team.team_name));
      return;
    }
    std::int64_t appearances = 0;
    for (int p = 1; p <= team.player_count; ++p) appearances += team.players[p].matches;
    const double matches = matches_of(books_.lists.teams[row]);
    if (static_cast<double>(appearances) == men_of_a_side * matches) return;
    add(books_.rec, place + 1, "matches",
        fmt::format("{} appearances of the men of \"{}\", but {} matches in the team table", appearances,
                    team.team_name, number_text(matches)));
  }

  void compare_lists() {
    const record_lists& lists = books_.lists;
    for (int i = 1; i <= 15; ++i) compare_score(lists.top_scores[i], top_scores_record + i - 1);
    for (int i = 1; i <= 15; ++i) compare_bowling(lists.top_bowling[i], top_bowling_record + i - 1);
    for (int i = 1; i <= 15; ++i) compare_highest(lists.highest_totals[i], highest_totals_record + i - 1);
    for (int i = 1; i <= 15; ++i) {
      const top_total_rec& line = lists.lowest_totals[i];
      if (!line.team.empty()) compare_sides(line.team, line.against, lowest_totals_record + i - 1);
    }
    for (int i = 1; i <= 10; ++i) {
      const top_partnership_rec& line = lists.partnerships[i];
      if (!line.batsman_a.empty()) compare_sides(line.team, line.against, partnerships_record + i - 1);
    }
  }

  void compare_score(const top_score_rec& line, long record) {
    if (line.player.empty()) return;
    const career_rec* const career = require_career(line.team, line.player, record);
    if (career == nullptr || line.runs <= career->high_score) return;
    add(books_.ptr, record, "runs",
        fmt::format("{} by \"{}\", whose highest score is {}", int{line.runs}, line.player, career->high_score));
  }

  void compare_bowling(const top_bowling_rec& line, long record) {
    if (line.player.empty()) return;
    const career_rec* const career = require_career(line.team, line.player, record);
    if (career == nullptr) return;
    const bool borne_out =
        line.wickets < career->best_wickets || (line.wickets == career->best_wickets && line.runs >= career->best_runs);
    if (borne_out) return;
    add(books_.ptr, record, "wickets",
        fmt::format("{}/{} by \"{}\", whose best bowling is {}/{}", int{line.wickets}, int{line.runs}, line.player,
                    career->best_wickets, career->best_runs));
  }

  void compare_highest(const top_total_rec& line, long record) {
    if (line.team.empty()) return;
    compare_sides(line.team, line.against, record);
    const int row = table_place(books_.lists, line.team);
    if (row == 0) return;
    const double highest = books_.lists.teams[row].high_for.number();
    if (int{line.total} <= highest) return;
    add(books_.ptr, record, "total",
        fmt::format("{} by \"{}\", whose highest total is {}", int{line.total}, line.team, number_text(highest)));
  }

  void compare_sides(const std::string& team, const std::string& against, long record) {
    for (const auto& [field, name] : {std::pair("team", &team), std::pair("against", &against)}) {
      if (table_place(books_.lists, *name) != 0) continue;
      add(books_.ptr, record, field, fmt::format("\"{}\" has no row in the team table", *name));
    }
  }

  const career_rec* require_career(const std::string& team, const std::string& player, long record) {
    const career_rec* const career = career_of(books_.careers, team, player);
    if (career == nullptr)
      add(books_.ptr, record, "player", fmt::format("\"{}\" of \"{}\" has no career", player, team));
    return career;
  }

  void add(const std::string& file, long record, const char* field, std::string what) {
    faults_.push_back({file, record, field, std::move(what)});
  }

  const record_books& books_;
  std::vector<database_fault> faults_;
};

/// That of `database`, or the one beside it that the next update puts in its place.
std::filesystem::path current_records(const database_files& database) {
  const std::filesystem::path rec = real_file(database.rec);
  std::filesystem::path begun = rec;
  std::filesystem::path left = real_file(database.ptr);
  begun += ".new";
  left += ".next";
  std::error_code none;
  if (std::filesystem::exists(begun, none) || !std::filesystem::is_regular_file(left, none)) return database.ptr;
  std::error_code failed;
  const auto time = std::filesystem::last_write_time(rec, failed);
  if (failed || std::filesystem::last_write_time(left, failed) != time || failed) return database.ptr;
  return left;
}

}  // namespace

std::optional<database_fault> incomplete_careers(const slot_file& rec) {
  if (rec.bytes().empty()) return std::nullopt;
  end_search search(rec);
  if (!search.has_value(1, "career_team_count")) return search.fault();
  const auto count = count_in(rec, 1, career_team_limit);
  if (!count) return std::nullopt;
  const bool full = rec.bytes().size() >= (*count + 1) * rec.slot_length();
  for (long record = 2; !full && record <= *count + 1; ++record) search.has_record<career_team_rec>(record);
  return search.fault();
}

std::optional<database_fault> incomplete_records(const slot_file& ptr) {
  if (ptr.bytes().empty()) return std::nullopt;
  end_search search(ptr);
  if (ptr.bytes().size() < table_count_record * ptr.slot_length()) search_lists(search);
  if (!search.has_value(table_count_record, "table_team_count")) return search.fault();
  const auto count = count_in(ptr, table_count_record, table_team_limit);
  if (!count) return std::nullopt;
  const long last = table_record(*count + 1) - 1;
  const bool full = ptr.bytes().size() >= last * ptr.slot_length();
  for (int t = 1; !full && t <= *count; ++t) {
    long record = table_record(t);
    const team_table names;
    visit_fields(names, [&](table_value, const char* field, const tagged&) { search.has_value(record++, field); });
  }
  return search.fault();
}

void require_whole_careers(const slot_file& rec) { require_whole(incomplete_careers(rec)); }
void require_whole_records(const slot_file& ptr) { require_whole(incomplete_records(ptr)); }

std::vector<database_fault> contradictions(const record_books& books) { return comparison(books).faults(); }

void require_agreement(const record_books& books) {
  const std::vector<database_fault> faults = contradictions(books);
  if (faults.empty()) return;
  const database_fault& first = faults.front();
  throw run_time_error(failure::file,
                       fmt::format("{} and {} do not belong together: {}", books.rec, books.ptr, first.what),
                       {first.file, first.record, first.field, {}});
}

slot_file current_record_file(const database_files& database) {
  return {read_file(current_records(database)).value_or(std::string()), records_slot, file_name_text(database.ptr)};
}

void require_database_for_play() {
  require_whole_database();
  if (!files.updates) return;
  const folder_lock turn(files.rec);
  require_sound_records(files);
}

void require_sound_records(const database_files& database) {
  const slot_file rec = slot_file::read(database.rec, career_slot);
  const slot_file ptr = current_record_file(database);
  require_whole_careers(rec);
  require_whole_records(ptr);
  const career_table careers = careers_in(rec);
  const record_lists lists = records_in(ptr);
  require_agreement({careers, lists, rec.name(), ptr.name()});
}

}  // namespace velorin
