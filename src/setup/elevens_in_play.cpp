// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/elevens_in_play.h"

#include <algorithm>
#include <string>
#include <utility>

#include "database/configuration.h"
#include "database/elevens.h"
#include "engine/ball_books.h"
#include "model/match_state.h"
#include "model/run_time_error.h"
#include "ui/saving.h"

namespace velorin {

namespace {

const std::string without_files =
    "If you go on without saving, the match is played by the men selected; the files of the elevens stay as they are.";

bool has_names(const eleven& men) {
  return std::any_of(men.begin(), men.end(), [](const player_rec& man) { return !man.name.empty(); });
}

/// The match can be played without the files.
bool both_are_selected() { return has_names(match.selected[0]) && has_names(match.selected[1]); }

}  // namespace

void save_selected(int side_index) {
  if (match.elevens_unsaved) return;
  const side which = side_index == 0 ? side::first : side::second;
  match.elevens_unsaved = !saved(without_files, [&] { write_eleven(which, match.selected[side_index]); });
}

void exchange_elevens() {
  if (!both_are_selected()) {
    swap_elevens();
  } else if (!match.elevens_unsaved) {
    bool again = false;
    match.elevens_unsaved = !saved(without_files, [&] { swap_elevens(std::exchange(again, true)); });
  }
  match.elevens_exchanged = !match.elevens_exchanged;
}

void take_elevens() {
  if (files.elevens_in_memory || !both_are_selected()) return load_elevens();
  try {
    if (!match.elevens_unsaved) load_elevens();
  } catch (const run_time_error&) {
    // The files serve every program on their folder. What has become of them does not end this match.
  }
  match.batting_xi = match.selected[match.elevens_exchanged ? 1 : 0];
  match.bowling_xi = match.selected[match.elevens_exchanged ? 0 : 1];
}

}  // namespace velorin
