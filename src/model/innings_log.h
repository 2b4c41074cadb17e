// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>

#include "model/delivery.h"
#include "model/rules.h"

// What the log of an innings holds for its balls: made from the deliveries.

namespace velorin {

/// The entry of one ball of an over: nothing, a number, or a wicket.
struct ball_entry {
  enum class kind : std::uint8_t { none, number, wicket };
  kind what = kind::none;
  int number = 0;  ///< runs of the ball, one more for each no ball and wide that stands on it

  bool operator==(const ball_entry&) const = default;
  bool is_wicket() const { return what == kind::wicket; }
  bool is_empty() const { return what == kind::none; }
  /// "", "W" or the number.
  std::string text() const;
};

/// The six entries of an over.
struct over_entries {
  std::array<ball_entry, balls_of_over + 1> balls;  ///< [1..6]

  /// Sum of the numbers.
  int runs() const;
  int wickets() const;
  /// A ball of it is on record.
  bool is_begun() const;
  /// Enters a delivery of this over.
  void add(const delivery& ball);
};

/// The entries of each over, [1..50].
using innings_log = std::array<over_entries, overs_of_innings + 1>;

innings_log log_of(std::span<const delivery> deliveries);

/// The deliveries of one over, 1 to 50; none if it has not begun. The overs must stand in rising order.
std::span<const delivery> deliveries_of_over(std::span<const delivery> deliveries, int over);

/// The entries of one over.
over_entries entries_of_over(std::span<const delivery> deliveries, int over);

/// The symbols of an over's balls as the console shows them while it is bowled, [0..5]: byes and leg byes are marked
/// "b" and "lb", and no balls and wides are not seen.
std::array<std::string, balls_of_over> live_symbols(std::span<const delivery> deliveries, int over);

}  // namespace velorin
