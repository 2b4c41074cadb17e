// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

// What the browsers show, as plain texts: a window lays them out, the companion prints them. Texts are single bytes of
// Windows-1252; an ampersand stands doubled, as in a caption.

namespace velorin {

enum class alignment { left, right };

/// A column of a table. Numbers are aligned to the right.
struct shown_column {
  std::string_view heading;
  alignment aligned = alignment::left;
};

/// A table under a title. Hidden rows are left out.
struct shown_table {
  /// A visible row.
  struct row {
    int place = 0;                   ///< from 1, counted with the hidden rows
    std::vector<std::string> texts;  ///< one for each column
    std::string team = {};           ///< whose row it is; its players have their careers there
    std::string player = {};         ///< the man it names, "" for none
    std::string partner = {};        ///< the second man of a partnership, "" for none
  };

  std::string title;
  std::vector<shown_column> columns;
  std::vector<row> rows;
};

/// A text under its caption; both with their own blanks.
struct shown_field {
  std::string_view caption;
  std::string text;
};

/// A form that shows one table.
struct table_form {
  static constexpr std::string_view ok_caption = "OK";

  shown_table table;
  bool closed = false;

  void accept() { closed = true; }
};

}  // namespace velorin
