// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/text_table.h"

#include <algorithm>
#include <ostream>
#include <utility>

#include "model/code_page.h"

namespace velorin::cli {

text_table::text_table(std::vector<std::string> columns, std::string alignment) : alignment_(std::move(alignment)) {
  if (!columns.empty()) rows_.push_back(std::move(columns));
}

void text_table::add(std::vector<std::string> row) { rows_.push_back(std::move(row)); }

void text_table::print(std::ostream& out) const {
  // A byte is a character, so lengths are those of the texts before they become UTF-8.
  std::vector<std::size_t> widths(alignment_.size());
  for (const auto& row : rows_) {
    for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], row[i].size());
  }
  for (const auto& row : rows_) {
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i) {
      const std::string fill(widths[i] - row[i].size(), ' ');
      line += i == 0 ? "" : "  ";
      line += alignment_[i] == 'r' ? fill + row[i] : row[i] + fill;
    }
    line.erase(line.find_last_not_of(' ') + 1);
    out << shown_line(line) << '\n';
  }
}

}  // namespace velorin::cli
