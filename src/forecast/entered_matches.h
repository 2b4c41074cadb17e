// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "competitions/match_entry.h"
#include "forecast/rest_player.h"
#include "model/match_records.h"
#include "model/match_state.h"

// The matches of a competition that is forecast.

namespace velorin {

struct open_database;

/// What the matches of a competition are played with; read once, then shared by all threads.
struct competition_world {
  std::map<std::string, eleven> elevens;  ///< by the team's name, as the computer selects them; men without names
  std::vector<ground_rec> grounds;
  ground_rec ground_before;            ///< where a match has no ground of its own
  std::optional<match_start> in_play;  ///< the match of the competition that is on
  match_result result_before;          ///< of the match that has ended but is not booked
};

/// Reads teams and grounds, and where a match is on takes its start. Raises what forecast_cup() does.
competition_world world_of_competition(match_state& match, open_database& data, const std::vector<std::string>& teams,
                                       bool match_is_on);

/// The start at a match wherever it stands, also at the questions of its set-up: both elevens are then those that the
/// computer selects, and the conditions those drawn. Requires a match that is on. Raises what start_at() and
/// forecast_cup() do.
match_start start_anywhere(match_state& match, open_database& data);

/// Plays entered matches; of several threads each needs one.
class entered_matches {
 public:
  explicit entered_matches(const competition_world& world);

  /// The result block of the matches.
  match_state& match() { return scratch_; }

  /// Before the matches of a run: the ground that a match without one of its own is played on.
  void begin_run();
  /// Plays a match between two sides on a ground and leaves its result in match(). Draws the conditions, the toss and
  /// what play draws.
  void play(const entered_side& first, const entered_side& second, const std::string& ground, random_source& chance);
  /// Plays the match that is on to its end, likewise.
  void play_in_progress(random_source& chance);

 private:
  void play_from(const match_start& start, random_source& chance);

  const competition_world* world_;
  rest_player player_;
  match_state scratch_;
};

}  // namespace velorin
