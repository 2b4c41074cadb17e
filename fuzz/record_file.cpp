// SPDX-License-Identifier: GPL-3.0-or-later
// The file of record lists and team table. The input: a byte that chooses who looks at it, or who changes it; then the
// file, folded.
#include "browsers/record_tables.h"
#include "browsers/team_records.h"
#include "browsers/world_rankings.h"
#include "database/career_update.h"
#include "database/configuration.h"
#include "database/lasting_records.h"
#include "database/slots.h"
#include "database/world.h"
#include "finished_match.h"
#include "model/code_page.h"
#include "shown_texts.h"
#include "slots_of.h"
#include "support.h"
#include "support/game_in_play.h"
#include "target.h"

namespace velorin::fuzz {
namespace {

constexpr std::size_t most_slots = team_table_record + 26 * team_table_fields;

std::string careers;  ///< the file of careers that goes with the records

template <typename Line, std::size_t n>
void require_same(const std::array<Line, n>& a, const std::array<Line, n>& b) {
  for (std::size_t i = 1; i < n; ++i) require(encoded(a[i]) == encoded(b[i]), "lists are read as they were written");
}

std::string encoded_row(const team_table& team) {
  std::string bytes;
  visit_fields(team, [&](table_value, const char*, const tagged& value) { bytes += encoded_field(value); });
  return bytes;
}

void require_same(const record_lists& a, const record_lists& b) {
  require_same(a.top_scores, b.top_scores);
  require_same(a.top_bowling, b.top_bowling);
  require_same(a.highest_totals, b.highest_totals);
  require_same(a.lowest_totals, b.lowest_totals);
  require_same(a.partnerships, b.partnerships);
  require(a.table_team_count == b.table_team_count, "as many teams are read as were written");
  for (int t = 1; t <= a.table_team_count; ++t) {
    require(encoded_row(a.teams[t]) == encoded_row(b.teams[t]), "the table is read as it was written");
  }
}

/// Writes lists into an empty file.
void write_and_read_again(const record_lists& lists) {
  write_bytes(data.files.record_file, {});
  write_record_lists(data, lists);
  require_same(read_record_lists(data), lists);
}

template <typename Form>
void look_at(Form form, auto... mode) {
  form.open(mode...);
  require_shown(form.table);
}

void look_at_teams() {
  team_records_form form{data};
  form.open();
  for (std::size_t t = 0; t < form.teams.size(); ++t) {
    form.choose_team(static_cast<int>(t));
    for (const auto& column : form.results) {
      for (const std::string& text : column.texts) require_shown(text);
    }
  }
}

void look(int choice, const record_lists& lists) {
  switch (choice) {
    case 0:
      return look_at(best_performances_form(data), 1);
    case 1:
      return look_at(best_performances_form(data), 0);
    case 2:
      return look_at(total_records_form(data), 1);
    case 3:
      return look_at(total_records_form(data), 0);
    case 4:
      return look_at(stand_records_form(data));
    case 5:
      done("base.ptr", [] { look_at(world_rankings_form(data)); });
      return;
    case 6:
      done("base.ptr", look_at_teams);
      return;
    case 7:
      return dump_database(data.files, scratch() / "dump");
    case 8:
      return require_report({"rankings", "--json"});
    case 9:
      return require_report({"team", "--team", to_utf8(lists.teams[1].team_name.text())});
    default:
      return;
  }
}

/// Adds a match: done, or refused with the file as it was. Done, it can be read again.
void update(std::string_view before) {
  stage_finished_match();
  if (!done("base.ptr", [] { update_records(match, data); })) {
    require_bytes(data.files.record_file, before);
    return;
  }
  read_record_lists(data);
}

}  // namespace

void take(std::string_view input) {
  fresh_state();
  const int choice = input.empty() ? 0 : input.front() & 15;
  if (!input.empty()) input.remove_prefix(1);
  const std::string file = unfolded(input, records_slot, most_slots);
  record_lists lists;
  bool faultless = false;
  {
    const unchanged ptr(data.files.record_file, file);
    write_bytes(data.files.career_file, careers);
    faultless = check_database(data.files).empty();
    std::filesystem::remove(data.files.career_file);
    const bool read = done("base.ptr", [&] { lists = read_record_lists(data); });
    require(read || !faultless, "what cannot be read is a fault");
    if (read) look(choice, lists);
  }
  if (choice >= 14) {
    update_both(data.files.record_file, file, data.files.career_file, careers);
  } else if (choice >= 12) {
    update(file);
  } else if (choice >= 10) {
    write_and_read_again(lists);
  }
}

void prepare() {
  lay_out_database();
  careers = bytes_of(data.files.career_file);
  shrink_database();
}

}  // namespace velorin::fuzz
