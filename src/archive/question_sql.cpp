// SPDX-License-Identifier: GPL-3.0-or-later
#include "archive/question_sql.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string_view>
#include <system_error>
#include <utility>

#include "archive/match_reader.h"
#include "archive/question_fields.h"

namespace velorin {

namespace {

constexpr int few_matches = 1500;

bound_value number_of(const condition& part) {
  double value = 0;
  const char* const end = part.value.data() + part.value.size();
  const auto [stopped, failed] = std::from_chars(part.value.data(), end, value);
  if (failed != std::errc() || stopped != end || !std::isfinite(value)) {
    throw question_error(fmt::format("No number for {}", part.field), part.value, {});
  }
  if (value == std::floor(value) && std::abs(value) < 1e15) return static_cast<std::int64_t>(value);
  return value;
}

std::string_view sql_of(const std::string& op) {
  if (std::find(question_operators.begin(), question_operators.end(), op) == question_operators.end()) {
    throw question_error("Unknown operator", op, {question_operators.begin(), question_operators.end()});
  }
  return op;
}

/// Words that an archive of few matches may not have yet.
bool is_word_of_ours(std::string_view value) {
  constexpr std::array<std::string_view, 16> words = {
      "Match",  "Series", "Tri Series", "World Cup",         "League",  "Group", "Super Six", "Semi-final", "Final",
      "bowled", "caught", "stumped",    "caught and bowled", "run out", "lbw",   "not out"};
  return std::find(words.begin(), words.end(), value) != words.end();
}

/// Puts a statement together, with the values to be bound.
class builder {
 public:
  builder(const SQLite::Database& database, const question& asked)
      : database_(database), asked_(asked), source_(source_of(asked.from)), on_sums_(can_use_sums()) {}

  question_sql build() && {
    if (asked_.from == rows_of::meetings && !has_table(database_, "meeting_row")) {
      throw question_error("The archive is of an earlier version, which knew no batsman against a bowler", "", {});
    }
    if (asked_.by.empty()) {
      select_rows();
    } else {
      select_sums();
    }
    std::string where;
    if (!on_sums_ && !source_.always.empty()) where = source_.always;
    for (const condition& part : asked_.where) {
      where += (where.empty() ? "" : " AND ") + condition_sql(part);
    }
    std::string tail = where.empty() ? "" : " WHERE " + where;
    if (!groups_.empty()) tail += " GROUP BY " + groups_;
    tail += having() + order();
    if (asked_.top > 0) {
      tail += " LIMIT ?";
      made_.bound.emplace_back(static_cast<std::int64_t>(asked_.top));
    }
    const bool first_of_many = asked_.by.empty() && asked_.top > 0 && !source_.key.empty();
    if (first_of_many) {
      // The few rows are found by their keys first, for which an index may do.
      const std::string key = "(SELECT " + keys() + " FROM " + tables(tail) + tail + ")";
      const std::string found = rows_first(selected_ + order());
      made_.text = fmt::format("SELECT {} FROM {} WHERE ({}) IN {}{}", selected_, found, keys(), key, order());
    } else {
      made_.text = "SELECT " + selected_ + " FROM " + tables(selected_ + tail) + tail;
    }
    return std::move(made_);
  }

 private:
  /// The columns of the key, of the row.
  std::string keys() const {
    std::string all = "r." + std::string(source_.key);
    for (auto at = all.find(", "); at != std::string::npos; at = all.find(", ", at + 2)) all.insert(at + 2, "r.");
    return all;
  }

  /// What is read for these expressions: the match where they speak of it.
  std::string rows_first(const std::string& expressions) const {
    std::string rows(on_sums_ ? source_.sums_table : source_.table);
    if (asked_.from == rows_of::matches || expressions.find("m.") == std::string::npos) return rows;
    return rows + " CROSS JOIN match_row m ON m.id = r.match_id";
  }

  /// The same, but matches come first where few are asked for.
  std::string tables(const std::string& expressions) const {
    if (on_sums_ || asked_.from == rows_of::matches || !are_of_few_matches()) return rows_first(expressions);
    return "match_row m CROSS JOIN " + std::string(source_.table) + " ON r.match_id = m.id";
  }

