// SPDX-License-Identifier: GPL-3.0-or-later
#include "browsers/forms/browser_fixture.h"

#include "browsers/sqdet.h"
#include "database/configuration.h"
#include "model/random.h"
#include "model/teams.h"
#include "setup/teamfrm.h"

namespace velorin::testing {

void browsing_user::show(sqdet& form) {
  profiles.push_back(form.combo2[form.combo2_index] + " of " + form.combo1[form.combo1_index]);
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
  files.elevens_in_memory = true;
  files.updates = true;
  match = match_state();
  chance.use_seed(7);
  for (int i = 0; i < count; ++i) {
    teamfrm form;
    form.open();
    form.enter(names[i % 4], names[(i + 1 + i / 4 % 3) % 4], names[i % 4] + (i % 2 == 0 ? " Oval" : " Park"));
    form.command1_click();
  }
  user_.messages.clear();
}

}  // namespace velorin::testing
