// SPDX-License-Identifier: GPL-3.0-or-later
#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <utility>

#include "database/checked_file.h"
#include "database/world_rules.h"
#include "model/texts.h"

namespace velorin {

int checked_file::accept_count(long record, const char* field, double count, int limit) {
  if (count < 0 || count != std::floor(count)) {
    add(record, field, fmt::format("{} is no count", number_text(count)));
    return 0;
  }
  if (count > limit) add(record, field, fmt::format("a count of {}, at most {}", number_text(count), limit));
  return static_cast<int>(std::min<double>(count, limit));
}

int checked_file::tagged_count(long record, const char* field, int limit) {
  tagged counted;
  if (!get_field(record, field, counted)) return 0;
  const auto count = number_of(record, field, counted);
  return count ? accept_count(record, field, *count, limit) : 0;
}

std::optional<double> checked_file::number_of(long record, const char* field, const tagged& value) {
  try {
    return value.number();
  } catch (const run_time_error&) {
    add(record, field, "a value that is no number");
    return std::nullopt;
  }
}

namespace {

/// Finds figures out of their ranges and texts at fault among the fields of a record.
class figure_check {
 public:
  figure_check(checked_file& file, long record, std::string prefix)
      : file_(file), record_(record), prefix_(std::move(prefix)) {}

  void operator()(const char* name, const integer& number) { check(name, number); }
  void operator()(const char* name, std::int32_t number) { check(name, number); }
  void operator()(const char* name, const std::string& text) {
    if (auto what = text_fault(text)) add(name, std::move(*what));
  }
  template <typename Other>
  void operator()(const char*, const Other&) {}

 private:
  void check(std::string_view name, long number) {
    if (name == "not_out" || name == "high_not_out") {
      if (number != 0 && number != flag_true) add(name, fmt::format("{} is no flag (-1 or 0)", number));
    } else if (number < 0) {
      add(name, fmt::format("{} is below 0", number));
    } else if (prefix_.empty() && name == "wickets" && number > 10) {
      add(name, fmt::format("{} wickets in an innings", number));
    }
  }
  void add(std::string_view name, std::string what) {
    file_.add(record_, prefix_ + std::string(name), std::move(what));
  }

  checked_file& file_;
  long record_;
  std::string prefix_;
};

/// Faults of a career: a name that cannot be, and figures that no match can leave behind.
void check_career(checked_file& file, long record, const career_team_rec& team, int place) {
  const career_rec& career = team.players[place];
  const std::string prefix = fmt::format("players[{}].", place);
  if (career.name.empty()) file.add(record, prefix + "name", "a career without a name");
  for (int other = 1; other < place; ++other) {
    if (career.name.empty() || team.players[other].name != career.name) continue;
    file.add(record, prefix + "name", fmt::format("a second career of \"{}\"", career.name));
    break;
  }
  visit_fields(career, figure_check(file, record, prefix));
  const auto at_most = [&](const char* field, std::int64_t number, const char* of, std::int64_t most) {
    if (number > most) file.add(record, prefix + field, fmt::format("{} in {} {}", number, most, of));
  };
  at_most("innings", career.innings, "matches", career.matches);
  at_most("not_outs", career.not_outs, "innings", career.innings);
  at_most("fifties", std::int64_t{career.fifties} + career.hundreds, "innings", career.innings);
  at_most("five_wickets", career.five_wickets, "matches", career.matches);
}

}  // namespace

void check_careers(checked_file& file) {
  file.add(incomplete_careers(file.file()));
  const int count = file.tagged_count(1, "career_team_count", career_team_limit);
  std::vector<std::string> names;
  for (int t = 1; t <= count; ++t) {
    const long record = t + 1;
    const auto team = std::make_unique<career_team_rec>();
    if (!file.get(record, *team)) continue;
    if (team->team_name.empty()) file.add(record, "team_name", "a team without a name");
    if (auto what = text_fault(team->team_name)) file.add(record, "team_name", std::move(*what));
    if (std::find(names.begin(), names.end(), team->team_name) != names.end()) {
      file.add(record, "team_name", fmt::format("a second team called \"{}\"", team->team_name));
    }
    names.push_back(team->team_name);
    const int players = file.accept_count(record, "player_count", int{team->player_count}, player_limit);
    for (int p = 1; p <= players; ++p) check_career(file, record, *team, p);
  }
}

namespace {

constexpr double most_matches = std::numeric_limits<std::int32_t>::max();

template <typename Line>
void check_list(checked_file& file, long first_record, int lines) {
  for (long record = first_record; record < first_record + lines; ++record) {
    Line line;
    if (file.get(record, line)) visit_fields(std::as_const(line), figure_check(file, record, {}));
  }
}

/// A value of the team table: a count, another number or a text. Returns it as a number, 0 for a text.
double check_value(checked_file& file, long record, table_value needed, const char* field, const tagged& value) {
  if (const auto* text = std::get_if<std::string>(&value.value)) {
    if (auto what = text_fault(*text)) file.add(record, field, std::move(*what));
  }
  const bool is_number = needed == table_value::number || std::holds_alternative<double>(value.value);
  const auto number = is_number ? file.number_of(record, field, value) : std::nullopt;
  if (needed == table_value::text || !number) return 0;
  const bool counter = std::string_view(field).starts_with("away_") || std::string_view(field).starts_with("home_");
  if (*number < 0) {
    file.add(record, field, fmt::format("{} is below 0", number_text(*number)));
  } else if (counter && *number != std::floor(*number)) {
    file.add(record, field, fmt::format("{} is no count", number_text(*number)));
  }
  return counter ? *number : 0;
}

/// One row of the team table; its fields stand in records of their own.
void check_table_team(checked_file& file, int place, std::vector<std::string>& names) {
  long record = table_record(place);
  team_table team;
  double matches = 0;
  visit_fields(team, [&](table_value needed, const char* field, tagged& value) {
    if (file.get_field(record, field, value)) matches += check_value(file, record, needed, field, value);
    ++record;
  });
  if (matches == 0) file.add(table_record(place), "away_won", "a team that has played no match");
  if (!(matches <= most_matches)) file.add(table_record(place), "away_won", "the results are too many to add up");
  const auto* name = std::get_if<std::string>(&team.team_name.value);
  if (name == nullptr || name->empty()) {
    file.add(record - 1, "team_name", "a team without a name");
    return;
  }
  if (std::find(names.begin(), names.end(), *name) != names.end()) {
    file.add(record - 1, "team_name", fmt::format("a second team called \"{}\"", *name));
  }
  names.push_back(*name);
}

}  // namespace

void check_records(checked_file& file) {
  file.add(incomplete_records(file.file()));
  check_list<top_score_rec>(file, top_scores_record, 15);
  check_list<top_bowling_rec>(file, top_bowling_record, 15);
  check_list<top_total_rec>(file, highest_totals_record, 15);
  check_list<top_total_rec>(file, lowest_totals_record, 15);
  check_list<top_partnership_rec>(file, partnerships_record, 10);
  const int count = file.tagged_count(table_count_record, "table_team_count", table_team_limit);
  std::vector<std::string> names;
  for (int t = 1; t <= count; ++t) check_table_team(file, t, names);
}

}  // namespace velorin
