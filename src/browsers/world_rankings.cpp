// SPDX-License-Identifier: GPL-3.0-or-later
#include "browsers/world_rankings.h"

#include <fmt/format.h>

#include <algorithm>

#include "browsers/team_ranking.h"
#include "database/configuration.h"
#include "database/open_database.h"
#include "database/whole_file.h"
#include "model/run_time_error.h"
#include "model/texts.h"

namespace velorin {

namespace {

constexpr int row_limit = 10;

const team_table& row_of(const record_lists& lists, const std::string& team) {
  return *std::find_if(lists.teams.begin() + 1, lists.teams.begin() + 1 + lists.table_team_count,
                       [&](const team_table& row) { return row.team_name.text() == team; });
}

}  // namespace

void world_rankings_form::open() {
  static_cast<table_form&>(*this) = {};
  table.title = "Top Ten Teams";
  table.columns = {{"Rank", alignment::right},      {"Team"},
                   {"Success %", alignment::right}, {"Played", alignment::right},
                   {"Won", alignment::right},       {"Lost", alignment::right},
                   {"Tied", alignment::right}};
  const record_lists lists = read_record_lists(data_);
  int rank = 0;
  for (const ranked_team& ranked : rank_teams(data_, lists)) {
    if (++rank > row_limit) {
      throw run_time_error(
          failure::subscript, fmt::format("Subscript out of range: the ranking has {} rows", row_limit),
          {.file = file_name_text(data_.files.record_file), .record = 0, .field = {}, .player = ranked.team});
    }
    const team_results results = total_results(row_of(lists, ranked.team));
    table.rows.push_back({rank,
                          {number_text(rank), ranked.team, number_text(ranked.success), number_text(results.played()),
                           number_text(results.won), number_text(results.lost), number_text(results.tied)},
                          ranked.team});
  }
}

}  // namespace velorin
