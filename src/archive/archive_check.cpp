// SPDX-License-Identifier: GPL-3.0-or-later
#include "archive/archive_check.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <fmt/format.h>

#include <map>
#include <utility>

#include "archive/archive_errors.h"
#include "archive/archive_keeper.h"
#include "archive/match_reader.h"
#include "database/folder_lock.h"
#include "database/layout.h"
#include "database/open_database.h"
#include "database/record_update.h"
#include "database/whole_file.h"
#include "model/code_page.h"
#include "model/run_time_error.h"
#include "model/texts.h"

namespace velorin {

namespace {

/// The fields of a record as texts.
class field_texts {
 public:
  void operator()(const char* name, const std::string& text) { add(name, text); }
  void operator()(const char* name, const integer& number) { add(name, number_text(int{number})); }
  void operator()(const char* name, std::int32_t number) { add(name, number_text(number)); }
  template <std::size_t n>
  void operator()(const char* name, const std::array<std::uint8_t, n>& raw) {
    add(name, std::string(raw.begin(), raw.end()));
  }
  void operator()(table_value, const char* name, const tagged& value) { add(name, value.text()); }

  std::vector<std::pair<const char*, std::string>> fields;

 private:
  void add(const char* name, std::string text) { fields.emplace_back(name, std::move(text)); }
};

template <class Record>
std::vector<std::pair<const char*, std::string>> fields_of(const Record& record) {
  field_texts texts;
  visit_fields(record, texts);
  return texts.fields;
}

/// Compares what the archive tells with what the files hold.
class comparison {
 public:
  explicit comparison(std::vector<std::string>& differences) : differences_(differences) {}

  void careers(const career_table& told, const career_table& held) {
    std::map<std::string, std::pair<const career_rec*, const career_rec*>> men;
    gather(told, [&](const std::string& who, const career_rec& man) { men[who].first = &man; });
    gather(held, [&](const std::string& who, const career_rec& man) { men[who].second = &man; });
    for (const auto& [who, both] : men) {
      if (both.first == nullptr || both.second == nullptr) {
        differences_.push_back(fmt::format("career of {}: {}", who,
                                           both.first == nullptr ? "there is none by the archive" : "it is missing"));
      } else {
        compare("career of " + who, *both.first, *both.second);
      }
    }
  }

  void lists(const record_lists& told, const record_lists& held) {
    compare_list("highest scores", told.top_scores, held.top_scores);
    compare_list("best bowling", told.top_bowling, held.top_bowling);
    compare_list("highest totals", told.highest_totals, held.highest_totals);
    compare_list("lowest totals", told.lowest_totals, held.lowest_totals);
    compare_list("partnerships", told.partnerships, held.partnerships);
    std::map<std::string, std::pair<const team_table*, const team_table*>> rows;
    for (int t = 1; t <= told.table_team_count; ++t) rows[told.teams[t].team_name.text()].first = &told.teams[t];
    for (int t = 1; t <= held.table_team_count; ++t) rows[held.teams[t].team_name.text()].second = &held.teams[t];
    static const team_table none;
    for (const auto& [team, both] : rows) {
      compare("team table: " + team, both.first == nullptr ? none : *both.first,
              both.second == nullptr ? none : *both.second);
    }
  }

 private:
  template <class Take>
  static void gather(const career_table& table, Take take) {
    for (int t = 1; t <= table.career_team_count; ++t) {
      const career_team_rec& team = table.teams[t];
      for (int p = 1; p <= team.player_count; ++p) {
        take(fmt::format("{} ({})", team.players[p].name, team.team_name), team.players[p]);
      }
    }
  }

  template <class Record>
  void compare(const std::string& what, const Record& told, const Record& held) {
    const auto wanted = fields_of(told);
    const auto found = fields_of(held);
    for (std::size_t i = 0; i < wanted.size(); ++i) {
      if (wanted[i].second == found[i].second) continue;
      differences_.push_back(fmt::format("{}: {}: the archive gives \"{}\", the file has \"{}\"", what, wanted[i].first,
                                         wanted[i].second, found[i].second));
    }
  }

