// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <vector>

#include "forecast/forecast.h"

// What a captain's choices do to the chance of winning.

namespace velorin {

struct match_state;

/// A choice at hand.
struct captains_choice {
  enum class kind : std::uint8_t {
    computers,           ///< everything is left to the computer
    batting_aggression,  ///< of the batsman at a position of the batting eleven, for his stay
    bowling_aggression,  ///< of the bowler at a position of the bowling eleven, for every spell of his in this innings
    bowler,  ///< the man at a position of the bowling eleven bowls the over that is to begin, or opens the bowling
    next_batsman,  ///< the man at a position of the batting eleven comes in, or opens
    bat_first,     ///< the team chosen first bats
    bowl_first     ///< it bowls
  };
  kind what = kind::computers;
  int position = 0;                  ///< 1 to 11
  int level = 0;                     ///< of an aggression, 1 to 5
  int last_over = overs_of_innings;  ///< an aggression holds up to this over, and is the computer's from then on
};

/// What a choice is worth. An aggression holds until its man is out or the innings is over, since a captain's does
/// until he changes it, or up to its last over; what would be meant by choosing it for one ball alone is hardly to be
/// told from chance. All else is played by the computer for both sides.
struct advice {
  captains_choice choice;
  double win = 0;             ///< chance that the side that chooses wins
  double difference = 0;      ///< to leaving everything to the computer
  double standard_error = 0;  ///< of the difference
};

/// The side for which choices are weighed.
enum class advised_side { batting, bowling, team_chosen_first };

/// Weighs choices of one side by common random numbers: every choice is played with the same draws, run by run. The
/// answer begins with the computer's own choice. Choices that cannot be made as the match stands are left out. Requires
/// can_be_forecast(). The match is only read. Raises what forecast_rest() does.
std::vector<advice> advise(const match_state& match, advised_side side, const std::vector<captains_choice>& choices,
                           const forecast_options& options);

/// All that a side can choose as the match stands: the five aggressions of each of its men in play, who comes in where
/// that is asked, who bowls where an over is to begin, and at an open toss whether the team chosen first bats.
std::vector<captains_choice> choices_at_hand(const match_state& match, advised_side side);

/// The match as it stands once the choice of a man is made. An aggression changes nothing.
match_state with_choice(const match_state& match, const captains_choice& choice);

}  // namespace velorin
