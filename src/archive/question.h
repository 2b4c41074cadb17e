// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

// A question to the archive, put together from parts. Its values are always bound, never written into the statement.
// Texts are UTF-8, as in the archive itself.

namespace velorin {

class archive_file;

/// What the rows are.
enum class rows_of { matches, innings, batting, bowling, stands, meetings };

/// "field op value", such as runs>=100.
struct condition {
  std::string field;
  std::string op;  ///< = != < <= > >= ~ (contains, whatever the case)
  std::string value;

  bool operator==(const condition&) const = default;
};

struct question {
  rows_of from = rows_of::matches;
  std::vector<std::string> by = {};    ///< fields by which rows are summed; none: rows as they are
  std::vector<condition> where = {};   ///< of rows
  std::vector<condition> having = {};  ///< of summed figures, such as innings>=20
  std::string sort = {};               ///< a field or figure; "" for the order of the archive
  bool descending = false;
  long top = 0;                        ///< rows at most; 0 for all
  std::vector<std::string> only = {};  ///< columns of rows as they are; none: the usual

  bool operator==(const question&) const = default;
};

/// A part that the archive does not know. what() is one line.
class question_error : public std::runtime_error {
 public:
  question_error(const std::string& what, std::string given, std::vector<std::string> could_be)
      : std::runtime_error(what), name(std::move(given)), known(std::move(could_be)) {}

  std::string name;                ///< what was given
  std::vector<std::string> known;  ///< what could have been
};

/// A value of an answer: none where a rate has no divisor, a number, a text.
using answer_value = std::variant<std::monostate, std::int64_t, double, std::string>;

/// How a column is shown.
enum class column_kind { text, number, rate };

struct answer_column {
  std::string name;
  column_kind kind = column_kind::text;
};

struct answer {
  std::vector<answer_column> columns;
  std::vector<std::vector<answer_value>> rows;
};

/// Answers a question. Raises question_error for a part that is unknown, and run_time_error (file).
answer ask(const archive_file& archive, const question& asked);

/// A value as shown: rates as everywhere in the game, " - " where there is none.
std::string value_text(const answer_value& value);

/// The question as a sentence in plain English. Raises question_error.
std::string sentence_of(const question& asked);

/// A condition as typed, such as "runs>=100". Raises question_error where there is no operator.
condition condition_from(std::string_view typed);

/// The source of that name, or nothing.
std::optional<rows_of> source_named(std::string_view name);
std::string_view source_name(rows_of from);

/// What can stand in the parts of a question, for whoever offers them: fields of rows, and figures of sums.
std::vector<std::string> row_fields(rows_of from);
std::vector<std::string> sum_figures(rows_of from);

}  // namespace velorin
