// SPDX-License-Identifier: GPL-3.0-or-later
#include "archive/question.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <unordered_map>

#include "archive/archive_errors.h"
#include "archive/archive_file.h"
#include "archive/figures.h"
#include "archive/question_fields.h"
#include "model/rounding.h"
#include "model/texts.h"

namespace velorin {

namespace {

constexpr std::array<std::string_view, 7> operators = {"!=", "<=", ">=", "=", "<", ">", "~"};

using bound_value = std::variant<std::int64_t, double, std::string>;

/// How a column of the statement becomes a value of the answer.
enum class decoded { name, plain, rate, best_score, best_bowling, overs };

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
  if (std::find(operators.begin(), operators.end(), op) == operators.end()) {
    throw question_error("Unknown operator", op, {operators.begin(), operators.end()});
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

  void build() {
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
      bound.emplace_back(static_cast<std::int64_t>(asked_.top));
    }
    const bool first_of_many = asked_.by.empty() && asked_.top > 0 && !source_.key.empty();
    if (first_of_many) {
      // The few rows are found by their keys first, for which an index may do.
      const std::string key = "(SELECT " + keys() + " FROM " + tables(tail) + tail + ")";
      const std::string found = tables(selected_ + order());
      sql = fmt::format("SELECT {} FROM {} WHERE ({}) IN {}{}", selected_, found, keys(), key, order());
    } else {
      sql = "SELECT " + selected_ + " FROM " + tables(selected_ + tail) + tail;
    }
  }

  std::string sql;
  std::vector<bound_value> bound;
  std::vector<answer_column> columns;
  std::vector<decoded> decoding;

 private:
  /// The columns of the key, of the row.
  std::string keys() const {
    std::string all = "r." + std::string(source_.key);
    for (auto at = all.find(", "); at != std::string::npos; at = all.find(", ", at + 2)) all.insert(at + 2, "r.");
    return all;
  }

  /// What is read for these expressions: the match where they speak of it. Of a stage there are few matches, and they
  /// are found first.
  std::string tables(const std::string& expressions) const {
    std::string rows(on_sums_ ? source_.sums_table : source_.table);
    if (asked_.from == rows_of::matches || expressions.find("m.") == std::string::npos) return rows;
    const bool of_stage = std::any_of(asked_.where.begin(), asked_.where.end(),
                                      [](const condition& part) { return part.field == "stage" && part.op == "="; });
    if (of_stage) return "match_row m CROSS JOIN " + rows + " ON r.match_id = m.id";
    return rows + " JOIN match_row m ON m.id = r.match_id";
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
    return std::string(on_sums_ ? figure.sums_sql : figure.sql);
  }

  void select(const row_field& field) {
    using kind = row_field::kind;
    selected_ += (selected_.empty() ? "" : ", ") + expression(field);
    decoding.push_back(field.what == kind::name   ? decoded::name
                       : field.what == kind::rate ? decoded::rate
                                                  : decoded::plain);
    const bool text = field.what == kind::name || field.what == kind::text;
    columns.push_back({std::string(field.name), text                       ? column_kind::text
                                                : field.what == kind::rate ? column_kind::rate
                                                                           : column_kind::number});
  }

  /// The columns of the rows, and those that the question speaks of.
  void select_rows() {
    for (const row_field& field : source_.fields) {
      const auto is_it = [&](const auto& part) { return part.field == field.name; };
      const bool spoken_of = std::any_of(asked_.where.begin(), asked_.where.end(), is_it) || asked_.sort == field.name;
      if (field.shown || spoken_of) select(field);
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
      decoding.push_back(how.at(static_cast<std::size_t>(figure.what)));
      columns.push_back(
          {std::string(figure.name), figure.what == kind::number ? column_kind::number : column_kind::rate});
    }
  }

