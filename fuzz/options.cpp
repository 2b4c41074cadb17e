// SPDX-License-Identifier: GPL-3.0-or-later
// options.mc, as it is, and the form that shows it.
#include <array>

#include "database/configuration.h"
#include "database/settings_form.h"
#include "support.h"
#include "support/game_in_play.h"
#include "target.h"

namespace velorin::fuzz {
namespace {

std::array<std::string, 5> lines_of(const configuration& values) {
  return {values.photo_path, values.database_name, values.text_color, values.back_color, values.font_name};
}

/// Settings are read as they were written, but for the blank that each reading drops.
void write_and_read_again() {
  std::array<std::string, 5> lines = lines_of(settings);
  write_options();
  settings = configuration();
  require(read_options(), "five lines are read");
  for (std::string& line : lines) {
    if (line.starts_with(' ')) line.erase(0, 1);
  }
  require(lines_of(settings) == lines, "settings are read as they were written");
}

/// Opens the form and leaves it by its OK.
void confirm() {
  settings_form form{data};
  form.open();
  require(form.sample_text_color >= 0 && form.sample_text_color <= 0xFFFFFF, "a colour is shown");
  const std::string chosen = form.database;
  require(chosen.empty() || chosen == "base", "only a database on offer is shown", chosen);
  if (form.accept()) return;
  const std::array<std::string, 5> confirmed = lines_of(settings);
  require(read_options() && lines_of(settings) == confirmed, "the confirmed settings are read again");
}

}  // namespace

void prepare() {
  fresh_state();
  write_bytes(files.team_file, {});
  write_bytes(files.ground_file, {});
}

void take(std::string_view input) {
  fresh_state();
  const std::filesystem::path options = files.folder / "options.mc";
  {
    const unchanged file(options, input);
    if (!read_options()) {
      require(lines_of(settings) == lines_of({}), "settings that cannot be read leave the old ones");
      return;
    }
    use_database(settings.database_name);
    use_database("base");
  }
  const configuration read = settings;
  write_and_read_again();
  settings = read;
  confirm();
}

}  // namespace velorin::fuzz