  /// Matches of a stage or a ground have an index. Where these are a good part of all, the rows are gone through as
  /// they lie; where the rows lie in the order asked for, the first of them are soon found unless there are hardly any.
  bool are_of_few_matches() const {
    const auto speaks_of_them = [](const condition& part) {
      return (part.field == "stage" || part.field == "ground") && part.op == "=";
    };
    const auto part = std::find_if(asked_.where.begin(), asked_.where.end(), speaks_of_them);
    if (part == asked_.where.end()) return false;
    const bool in_order = asked_.by.empty() && asked_.top > 0 && asked_.sort == source_.in_order_of;
    const std::string few = in_order ? std::to_string(few_matches) : "(SELECT last_id / 4 FROM state)";
    SQLite::Statement count(database_, fmt::format("SELECT (SELECT count(*) FROM match_row WHERE {} = (SELECT id FROM"
                                                   " name WHERE text = ?)) <= {}",
                                                   part->field, few));
    count.bind(1, part->value);
    return count.executeStep() && count.getColumn(0).getInt() != 0;
  }

  /// Sums by man and team are kept along.
  bool can_use_sums() const {
    const auto is_kept = [](const std::string& name) { return name == "player" || name == "team"; };
    const auto has = [&](const char* name) {
      return std::find(asked_.by.begin(), asked_.by.end(), name) != asked_.by.end();
    };
    return !source_.sums_table.empty() && has("player") && has("team") &&
           std::all_of(asked_.by.begin(), asked_.by.end(), is_kept) &&
           std::all_of(asked_.where.begin(), asked_.where.end(),
                       [&](const condition& part) { return is_kept(part.field); });
  }

  std::string expression(const row_field& field) const {
    return on_sums_ ? "s." + std::string(field.name) : std::string(field.sql);
  }
  std::string expression(const sum_figure& figure) const {
    if (on_sums_ && figure.name == "matches" && !has_table(database_, "man_sums")) return "sum(s.matches)";
    if (on_sums_) return std::string(figure.sums_sql);
    // A team has one innings in a match, and so has each place, so that there is nothing to be told apart.
    const bool of_innings_of_team = asked_.from == rows_of::innings && figure.name == "matches" &&
                                    std::any_of(asked_.by.begin(), asked_.by.end(), [](const std::string& name) {
                                      return name == "team" || name == "opponent" || name == "innings";
                                    });
    return of_innings_of_team ? "count(*)" : std::string(figure.sql);
  }

  void select(const row_field& field) {
    using kind = row_field::kind;
    selected_ += (selected_.empty() ? "" : ", ") + expression(field);
    made_.decoding.push_back(field.what == kind::name   ? decoded::name
                             : field.what == kind::rate ? decoded::rate
                                                        : decoded::plain);
    const bool text = field.what == kind::name || field.what == kind::text;
    made_.columns.push_back({std::string(field.name), text                       ? column_kind::text
                                                      : field.what == kind::rate ? column_kind::rate
                                                                                 : column_kind::number});
  }

  /// The columns of the rows, and those that the question speaks of.
  void select_rows() {
    for (const row_field& field : source_.fields) {
      const auto is_it = [&](const auto& part) { return part.field == field.name; };
      const bool spoken_of = std::any_of(asked_.where.begin(), asked_.where.end(), is_it) || asked_.sort == field.name;
      const bool wanted = asked_.only.empty()
                              ? field.shown || spoken_of
                              : std::find(asked_.only.begin(), asked_.only.end(), field.name) != asked_.only.end();
      if (wanted) select(field);
    }
  }

  void select_sums() {
    for (const std::string& name : asked_.by) {
      const row_field& field = field_of(source_, name);
      select(field);
      groups_ += (groups_.empty() ? "" : ", ") + expression(field);
    }
    for (const sum_figure& figure : source_.figures) {
      using kind = sum_figure::kind;
      selected_ += ", " + expression(figure);
      constexpr std::array<decoded, 5> how = {decoded::plain, decoded::rate, decoded::best_score, decoded::best_bowling,
                                              decoded::overs};
      made_.decoding.push_back(how.at(static_cast<std::size_t>(figure.what)));
      made_.columns.push_back(
          {std::string(figure.name), figure.what == kind::number ? column_kind::number : column_kind::rate});
    }
  }

