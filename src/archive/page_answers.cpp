// SPDX-License-Identifier: GPL-3.0-or-later
#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <utility>
#include <variant>

#include "archive/archive_file.h"
#include "archive/archive_pages.h"

namespace velorin {

namespace {

constexpr std::int64_t every_so_many_runs = 1000;
constexpr std::int64_t every_so_many_wickets = 50;

std::size_t column_of(const answer& told, std::string_view name) {
  const auto found = std::find_if(told.columns.begin(), told.columns.end(),
                                  [&](const answer_column& column) { return column.name == name; });
  return static_cast<std::size_t>(found - told.columns.begin());
}

std::int64_t number_in(const std::vector<answer_value>& row, std::size_t column) {
  const auto* number = std::get_if<std::int64_t>(&row.at(column));
  return number == nullptr ? 0 : *number;
}

/// Collects milestones with their matches.
class milestone_list {
 public:
  milestone_list() {
    reached_.columns = {{"milestone", column_kind::text},
                        {"match_id", column_kind::number},
                        {"opponent", column_kind::text},
                        {"ground", column_kind::text}};
  }

  /// The rows of `told` come one after the other.
  void begin(const answer& told) {
    match_ = column_of(told, "match_id");
    others_ = {column_of(told, "opponent"), column_of(told, "ground")};
  }

  void add(std::string what, const std::vector<answer_value>& row) {
    std::vector<answer_value> line = {std::move(what), row.at(match_)};
    for (const std::size_t other : others_) line.push_back(row.at(other));
    reached_.rows.push_back(std::move(line));
  }

  answer in_order() && {
    std::stable_sort(reached_.rows.begin(), reached_.rows.end(),
                     [](const auto& a, const auto& b) { return number_in(a, 1) < number_in(b, 1); });
    return std::move(reached_);
  }

 private:
  answer reached_;
  std::size_t match_ = 0;
  std::vector<std::size_t> others_;
};

/// Each time that a sum passes a multiple of `every`.
void add_passed(milestone_list& list, std::int64_t before, std::int64_t now, std::int64_t every, const char* what,
                const std::vector<answer_value>& row) {
  for (std::int64_t at = before / every + 1; at <= now / every; ++at) {
    list.add(fmt::format("{} {}", at * every, what), row);
  }
}

void add_batting(milestone_list& list, const answer& batting) {
  list.begin(batting);
  const std::size_t runs_column = column_of(batting, "runs");
  std::int64_t total = 0;
  bool fifty = false;
  bool hundred = false;
  for (std::size_t i = 0; i < batting.rows.size(); ++i) {
    const auto& row = batting.rows[i];
    const std::int64_t runs = number_in(row, runs_column);
    if (i == 0) list.add("First innings", row);
    if (runs >= 50 && runs < 100 && !std::exchange(fifty, true)) list.add("First fifty", row);
    if (runs >= 100 && !std::exchange(hundred, true)) list.add("First hundred", row);
    add_passed(list, total, total + runs, every_so_many_runs, "runs", row);
    total += runs;
    if ((i + 1) % 100 == 0) list.add(fmt::format("{} innings", i + 1), row);
  }
}

void add_bowling(milestone_list& list, const answer& bowling) {
  list.begin(bowling);
  const std::size_t wickets_column = column_of(bowling, "wickets");
  std::int64_t total = 0;
  bool five = false;
  for (const auto& row : bowling.rows) {
    const std::int64_t wickets = number_in(row, wickets_column);
    if (total == 0 && wickets > 0) list.add("First wicket", row);
    if (wickets >= 5 && !std::exchange(five, true)) list.add("First five wickets", row);
    add_passed(list, total, total + wickets, every_so_many_wickets, "wickets", row);
    total += wickets;
  }
}

/// A man's rows as they are, with what a milestone tells of its match.
question rows_of_man(rows_of from, const archive_subject& about) {
  question asked{.from = from, .where = {{"player", "=", about.name}}};
  if (!about.team.empty()) asked.where.push_back({"team", "=", about.team});
  asked.only = {"match_id", "opponent", "ground", from == rows_of::batting ? "runs" : "wickets"};
  return asked;
}

/// A figure as one reads it, such as "Run rate".
std::string told_figure(std::string name) {
  std::replace(name.begin(), name.end(), '_', ' ');
  if (!name.empty() && name[0] >= 'a' && name[0] <= 'z') name[0] = static_cast<char>(name[0] - 'a' + 'A');
  return name;
}

/// The figures of the first rows of some sums, one below the other: a column for each, with its heading. What they are
/// summed by is left out.
answer figures_of(const std::vector<std::pair<std::string, const answer*>>& sums, const question& asked) {
  answer told;
  told.columns = {{"figure", column_kind::text}};
  for (const auto& [heading, one] : sums) told.columns.push_back({heading, column_kind::text});
  const answer& first = *sums.front().second;
  for (std::size_t i = asked.by.size(); i < first.columns.size(); ++i) {
    std::vector<answer_value> row = {told_figure(first.columns[i].name)};
    for (const auto& [heading, one] : sums) row.push_back(one->rows.empty() ? answer_value() : one->rows.front().at(i));
    told.rows.push_back(std::move(row));
  }
  return told;
}

}  // namespace

answer milestones_of(const answer& batting, const answer& bowling) {
  milestone_list list;
  add_batting(list, batting);
  add_bowling(list, bowling);
  return std::move(list).in_order();
}

answer section_answer(const archive_file& archive, const archive_subject& about, const page_section& section) {
  switch (section.how) {
    case page_section::kind::asked:
      break;
    case page_section::kind::milestones:
      return milestones_of(ask(archive, rows_of_man(rows_of::batting, about)),
                           ask(archive, rows_of_man(rows_of::bowling, about)));
    case page_section::kind::figures: {
      const answer sums = ask(archive, section.asked);
      return figures_of({{"value", &sums}}, section.asked);
    }
    case page_section::kind::beside: {
      const answer one = ask(archive, section.asked);
      const answer other = ask(archive, section.other);
      return figures_of({{about.name, &one}, {about.other, &other}}, section.asked);
    }
  }
  return ask(archive, section.asked);
}

}  // namespace velorin
