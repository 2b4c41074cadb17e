// SPDX-License-Identifier: GPL-3.0-or-later
#include "archive/archive_file.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <fmt/format.h>
#include <sqlite3.h>

#include "archive/archive_errors.h"
#include "archive/match_reader.h"
#include "archive/match_writer.h"
#include "archive/schema.h"
#include "database/configuration.h"
#include "database/whole_file.h"
#include "model/code_page.h"
#include "model/run_time_error.h"

namespace velorin {

namespace {

constexpr int patience = 250;  ///< milliseconds that another program is waited for
constexpr int first_version = 1;
constexpr const char* reading = "The archive cannot be read";
constexpr const char* writing = "The archive cannot be written";

[[noreturn]] void raise_refused(std::string_view why, const std::filesystem::path& file) {
  throw run_time_error(failure::file, std::string(why), {file_name_text(file), 0, {}, {}});
}

std::int64_t number_from(const SQLite::Database& database, const std::string& question) {
  SQLite::Statement asked(database, question);
  return asked.executeStep() ? asked.getColumn(0).getInt64() : 0;
}

void make_tables(SQLite::Database& database) {
  SQLite::Transaction whole(database, SQLite::TransactionBehavior::IMMEDIATE);
  if (number_from(database, "SELECT count(*) FROM sqlite_master") == 0) {
    database.exec(archive_schema);
    database.exec(archive_additions);
    database.exec(fmt::format("PRAGMA application_id = {}", archive_application));
    database.exec(fmt::format("PRAGMA user_version = {}", archive_version));
  }
  whole.commit();
}

/// What an archive of the first version lacks.
void add_what_is_missing(SQLite::Database& database) {
  SQLite::Transaction whole(database, SQLite::TransactionBehavior::IMMEDIATE);
  if (number_from(database, "PRAGMA user_version") == first_version) {
    database.exec(archive_additions);
    database.exec(fmt::format("PRAGMA user_version = {}", archive_version));
  }
  whole.commit();
}

/// A writer was stopped in the midst of a transaction: its journal lies beside the file, to be rolled back.
bool is_cut_off(const SQLite::Exception& cause) { return cause.getExtendedErrorCode() == SQLITE_READONLY_ROLLBACK; }

/// Puts the file back to where the last whole transaction left it, which a reader may not. Raises run_time_error (file)
/// where it may not be written.
void roll_back(const std::filesystem::path& file) {
  try {
    const SQLite::Database writer(file.string(), SQLite::OPEN_READWRITE, patience);
    number_from(writer, "SELECT count(*) FROM sqlite_master");
  } catch (const SQLite::Exception& cause) {
    if (cause.getErrorCode() == SQLITE_BUSY) throw;
    raise_refused(
        "The archive was cut off while it was written, and can be read once a program that may write it and"
        " its folder has opened it: start the game there, or copy it with its journal to a folder of your own",
        file);
  }
}

void begin_on(SQLite::Database& database, const books_before& before) {
  SQLite::Statement set(database, "UPDATE state SET careers_before = ?, records_before = ?");
  set.bind(1, static_cast<const void*>(before.careers.data()), static_cast<int>(before.careers.size()));
  set.bind(2, static_cast<const void*>(before.records.data()), static_cast<int>(before.records.size()));
  set.exec();
}

}  // namespace

void raise_archive_error(std::string_view tried, const SQLite::Exception& cause, const std::filesystem::path& file) {
  const std::string told = cause.what();
  raise_refused(fmt::format("{}: {}", tried, from_utf8(told).value_or(told)), file);
}

std::filesystem::path archive_path(const database_files& files) {
  return std::filesystem::path(files.career_file).replace_extension(".matches");
}

archive_file::archive_file(const std::filesystem::path& file, use how) : path_(file) {
  if (how == use::read && occupant_of(file) == occupant::none) {
    raise_refused("There is no archive yet: no match has been added", file);
  }
  with_archive(how == use::read ? "The archive cannot be opened" : writing, file, [&] {
    try {
      open(how);
    } catch (const SQLite::Exception& cause) {
      if (how == use::write || !is_cut_off(cause)) throw;
      database_.reset();
      roll_back(file);
      open(how);
    }
  });
}

archive_file::~archive_file() = default;

void archive_file::open(use how) {
  // One thread at a time uses an archive; interrupt() may come from another all the same.
  const int flags =
      SQLite::OPEN_NOMUTEX | (how == use::read ? SQLite::OPEN_READONLY : SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
  database_ = std::make_unique<SQLite::Database>(path_.string(), flags, patience);
  // The waiting matches are taken away behind a transaction, which must be on the disk by then, its end included.
  if (how == use::write) database_->exec("PRAGMA synchronous = EXTRA");
  // What a transaction of several matches changes has room in memory: else it would be synchronised in its midst.
  database_->exec("PRAGMA cache_size = -32768");
  if (number_from(*database_, "SELECT count(*) FROM sqlite_master") == 0) {
    if (how == use::read) raise_refused("There is no archive yet: no match has been added", path_);
    make_tables(*database_);
  }
  require_known();
  if (how == use::write && number_from(*database_, "PRAGMA user_version") == first_version) {
    add_what_is_missing(*database_);
  }
}

void archive_file::require_known() {
  if (number_from(*database_, "PRAGMA application_id") != archive_application) {
    raise_refused("The file is no archive of matches", path_);
  }
  const std::int64_t version = number_from(*database_, "PRAGMA user_version");
  if (version >= first_version && version <= archive_version) return;
  raise_refused(
      fmt::format("The archive is of version {}, and this program knows versions up to {}: a newer Velorin has"
                  " written it",
                  version, archive_version),
      path_);
}

void archive_file::interrupt() const { sqlite3_interrupt(database_->getHandle()); }

std::int64_t archive_file::last_id() const {
  return with_archive(reading, path_, [&] { return number_from(*database_, "SELECT last_id FROM state"); });
}

std::int64_t archive_file::count() const {
  return with_archive(reading, path_, [&] { return number_from(*database_, "SELECT count(*) FROM match_row"); });
}

bool archive_file::has(const std::string& key) const {
  return with_archive(reading, path_, [&] {
    SQLite::Statement asked(*database_, "SELECT 1 FROM match_row WHERE key = ?");
    asked.bind(1, to_utf8(key));
    return asked.executeStep();
  });
}

books_before archive_file::before() const {
  return with_archive(reading, path_, [&] {
    SQLite::Statement asked(*database_, "SELECT careers_before, records_before FROM state");
    if (!asked.executeStep()) return books_before();
    return books_before{asked.getColumn(0).getString(), asked.getColumn(1).getString()};
  });
}

void archive_file::take_in(const waiting_matches& waiting) {
  with_archive(writing, path_, [&] {
    SQLite::Transaction whole(*database_, SQLite::TransactionBehavior::IMMEDIATE);
    std::int64_t last = number_from(*database_, "SELECT last_id FROM state");
    match_writer writer(*database_);
    if (waiting.empty_until > last) {
      writer.empty();
      begin_on(*database_, {});
      last = waiting.empty_until;
    }
    if (waiting.before && last == 0) begin_on(*database_, *waiting.before);
    for (const archived_match& match : waiting.matches) {
      if (match.id <= last) continue;
      last = match.id;
      if (match.key.empty() || !has(match.key)) writer.write(match);
    }
    SQLite::Statement note(*database_, "UPDATE state SET last_id = ?");
    note.bind(1, last);
    note.exec();
    whole.commit();
  });
}

void archive_file::reserve_ids(std::int64_t last) {
  with_archive(writing, path_, [&] {
    SQLite::Statement note(*database_, "UPDATE state SET last_id = max(last_id, ?)");
    note.bind(1, last);
    note.exec();
  });
}

std::vector<listed_match> archive_file::list() const {
  return with_archive(reading, path_, [&] {
    std::vector<listed_match> all;
    SQLite::Statement asked(*database_,
                            "SELECT id, played_at, competition, stage, ground, first, second, winner, margin"
                            " FROM matches ORDER BY id");
    while (asked.executeStep()) {
      listed_match& match = all.emplace_back();
      match.id = asked.getColumn(0).getInt64();
      int place = 0;
      for (std::string* text : {&match.played_at, &match.competition, &match.stage, &match.ground, &match.first,
                                &match.second, &match.winner, &match.margin}) {
        *text = asked.getColumn(++place).getString();
        *text = from_utf8(*text).value_or(*text);
      }
    }
    return all;
  });
}

std::optional<archived_match> archive_file::match(std::int64_t id) const {
  return with_archive(reading, path_, [&] {
    std::optional<archived_match> found = match_reader(*database_).read(id, true);
    if (found) found->recording = recording(id).value_or("");
    return found;
  });
}

void archive_file::each(const std::function<void(const archived_match&)>& take) const {
  with_archive(reading, path_, [&] {
    match_reader reader(*database_);
    SQLite::Statement ids(*database_, "SELECT id FROM match_row ORDER BY id");
    while (ids.executeStep()) {
      if (const auto match = reader.read(ids.getColumn(0).getInt64(), false)) take(*match);
    }
  });
}

std::optional<std::string> archive_file::recording(std::int64_t id) const {
  return with_archive(reading, path_, [&]() -> std::optional<std::string> {
    SQLite::Statement asked(*database_, "SELECT 1 FROM match_row WHERE id = ?");
    asked.bind(1, id);
    if (!asked.executeStep()) return std::nullopt;
    return recording_of(*database_, id);
  });
}

}  // namespace velorin