  std::string condition_sql(const condition& part) {
    const row_field& field = field_of(source_, part.field);
    const std::string op(sql_of(part.op));
    const std::string sql_field = expression(field);
    if (field.what == row_field::kind::name) return name_condition(field, sql_field, part);
    if (op == "~") {
      bound.emplace_back(part.value);
      return fmt::format("instr(lower(CAST({} AS TEXT)), lower(?)) > 0", sql_field);
    }
    bound.push_back(field.what == row_field::kind::text ? bound_value(part.value) : number_of(part));
    return fmt::format("{} {} ?", sql_field, op);
  }

  std::string name_condition(const row_field& field, const std::string& sql_field, const condition& part) {
    const bool is_or_is_not = part.op == "=" || part.op == "!=";
    if (is_or_is_not) require_name(field, part.value);
    bound.emplace_back(part.value);
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
    const bool of_match = field.sql.starts_with("m.");
    SQLite::Statement all(database_, fmt::format("SELECT text FROM name WHERE id IN (SELECT {} FROM {})", field.sql,
                                                 of_match ? "match_row m" : source_.table));
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
      bound.push_back(number_of(part));
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
    return fmt::format(" ORDER BY {}{}{}, {}", expression(field), way,
                       field.what == row_field::kind::rate ? " NULLS LAST" : "", rest);
  }

  const SQLite::Database& database_;
  const question& asked_;
  const row_source& source_;
  bool on_sums_;
  std::string selected_;
  std::string groups_;
};

/// Names by their numbers, each looked up once.
class looked_up {
 public:
  explicit looked_up(const SQLite::Database& database) : find_(database, "SELECT text FROM name WHERE id = ?") {}

  const std::string& at(std::int64_t id) {
    const auto [place, is_new] = known_.try_emplace(id);
    if (is_new) {
      find_.reset();
      find_.bind(1, id);
      if (find_.executeStep()) place->second = find_.getColumn(0).getString();
    }
    return place->second;
  }

 private:
  SQLite::Statement find_;
  std::unordered_map<std::int64_t, std::string> known_;
};

answer_value value_in(const SQLite::Column& column, decoded how, looked_up& names) {
  if (column.isNull()) return std::monostate();
  switch (how) {
    case decoded::name:
      return names.at(column.getInt64());
    case decoded::rate:
      return round_to(column.getDouble(), 2);
    case decoded::best_score:
      return best_score_text(column.getInt64());
    case decoded::best_bowling:
      return best_bowling_text(column.getInt64());
    case decoded::overs:
      return overs_from_balls(static_cast<long>(column.getInt64()));
    case decoded::plain:
      break;
  }
  if (column.isInteger()) return column.getInt64();
  return column.getString();
}

}  // namespace

answer ask(const archive_file& archive, const question& asked) {
  return with_archive("The archive cannot be read", archive.path(), [&] {
    builder statement(archive.connection(), asked);
    statement.build();
    SQLite::Statement run(archive.connection(), statement.sql);
    int place = 0;
    for (const bound_value& value : statement.bound) {
      ++place;
      std::visit([&](const auto& each) { run.bind(place, each); }, value);
    }
    looked_up names(archive.connection());
    answer told;
    told.columns = statement.columns;
    while (run.executeStep()) {
      std::vector<answer_value>& row = told.rows.emplace_back();
      for (std::size_t i = 0; i < statement.decoding.size(); ++i) {
        row.push_back(value_in(run.getColumn(static_cast<int>(i)), statement.decoding[i], names));
      }
    }
    return told;
  });
}

std::string value_text(const answer_value& value) {
  if (const auto* whole = std::get_if<std::int64_t>(&value)) return number_text(static_cast<long>(*whole));
  if (const auto* rate = std::get_if<double>(&value)) return number_text(*rate);
  if (const auto* text = std::get_if<std::string>(&value)) return *text;
  return " - ";
}

condition condition_from(std::string_view typed) {
  const std::size_t at = typed.find_first_of("=!<>~");
  if (at != std::string_view::npos) {
    for (const std::string_view op : operators) {
      if (!typed.substr(at).starts_with(op)) continue;
      return {std::string(typed.substr(0, at)), std::string(op), std::string(typed.substr(at + op.size()))};
    }
  }
  throw question_error("A condition needs an operator", std::string(typed), {operators.begin(), operators.end()});
}

}  // namespace velorin
