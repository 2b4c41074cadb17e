// SPDX-License-Identifier: GPL-3.0-or-later
#include "archive/question.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <fmt/format.h>

#include <unordered_map>

#include "archive/archive_errors.h"
#include "archive/archive_file.h"
#include "archive/figures.h"
#include "archive/question_fields.h"
#include "archive/question_sql.h"
#include "model/rounding.h"
#include "model/texts.h"

namespace velorin {

namespace {

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
    const question_sql statement = statement_of(archive.connection(), asked);
    SQLite::Statement run(archive.connection(), statement.text);
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
    for (const std::string_view op : question_operators) {
      if (!typed.substr(at).starts_with(op)) continue;
      return {std::string(typed.substr(0, at)), std::string(op), std::string(typed.substr(at + op.size()))};
    }
  }
  throw question_error("A condition needs an operator", std::string(typed),
                       {question_operators.begin(), question_operators.end()});
}

}  // namespace velorin
