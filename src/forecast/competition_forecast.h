// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "forecast/forecast.h"

// What is left of a competition, played many times.

namespace velorin {

struct game_state;

/// How often a team of the World Cup gets how far, 0 to 1 each.
struct cup_chances {
  std::string team;
  double super_six = 0;
  double semi_finals = 0;
  double grand_final = 0;
  double title = 0;
};

/// How often a team of a tri series gets how far. A final that is tied has no winner.
struct tri_chances {
  std::string team;
  double final = 0;
  double title = 0;
};

template <class Chances>
struct competition_forecast {
  std::vector<Chances> teams;  ///< as entered: Group A, Group B; or the three in their order
  long runs = 0;               ///< that were played
  int settled = 0;             ///< so many stages, from the first on, are known: who reaches them is no chance any more
};

/// Plays what is left of the World Cup in play many times, the match in play from where it stands, all sides led by the
/// computer. Everybody's elevens are those that Auto Select makes of the squads. The game is only read, but for what is
/// kept of its team and ground files; nothing is asked, drawn or written. Requires a World Cup in play; once it is over
/// there is nobody in the answer. Raises run_time_error: what reading the teams and grounds raises, squads of which no
/// eleven can be made (endless), a twentieth team (subscript).
competition_forecast<cup_chances> forecast_cup(game_state& game, const forecast_options& options);
/// The same of the tri series in play.
competition_forecast<tri_chances> forecast_tri(game_state& game, const forecast_options& options);

/// The chances of a match to come; the rest to 1 are ties.
struct fixture_chances {
  int place = 0;     ///< in the list of fixtures
  double win_a = 0;  ///< of the side named first
  double win_b = 0;  ///< of the other
};

/// The matches of the World Cup's fixture list that are still to be played and of which both sides are known, in their
/// order, each played so many times for itself with the conditions and the toss drawn. Elevens and errors are those of
/// forecast_cup(). Asked to stop, it returns the matches that it has played as often as it should.
std::vector<fixture_chances> forecast_fixtures(game_state& game, const forecast_options& options);

}  // namespace velorin
