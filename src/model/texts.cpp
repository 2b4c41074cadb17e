// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/texts.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "model/rounding.h"
#include "model/rules.h"

namespace velorin {

namespace {

template <class T>
std::string shortest(T value) {
  if (value == 0) return "0";
  char buffer[400];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed).ptr;
  return std::string(buffer, end);
}

}  // namespace

std::string number_text(double value) { return shortest(value); }
std::string number_text(float value) { return shortest(value); }
std::string number_text(int value) { return number_text(static_cast<long>(value)); }

std::string number_text(long value) {
  std::string text;
  append_number(text, value);
  return text;
}

void append_number(std::string& text, long value) {
  char buffer[24];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
  text.append(buffer, end);
}

double shown_value(float value) {
  // Two decimals and at most six digits name one single only, so that is the shortest text; the rest goes through it.
  if (std::fabs(value) < 1000.0F) {
    const double plain = round_half_even(static_cast<double>(value) * 100.0) / 100.0;
    if (static_cast<float>(plain) == value) return plain;
  }
  const std::string text = shortest(value);
  double result = 0;
  std::from_chars(text.data(), text.data() + text.size(), result);
  return result;
}

std::optional<double> number_in(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return std::nullopt;
  text = text.substr(first, text.find_last_not_of(' ') - first + 1);
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
  if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value)) return std::nullopt;
  return value;
}

void append_overs(std::string& text, long balls) {
  append_number(text, balls / balls_of_over);
  text += '.';
  append_number(text, balls % balls_of_over);
}

std::string overs_from_balls(long balls) {
  std::string text;
  append_overs(text, balls);
  return text;
}

std::string bowling_figures(int balls, int maidens, int runs, int wickets, std::string_view separator) {
  std::string text = overs_from_balls(balls);
  for (const int figure : {maidens, runs, wickets}) {
    text += separator;
    append_number(text, figure);
  }
  return text;
}

std::string short_name(std::string_view team) {
  const auto blank = team.find(' ');
  if (blank == std::string_view::npos) return std::string(team.substr(0, 3));
  return std::string(team.substr(0, 1)) + std::string(team.substr(blank + 1, 1));
}

}  // namespace velorin
