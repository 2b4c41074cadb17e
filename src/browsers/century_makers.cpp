// SPDX-License-Identifier: GPL-3.0-or-later
#include "browsers/century_makers.h"

#include "browsers/player_pool.h"
#include "model/texts.h"

namespace velorin {

namespace {

career_rate hundreds_key(const career_rec& career) { return career.hundreds; }

}  // namespace

void century_makers_form::open() {
  static_cast<table_form&>(*this) = {};
  const career_table careers = read_career_table(data_);
  player_pool pool = all_players(careers);
  sort_by_held_keys(pool, hundreds_key, sort_order::descending);
  table.title = "Top Century Makers";
  table.columns = {{"Player"},
                   {"M", alignment::right},
                   {"I", alignment::right},
                   {"100s", alignment::right},
                   {"Runs", alignment::right}};
  int place = 0;
  for (const career_rec* career : pool) {
    if (++place > table_rows) break;
    if (career->hundreds == 0) continue;
    table.rows.push_back({place,
                          {career->name, number_text(career->matches), number_text(career->innings),
                           number_text(career->hundreds), number_text(career->runs)},
                          team_of(careers, *career),
                          career->name});
  }
}

}  // namespace velorin
