// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/filled_careers.h"

#include "competitions/world_cup.h"
#include "competitions/world_cup_form.h"
#include "headless/headless_user.h"
#include "model/match_state.h"
#include "model/random.h"
#include "support/game_in_play.h"

namespace velorin::testing {

void fill_careers() {
  headless_user user(match);
  const front_end_scope in_use(user);
  chance.use_seed(2026);
  world_cup_form form(in_play(), world_cup);
  form.open();
  form.accept();
  world_cup = {};
  match = {};  // with the lines of the worm graph
}

}  // namespace velorin::testing
