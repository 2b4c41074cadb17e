// SPDX-License-Identifier: GPL-3.0-or-later
// Confirms the configurations as the game does: settings_writer FOLDER BASE RRGGBB
// or begins careers and records anew as they do: settings_writer FOLDER BASE begin_anew
#include <exception>
#include <iostream>
#include <string>

#include "database/configuration.h"
#include "database/file_calls.h"
#include "database/open_database.h"
#include "database/settings_form.h"

int main(int count, char** words) {
  if (count != 4) return 2;
  if (!velorin::prepare_process()) return 1;
  try {
    velorin::open_database data;
    data.files = velorin::database_paths(words[1], {});
    velorin::read_options(data);
    velorin::settings_form form(data);
    form.open();
    form.database = words[2];
    const bool anew = std::string(words[3]) == "begin_anew";
    if (!anew) {
      form.photo_folder = "/photos";
      form.change_font_color(std::stol(velorin::change_to_rgb(words[3])));
    }
    if (const auto message = anew ? form.begin_anew() : form.accept()) {
      std::cerr << "settings_writer: " << message->text << '\n';
      return 1;
    }
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "settings_writer: " << error.what() << '\n';
    return 1;
  }
}
