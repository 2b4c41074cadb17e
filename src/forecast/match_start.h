// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <optional>
#include <string>

#include "model/match_state.h"

// A match as its rest is played from it, again and again.

namespace velorin {

/// One of the two sides of a forecast. `first` is the side that bats first, or, as long as nobody has seen the coin
/// fall, the team chosen first.
enum class forecast_side { first, second };

/// The figures of the cards that rules read. Names and dismissals are left out.
struct card_figures {
  std::array<integer, men_in_eleven + 1> runs;  ///< [1..11] of a batsman off the bat, of a bowler conceded
  std::array<integer, men_in_eleven + 1> balls;
  std::array<integer, men_in_eleven + 1> wickets;  ///< of a bowler
};

/// What of a match its rest depends on, both sides led by the computer. No name stands in it, but the two teams'.
struct match_start {
  std::string first;  ///< the sides as told
  std::string second;
  std::array<match_sides, 2> sides;  ///< [1] is used where the toss is open: the team chosen second bats
  bool toss_open = false;            ///< who bats is still to be drawn
  bool to_begin = false;             ///< the console is still to be opened
  bool unattended = true;            ///< such a match ends after a hundred overs
  match_position position;
  match_play_place place;
  match_totals totals;
  std::array<card_figures, 4> cards;  ///< batting, bowling, and both of the innings before
  delivery_list deliveries;
  match_known_aggressions known_aggressions;
  match_conditions conditions;
  match_bowler_pool pool;
  match_console console;
  forecast_side batting_first = forecast_side::first;  ///< the side that bats in the odd innings, the toss decided
};

/// The match is on, and both elevens are known.
bool can_be_forecast(const match_state& match);

/// The start at a match: at any step of play or of its toss; mid-over, too. From there on the computer leads both
/// sides. Requires can_be_forecast(). Raises run_time_error: bowlers whom the computer cannot rank (type, overflow).
match_start start_at(const match_state& match);

/// The start before the toss of two elevens under these conditions. The texts of the men's names may be empty.
match_start start_before_toss(const std::string& first, const std::string& second, const eleven& first_men,
                              const eleven& second_men, const match_conditions& conditions);

/// Opens the toss again, for a choice: the side named bats first.
match_start with_toss_decided(const match_start& before_toss, forecast_side bats);

}  // namespace velorin
