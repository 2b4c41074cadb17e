// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace velorin {

/// Builds a text line by line, with columns as a typewriter knows them. Column 1 is the first of a line; every byte is
/// one column; a line ends with CR LF.
class line_printer {
 public:
  /// Of a page, "<" and ">" in texts are written "&lt;" and "&gt;", each one column wide as it is shown.
  enum class kind { plain, page };
  explicit line_printer(kind of = kind::plain) : kind_(of) {}

  /// Moves to column `column` (1 or more) by writing blanks. If the next free column lies beyond it, the line ends and
  /// the move happens on the next one.
  line_printer& tab(int column);
  /// Writes a text. It holds no line end.
  line_printer& text(std::string_view words);
  /// Writes a text as it stands, tags of a page included.
  line_printer& markup(std::string_view words);
  /// Writes a number with the place of its sign in front, a blank or "-", and one blank behind.
  line_printer& number(long value);
  /// Ends the line.
  line_printer& end();
  /// Writes a text and ends the line.
  line_printer& line(std::string_view words = {}) { return text(words).end(); }

  /// All that was written.
  const std::string& written() const { return written_; }

 private:
  std::size_t next_column() const { return written_.size() - line_start_ + 1; }

  kind kind_;
  std::string written_;
  std::size_t line_start_ = 0;  ///< where the line would start if every column were a byte
};

}  // namespace velorin
