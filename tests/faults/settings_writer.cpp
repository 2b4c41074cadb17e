// SPDX-License-Identifier: GPL-3.0-or-later
// Confirms the configurations as the game does: settings_writer FOLDER BASE RRGGBB
#include <exception>
#include <iostream>
#include <string>

#include "database/configuration.h"
#include "database/file_calls.h"
#include "database/optfrm.h"

int main(int count, char** words) {
  if (count != 4) return 2;
  if (!velorin::prepare_process()) return 1;
  try {
    velorin::files = velorin::database_paths(words[1], {});
    velorin::read_options();
    velorin::optfrm form;
    form.open();
    form.combo1_text = words[2];
    form.dir1 = "/photos";
    form.command4_click(std::stol(velorin::change_to_rgb(words[3])));
    if (const auto message = form.command1_click()) {
      std::cerr << "settings_writer: " << message->text << '\n';
      return 1;
    }
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "settings_writer: " << error.what() << '\n';
    return 1;
  }
}
