// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <bit>
#include <cmath>
#include <cstdint>

namespace velorin {

/// Rounds to a whole number, an exact half to the even neighbour. Any finite value.
inline double round_half_even(double value) {
  // Adding and taking away 1.5 x 2^52 leaves a whole number in the current (nearest, even) rounding mode.
  constexpr double shift = 6755399441055744.0;
  constexpr double limit = 2251799813685248.0;  // 2^51: up to here the shift keeps every bit that counts
  if (value < limit && value > -limit) [[likely]]
    return (value + shift) - shift;
  return std::nearbyint(value);
}

/// The same as a whole number, for values of -1e9 to 1e9: without a branch, so that several can be rounded at once.
inline int small_round_half_even(double value) {
  // The whole number stands in the lowest bits of the sum.
  constexpr double shift = 6755399441055744.0;
  return static_cast<int>(static_cast<std::uint32_t>(std::bit_cast<std::uint64_t>(value + shift)));
}

/// Rounds to `places` decimals (0 to 9): scales by a power of ten, rounds half to even, scales back.
inline double round_to(double value, int places) {
  constexpr double powers[] = {1.0, 10.0, 100.0, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9};
  const double scale = powers[places];
  return round_half_even(value * scale) / scale;
}

}  // namespace velorin