  std::string condition_sql(const condition& part) {
    const row_field& field = field_of(source_, part.field);
    const std::string op(sql_of(part.op));
    const std::string sql_field = expression(field);
    if (field.what == row_field::kind::name) return name_condition(field, sql_field, part);
    if (op == "~") {
      made_.bound.emplace_back(part.value);
      return fmt::format("instr(lower(CAST({} AS TEXT)), lower(?)) > 0", sql_field);
    }
    made_.bound.push_back(field.what == row_field::kind::text ? bound_value(part.value) : number_of(part));
    return fmt::format("{} {} ?", sql_field, op);
  }

  std::string name_condition(const row_field& field, const std::string& sql_field, const condition& part) {
    const bool is_or_is_not = part.op == "=" || part.op == "!=";
    if (is_or_is_not) require_name(field, part.value);
    made_.bound.emplace_back(part.value);
    if (is_or_is_not) {
      return fmt::format("{} {} (SELECT id FROM name WHERE text = ?)", sql_field, part.op == "=" ? "IS" : "IS NOT");
    }
    if (part.op == "~") {
      return fmt::format("{} IN (SELECT id FROM name WHERE instr(lower(text), lower(?)) > 0)", sql_field);
    }
    return fmt::format("{} IN (SELECT id FROM name WHERE text {} ?)", sql_field, part.op);
  }

  void require_name(const row_field& field, const std::string& value) const {
    if (value.empty() || is_word_of_ours(value)) return;
    SQLite::Statement find(database_, "SELECT 1 FROM name WHERE text = ?");
    find.bind(1, value);
    if (find.executeStep()) return;
    std::vector<std::string> known;
    const bool in_match = field.sql.starts_with("m.");
    SQLite::Statement all(database_, fmt::format("SELECT text FROM name WHERE id IN (SELECT {} FROM {})", field.sql,
                                                 in_match ? "match_row m" : source_.table));
    while (all.executeStep()) known.push_back(all.getColumn(0).getString());
    throw question_error(fmt::format("Unknown {}", field.name), value, std::move(known));
  }

  std::string having() {
    std::string parts;
    for (const condition& part : asked_.having) {
      if (asked_.by.empty()) throw question_error("A figure of sums needs fields to sum by", part.field, {});
      const sum_figure& figure = figure_of(source_, part.field);
      const std::string op(sql_of(part.op));
      if (op == "~") throw question_error("Figures contain nothing", part.field, {});
      made_.bound.push_back(number_of(part));
      parts += fmt::format("{}{} {} ?", parts.empty() ? " HAVING " : " AND ", expression(figure), op);
    }
    return parts;
  }

  std::string order() const {
    const std::string way = asked_.descending ? " DESC" : "";
    const std::string rest = asked_.by.empty() ? std::string(source_.order) : groups_;
    if (asked_.sort.empty()) return " ORDER BY " + rest + (asked_.by.empty() ? way : "");
    if (!asked_.by.empty()) {
      const bool is_group = std::find(asked_.by.begin(), asked_.by.end(), asked_.sort) != asked_.by.end();
      if (!is_group) {
        return fmt::format(" ORDER BY {}{} NULLS LAST, {}", expression(figure_of(source_, asked_.sort)), way, rest);
      }
    }
    const row_field& field = field_of(source_, asked_.sort);
    if (field.what == row_field::kind::name) {
      return fmt::format(" ORDER BY (SELECT text FROM name WHERE id = {}){}, {}", expression(field), way, rest);
    }
    if (!field.order.empty() && !on_sums_) {
      return fmt::format(" ORDER BY {}, {}", asked_.descending ? field.order : field.order_up, rest);
    }
    return fmt::format(" ORDER BY {}{}{}, {}", expression(field), way,
                       field.what == row_field::kind::rate ? " NULLS LAST" : "", rest);
  }

  const SQLite::Database& database_;
  const question& asked_;
  const row_source& source_;
  bool on_sums_;
  question_sql made_;
  std::string selected_;
  std::string groups_;
};

}  // namespace

question_sql statement_of(const SQLite::Database& database, const question& asked) {
  return builder(database, asked).build();
}

}  // namespace velorin
