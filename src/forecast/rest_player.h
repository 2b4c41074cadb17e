// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

#include "database/open_database.h"
#include "engine/standing_orders.h"
#include "forecast/match_start.h"
#include "model/match_state.h"
#include "model/random.h"

// Plays the rest of a match by the rules of the engine, keeping nothing that nobody reads.

namespace velorin {

/// How the rest of a match went.
enum class rest_outcome : std::uint8_t {
  first_wins,
  tie,
  second_wins,
  undecided,  ///< a first innings of 0 or a hundred overs ended an unattended match, or play broke off with an error
};

struct innings_score {
  int runs = 0;
  int wickets = 0;
  int balls = 0;
};

struct played_rest {
  rest_outcome outcome = rest_outcome::undecided;
  bool first_batted = true;  ///< the side called first batted before the other one
  innings_score first;
  innings_score second;
  long deliveries = 0;   ///< bowled in this rest
  double rate_gain = 0;  ///< of the side that batted before, in runs an over, as league tables count it
};

/// Generator of a run: what it draws follows from the seed of the forecast and the number of the run alone.
void seed_run(random_source& chance, std::uint64_t seed, long run);

/// Plays rests one after another on a match of its own. Of several threads each needs one.
class rest_player {
 public:
  rest_player();

  /// Plays the rest of a match from its start. Draws what the engine draws. `orders` may be nullptr. Raises nothing of
  /// the game: a match that breaks off is undecided.
  played_rest play(const match_start& start, random_source& chance, const standing_orders* orders = nullptr);

  /// Plays on to the next ball, which is not bowled: the match as it comes to it, or nullptr where the match is over or
  /// breaks off before. Holds until the player is used again. Draws what the engine draws before that ball.
  const match_state* play_to_ball(const match_start& start, random_source& chance);

 private:
  void put_at(const match_start& start, random_source& chance);
  played_rest result(const match_start& start) const;

  match_state match_;
  open_database no_files_;
  bool first_bats_odd_ = true;  // the side called first bats in the odd innings
};

}  // namespace velorin
