// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

// The seam between an update and whoever keeps the matches themselves. A match travels in a small file that is put in
// place together with the careers and the records, <base>.waiting; from there it is taken in, now or later.

namespace velorin {

struct database_files;
struct match_state;

/// A match that is about to be added to the careers and records, as it stands at its end.
struct counted_match {
  const match_state& match;
  std::string_view name;       ///< under which it is added once; "" for none
  std::string_view recording;  ///< its bytes; "" for none
  std::string_view careers;    ///< the bytes of both files before it
  std::string_view records;
};

/// Called under the lock of the folder alone.
class match_keeper {
 public:
  virtual ~match_keeper() = default;

  /// The content of the file of waiting matches with this one behind those that wait already. Changes no file. Raises
  /// run_time_error (file): the matches cannot be kept, and nothing is to be updated.
  virtual std::string waiting_with(const database_files& files, std::string_view waiting,
                                   const counted_match& added) = 0;
  /// The content of that file by which careers and records that begin anew empty what is kept.
  virtual std::string waiting_anew(const database_files& files, std::string_view waiting) = 0;
  /// The file has been put in place: takes in what waits, or leaves it for later. What fails leaves it waiting.
  virtual void take_in(const database_files& files) = 0;
};

/// <base>.waiting.
std::filesystem::path waiting_file(const database_files& files);
/// All files that an update replaces together, in the order in which they are put in place.
std::vector<std::filesystem::path> update_files(const database_files& files);

}  // namespace velorin
