// SPDX-License-Identifier: GPL-3.0-or-later
#include "archive/answer_text.h"

#include <fmt/format.h>

#include <charconv>
#include <cstdint>
#include <string_view>
#include <variant>
#include <vector>

#include "database/csv.h"
#include "model/code_page.h"

namespace velorin {

namespace {

/// A field for a row of CSV, which turns what the archive has in UTF-8 back into it.
std::string csv_field(const answer_value& value) {
  if (std::holds_alternative<std::monostate>(value)) return {};
  const std::string text = value_text(value);
  return from_utf8(text).value_or(text);
}

std::string json_text(std::string_view text) {
  std::string json = "\"";
  for (const char c : text) {
    switch (c) {
      case '"':
        json += "\\\"";
        break;
      case '\\':
        json += "\\\\";
        break;
      case '\n':
        json += "\\n";
        break;
      case '\r':
        json += "\\r";
        break;
      case '\t':
        json += "\\t";
        break;
      case '\b':
        json += "\\b";
        break;
      case '\f':
        json += "\\f";
        break;
      default:
        if (static_cast<unsigned char>(c) < 0x20) {
          json += fmt::format("\\u{:04x}", static_cast<unsigned>(static_cast<unsigned char>(c)));
        } else {
          json += c;
        }
    }
  }
  return json + '"';
}

/// The shortest decimal that gives the number back, with a decimal point.
std::string decimal(double number) {
  char digits[400];
  const auto [end, failed] = std::to_chars(digits, digits + sizeof digits, number, std::chars_format::fixed);
  std::string text(digits, end);
  if (text.find('.') == std::string::npos) text += ".0";
  return text;
}

std::string json_value(const answer_value& value) {
  if (const auto* whole = std::get_if<std::int64_t>(&value)) return std::to_string(*whole);
  if (const auto* rate = std::get_if<double>(&value)) return decimal(*rate);
  if (const auto* text = std::get_if<std::string>(&value)) return json_text(*text);
  return "null";
}

template <class List, class Written>
std::string json_list(const List& list, Written written) {
  std::string json = "[";
  for (const auto& each : list) {
    if (json.size() > 1) json += ',';
    json += written(each);
  }
  return json + ']';
}

}  // namespace

std::string answer_csv(const answer& told) {
  std::vector<std::string> line;
  for (const answer_column& column : told.columns) line.push_back(column.name);
  std::string csv = csv_line(line);
  for (const auto& row : told.rows) {
    line.clear();
    for (const answer_value& value : row) line.push_back(csv_field(value));
    csv += csv_line(line);
  }
  return csv;
}

std::string answer_json(const answer& told, const question& asked) {
  const std::string columns =
      json_list(told.columns, [](const answer_column& column) { return json_text(column.name); });
  const std::string rows =
      json_list(told.rows, [](const std::vector<answer_value>& row) { return json_list(row, json_value); });
  return "{\"title\":" + json_text(sentence_of(asked)) + ",\"columns\":" + columns + ",\"rows\":" + rows + "}\n";
}

}  // namespace velorin
