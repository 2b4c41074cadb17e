// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace velorin {

/// The shortest decimal text that reads back as the same value: no exponent, "0.5", no trailing zeros, whole numbers
/// without a point, minus zero as "0". Finite values only.
std::string number_text(double value);
/// The same for a single-precision value: the shortest text that reads back as the same single.
std::string number_text(float value);
std::string number_text(int value);
std::string number_text(long value);

/// Appends a whole number to a text.
void append_number(std::string& text, long value);

/// The value of the shortest text of a single-precision number, as a double. It differs from the plain widening:
/// 4.7f gives 4.7.
double shown_value(float value);

/// The number in a shown text (blanks around it allowed), or nothing if the text is no number.
std::optional<double> number_in(std::string_view text);

/// Overs as written everywhere: whole overs, ".", balls of the next one. `balls` is 0 or more.
std::string overs_from_balls(long balls);
void append_overs(std::string& text, long balls);

/// A bowler's figures: overs-maidens-runs-wickets with `separator` between the items ("-" or " - ").
std::string bowling_figures(int balls, int maidens, int runs, int wickets, std::string_view separator = "-");

/// A team's short name: the first three letters, or with a blank in the name its first letter and the one behind the
/// first blank.
std::string short_name(std::string_view team);

/// Compares `text` with the text of `first` directly followed by `second`, without joining them.
inline bool equals_joined(std::string_view text, std::string_view first, std::string_view second) {
  return text.size() == first.size() + second.size() && text.substr(0, first.size()) == first &&
         text.substr(first.size()) == second;
}

}  // namespace velorin
