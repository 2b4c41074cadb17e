// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/agreement.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "database/configuration.h"
#include "database/file_calls.h"
#include "database/open_database.h"
#include "database/slots.h"
#include "database/teams_file.h"
#include "database/whole_file.h"
#include "model/texts.h"

namespace velorin {

namespace {

/// A tagged count as far as it can be one; else nothing.
std::optional<int> count_in(const slot_file& file, long record, int limit) {
  tagged counted;
  slot_reader fields = file.reader(record);
  fields("", counted);
  if (fields.fault() || fields.missing()) return std::nullopt;
  try {
    const double count = counted.number();
    if (count >= 0 && count <= limit) return static_cast<int>(count);
  } catch (const run_time_error&) {
  }
  return std::nullopt;
}

/// Looks for the end of a file among the records that it must have.
class end_search {
 public:
  explicit end_search(const slot_file& file) : file_(file) {}

  /// False once the file has been found to end before or within the record of these fields.
  template <typename Visit>
  bool has(long record, Visit visit) {
    if (fault_) return false;
    slot_reader fields = file_.reader(record);
    visit(fields);
    if (!fields.missing()) return true;
    if (file_.slot(record).empty()) {
      fault_ = {file_.name(), record, "", "the file ends before this record"};
    } else {
      fault_ = {file_.name(), record, fields.missing()->field, fields.missing()->what};
    }
    return false;
  }
  template <typename Record>
  bool has_record(long record) {
    return has(record, [](slot_reader& fields) {
      Record read;
      visit_fields(read, fields);
    });
  }
  bool has_value(long record, const char* name) {
    return has(record, [name](slot_reader& fields) {
      tagged read;
      fields(name, read);
    });
  }

  const std::optional<database_fault>& fault() const { return fault_; }

 private:
  const slot_file& file_;
  std::optional<database_fault> fault_;
};

template <typename Line>
void search_list(end_search& search, long first, long lines) {
  for (long record = first; record < first + lines; ++record) search.has_record<Line>(record);
}

void search_lists(end_search& search) {
  search_list<top_score_rec>(search, top_scores_record, 15);
  search_list<top_bowling_rec>(search, top_bowling_record, 15);
  search_list<top_total_rec>(search, highest_totals_record, 15);
  search_list<top_total_rec>(search, lowest_totals_record, 15);
  search_list<top_partnership_rec>(search, partnerships_record, 10);
}

void require_whole(const std::optional<database_fault>& fault) {
  if (!fault) return;
  throw run_time_error(failure::file, "The file is not whole: " + fault->what,
                       {fault->file, fault->record, fault->field, {}});
}

/// The file itself behind links, or nothing where they lead nowhere: that is a matter of who reads it.
std::optional<std::filesystem::path> followed(const std::filesystem::path& file) {
  try {
    return real_file(file);
  } catch (const run_time_error&) {
    return std::nullopt;
  }
}

/// That of `database`, or the one beside it that the next update puts in its place.
std::filesystem::path current_records(const database_files& database) {
  const std::optional<std::filesystem::path> career_file = followed(database.career_file);
  if (!career_file) return database.record_file;
  std::filesystem::path begun = *career_file;
  std::filesystem::path left = real_file(database.record_file);
  begun += ".new";
  left += ".next";
  std::error_code none;
  if (std::filesystem::exists(begun, none) || !std::filesystem::is_regular_file(left, none))
    return database.record_file;
  std::error_code failed;
  const auto time = std::filesystem::last_write_time(*career_file, failed);
  if (failed || std::filesystem::last_write_time(left, failed) != time || failed) return database.record_file;
  return left;
}

}  // namespace

std::optional<database_fault> incomplete_careers(const slot_file& career_file) {
  if (career_file.bytes().empty()) return std::nullopt;
  end_search search(career_file);
  if (!search.has_value(1, "career_team_count")) return search.fault();
  const auto count = count_in(career_file, 1, career_team_limit);
  if (!count) return std::nullopt;
  const bool full = career_file.bytes().size() >= (*count + 1) * career_file.slot_length();
  for (long record = 2; !full && record <= *count + 1; ++record) search.has_record<career_team_rec>(record);
  return search.fault();
}

std::optional<database_fault> incomplete_records(const slot_file& record_file) {
  if (record_file.bytes().empty()) return std::nullopt;
  end_search search(record_file);
  if (record_file.bytes().size() < table_count_record * record_file.slot_length()) search_lists(search);
  if (!search.has_value(table_count_record, "table_team_count")) return search.fault();
  const auto count = count_in(record_file, table_count_record, table_team_limit);
  if (!count) return std::nullopt;
  const long last = table_record(*count + 1) - 1;
  const bool full = record_file.bytes().size() >= last * record_file.slot_length();
  for (int t = 1; !full && t <= *count; ++t) {
    long record = table_record(t);
    const team_table names;
    visit_fields(names, [&](table_value, const char* field, const tagged&) { search.has_value(record++, field); });
  }
  return search.fault();
}

void require_whole_careers(const slot_file& career_file) { require_whole(incomplete_careers(career_file)); }
void require_whole_records(const slot_file& record_file) { require_whole(incomplete_records(record_file)); }

void require_agreement(const record_books& books) {
  const std::vector<database_fault> faults = contradictions(books);
  if (faults.empty()) return;
  const database_fault& first = faults.front();
  throw run_time_error(
      failure::file,
      fmt::format("{} and {} do not belong together: {}", books.career_file_name, books.record_file_name, first.what),
      {first.file, first.record, first.field, {}});
}

slot_file current_record_file(const database_files& database) {
  return {read_file(current_records(database)).value_or(std::string()), records_slot,
          file_name_text(database.record_file)};
}

void require_database_for_play(open_database& data) {
  require_whole_database(data);
  if (!data.files.updates) return;
  const folder_lock turn(data.files.career_file, data.files.watcher);
  require_sound_records(data.files);
}

void require_sound_records(const database_files& database) {
  const slot_file career_file = slot_file::read(database.career_file, career_slot);
  const slot_file record_file = current_record_file(database);
  require_whole_careers(career_file);
  require_whole_records(record_file);
  const career_table careers = careers_in(career_file);
  const record_lists lists = records_in(record_file);
  require_agreement({careers, lists, career_file.name(), record_file.name()});
}

}  // namespace velorin
