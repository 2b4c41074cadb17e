// SPDX-License-Identifier: GPL-3.0-or-later
#include "archive/written_question.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "archive/question_fields.h"

namespace velorin {

namespace {

std::string on_one_line(std::string text) {
  std::replace(text.begin(), text.end(), '\n', ' ');
  return text;
}

std::vector<std::string> parts_of(std::string_view list) {
  std::vector<std::string> parts;
  while (!list.empty()) {
    const std::size_t comma = std::min(list.find(','), list.size());
    parts.emplace_back(list.substr(0, comma));
    list.remove_prefix(std::min(comma + 1, list.size()));
  }
  return parts;
}

long number_in(std::string_view text) {
  long number = 0;
  const auto [stopped, failed] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (failed != std::errc() || stopped != text.data() + text.size() || number < 0) {
    throw question_error("No number of rows", std::string(text), {});
  }
  return number;
}

void take_line(question& asked, std::string_view line) {
  const std::size_t blank = std::min(line.find(' '), line.size());
  const std::string_view word = line.substr(0, blank);
  const std::string_view rest = line.substr(std::min(blank + 1, line.size()));
  if (word == "from") {
    const std::optional<rows_of> from = source_named(rest);
    if (!from) throw question_error("Unknown rows", std::string(rest), {});
    asked.from = *from;
  } else if (word == "by") {
    asked.by = parts_of(rest);
  } else if (word == "where") {
    asked.where.push_back(condition_from(rest));
  } else if (word == "having") {
    asked.having.push_back(condition_from(rest));
  } else if (word == "sort") {
    asked.sort = rest;
  } else if (word == "descending") {
    asked.descending = true;
  } else if (word == "top") {
    asked.top = number_in(rest);
  } else {
    throw question_error("Unknown part of a question", std::string(word), {});
  }
}

}  // namespace

std::string written_question(const question& asked) {
  std::string text = "from " + std::string(source_name(asked.from)) + '\n';
  std::string by;
  for (const std::string& field : asked.by) by += (by.empty() ? "" : ",") + field;
  if (!by.empty()) text += "by " + by + '\n';
  for (const condition& part : asked.where) text += "where " + part.field + part.op + on_one_line(part.value) + '\n';
  for (const condition& part : asked.having) text += "having " + part.field + part.op + on_one_line(part.value) + '\n';
  if (!asked.sort.empty()) text += "sort " + asked.sort + '\n';
  if (asked.descending) text += "descending\n";
  if (asked.top > 0) text += "top " + std::to_string(asked.top) + '\n';
  return text;
}

question question_written(std::string_view text) {
  question asked;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    if (end > 0) take_line(asked, text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  require_known_parts(asked);
  return asked;
}

void add_condition(question& asked, condition part) {
  const row_source& source = source_of(asked.from);
  const bool of_sums =
      !asked.by.empty() && find_field(source, part.field) == nullptr && find_figure(source, part.field) != nullptr;
  (of_sums ? asked.having : asked.where).push_back(std::move(part));
}

void require_known_parts(const question& asked) {
  const row_source& source = source_of(asked.from);
  for (const std::string& name : asked.by) field_of(source, name);
  if (asked.by.empty() && !asked.having.empty()) {
    throw question_error("A figure of sums needs fields to sum by", asked.having.front().field, {});
  }
  if (!asked.sort.empty()) {
    const bool of_sums = !asked.by.empty() && find_figure(source, asked.sort) != nullptr;
    if (!of_sums) field_of(source, asked.sort);
  }
  sentence_of(asked);
}

}  // namespace velorin
