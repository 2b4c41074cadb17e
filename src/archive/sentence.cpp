// SPDX-License-Identifier: GPL-3.0-or-later
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <system_error>
#include <utility>

#include "archive/question.h"
#include "archive/question_fields.h"

namespace velorin {

namespace {

std::string plain(std::string_view name) {
  std::string words(name);
  std::replace(words.begin(), words.end(), '_', ' ');
  return words;
}

std::string told(const row_field& field) { return field.told.empty() ? plain(field.name) : std::string(field.told); }

/// A number's conditions count, a text's name a place.
std::string condition_words(const std::string& what, bool counts, const condition& part) {
  struct wording {
    std::string_view op;
    std::string_view counted;
    std::string_view placed;
  };
  constexpr std::array<wording, 7> words = {{{"=", "{1} {0}", "{0} {1}"},
                                             {"!=", "other than {1} {0}", "{0} other than {1}"},
                                             {"<", "fewer than {1} {0}", "{0} before {1}"},
                                             {"<=", "{1} or fewer {0}", "{0} up to {1}"},
                                             {">", "more than {1} {0}", "{0} after {1}"},
                                             {">=", "{1} or more {0}", "{0} from {1} on"},
                                             {"~", "{0} with {1} in it", "{0} with \"{1}\" in it"}}};
  const auto found = std::find_if(words.begin(), words.end(), [&](const wording& one) { return one.op == part.op; });
  if (found == words.end()) throw question_error("Unknown operator", part.op, {});
  const std::string value = part.value.empty() ? "none" : part.value;
  return fmt::format(fmt::runtime(counts ? found->counted : found->placed), what, value);
}

/// Numbers that name and do not count.
bool is_place(std::string_view field) {
  constexpr std::array<std::string_view, 10> places = {"id",   "match_id", "innings", "position", "wicket",
                                                       "year", "number",   "out",     "human",    "unbroken"};
  return std::find(places.begin(), places.end(), field) != places.end();
}

std::string words_of(const row_source& source, const condition& part) {
  const row_field& field = field_of(source, part.field);
  const bool counts =
      field.what != row_field::kind::name && field.what != row_field::kind::text && !is_place(field.name);
  return condition_words(told(field), counts, part);
}

/// Conditions that are told by words of their own, such as "not out"; "" for any other.
std::string state_words(const condition& part) {
  struct state {
    std::string_view field;
    std::string_view value;
    std::string_view words;
  };
  constexpr std::array<state, 8> states = {{{"out", "0", "not out"},
                                            {"out", "1", "out"},
                                            {"not_out", "1", "not out"},
                                            {"unbroken", "1", "unbroken"},
                                            {"unbroken", "0", "broken"},
                                            {"human", "1", "led by a user"},
                                            {"human", "0", "led by the computer alone"},
                                            {"winner", "", "tied"}}};
  const auto found = std::find_if(states.begin(), states.end(), [&](const state& one) {
    return part.op == "=" && one.field == part.field && one.value == part.value;
  });
  return found == states.end() ? std::string() : std::string(found->words);
}

std::optional<long> whole_number(const std::string& text) {
  long number = 0;
  const auto [stopped, failed] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (failed != std::errc() || stopped != text.data() + text.size()) return std::nullopt;
  return number;
}

/// "90 to 99 runs" for two conditions that belong together; "" for others.
std::string range_words(const row_source& source, const condition& from, const condition& to) {
  const row_field& field = field_of(source, from.field);
  const bool one_number = from.field == to.field && field.what == row_field::kind::number && !is_place(field.name);
  const std::optional<long> least = whole_number(from.value);
  const std::optional<long> most = whole_number(to.value);
  if (!one_number || from.op != ">=" || !least || !most || (to.op != "<" && to.op != "<=")) return {};
  return fmt::format("{} to {} {}", *least, to.op == "<" ? *most - 1 : *most, told(field));
}

std::string joined(const std::vector<std::string>& parts) {
  std::string text;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (i > 0) text += i + 1 == parts.size() ? " and " : ", ";
    text += parts[i];
  }
  return text;
}

std::string sort_words(const row_source& source, const question& asked) {
  const bool grouped = !asked.by.empty();
  const bool is_group = std::find(asked.by.begin(), asked.by.end(), asked.sort) != asked.by.end();
  std::string what = plain(asked.sort);
  bool counts = true;
  bool rate = false;
  if (grouped && !is_group) {
    const sum_figure& figure = figure_of(source, asked.sort);
    rate = figure.what != sum_figure::kind::number && figure.what != sum_figure::kind::overs;
  } else {
    const row_field& field = field_of(source, asked.sort);
    what = told(field);
    rate = field.what == row_field::kind::rate;
    counts = field.what != row_field::kind::name && field.what != row_field::kind::text && !is_place(field.name);
  }
  if (!counts) return fmt::format("in the order of {}{}", what, asked.descending ? ", the last first" : "");
  if (rate) return fmt::format("{} {} first", asked.descending ? "highest" : "lowest", what);
  return fmt::format("{} {} first", asked.descending ? "most" : "fewest", what);
}

}  // namespace

std::string sentence_of(const question& asked) {
  const row_source& source = source_of(asked.from);
  std::string sentence(source.told);
  std::vector<std::string> parts;
  std::string states;
  for (std::size_t i = 0; i < asked.where.size(); ++i) {
    const condition& part = asked.where[i];
    std::string words = words_of(source, part);
    if (const std::string state = state_words(part); !state.empty()) {
      states += ", " + state;
      continue;
    }
    const bool more = i + 1 < asked.where.size();
    const std::string range = more ? range_words(source, part, asked.where[i + 1]) : std::string();
    if (!range.empty()) ++i;
    parts.push_back(range.empty() ? words : range);
  }
  if (!parts.empty()) sentence += " with " + joined(parts);
  sentence += states;
  if (!asked.by.empty()) {
    parts.clear();
    for (const std::string& name : asked.by) parts.push_back(told(field_of(source, name)));
    sentence += ", summed by " + joined(parts);
  }
  parts.clear();
  for (const condition& part : asked.having) {
    parts.push_back(condition_words(plain(figure_of(source, part.field).name), true, part));
  }
  if (!parts.empty()) sentence += ", where there are " + joined(parts);
  if (!asked.sort.empty()) sentence += ", " + sort_words(source, asked);
  if (asked.top > 0) sentence += fmt::format(", the first {}", asked.top);
  return sentence + ".";
}

}  // namespace velorin
