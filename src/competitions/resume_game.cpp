// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/resume_game.h"

#include "competitions/game_state.h"
#include "competitions/world_cup_form.h"
#include "setup/match_steps.h"
#include "ui/match_play.h"

namespace velorin {

bool resume_game(game_state& game, front_end& user) {
  const match_play play{game.match, game.chance, user, game.data};
  if (game.series.step != series_step::over) {
    resume_series(play, game.series);
  } else if (game.tri.step != tri_step::over) {
    resume_tri_series(play, game.tri);
  } else if (game.world_cup.step != cup_step::none) {
    resume_world_cup(play, game.world_cup);
  } else if (game.match.step != match_step::none) {
    resume_match(play);
  } else {
    return false;
  }
  return true;
}

}  // namespace velorin
