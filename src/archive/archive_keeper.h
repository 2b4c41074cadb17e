// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/stat.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

#include "archive/archive_file.h"
#include "database/match_keeper.h"

namespace velorin {

/// The time of now, in seconds since 1970.
std::int64_t seconds_now();

/// Keeps matches in the archive of their database. They are put in place with careers and records in the small file of
/// those that wait, and taken in from there: after each match, or several together where one comes after the other.
class archive_keeper : public match_keeper {
 public:
  static constexpr std::size_t most_waiting = 256;  ///< matches; more must be taken in before another is added

  /// `together`: so many matches are taken in at a time. `clock` tells when a match was played.
  explicit archive_keeper(std::size_t together = 1, std::function<std::int64_t()> clock = seconds_now)
      : together_(together), clock_(std::move(clock)) {}

  std::string waiting_with(const database_files& files, std::string_view waiting, const counted_match& added) override;
  std::string waiting_anew(const database_files& files, std::string_view waiting) override;
  void take_in(const database_files& files) override;

 private:
  /// The archive where there is one, as it stands on the disk now.
  archive_file* open_archive(const database_files& files);
  archive_file& opened(const database_files& files);
  /// What these bytes of the waiting file hold. Those that were made last are known without being read again, once.
  waiting_matches known_waiting(std::string_view bytes, const database_files& files);

  std::size_t together_;
  std::function<std::int64_t()> clock_;
  std::mutex guard_;  ///< threads take turns by the folder's lock as well
  std::unique_ptr<archive_file> archive_;
  std::string last_bytes_;  ///< of the waiting file as it was made last; "" if nothing is known
  waiting_matches last_;    ///< what they hold
  struct stat facts_ {};    ///< of the file that is open
};

/// Finishes what an update has begun, and takes in all that waits. Takes the lock of the folder where there is anything
/// to do. Raises run_time_error (file).
void settle_archive(const database_files& files);
/// The same by whoever has the lock, and wants nothing to wait while he has it.
void settle_archive_in_turn(const database_files& files);

/// The archive for reading, after settling it as far as that can be done. Raises run_time_error (file).
archive_file settled_archive(const database_files& files);

}  // namespace velorin
