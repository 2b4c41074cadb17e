// SPDX-License-Identifier: GPL-3.0-or-later
// Does to the elevens what the game does ahead of a match: elevens_writer FOLDER {write|exchange}
#include <exception>
#include <iostream>
#include <string>

#include "database/configuration.h"
#include "database/elevens.h"
#include "database/file_calls.h"
#include "database/open_database.h"

namespace {

velorin::eleven men_called(const std::string& prefix) {
  velorin::eleven men;
  for (int i = 1; i <= 11; ++i) {
    men[i].name = prefix + std::to_string(i);
    men[i].bat_skill = 20 + i;
    men[i].bat_type = "RH Opener";
    men[i].bowler_type = "spinner";
  }
  return men;
}

}  // namespace

int main(int count, char** words) {
  if (count != 3) return 2;
  if (!velorin::prepare_process()) return 1;
  const std::string wanted = words[2];
  try {
    velorin::open_database data;
    data.files = velorin::database_paths(words[1], {});
    if (wanted == "write") {
      velorin::write_eleven(data, velorin::side::first, men_called("A."));
      velorin::write_eleven(data, velorin::side::second, men_called("B."));
    } else {
      velorin::swap_elevens(data);
    }
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "elevens_writer: " << error.what() << '\n';
    return 1;
  }
}
