// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "model/match_state.h"
#include "recording/ball_index.h"
#include "recording/recording.h"

namespace velorin {

/// A match of a recording. Texts are single bytes of Windows-1252.
struct watched_match {
  std::string stage;   ///< "Super Six, match 3"; "" for a match by itself
  std::string sides;   ///< "India v England"
  std::string result;  ///< "India won by 20 runs"; "" where it has not ended

  /// All of it in a line.
  std::string line() const;
};

/// Plays a recording to whoever looks on: every match of it, at each of its balls. Nothing is written. One match is at
/// hand at a time, with a copy of its state for each ball, under 25 megabytes.
class recording_player {
 public:
  /// The last match is at hand. `name`: the recording's for errors. Raises what replay() raises.
  recording_player(recording recorded, std::string name);

  /// In the order in which they were played; a match of which no ball has been bowled is none.
  const std::vector<watched_match>& matches() const { return matches_; }
  /// The one at hand, from 0. Requires a match, as all that follows.
  int match() const { return match_; }
  /// Plays the recording up to the end of another match. Raises what replay() raises.
  void choose_match(int match);

  /// The moments of the match at hand. Balls that were taken back are not among them.
  const ball_index& index() const { return index_; }
  /// The match as it stood at a moment. Where the over was over it stands between two overs, at the end of an innings
  /// or of the match before its card. The computer leads both sides, so that nobody is asked for anything.
  const match_state& at(int place) const { return moments_[static_cast<std::size_t>(place)]; }

 private:
  void list_matches();
  void forget_from(int innings, int balls);
  void note(const match_state& match);

  recording recorded_;
  std::string name_;
  std::vector<watched_match> matches_;
  int match_ = -1;
  ball_index index_;
  std::deque<match_state> moments_;  // as many as the index has
};

}  // namespace velorin
