// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/delivery.h"
#include "model/match_records.h"

// The falls of the wickets and the stands between them: made from the deliveries of an innings.

namespace velorin {

struct match_state;

/// Who stood at the crease, as positions 1 to 11.
struct crease {
  int striker = 0;
  int non_striker = 0;
};

/// The two who are at the crease once a delivery is settled: the next man has come in, an odd number of runs has been
/// crossed. The ends are not changed for the over's end.
crease crease_after(const delivery& ball);

/// The wickets of the innings in play, each at its number. Once the match has ended, the unbroken stand stands behind
/// the last of them, without a score and without balls of the innings.
fall_of_wicket_table falls_in_play(const match_state& match);

/// Likewise of the innings before, whose unbroken stand is always there.
fall_of_wicket_table falls_before(const match_state& match);

}  // namespace velorin
