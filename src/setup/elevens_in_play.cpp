// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/elevens_in_play.h"

#include <algorithm>
#include <string>
#include <utility>

#include "database/configuration.h"
#include "database/elevens.h"
#include "database/open_database.h"
#include "engine/ball_books.h"
#include "model/match_state.h"
#include "model/run_time_error.h"
#include "ui/match_play.h"
#include "ui/saving.h"

namespace velorin {

namespace {

const std::string without_files =
    "If you go on without saving, the match is played by the men selected; the files of the elevens stay as they are.";

bool has_names(const eleven& men) {
  return std::any_of(men.begin(), men.end(), [](const player_rec& man) { return !man.name.empty(); });
}

/// The match can be played without the files.
bool both_are_selected(const match_state& match) {
  return has_names(match.selected[0]) && has_names(match.selected[1]);
}

/// Exchanges the files. False if the user goes on without them.
bool exchanged_files(const match_play& play) {
  struct tried_mark {
    bool& tried;
    ~tried_mark() { tried = false; }
  } mark{play.match.exchange_tried};
  return saved(play.user, without_files, [&] { swap_elevens(play.data, std::exchange(mark.tried, true)); });
}

}  // namespace

void save_selected(const match_play& play, int side_index) {
  if (play.match.elevens_unsaved) return;
  const side which = side_index == 0 ? side::first : side::second;
  play.match.elevens_unsaved =
      !saved(play.user, without_files, [&] { write_eleven(play.data, which, play.match.selected[side_index]); });
}

void exchange_elevens(const match_play& play) {
  if (!both_are_selected(play.match)) {
    swap_elevens(play.data);
  } else if (!play.match.elevens_unsaved) {
    play.match.elevens_unsaved = !exchanged_files(play);
  }
  play.match.elevens_exchanged = !play.match.elevens_exchanged;
}

void take_elevens(match_state& match, const open_database& data) {
  if (!both_are_selected(match)) return load_elevens(match, data);
  try {
    if (!match.elevens_unsaved && !data.files.elevens_in_memory) load_elevens(match, data);
  } catch (const run_time_error&) {
    // The files serve every program on their folder. What has become of them does not end this match.
  }
  match.batting_xi = match.selected[match.elevens_exchanged ? 1 : 0];
  match.bowling_xi = match.selected[match.elevens_exchanged ? 0 : 1];
}

}  // namespace velorin
