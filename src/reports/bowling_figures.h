// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "model/rules.h"

// The bowling figures of the match, as plain records of their shown texts.

namespace velorin {

struct match_state;

/// What the two screens of bowling figures have in common. Of a man who has not bowled only the name is filled.
struct bowling_screen {
  static constexpr std::string_view title = "Bowling Figures";
  static constexpr std::array<std::string_view, 5> headings = {"Overs", "Mdns", "Runs", "Wkts", "R.P.O"};

  std::array<std::string, men_in_eleven + 1> names;          ///< [1..11] names
  std::array<std::string, men_in_eleven + 1> overs;          ///< [1..11] overs
  std::array<std::string, men_in_eleven + 1> maidens;        ///< [1..11] maidens
  std::array<std::string, men_in_eleven + 1> runs;           ///< [1..11] runs
  std::array<std::string, men_in_eleven + 1> wickets;        ///< [1..11] wickets
  std::array<std::string, men_in_eleven + 1> economy_rates;  ///< [1..11] runs an over, to two places
};

/// The bowlers of the innings in play.
struct bowling_card_form : bowling_screen {
  explicit bowling_card_form(const match_state& match) : match_(match) {}

  /// Fills the screen afresh.
  void open();

 private:
  const match_state& match_;
};

/// The bowlers of the first innings.
struct first_bowling_card_form : bowling_screen {
  explicit first_bowling_card_form(const match_state& match) : match_(match) {}

  /// Fills the screen afresh.
  void open();

 private:
  const match_state& match_;
};

}  // namespace velorin
