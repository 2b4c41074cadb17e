// SPDX-License-Identifier: GPL-3.0-or-later
#include "browsers/forms/browser_fixture.h"

#include "browsers/player_profile.h"
#include "database/configuration.h"
#include "model/match_state.h"
#include "model/random.h"
#include "setup/new_match.h"
#include "support/game_in_play.h"

namespace velorin::testing {

void browsing_user::show(player_profile_form& form) {
  profiles.push_back(form.players[form.chosen_player] + " of " + form.teams[form.chosen_team]);
  EXPECT_TRUE(form.locked);
}

void BrowserTest::play_matches(int count) {
  const std::vector<std::string> names = {"Ardell", "Brava", "Corrin", "Dessa"};
  for (const std::string& name : names) {
    database.add_team(name);
    database.add_ground(name, name + " Oval");
    database.add_ground(name, name + " Park", 2, 4);
  }
  database.write();
  data.files.elevens_in_memory = true;
  data.files.updates = true;
  match = match_state();
  chance.use_seed(7);
  for (int i = 0; i < count; ++i) {
    new_match_form form(in_play());
    form.open();
    form.enter(names[i % 4], names[(i + 1 + i / 4 % 3) % 4], names[i % 4] + (i % 2 == 0 ? " Oval" : " Park"));
    form.accept();
  }
  user_.messages.clear();
}

}  // namespace velorin::testing
