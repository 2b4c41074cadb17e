// SPDX-License-Identifier: GPL-3.0-or-later
#include "archive/archive_keeper.h"

#include <unistd.h>

#include <algorithm>
#include <ctime>
#include <utility>

#include "database/configuration.h"
#include "database/folder_lock.h"
#include "database/whole_file.h"
#include "model/run_time_error.h"

namespace velorin {

namespace {

waiting_matches waiting_of(const database_files& files) {
  const std::filesystem::path file = waiting_file(files);
  return waiting_in(read_file(file).value_or(""), file_name_text(file));
}

/// Takes in what waits, and then the file of it away: once more it would only be passed over.
void take_all(archive_file& archive, const waiting_matches& waiting, const database_files& files) {
  archive.take_in(waiting);
  ::unlink(waiting_file(files).c_str());
}

std::int64_t last_of(const waiting_matches& waiting) {
  return waiting.matches.empty() ? waiting.empty_until : waiting.matches.back().id;
}

/// An update that was begun, or matches that wait.
bool is_anything_left(const database_files& files) {
  const std::vector<std::filesystem::path> all = update_files(files);
  const bool begun = std::any_of(all.begin() + 1, all.end(), [](const std::filesystem::path& file) {
    std::filesystem::path next = real_file(file);
    next += ".next";
    return occupant_of(next) != occupant::none;
  });
  return begun || occupant_of(waiting_file(files)) != occupant::none;
}

}  // namespace

std::int64_t seconds_now() { return static_cast<std::int64_t>(std::time(nullptr)); }

archive_file& archive_keeper::opened(const database_files& files) {
  const std::filesystem::path file = archive_path(files);
  struct stat now {};
  const bool there = ::stat(file.c_str(), &now) == 0;
  const bool same =
      archive_ && archive_->path() == file && there && now.st_ino == facts_.st_ino && now.st_dev == facts_.st_dev;
  if (same) return *archive_;
  archive_.reset();
  archive_ = std::make_unique<archive_file>(file, archive_file::use::write);
  ::stat(file.c_str(), &facts_);
  return *archive_;
}

archive_file* archive_keeper::open_archive(const database_files& files) {
  struct stat now {};
  const bool made = ::stat(archive_path(files).c_str(), &now) == 0 && now.st_size > 0;
  return made ? &opened(files) : nullptr;
}

std::string archive_keeper::waiting_with(const database_files& files, std::string_view bytes,
                                         const counted_match& added) {
  const std::lock_guard hold(guard_);
  waiting_matches waiting = known_waiting(bytes, files);
  archive_file* archive = open_archive(files);
  if (waiting.matches.size() >= most_waiting) {
    take_all(opened(files), waiting, files);
    archive = &opened(files);
    waiting = {};
  }
  const std::int64_t last = std::max(archive == nullptr ? 0 : archive->last_id(), last_of(waiting));
  if (last == 0 && !added.careers.empty()) {
    waiting.before = books_before{std::string(added.careers), std::string(added.records)};
  }
  archived_match match = archived(added.match);
  match.id = last + 1;
  match.key = added.name;
  match.played_at = clock_();
  match.recording = added.recording;
  waiting.matches.push_back(std::move(match));
  last_bytes_ = bytes_of(waiting);
  last_ = std::move(waiting);
  return last_bytes_;
}

waiting_matches archive_keeper::known_waiting(std::string_view bytes, const database_files& files) {
  if (!bytes.empty() && bytes == last_bytes_) {
    last_bytes_.clear();
    return std::exchange(last_, {});
  }
  return waiting_in(bytes, file_name_text(waiting_file(files)));
}

std::string archive_keeper::waiting_anew(const database_files& files, std::string_view bytes) {
  const std::lock_guard hold(guard_);
  const waiting_matches waiting = waiting_in(bytes, file_name_text(waiting_file(files)));
  const archive_file* archive = open_archive(files);
  waiting_matches anew;
  anew.empty_until = std::max(archive == nullptr ? 0 : archive->last_id(), last_of(waiting)) + 1;
  return bytes_of(anew);
}

void archive_keeper::take_in(const database_files& files) {
  const std::lock_guard hold(guard_);
  try {
    std::string bytes = read_file(waiting_file(files)).value_or("");
    waiting_matches waiting = known_waiting(bytes, files);
    if (waiting.empty_until == 0 && !waiting.before && waiting.matches.size() < together_) {
      last_bytes_ = std::move(bytes);
      last_ = std::move(waiting);
      return;
    }
    take_all(opened(files), waiting, files);
  } catch (const run_time_error&) {
    // They wait: the update itself is done, and whoever comes next takes them in.
    archive_.reset();
  }
}

void settle_archive(const database_files& files) {
  if (!is_anything_left(files)) return;
  const folder_lock turn(files.career_file, files.watcher);
  settle_archive_in_turn(files);
}

void settle_archive_in_turn(const database_files& files) {
  if (!is_anything_left(files)) return;
  { const staged_files staged(update_files(files)); }
  const waiting_matches waiting = waiting_of(files);
  if (waiting.empty()) return;
  archive_file archive(archive_path(files), archive_file::use::write);
  take_all(archive, waiting, files);
}

archive_file settled_archive(const database_files& files) {
  try {
    settle_archive(files);
  } catch (const run_time_error&) {
    // What is there already can be read all the same, on a medium that is not written among others.
  }
  return {archive_path(files), archive_file::use::read};
}

}  // namespace velorin
