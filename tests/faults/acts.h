// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "faults/program.h"

namespace velorin::testing {

/// Something that a program does to the files of a folder, with the same outcome every time.
struct act {
  std::string name;                 ///< "update" and the like
  std::vector<std::string> words;   ///< the command line; "@" stands for the data folder
  file_map before;                  ///< the data folder ahead of it
  std::vector<std::string> writes;  ///< the files that it makes or replaces
  bool apart = false;               ///< each of them stands for itself: some may be new while others are old
  bool archived = false;            ///< a match that goes into the archive as well
  bool exports = false;             ///< they are written through files of random names
  std::string spare = {};           ///< two files are exchanged by way of this one

  program on(const workbench& bench) const;
  /// A killed program may leave this file beside those that it writes.
  bool may_leave(const std::string& file) const;
  /// The files as the next exchange finds them: where one that was cut off has left the spare file, it is put back.
  file_map settled(file_map found) const;
};

/// The bytes that stand in a file before an act replaces it, where any would do.
inline constexpr const char* old_bytes = "what stood here before\n";

/// The act of this name:
///   build, build_anew      tables to a database, over an old one or in a folder that it makes
///   update, first_update   a match of a known seed added to the careers and records, or to none
///   dump, dump_anew        a database to tables, over old ones or in a folder that it makes
///   exports                a match of a known seed saved as page, text, ball by ball and object, over old files
///   draws                  a match of scripted draws saved as text, where nothing was
///   settings, first_settings   the configurations confirmed, over old ones or where there were none
///   begin_anew             careers and records emptied
///   elevens, exchange      both elevens written over old ones, or exchanged with each other
act act_of(const std::string& name);

/// The names of all acts, and of those that write contents.
std::vector<std::string> act_names();
std::vector<std::string> writing_act_names();

/// The files after the act, undisturbed, on these files. Raises std::runtime_error if it fails.
file_map after(const act& what, const file_map& before);

/// What `velorin-cli archive check` says of the data folder: status 0 if careers, records and archive agree.
ending archive_check(workbench& bench);

}  // namespace velorin::testing
