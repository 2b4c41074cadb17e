// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <vector>

#include "model/match_state.h"
#include "model/random.h"

// What a practice match remembers, so that its balls can be taken back.

namespace velorin {

/// How far a match is taken back: to before the last ball, or to the beginning of the over in play, or of the last one
/// where none is in play.
enum class taken_back : std::uint8_t { ball, over };

/// A practice match as it stood before each of its balls, with the place of chance there. A value: it belongs to
/// whoever plays the match. About 30 kilobytes a ball, under 20 megabytes for a match.
class practice_history {
 public:
  /// Play awaits a ball or an over: remembers where it stands. Where a match taken back with the same luck comes to a
  /// ball that has been there before, chance goes on as it did for that ball, whatever was drawn meanwhile.
  void note(const match_state& match, random_source& chance);

  /// There is a ball to be taken back.
  bool can_take_back() const { return !points_.empty(); }

  /// Takes the match back; nothing happens without a ball to be taken back. It then awaits that ball or over with all
  /// that the captains had chosen there. With fresh luck nothing that was drawn since comes again.
  void go_back(match_state& match, random_source& chance, taken_back how_far, luck wanted);

  /// The match is over. Chance forgets what it kept for it.
  void clear(random_source& chance);

 private:
  std::deque<match_state> points_;            // before each ball, in order; those taken back are gone
  std::vector<random_source::place> places_;  // of chance there; longer where balls may come again
};

}  // namespace velorin
