// SPDX-License-Identifier: GPL-3.0-or-later
// Plays a match of a known seed on the database "small" and adds it under a name: counting_updater FOLDER
#include <exception>
#include <iostream>
#include <memory>
#include <string>

#include "competitions/game_state.h"
#include "database/configuration.h"
#include "database/file_calls.h"
#include "headless/headless_user.h"
#include "setup/new_match.h"

namespace {

/// Tells the name of the match.
class naming_user : public velorin::headless_user {
 public:
  using headless_user::headless_user;
  std::string saves_match() override { return "the-match-1"; }
};

}  // namespace

int main(int count, char** words) {
  if (count != 2 || !velorin::prepare_process()) return 2;
  try {
    const auto game = std::make_unique<velorin::game_state>();
    game->data.files = velorin::database_paths(words[1], "small");
    game->data.files.updates = true;
    game->data.files.elevens_in_memory = true;
    game->chance.use_seed(7);
    naming_user user(game->match);
    velorin::new_match_form form({game->match, game->chance, user, game->data});
    form.open();
    form.accept();
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "counting_updater: " << error.what() << '\n';
    return 1;
  }
}
