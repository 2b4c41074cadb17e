// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace velorin::cli {

/// A table printed as aligned columns, parted by two blanks.
class text_table {
 public:
  /// `columns` are the headings, or empty for none; `alignment` has a letter a column: l or r.
  text_table(std::vector<std::string> columns, std::string alignment);

  /// Adds a row of as many texts as there are columns, in single bytes of Windows-1252.
  void add(std::vector<std::string> row);
  /// Prints headings and rows as UTF-8; no line ends with blanks.
  void print(std::ostream& out) const;

 private:
  std::vector<std::vector<std::string>> rows_;
  std::string alignment_;
};

}  // namespace velorin::cli
