// SPDX-License-Identifier: GPL-3.0-or-later
#include "shown_texts.h"

#include <sstream>

#include "cli/command_line.h"
#include "database/configuration.h"
#include "support.h"
#include "support/game_in_play.h"

namespace velorin::fuzz {

bool is_utf8(std::string_view text) {
  for (std::size_t at = 0; at < text.size(); ++at) {
    const auto lead = static_cast<unsigned char>(text[at]);
    if (lead < 0x80) continue;
    const std::size_t more = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
    if (lead < 0xC2 || lead > 0xF4 || at + more >= text.size()) return false;
    for (std::size_t i = 1; i <= more; ++i) {
      if ((static_cast<unsigned char>(text[at + i]) & 0xC0) != 0x80) return false;
    }
    at += more;
  }
  return true;
}

void require_shown(std::string_view text) {
  for (const std::string_view none : {"nan", "-nan", "inf", "-inf", "nan%", "-nan%", "inf%"}) {
    require(text != none, "a number is shown", text);
  }
}

void require_report(const std::vector<std::string>& report) {
  std::vector<std::string> arguments = {"--teams-dir", data.files.folder.string(), "--database", "base", "report"};
  arguments.insert(arguments.end(), report.begin(), report.end());
  std::ostringstream out;
  std::ostringstream err;
  const int status = cli::run(arguments, data.files.folder, {out, err});
  require(is_utf8(out.str()) && is_utf8(err.str()), "output is UTF-8", err.str());
  if (status == cli::done) {
    require(out.str().ends_with('\n') && err.str().empty(), "a report is printed", err.str());
  } else {
    require(out.str().empty() && err.str().starts_with("velorin-cli: "), "a report is refused", err.str());
  }
}

void require_shown(const std::vector<shown_field>& block) {
  for (const shown_field& field : block) require_shown(field.text);
}

void require_shown(const shown_table& table) {
  for (const shown_table::row& row : table.rows) {
    require(row.texts.size() == table.columns.size(), "a row has a text for each column", table.title);
    for (std::size_t i = 0; i < row.texts.size(); ++i) {
      if (table.columns[i].aligned == alignment::right) require_shown(row.texts[i]);
    }
  }
}

}  // namespace velorin::fuzz
