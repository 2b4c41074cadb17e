// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <span>
#include <string_view>

#include "archive/question.h"

// What each source of rows offers to a question, as SQL over the tables. The row is `r`, its match `m`.

namespace velorin {

/// Of conditions; longer ones before those that they begin with.
inline constexpr std::array<std::string_view, 7> question_operators = {"!=", "<=", ">=", "=", "<", ">", "~"};

/// A field of a row.
struct row_field {
  enum class kind {
    name,    ///< the number of a name
    number,  ///< a whole number
    text,
    rate,  ///< two decimals
  };

  std::string_view name;
  std::string_view sql;
  kind what = kind::number;
  bool shown = false;              ///< a column of rows as they are
  std::string_view told = {};      ///< in sentences, such as "in the country"; "" for the name itself
  std::string_view order = {};     ///< how an index has it from the highest down, where it is no column of its own
  std::string_view order_up = {};  ///< and the other way round
};

/// A figure of summed rows.
struct sum_figure {
  enum class kind { number, rate, best_score, best_bowling, overs };

  std::string_view name;
  std::string_view sql;       ///< over rows
  std::string_view sums_sql;  ///< over the sums by man and team; "" where they do not tell it
  kind what = kind::number;
};

struct row_source {
  rows_of from;
  std::string_view name;
  std::string_view table;
  std::string_view key;          ///< columns that name a row
  std::string_view always;       ///< condition that every row meets; "" for none
  std::string_view order;        ///< of rows as they are
  std::string_view sums_table;   ///< by player and team; "" for none
  std::string_view in_order_of;  ///< the field that an index has the rows in the order of; "" for none
  std::span<const row_field> fields;
  std::span<const sum_figure> figures;
  std::string_view told;  ///< in sentences, such as "Innings of batsmen"
};

const row_source& source_of(rows_of from);
/// Raise question_error with what is known.
const row_field& field_of(const row_source& source, std::string_view name);
const sum_figure& figure_of(const row_source& source, std::string_view name);
/// Nothing if there is none.
const row_field* find_field(const row_source& source, std::string_view name);
const sum_figure* find_figure(const row_source& source, std::string_view name);

}  // namespace velorin
