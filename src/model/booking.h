// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "model/integer.h"

// How the figures of a match are booked: one that does not fit is refused by its name.

namespace velorin {

namespace detail {
/// Raises the run_time_error of an overflow in a named figure; kept out of line like that of any other figure.
[[noreturn]] void raise_figure_overflow(long long value, const char* field, const std::string& concerned);
}  // namespace detail

/// Stores `value` in the figure named `field` of the player, team or ground `concerned`, empty where there is none.
/// Raises run_time_error (overflow) that names both; nothing is changed then.
inline void book_as(integer& figure, long long value, const char* field, const std::string& concerned) {
  if (!integer::holds(value)) [[unlikely]] {
    detail::raise_figure_overflow(value, field, concerned);
  }
  figure = value;
}

/// Adds to the figure, likewise.
inline void book(integer& figure, int change, const char* field, const std::string& concerned) {
  book_as(figure, static_cast<long long>(figure) + change, field, concerned);
}

}  // namespace velorin
