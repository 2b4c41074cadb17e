// SPDX-License-Identifier: GPL-3.0-or-later
#include "archive/archive_check.h"

#include <cerrno>
#include <utility>
#include <vector>

#include "archive/archive_keeper.h"
#include "database/configuration.h"
#include "database/file_calls.h"
#include "database/folder_lock.h"
#include "database/whole_file.h"

namespace velorin {

namespace {

constexpr std::size_t at_a_time = 500;  ///< matches of one transaction

/// A file beside the archive, which is gone unless it has been put in its place.
class file_beside {
 public:
  explicit file_beside(std::filesystem::path path) : path_(std::move(path)) { remove(); }
  ~file_beside() { remove(); }
  file_beside(const file_beside&) = delete;
  file_beside& operator=(const file_beside&) = delete;

  const std::filesystem::path& path() const { return path_; }

 private:
  void remove() const {
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
    std::filesystem::path journal = path_;
    journal += "-journal";
    std::filesystem::remove(journal, ignored);
  }

  std::filesystem::path path_;
};

}  // namespace

void rebuild_archive(const database_files& files, const match_replayer& played) {
  const folder_lock turn(files.career_file, files.watcher);
  settle_archive_in_turn(files);
  const std::filesystem::path target = real_file(archive_path(files));
  std::filesystem::path name = target;
  name += ".new";
  const file_beside beside(name);
  {
    const archive_file old(target, archive_file::use::read);
    archive_file fresh(beside.path(), archive_file::use::write);
    waiting_matches moved;
    moved.before = old.before();
    const auto hand_over = [&] {
      fresh.take_in(moved);
      moved = {};
    };
    for (const listed_match& listed : old.list()) {
      archived_match match = *old.match(listed.id);
      if (played && !match.recording.empty()) match = played(match);
      moved.matches.push_back(std::move(match));
      if (moved.matches.size() == at_a_time) hand_over();
    }
    hand_over();
    fresh.reserve_ids(old.last_id());
  }
  if (!rename_file(beside.path(), target)) raise_file_error("The file cannot be replaced", errno, target);
  if (!synchronise_folder(folder_of(target))) {
    raise_file_error("The folder of the file cannot be synchronised", errno, target);
  }
}

}  // namespace velorin
