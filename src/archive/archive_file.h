// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "archive/archived_match.h"
#include "archive/waiting_matches.h"

namespace SQLite {
class Database;
}  // namespace SQLite

namespace velorin {

struct database_files;

/// <base>.matches.
std::filesystem::path archive_path(const database_files& files);

/// A match as a list of matches tells of it. Texts are Windows-1252.
struct listed_match {
  std::int64_t id = 0;
  std::string played_at;  ///< such as "2026-01-31T14:05:00Z"
  std::string competition;
  std::string stage;
  std::string ground;
  std::string first;
  std::string second;
  std::string winner;
  std::string margin;
};

/// An open archive. Every procedure raises run_time_error (file) for what the file does not give or take; its cause is
/// told.
class archive_file {
 public:
  enum class use { read, write };

  /// `write` makes the file where there is none. Refuses a file of another kind, and one of a newer version. Both put a
  /// file right whose writer was stopped in the midst; where that may not be written, the error says what to do.
  archive_file(const std::filesystem::path& file, use how);
  ~archive_file();
  archive_file(const archive_file&) = delete;
  archive_file& operator=(const archive_file&) = delete;

  /// The id of the last match that was ever added; 0 for none.
  std::int64_t last_id() const;
  std::int64_t count() const;
  bool has(const std::string& key) const;
  /// The careers and records it began on.
  books_before before() const;

  /// Adds what waits, in one transaction that is on the disk when it returns; what it has already is passed over.
  void take_in(const waiting_matches& waiting);

  /// No match to come gets an id up to this one.
  void reserve_ids(std::int64_t last);

  std::vector<listed_match> list() const;
  /// The match with its recording, or nothing.
  std::optional<archived_match> match(std::int64_t id) const;
  /// All of them without their recordings, in the order of their ids.
  void each(const std::function<void(const archived_match&)>& take) const;
  /// The bytes of a recording: "" for a match without one; nothing for no match.
  std::optional<std::string> recording(std::int64_t id) const;

  /// Whatever is being read ends soon with a run_time_error; from any thread.
  void interrupt() const;

  /// For those who ask it questions.
  SQLite::Database& connection() const { return *database_; }
  const std::filesystem::path& path() const { return path_; }

 private:
  void require_known();
  void open(use how);

  std::filesystem::path path_;
  std::unique_ptr<SQLite::Database> database_;
};

}  // namespace velorin
