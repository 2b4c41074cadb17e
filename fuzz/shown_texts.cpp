// SPDX-License-Identifier: GPL-3.0-or-later
#include "shown_texts.h"

#include "support.h"

namespace velorin::fuzz {

void require_shown(std::string_view text) {
  for (const std::string_view none : {"nan", "-nan", "inf", "-inf", "nan%", "-nan%", "inf%"}) {
    require(text != none, "a number is shown", text);
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
