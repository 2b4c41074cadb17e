// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

// Comma-separated values (RFC 4180) in UTF-8. In memory the texts are single bytes of Windows-1252.

namespace velorin {

/// A table with a header line, as read from a file. Lines are counted from 1, embedded line ends included; lines
/// without any character are passed over. Reads line ends CR LF and LF, and a byte order mark before the header.
class csv_table {
 public:
  /// Reads a file whose header names each of `required`, any of `optional` and nothing else, each once, in any order.
  /// Raises run_time_error: missing or unreadable (file); text without a place in Windows-1252, quotes out of place, a
  /// wrong header, a row of a wrong length (type). The message names file, line and column.
  csv_table(const std::filesystem::path& file, std::initializer_list<std::string_view> required,
            std::initializer_list<std::string_view> optional);

  int rows() const { return static_cast<int>(rows_.size()); }
  /// The line on which a row starts; rows count from 0.
  int line(int row) const { return rows_[row].line; }
  /// The text of a column, "" if the file has no such column.
  const std::string& text(int row, std::string_view column) const;
  /// A whole number from `least` to `most`, 0 if the file has no such column. Raises run_time_error (type).
  long whole_number(int row, std::string_view column, long least, long most) const;
  /// A decimal number, the single nearest to the text. Raises run_time_error (type).
  float single(int row, std::string_view column) const;

  /// Raises the run_time_error (type) of a value: the message names file, line and column.
  [[noreturn]] void refuse(int row, std::string_view column, std::string_view what) const;
  /// The name of the file for messages.
  const std::string& name() const { return name_; }

 private:
  struct csv_row {
    int line = 0;
    std::vector<std::string> fields;
  };

  void parse(std::string_view text);
  void take_header(std::initializer_list<std::string_view> required, std::initializer_list<std::string_view> optional);
  [[noreturn]] void refuse_at(int line, std::size_t column, std::string_view what) const;
  [[noreturn]] void refuse_header(std::string_view column, std::string_view what) const;
  int column_place(std::string_view column) const;

  std::string name_;
  std::vector<std::string> header_;
  std::vector<csv_row> rows_;
};

/// One row for a file: quoted where needed, UTF-8, with its line end CR LF.
std::string csv_line(const std::vector<std::string>& fields);

}  // namespace velorin
