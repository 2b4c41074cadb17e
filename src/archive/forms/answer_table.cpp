// SPDX-License-Identifier: GPL-3.0-or-later
#include "archive/forms/answer_table.h"

#include <algorithm>
#include <array>
#include <utility>

#include "archive/archive_place.h"

namespace velorin {

namespace {

/// Columns that are shown only where the question speaks of them.
constexpr std::array<std::string_view, 16> for_files_alone = {
    "human",         "out",        "dots",    "ones",        "twos",         "threes",        "not_out",
    "fielder",       "unbroken",   "country", "first_balls", "second_balls", "first_wickets", "second_wickets",
    "hundred_balls", "fifty_balls"};

bool is_spoken_of(const std::string& name, const question& asked) {
  if (asked.sort == name) return true;
  if (std::find(asked.by.begin(), asked.by.end(), name) != asked.by.end()) return true;
  return std::any_of(asked.where.begin(), asked.where.end(), [&](const condition& part) { return part.field == name; });
}

/// Every row has the same there, and the question says what.
bool is_given(const std::string& name, const question& asked) {
  return std::any_of(asked.where.begin(), asked.where.end(), [&](const condition& part) {
    return part.field == name && part.op == "=" && !part.value.empty();
  });
}

bool is_shown(const std::string& name, const question& asked) {
  // A man has an innings in each match that his sums count.
  if (name == "matches" && (asked.from == rows_of::batting || asked.from == rows_of::bowling)) return false;
  if (name == "id" || name == "match_id" || asked.sort == name) return true;
  const bool summed = std::find(asked.by.begin(), asked.by.end(), name) != asked.by.end();
  if (is_given(name, asked)) return summed;
  if (name == "played_at") return false;
  return is_spoken_of(name, asked) ||
         std::find(for_files_alone.begin(), for_files_alone.end(), name) == for_files_alone.end();
}

bool names_a_team(std::string_view name) {
  constexpr std::array<std::string_view, 5> teams = {"team", "opponent", "first", "second", "winner"};
  return std::find(teams.begin(), teams.end(), name) != teams.end();
}

QString cell_text(const answer_value& value) { return utf8_text(value_text(value)).trimmed(); }

}  // namespace

QString utf8_text(const std::string& utf8) { return QString::fromStdString(utf8); }

QString field_heading(std::string_view name) {
  constexpr std::array<std::pair<std::string_view, const char*>, 33> headings = {{
      {"id", "Match"},
      {"match_id", "Match"},
      {"played_at", "Time"},
      {"first", "First"},
      {"second", "Second"},
      {"first_runs", "First runs"},
      {"second_runs", "Second runs"},
      {"out", "Was out"},
      {"how_out", "How out"},
      {"player1", "First man"},
      {"player2", "Second man"},
      {"strike_rate", "Strike rate"},
      {"run_rate", "Run rate"},
      {"hundred_balls", "Balls to 100"},
      {"fifty_balls", "Balls to 50"},
      {"not_outs", "Not Outs"},
      {"not_out", "Not out"},
      {"came_on", "Came on"},
      {"top_score", "Top score"},
      {"balls_left", "Balls left"},
      {"first_wins", "First won"},
      {"second_wins", "Second won"},
      {"five_wickets", "5 wkts"},
      {"no_balls", "No balls"},
      {"leg_byes", "Leg byes"},
      {"first_wickets", "First wickets"},
      {"second_wickets", "Second wickets"},
      {"first_balls", "First balls"},
      {"second_balls", "Second balls"},
      {"difference", "Runs apart"},
      {"figures", "Analysis"},
      {"ones", "Singles"},
      {"human", "By a user"},
  }};
  const auto found =
      std::find_if(headings.begin(), headings.end(), [&](const auto& heading) { return heading.first == name; });
  if (found != headings.end()) return QString::fromLatin1(found->second);
  QString heading = utf8_text(std::string(name));
  heading.replace(u'_', u' ');
  if (!heading.isEmpty()) heading[0] = heading[0].toUpper();
  return heading;
}

namespace {

/// Over a column there is less room.
QString column_heading(const answer_column& column) {
  constexpr std::array<std::pair<std::string_view, const char*>, 8> headings = {{{"hundreds", "100s"},
                                                                                 {"fifties", "50s"},
                                                                                 {"fours", "4s"},
                                                                                 {"sixes", "6s"},
                                                                                 {"not_outs", "NO"},
                                                                                 {"strike_rate", "SR"},
                                                                                 {"average", "Avge"},
                                                                                 {"economy", "Econ"}}};
  const auto found =
      std::find_if(headings.begin(), headings.end(), [&](const auto& heading) { return heading.first == column.name; });
  return found == headings.end() ? field_heading(column.name) : QString::fromLatin1(found->second);
}

}  // namespace

Table answer_table(const answer& told, const question& asked, std::vector<int>& columns) {
  Table table;
  columns.clear();
  // Figures one below the other stand near their names.
  const bool figures = !told.columns.empty() && told.columns.front().name == "figure";
  for (std::size_t i = 0; i < told.columns.size(); ++i) {
    const answer_column& column = told.columns[i];
    if (!is_shown(column.name, asked)) continue;
    columns.push_back(static_cast<int>(i));
    table.columns.push_back({.heading = column_heading(column),
                             .numbers = column.kind != column_kind::text,
                             .stretches = figures,
                             .teams = names_a_team(column.name)});
  }
  for (std::size_t i = 0; i < told.rows.size(); ++i) {
    TableRow row;
    row.id = static_cast<int>(i);
    row.opens = led_to_by(told, i, 0).has_value();
    for (const int column : columns) {
      const auto at = static_cast<std::size_t>(column);
      row.cells.push_back({.text = cell_text(told.rows[i][at]),
                           .look = names_something(told, i, at) ? CellLook::blue : CellLook::normal});
    }
    table.rows.push_back(std::move(row));
  }
  return table;
}

Table whole_answer_table(const answer& told) {
  Table table;
  for (const answer_column& column : told.columns) {
    table.columns.push_back({.heading = utf8_text(column.name), .numbers = column.kind != column_kind::text});
  }
  for (const auto& values : told.rows) {
    TableRow row;
    for (const answer_value& value : values) {
      const bool none = std::holds_alternative<std::monostate>(value);
      row.cells.push_back({.text = none ? QString() : utf8_text(value_text(value))});
    }
    table.rows.push_back(std::move(row));
  }
  return table;
}

}  // namespace velorin
