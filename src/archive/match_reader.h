// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>

#include "archive/archived_match.h"

namespace velorin {

/// The names of an archive by their numbers, as Windows-1252. Raises SQLite::Exception.
class archived_names {
 public:
  explicit archived_names(const SQLite::Database& database) : find_(database, "SELECT text FROM name WHERE id = ?") {}

  const std::string& at(std::int64_t id);

 private:
  SQLite::Statement find_;
  std::unordered_map<std::int64_t, std::string> known_;
};

/// The archive has this table: one of an earlier version lacks some. Raises SQLite::Exception.
bool has_table(const SQLite::Database& database, const char* name);

/// The bytes of a match's recording; "" for none. Raises SQLite::Exception.
std::string recording_of(const SQLite::Database& database, std::int64_t match);

/// Reads matches out of the tables of an archive. Raises SQLite::Exception.
class match_reader {
 public:
  explicit match_reader(const SQLite::Database& database);

  /// Nothing if there is no such match. `with_overs`: else its overs are left out. Its recording is left out.
  std::optional<archived_match> read(std::int64_t id, bool with_overs);

 private:
  void read_innings(archived_match& match, int number);
  void read_batting(archived_innings& innings);
  void read_bowling(archived_innings& innings);
  void read_stands(archived_innings& innings);
  void read_overs(archived_innings& innings);
  void read_meetings(archived_innings& innings, std::int64_t match, int number);

  archived_names names_;
  SQLite::Statement match_;
  SQLite::Statement innings_;
  SQLite::Statement batting_;
  SQLite::Statement bowling_;
  SQLite::Statement stands_;
  SQLite::Statement overs_;
  std::optional<SQLite::Statement> meetings_;  ///< none where the archive has no table of them
};

}  // namespace velorin
