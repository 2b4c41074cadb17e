// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/line_printer.h"

#include "model/texts.h"

namespace velorin {

line_printer& line_printer::tab(int column) {
  const auto wanted = static_cast<std::size_t>(column);
  if (next_column() > wanted) end();
  written_.append(wanted - next_column(), ' ');
  return *this;
}

line_printer& line_printer::text(std::string_view words) {
  if (kind_ == kind::plain) return markup(words);
  for (const char one : words) {
    if (one != '<' && one != '>') {
      written_ += one;
      continue;
    }
    constexpr std::string_view less = "&lt;";
    constexpr std::string_view greater = "&gt;";
    written_ += one == '<' ? less : greater;
    line_start_ += less.size() - 1;
  }
  return *this;
}

line_printer& line_printer::markup(std::string_view words) {
  written_ += words;
  return *this;
}

line_printer& line_printer::number(long value) {
  if (value >= 0) written_ += ' ';
  append_number(written_, value);
  written_ += ' ';
  return *this;
}

line_printer& line_printer::end() {
  written_ += "\r\n";
  line_start_ = written_.size();
  return *this;
}

}  // namespace velorin
