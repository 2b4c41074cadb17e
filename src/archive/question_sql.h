// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "archive/question.h"

namespace SQLite {
class Database;
}  // namespace SQLite

namespace velorin {

using bound_value = std::variant<std::int64_t, double, std::string>;

/// How a column of the statement becomes a value of the answer.
enum class decoded { name, plain, rate, best_score, best_bowling, overs };

/// A question as a statement with the values to be bound to it.
struct question_sql {
  std::string text;
  std::vector<bound_value> bound;
  std::vector<answer_column> columns;
  std::vector<decoded> decoding;
};

/// Raises question_error for parts that are unknown, and SQLite::Exception.
question_sql statement_of(const SQLite::Database& database, const question& asked);

}  // namespace velorin
