// SPDX-License-Identifier: GPL-3.0-or-later
// Saves as the game does, and tries again once what has failed: retrying_saver FOLDER {match|exchange}. What failed is
// told on standard error.
#include <exception>
#include <functional>
#include <iostream>
#include <string>
#include <utility>

#include "database/career_update.h"
#include "database/configuration.h"
#include "database/database_fixture.h"
#include "database/elevens.h"
#include "model/run_time_error.h"
#include "support/game_in_play.h"

namespace {

void with_a_second_try(const std::function<void()>& save) {
  try {
    save();
  } catch (const velorin::run_time_error& error) {
    std::cerr << "tried again: " << error.what() << '\n';
    save();
  }
}

}  // namespace

int main(int count, char** words) {
  if (count != 3) return 2;
  try {
    velorin::data.files = velorin::database_paths(words[1], "base");
    if (words[2] == std::string("match")) {
      velorin::testing::set_up_finished_match();
      bool added = false;
      velorin::match_update update(velorin::match, velorin::data, added);
      with_a_second_try([&] { update.run(); });
    } else {
      bool again = false;
      with_a_second_try([&] { velorin::swap_elevens(velorin::data, std::exchange(again, true)); });
    }
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "retrying_saver: " << error.what() << '\n';
    return 1;
  }
}
