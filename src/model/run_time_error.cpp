// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/run_time_error.h"

#include <fmt/format.h>

#include <utility>

#include "model/booking.h"
#include "model/code_page.h"
#include "model/integer.h"

namespace velorin {

namespace {

std::string one_line(const std::string& happened, const error_place& place) {
  std::string where;
  auto add = [&where](const std::string& part) {
    where += where.empty() ? " (" : ", ";
    where += part;
  };
  if (!place.file.empty()) add(fmt::format("file {}", place.file));
  if (place.record != 0) add(fmt::format("record {}", place.record));
  if (!place.field.empty()) add(fmt::format("field {}", place.field));
  if (!place.player.empty()) add(fmt::format("at \"{}\"", place.player));
  if (!where.empty()) where += ")";
  // Values out of files come along as they are; a zero would end what() before its place is told.
  return without_controls(happened + where);
}

template <typename Value>
[[noreturn]] void raise_overflow(Value value, error_place place = {}) {
  throw run_time_error(failure::overflow, fmt::format("Overflow: {} does not fit a 16-bit figure", value),
                       std::move(place));
}

}  // namespace

run_time_error::run_time_error(failure kind, const std::string& happened, error_place place)
    : std::runtime_error(one_line(happened, place)), kind_(kind), place_(std::move(place)) {}

void detail::raise_integer_overflow(long long value) { raise_overflow(value); }

void detail::raise_integer_overflow(unsigned long long value) { raise_overflow(value); }

void detail::raise_figure_overflow(long long value, const char* field, const std::string& concerned) {
  raise_overflow(value, {.file = {}, .record = 0, .field = field, .player = concerned});
}

}  // namespace velorin
