// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/over_play.h"
#include "model/match_state.h"
#include "ui/front_end.h"
#include "ui/match_play.h"

namespace velorin {

void play_match(const match_play& play) {
  if (!play.match.console_open) open_console(play);
  if (play.match.console_open && play.match.human_involved()) {
    console_form console(play);
    play.user.show(console);
  }
  play.match.console_open = false;
}

}  // namespace velorin
