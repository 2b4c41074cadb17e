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
  std::array<std::string, 5> lines = lines_of(data.settings);
  write_options(data);
  data.settings = configuration();
  require(read_options(data), "five lines are read");
  for (std::string& line : lines) {
    if (line.starts_with(' ')) line.erase(0, 1);
  }
  require(lines_of(data.settings) == lines, "settings are read as they were written");
}

/// Opens the form and leaves it by its OK.
void confirm() {
  settings_form form{data};
  form.open();
  require(form.sample_text_color >= 0 && form.sample_text_color <= 0xFFFFFF, "a colour is shown");
  const std::string chosen = form.database;
  require(chosen.empty() || chosen == "base", "only a database on offer is shown", chosen);
  if (form.accept()) return;
  const std::array<std::string, 5> confirmed = lines_of(data.settings);
  require(read_options(data) && lines_of(data.settings) == confirmed, "the confirmed settings are read again");
}

}  // namespace

void prepare() {
  fresh_state();
  write_bytes(data.files.team_file, {});
  write_bytes(data.files.ground_file, {});
}

void take(std::string_view input) {
  fresh_state();
  const std::filesystem::path options = data.files.folder / "options.mc";
  {
    const unchanged file(options, input);
    if (!read_options(data)) {
      require(lines_of(data.settings) == lines_of({}), "settings that cannot be read leave the old ones");
      return;
    }
    use_database(data, data.settings.database_name);
    use_database(data, "base");
  }
  const configuration read = data.settings;
  write_and_read_again();
  data.settings = read;
  confirm();
}

}  // namespace velorin::fuzz
