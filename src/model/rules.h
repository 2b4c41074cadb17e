// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The numbers of the game of fifty overs. None of them can be chosen: cards, logs and files have these sizes.

namespace velorin {

inline constexpr int men_in_eleven = 11;
inline constexpr int men_in_squad = 20;                       ///< at the most
inline constexpr int wickets_of_innings = men_in_eleven - 1;  ///< the last man has nobody to bat with

inline constexpr int balls_of_over = 6;  ///< legal ones, as all balls here
inline constexpr int overs_of_innings = 50;
inline constexpr int balls_of_innings = overs_of_innings * balls_of_over;
inline constexpr int balls_of_quota = 10 * balls_of_over;  ///< with these behind him nobody begins an over
inline constexpr int minutes_of_over = 4;                  ///< by the clock of the match

inline constexpr int least_aggression = 1;
inline constexpr int even_aggression = 3;  ///< of a bowler: leaves the expectations of a ball as they are
inline constexpr int most_aggression = 5;
inline constexpr int full_meter = 915;  ///< the settled meter of a man who could not be more at home

inline constexpr int half_century = 50;  ///< every other milestone of batsmen and stands is a multiple of it
inline constexpr int century = 100;
inline constexpr int five_wicket_haul = 5;  ///< wickets of a bowler's milestone

}  // namespace velorin
