// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/resetmat.h"

#include "model/teams.h"

namespace velorin {

namespace {

/// Assigns a fresh group. The copy keeps the memory that texts and lists already have.
template <class Group>
void refresh(Group& group) {
  static const Group fresh{};
  group = fresh;
}

}  // namespace

void reset_match() {
  refresh<match_sides>(match);
  refresh<match_position>(match);
  refresh<match_totals>(match);
  refresh<match_books>(match);
  refresh<match_achievements>(match);
  refresh<match_known_achievements>(match);
  refresh<match_conditions>(match);
  refresh<match_set_up>(match);
  refresh<match_bowler_pool>(match);
}

}  // namespace velorin
