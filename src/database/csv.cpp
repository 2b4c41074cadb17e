// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/csv.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>

#include "database/whole_file.h"
#include "model/code_page.h"
#include "model/run_time_error.h"

namespace velorin {

namespace {

/// Line and column of a byte, both from 1.
struct text_position {
  int line = 1;
  std::size_t column = 1;
};

/// The position of a byte of UTF-8 text; the columns are characters.
text_position position_of(std::string_view text, std::size_t offset) {
  text_position position;
  for (const char c : text.substr(0, offset)) {
    if (c == '\n') {
      position = {position.line + 1, 1};
    } else if ((static_cast<unsigned char>(c) & 0xC0) != 0x80) {
      ++position.column;
    }
  }
  return position;
}

/// Cuts Windows-1252 text into fields, character by character.
class field_scanner {
 public:
  explicit field_scanner(std::string_view text) : text_(text) {}

  bool at_end() const { return at_ == text_.size(); }
  int line() const { return line_; }
  std::size_t column() const { return at_ - line_start_ + 1; }

  /// The next field; `what` receives what is wrong with it, if anything.
  std::string field(std::string_view& what) {
    std::string value;
    if (!accept('"')) {
      while (!at_end() && !at_line_end() && peek() != ',') {
        if (peek() == '"') {
          what = "a quote within a field that is not quoted";
          return value;
        }
        value += next();
      }
      return value;
    }
    for (;;) {
      if (at_end()) {
        what = "the closing quote is missing";
        return value;
      }
      const char c = next();
      if (c == '"' && !accept('"')) break;
      value += c;
    }
    if (!at_end() && !at_line_end() && peek() != ',') what = "text behind a closing quote";
    return value;
  }

  /// Moves past a comma, or past a line end.
  bool accept_comma() { return accept(','); }
  bool accept_line_end() { return at_line_end() && (accept('\r'), accept('\n')); }

 private:
  char peek() const { return text_[at_]; }
  bool at_line_end() const { return text_.substr(at_).starts_with('\n') || text_.substr(at_).starts_with("\r\n"); }
  char next() {
    const char c = text_[at_++];
    if (c == '\n') {
      ++line_;
      line_start_ = at_;
    }
    return c;
  }
  bool accept(char wanted) {
    if (at_end() || peek() != wanted) return false;
    next();
    return true;
  }

  std::string_view text_;
  std::size_t at_ = 0;
  std::size_t line_start_ = 0;
  int line_ = 1;
};

}  // namespace

csv_table::csv_table(const std::filesystem::path& file, std::initializer_list<std::string_view> required,
                     std::initializer_list<std::string_view> optional)
    : name_(file_name_text(file)) {
  const auto bytes = read_file(file);
  if (!bytes) throw run_time_error(failure::file, "The file is missing", {name_, 0, {}, {}});
  std::string_view utf8 = *bytes;
  if (utf8.starts_with("\xEF\xBB\xBF")) utf8.remove_prefix(3);
  std::size_t bad = 0;
  const auto text = from_utf8(utf8, &bad);
  if (!text) {
    const text_position position = position_of(utf8, bad);
    refuse_at(position.line, position.column, "a character that has no place in Windows-1252");
  }
  parse(*text);
  take_header(required, optional);
}

void csv_table::parse(std::string_view text) {
  field_scanner scanner(text);
  while (!scanner.at_end()) {
    if (scanner.accept_line_end()) continue;
    csv_row row{scanner.line(), {}};
    do {
      std::string_view what;
      row.fields.push_back(scanner.field(what));
      if (!what.empty()) refuse_at(scanner.line(), scanner.column(), what);
    } while (scanner.accept_comma());
    scanner.accept_line_end();
    rows_.push_back(std::move(row));
  }
}

void csv_table::take_header(std::initializer_list<std::string_view> required,
                            std::initializer_list<std::string_view> optional) {
  if (rows_.empty()) refuse_at(1, 1, "the header line is missing");
  header_ = std::move(rows_.front().fields);
  for (auto name = header_.begin(); name != header_.end(); ++name) {
    const bool known = std::find(required.begin(), required.end(), *name) != required.end() ||
                       std::find(optional.begin(), optional.end(), *name) != optional.end();
    if (!known) refuse_header(*name, "no such column is known");
    if (std::find(header_.begin(), name, *name) != name) refuse_header(*name, "the column stands twice");
  }
  for (const std::string_view name : required) {
    if (column_place(name) < 0) refuse_header(name, "the column is missing");
  }
  rows_.erase(rows_.begin());
  for (const csv_row& row : rows_) {
    if (row.fields.size() == header_.size()) continue;
    throw run_time_error(failure::type,
                         fmt::format("Line {}: {} columns instead of {}", row.line, row.fields.size(), header_.size()),
                         {name_, 0, {}, {}});
  }
}

void csv_table::refuse_at(int line, std::size_t column, std::string_view what) const {
  throw run_time_error(failure::type, fmt::format("Line {}, column {}: {}", line, column, what), {name_, 0, {}, {}});
}

void csv_table::refuse_header(std::string_view column, std::string_view what) const {
  throw run_time_error(failure::type, fmt::format("Header line: {}", what), {name_, 0, std::string(column), {}});
}

void csv_table::refuse(int row, std::string_view column, std::string_view what) const {
  throw run_time_error(failure::type, fmt::format("Line {}: {}", line(row), what), {name_, 0, std::string(column), {}});
}

int csv_table::column_place(std::string_view column) const {
  const auto found = std::find(header_.begin(), header_.end(), column);
  return found == header_.end() ? -1 : static_cast<int>(found - header_.begin());
}

const std::string& csv_table::text(int row, std::string_view column) const {
  static const std::string none;
  const int place = column_place(column);
  return place < 0 ? none : rows_[row].fields[place];
}

long csv_table::whole_number(int row, std::string_view column, long least, long most) const {
  if (column_place(column) < 0) return 0;
  const std::string& digits = text(row, column);
  long value = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (error != std::errc() || end != digits.data() + digits.size() || value < least || value > most) {
    refuse(row, column, fmt::format("\"{}\" is no whole number from {} to {}", digits, least, most));
  }
  return value;
}

float csv_table::single(int row, std::string_view column) const {
  const std::string& digits = text(row, column);
  float value = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (error != std::errc() || end != digits.data() + digits.size() || !std::isfinite(value)) {
    refuse(row, column, fmt::format("\"{}\" is no decimal number in range", digits));
  }
  return value;
}

std::string csv_line(const std::vector<std::string>& fields) {
  std::string line;
  for (const std::string& field : fields) {
    if (&field != &fields.front()) line += ',';
    if (field.find_first_of(",\"\r\n") == std::string::npos) {
      line += field;
      continue;
    }
    line += '"';
    for (const char c : field) line.append(c == '"' ? 2 : 1, c);
    line += '"';
  }
  return to_utf8(line) + "\r\n";
}

}  // namespace velorin
