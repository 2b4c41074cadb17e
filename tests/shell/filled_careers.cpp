// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/filled_careers.h"

#include "competitions/wctable.h"
#include "competitions/world_cup.h"
#include "headless/headless_user.h"
#include "model/random.h"
#include "model/teams.h"

namespace velorin::testing {

void fill_careers() {
  headless_user user;
  const front_end_scope in_use(user);
  chance.use_seed(2026);
  wctable form;
  form.open();
  form.command1_click();
  world_cup = {};
  match = {};  // with the lines of the worm graph
}

}  // namespace velorin::testing
