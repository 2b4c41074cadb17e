// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/lasting_records.h"

#include <fmt/format.h>

#include <cmath>

#include "database/configuration.h"
#include "database/open_database.h"
#include "database/slots.h"
#include "model/texts.h"

namespace velorin {

double tagged::number() const {
  struct as_number {
    double operator()(std::monostate) const { return 0; }
    double operator()(const integer& number) const { return int{number}; }
    double operator()(std::int32_t number) const { return number; }
    double operator()(double number) const {
      if (std::isfinite(number)) return number;
      throw run_time_error(failure::type, "Type mismatch: a Double that is no number");
    }
    double operator()(const std::string& text) const {
      if (const auto number = number_in(text)) return *number;
      throw run_time_error(failure::type, fmt::format("Type mismatch: \"{}\" is no number", text));
    }
  };
  return std::visit(as_number{}, value);
}

std::string tagged::text() const {
  if (is_empty()) return {};
  if (const auto* text = std::get_if<std::string>(&value)) return *text;
  return number_text(number());
}

namespace {

/// A count out of its record; `limit` is the size of the list it counts.
int count_in(const slot_file& file, long record, const char* field, int limit) {
  tagged counted;
  file.get_field(record, field, counted);
  const error_place place{.file = file.name(), .record = record, .field = field, .player = {}};
  double count = 0;
  try {
    count = counted.number();
  } catch (const run_time_error& error) {
    throw run_time_error(error.kind(), error.what(), place);
  }
  if (count < 0 || count != std::floor(count)) {
    throw run_time_error(failure::type, fmt::format("Type mismatch: a count of {}", number_text(count)), place);
  }
  if (count > limit) {
    throw run_time_error(failure::subscript,
                         fmt::format("Subscript out of range: a count of {}, at most {}", number_text(count), limit),
                         place);
  }
  return static_cast<int>(count);
}

/// Checks that a field of the team table converts to what its readers need.
void require_value(table_value needed, const tagged& value, const error_place& place) {
  try {
    if (needed == table_value::number) {
      value.number();
    } else {
      value.text();
    }
  } catch (const run_time_error& error) {
    throw run_time_error(error.kind(), error.what(), place);
  }
}

template <typename Line, std::size_t n>
void get_list(const slot_file& file, long first_record, std::array<Line, n>& list) {
  for (std::size_t i = 1; i < n; ++i) file.get(first_record + static_cast<long>(i) - 1, list[i]);
}

const std::string& name_of(const top_score_rec& line) { return line.player; }
const std::string& name_of(const top_bowling_rec& line) { return line.player; }
const std::string& name_of(const top_total_rec& line) { return line.team; }
const std::string& name_of(const top_partnership_rec& line) { return line.batsman_a; }

template <typename Line, std::size_t n>
void put_list(slot_file& file, long first_record, const std::array<Line, n>& list) {
  for (std::size_t i = 1; i < n; ++i) {
    file.put(first_record + static_cast<long>(i) - 1, encoded(list[i]), name_of(list[i]));
  }
}

void put_table_team(slot_file& file, int place, const team_table& team) {
  long record = table_record(place);
  visit_fields(team, [&](table_value, const char* field, const tagged& value) {
    file.put(record++, encoded_field(value), team.team_name.text(), field);
  });
}

}  // namespace

career_table careers_in(const slot_file& file) {
  career_table table;
  table.career_team_count = count_in(file, 1, "career_team_count", career_team_limit);
  for (int t = 1; t <= table.career_team_count; ++t) {
    career_team_rec& team = table.teams[t];
    file.get(t + 1, team);
    const error_place place{.file = file.name(), .record = t + 1, .field = "player_count", .player = team.team_name};
    if (team.player_count < 0) {
      throw run_time_error(failure::type, fmt::format("Type mismatch: a count of {}", int{team.player_count}), place);
    }
    if (team.player_count > player_limit) {
      throw run_time_error(
          failure::subscript,
          fmt::format("Subscript out of range: a count of {}, at most {}", int{team.player_count}, player_limit),
          place);
    }
  }
  return table;
}

career_table read_career_table(const std::filesystem::path& career_file) {
  return careers_in(slot_file::read(career_file, career_slot));
}

career_table read_career_table(const open_database& data) {
  if (data.files.updates) create_if_missing(data.files.career_file);
  return read_career_table(data.files.career_file);
}

void put_careers(slot_file& file, const career_table& table) {
  file.put(1, encoded_field(tagged{integer(table.career_team_count)}), {}, "career_team_count");
  for (int t = 1; t <= table.career_team_count; ++t) {
    file.put(t + 1, encoded(table.teams[t]), table.teams[t].team_name);
  }
}

void write_career_table(const open_database& data, const career_table& table) {
  slot_file file = slot_file::read(data.files.career_file, career_slot);
  put_careers(file, table);
  replace_file(data.files.career_file, file.bytes());
}

record_lists records_in(const slot_file& file) {
  record_lists lists;
  get_list(file, top_scores_record, lists.top_scores);
  get_list(file, top_bowling_record, lists.top_bowling);
  get_list(file, highest_totals_record, lists.highest_totals);
  get_list(file, lowest_totals_record, lists.lowest_totals);
  get_list(file, partnerships_record, lists.partnerships);
  lists.table_team_count = count_in(file, table_count_record, "table_team_count", table_team_limit);
  for (int t = 1; t <= lists.table_team_count; ++t) {
    long record = table_record(t);
    visit_fields(lists.teams[t], [&](table_value needed, const char* field, tagged& value) {
      file.get_field(record, field, value);
      require_value(needed, value, {.file = file.name(), .record = record, .field = field, .player = {}});
      ++record;
    });
  }
  return lists;
}

record_lists read_record_lists(const std::filesystem::path& record_file) {
  return records_in(slot_file::read(record_file, records_slot));
}

record_lists read_record_lists(const open_database& data) {
  if (data.files.updates) create_if_missing(data.files.record_file);
  return read_record_lists(data.files.record_file);
}

void put_records(slot_file& file, const record_lists& lists) {
  put_list(file, top_scores_record, lists.top_scores);
  put_list(file, top_bowling_record, lists.top_bowling);
  put_list(file, highest_totals_record, lists.highest_totals);
  put_list(file, lowest_totals_record, lists.lowest_totals);
  put_list(file, partnerships_record, lists.partnerships);
  file.put(table_count_record, encoded_field(tagged{integer(lists.table_team_count)}), {}, "table_team_count");
  for (int t = 1; t <= lists.table_team_count; ++t) put_table_team(file, t, lists.teams[t]);
}

void write_record_lists(const open_database& data, const record_lists& lists) {
  slot_file file = slot_file::read(data.files.record_file, records_slot);
  put_records(file, lists);
  replace_file(data.files.record_file, file.bytes());
}

}  // namespace velorin
