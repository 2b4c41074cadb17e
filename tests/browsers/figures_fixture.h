// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "browsers/shown_table.h"
#include "database/lasting_records.h"
#include "model/run_time_error.h"
#include "support/small_database.h"

namespace velorin::testing {

/// A man with batting figures, and nothing else.
career_rec batsman(const std::string& name, int innings, int not_outs, int runs, int balls_faced);
/// A man with bowling figures, and nothing else.
career_rec bowler(const std::string& name, int balls_bowled, int runs_given, int wickets);

/// A team's results.
struct tally {
  int won = 0;
  int lost = 0;
  int tied = 0;
};

/// A database with the careers and records that a test lays down.
class figures_fixture : public ::testing::Test {
 protected:
  /// Adds a man behind the last of his team; the team behind the last if it is new.
  career_rec& add(const std::string& team, const career_rec& man);
  /// Adds a team to the team table as its first match would: only what is not 0 has a counter.
  team_table& add_team(const std::string& name, const tally& home, const tally& away);
  /// Writes both files.
  void write() const;

  small_database database;
  career_table careers;
  record_lists lists;
};

/// The rows' texts of one column.
std::vector<std::string> column(const shown_table& table, const std::string& heading);
/// The headings of a table.
std::vector<std::string> headings(const shown_table& table);
/// The places of its rows.
std::vector<int> places(const shown_table& table);
/// A row's texts. Fails the test if there is no such row; counted from 0.
std::vector<std::string> row(const shown_table& table, std::size_t index);
/// The text under a caption, nothing if there is no such caption.
std::optional<std::string> under(const std::vector<shown_field>& fields, const std::string& caption);

/// The kind of the error that a procedure raises, nothing if it raises none.
template <class Procedure>
std::optional<failure> failure_of(Procedure procedure) {
  try {
    procedure();
  } catch (const run_time_error& error) {
    return error.kind();
  }
  return std::nullopt;
}

}  // namespace velorin::testing
