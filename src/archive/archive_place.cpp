// SPDX-License-Identifier: GPL-3.0-or-later
#include "archive/archive_place.h"

#include <array>
#include <string_view>
#include <utility>
#include <variant>

namespace velorin {

namespace {

using kind = archive_subject::kind;

/// A column that names something, and the column with the team of the man that it names.
struct naming_column {
  std::string_view name;
  kind what;
  std::string_view team = {};
};

constexpr std::array<naming_column, 11> naming_columns = {{
    {"player", kind::player, "team"},
    {"player1", kind::player, "team"},
    {"player2", kind::player, "team"},
    {"bowler", kind::player, "opponent"},
    {"fielder", kind::player, "opponent"},
    {"team", kind::team},
    {"opponent", kind::team},
    {"first", kind::team},
    {"second", kind::team},
    {"winner", kind::team},
    {"ground", kind::ground},
}};

std::string text_in(const answer& told, std::size_t row, std::string_view name) {
  for (std::size_t i = 0; i < told.columns.size(); ++i) {
    if (told.columns[i].name != name) continue;
    const auto* text = std::get_if<std::string>(&told.rows[row][i]);
    return text == nullptr ? std::string() : *text;
  }
  return {};
}

std::optional<archive_subject> named_by(const answer& told, std::size_t row, std::size_t column) {
  for (const naming_column& one : naming_columns) {
    if (one.name != told.columns[column].name) continue;
    const std::string name = text_in(told, row, one.name);
    if (name.empty()) return std::nullopt;
    archive_subject about{.what = one.what, .name = name};
    if (one.what == kind::player) about.team = text_in(told, row, one.team);
    return about;
  }
  return std::nullopt;
}

std::optional<archive_subject> match_of(const answer& told, std::size_t row) {
  for (std::size_t i = 0; i < told.columns.size(); ++i) {
    if (told.columns[i].name != "id" && told.columns[i].name != "match_id") continue;
    const auto* id = std::get_if<std::int64_t>(&told.rows[row][i]);
    if (id != nullptr) return archive_subject{.what = kind::match, .match = *id};
  }
  return std::nullopt;
}

}  // namespace

bool names_something(const answer& told, std::size_t row, std::size_t column) {
  const std::string& name = told.columns[column].name;
  return name == "id" || name == "match_id" || named_by(told, row, column).has_value();
}

std::optional<archive_subject> led_to_by(const answer& told, std::size_t row, std::size_t column) {
  if (auto named = named_by(told, row, column)) return named;
  if (auto match = match_of(told, row)) return match;
  for (std::size_t i = 0; i < told.columns.size(); ++i) {
    if (auto named = named_by(told, row, i)) return named;
  }
  return std::nullopt;
}

void archive_history::go_to(archive_place place) {
  places_.resize(at_ + 1);
  places_.push_back(std::move(place));
  ++at_;
}

}  // namespace velorin
