// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <concepts>
#include <cstdint>

namespace velorin {

namespace detail {
/// Raises the run_time_error of an overflow; kept out of line so that the checks stay small.
[[noreturn]] void raise_integer_overflow(long long value);
[[noreturn]] void raise_integer_overflow(unsigned long long value);
}  // namespace detail

/// A match figure: a signed 16-bit whole number, -32768 to 32767, that starts at 0.
/// Storing a value outside this range raises run_time_error (overflow); nothing is changed then.
class integer {
 public:
  constexpr integer() = default;

  template <std::integral T>
  constexpr integer(T value) {  // NOLINT(google-explicit-constructor): as its number
    if constexpr (std::same_as<T, unsigned long> || std::same_as<T, unsigned long long>) {
      if (value > 0x7FFF) [[unlikely]] {
        detail::raise_integer_overflow(static_cast<unsigned long long>(value));
      }
    }
    value_ = checked(static_cast<long long>(value));
  }

  template <std::floating_point T>
  integer(T) = delete;

  constexpr operator int() const { return value_; }  // NOLINT(google-explicit-constructor): as its number

  constexpr integer& operator+=(int change) {
    value_ = checked(static_cast<long long>(value_) + change);
    return *this;
  }
  constexpr integer& operator-=(int change) { return *this += -change; }
  constexpr integer& operator++() { return *this += 1; }

  /// True if a figure can have this value.
  static constexpr bool holds(long long value) { return static_cast<std::int16_t>(value) == value; }

 private:
  static constexpr std::int16_t checked(long long value) {
    if (!holds(value)) [[unlikely]] {
      detail::raise_integer_overflow(value);
    }
    return static_cast<std::int16_t>(value);
  }

  std::int16_t value_ = 0;
};

}  // namespace velorin