  template <class List>
  void compare_list(const char* name, const List& told, const List& held) {
    for (std::size_t i = 1; i < told.size(); ++i) compare(fmt::format("{}: line {}", name, i), told[i], held[i]);
  }

  std::vector<std::string>& differences_;
};

/// Matches that careers count: eleven men of each side appear in one.
long matches_in(const career_table& careers) {
  constexpr long appearances_of_match = 2L * men_in_eleven;
  long appearances = 0;
  for (int t = 1; t <= careers.career_team_count; ++t) {
    for (int p = 1; p <= careers.teams[t].player_count; ++p) appearances += careers.teams[t].players[p].matches;
  }
  return appearances / appearances_of_match;
}

void check_sums(const archive_file& archive, std::vector<std::string>& differences) {
  struct kept_sum {
    const char* what;
    const char* rows;
    const char* sums;
  };
  constexpr kept_sum kept[] = {
      {"batting sums",
       "SELECT player, team, count(*), sum(not_out), sum(runs), sum(balls), sum(fours), sum(sixes), sum(runs >= 100),"
       " sum(runs >= 50 AND runs < 100), max(runs * 2 + not_out), sum(out = 1 AND runs = 0) FROM batting_row"
       " GROUP BY player, team",
       "SELECT player, team, matches, not_outs, runs, balls, fours, sixes, hundreds, fifties, best, ducks"
       " FROM batting_sums"},
      {"matches", "SELECT player, team, count(*) FROM bowling_row GROUP BY player, team",
       "SELECT player, team, matches FROM man_sums"},
      {"balls and runs against bowlers",
       "SELECT player, team, sum(balls), sum(runs) FROM meeting_row GROUP BY player, team, match_id, innings, position",
       "SELECT player, team, balls, runs FROM batting_row b WHERE EXISTS (SELECT 1 FROM meeting_row m"
       " WHERE m.player = b.player AND m.match_id = b.match_id AND m.innings = b.innings AND m.position = b.position)"},
      {"bowling sums",
       "SELECT player, team, count(*), sum(balls), sum(maidens), sum(runs), sum(wickets), sum(wickets >= 5),"
       " max(wickets * 10000 - runs) FROM bowling_row WHERE came_on > 0 GROUP BY player, team",
       "SELECT player, team, matches, balls, maidens, runs, wickets, five_wickets, best FROM bowling_sums"},
  };
  with_archive("The archive cannot be read", archive.path(), [&] {
    SQLite::Statement whole(archive.connection(), "PRAGMA quick_check");
    while (whole.executeStep()) {
      const std::string told = whole.getColumn(0).getString();
      if (told != "ok") differences.push_back("archive: " + from_utf8(told).value_or(told));
    }
    for (const kept_sum& one : kept) {
      const bool later = std::string_view(one.sums).find("man_sums") != std::string_view::npos ||
                         std::string_view(one.rows).find("meeting_row") != std::string_view::npos;
      if (later && !has_table(archive.connection(), "meeting_row")) continue;
      SQLite::Statement differ(archive.connection(),
                               fmt::format("SELECT (SELECT text FROM name WHERE id = player), (SELECT text FROM name"
                                           " WHERE id = team) FROM (SELECT * FROM ({0} EXCEPT {1}) UNION"
                                           " SELECT * FROM ({1} EXCEPT {0})) GROUP BY player, team",
                                           one.rows, one.sums));
      while (differ.executeStep()) {
        const std::string who =
            fmt::format("{} ({})", differ.getColumn(0).getString(), differ.getColumn(1).getString());
        differences.push_back(fmt::format("archive: {} of {} are not those of his innings; rebuild mends them",
                                          one.what, from_utf8(who).value_or(who)));
      }
    }
  });
}

/// Rows of a match that contradict one another: each statement gives the ids of such matches.
struct contradiction {
  const char* what;
  const char* matches;
};

constexpr contradiction contradictions[] = {
    {"totals of the match are not those of its innings",
     "SELECT m.id FROM match_row m JOIN innings_row i ON i.match_id = m.id WHERE CASE i.innings WHEN 1 THEN"
     " (i.runs, i.wickets, i.balls, i.team) <> (m.first_runs, m.first_wickets, m.first_balls, m.first) ELSE"
     " (i.runs, i.wickets, i.balls, i.team) <> (m.second_runs, m.second_wickets, m.second_balls, m.second) END"},
    {"runs, boundaries or highest score of an innings are not those of its men",
     "SELECT i.match_id FROM innings_row i JOIN (SELECT match_id, innings, sum(runs) runs, sum(fours) fours,"
     " sum(sixes) sixes, max(runs) top, sum(runs >= 100) hundreds FROM batting_row"
     " GROUP BY match_id, innings) b ON b.match_id = i.match_id AND b.innings = i.innings WHERE (b.runs, b.fours,"
     " b.sixes, b.top, b.hundreds) <> (i.runs - i.byes - i.leg_byes, i.fours, i.sixes, i.top_score, i.hundreds)"},
    {"the overs do not make up an innings",
     "SELECT i.match_id FROM innings_row i JOIN (SELECT match_id, innings, sum(runs) runs, sum(wickets) wickets"
     " FROM over_row GROUP BY match_id, innings) o ON o.match_id = i.match_id AND o.innings = i.innings"
     " WHERE (o.runs, o.wickets) <> (i.runs, i.wickets)"},
    {"strokes of a batsman do not make up his runs and balls, or his fifty or hundred is not among them",
     "SELECT match_id FROM batting_row WHERE runs <> ones + 2 * twos + 3 * threes + 4 * fours + 6 * sixes OR"
     " (runs >= 50) <> (fifty_balls > 0) OR (runs >= 100) <> (hundred_balls > 0) OR fifty_balls > balls OR"
     " hundred_balls > balls OR hundred_balls < fifty_balls AND hundred_balls > 0"},
    {"a dismissal has no bowler of the other side, or one too many",
     "SELECT b.match_id FROM batting_row b JOIN name h ON h.id = b.how_out JOIN name w ON w.id = b.bowler WHERE"
     " (b.out = 1 AND h.text <> 'run out') <> (w.text <> '') OR (b.out = 1) = (h.text = 'not out') OR"
     " (w.text <> '' AND NOT EXISTS (SELECT 1 FROM bowling_row r WHERE r.player = b.bowler AND"
     " r.match_id = b.match_id AND r.innings = b.innings))"},
};

void check_matches(const archive_file& archive, std::vector<std::string>& differences) {
  with_archive("The archive cannot be read", archive.path(), [&] {
    for (const contradiction& one : contradictions) {
      SQLite::Statement wrong(archive.connection(), fmt::format("SELECT DISTINCT * FROM ({}) LIMIT 100", one.matches));
      while (wrong.executeStep()) {
        differences.push_back(fmt::format("archive: match {}: {}", wrong.getColumn(0).getInt64(), one.what));
      }
    }
  });
}

}  // namespace

archive_findings check_archive(const database_files& files) {
  const folder_lock turn(files.career_file, files.watcher);
  settle_archive_in_turn(files);
  const archive_file archive(archive_path(files), archive_file::use::read);
  open_database data;
  data.files = files;
  const books_before before = archive.before();
  career_table careers = careers_in(slot_file(before.careers, career_slot, "careers before the archive"));
  record_lists lists = records_in(slot_file(before.records, records_slot, "records before the archive"));
  archive_findings found;
  found.matches_before = matches_in(careers);
  archive.each([&](const archived_match& match) {
    ++found.matches;
    const match_state state = state_of(match);
    add_match_to_careers(state, data, careers);
    add_match_to_records(state, falls_of(match), data, lists);
  });
  comparison compare(found.differences);
  const career_table held = read_career_table(files.career_file);
  const long counted = matches_in(held);
  if (counted != found.matches + found.matches_before) {
    found.differences.push_back(fmt::format("matches: the archive has {} after {} from before it, the careers hold {}",
                                            found.matches, found.matches_before, counted));
  }
  compare.careers(careers, held);
  compare.lists(lists, read_record_lists(files.record_file));
  check_sums(archive, found.differences);
  check_matches(archive, found.differences);
  return found;
}

}  // namespace velorin
