// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

#include <cstdint>
#include <string>
#include <unordered_map>

#include "archive/archived_match.h"

namespace velorin {

/// Writes matches into the tables of an archive, within a transaction of the caller. Raises SQLite::Exception.
class match_writer {
 public:
  explicit match_writer(SQLite::Database& database);

  void write(const archived_match& match);
  /// Takes all matches out, and what is summed of them.
  void empty();

 private:
  std::int64_t name(const std::string& text);
  void write_innings(const archived_match& match, int number);
  void write_batting(const archived_match& match, int number, std::int64_t team, std::int64_t opponent, int result);
  void write_bowling(const archived_match& match, int number, std::int64_t team, std::int64_t opponent, int result);
  void write_stands(const archived_match& match, int number, std::int64_t team, std::int64_t opponent, int result);
  void write_overs(const archived_match& match, int number);
  void write_meetings(const archived_match& match, int number, std::int64_t team, std::int64_t opponent, int result);
  void write_recording(const archived_match& match);

  SQLite::Database& database_;
  SQLite::Statement find_name_;
  SQLite::Statement add_name_;
  SQLite::Statement add_match_;
  SQLite::Statement add_innings_;
  SQLite::Statement add_batting_;
  SQLite::Statement add_bowling_;
  SQLite::Statement add_stand_;
  SQLite::Statement add_over_;
  SQLite::Statement find_recording_;
  SQLite::Statement add_recording_;
  SQLite::Statement sum_batting_;
  SQLite::Statement sum_bowling_;
  SQLite::Statement add_meeting_;
  SQLite::Statement sum_man_;
  std::unordered_map<std::string, std::int64_t> names_;  ///< met so far
};

}  // namespace velorin
