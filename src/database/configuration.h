// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

// The settings and the paths that follow from them. Texts are single bytes of Windows-1252, base names of databases
// included; the names of the files themselves are UTF-8. The file options.mc has one setting a line.

namespace velorin {

struct open_database;
class match_keeper;
class turn_watcher;

/// The five lines of options.mc, in their order.
struct configuration {
  std::string photo_path;     ///< folder of the player photos
  std::string database_name;  ///< base name of the database files
  std::string text_color;     ///< of exported pages, six hexadecimal digits "RRGGBB"
  std::string back_color;     ///< likewise
  std::string font_name;      ///< of the sample line; nothing else uses it
};

/// Where the data files lie.
struct database_files {
  std::filesystem::path folder;       ///< the folder of all data files
  std::string base;                   ///< base name of the database in use
  std::filesystem::path team_file;    ///< teams and squads, only read
  std::filesystem::path ground_file;  ///< grounds, only read
  std::filesystem::path career_file;  ///< careers
  std::filesystem::path record_file;  ///< record lists and team table
  /// The two elevens travel in memory and not through files of the folder. For the headless companion.
  bool elevens_in_memory = false;
  /// The team and ground files are kept as they are read first, whatever becomes of them. For the headless companion.
  bool read_once = false;
  /// Matches change the career and record files. Without, the folder is only read.
  bool updates = true;
  /// Is told while the turn at the folder is waited for; nullptr for nobody. Outlives the use of these files.
  turn_watcher* watcher = nullptr;
  /// Keeps the matches that are added; nullptr for nobody. Outlives the use of these files.
  match_keeper* keeper = nullptr;
};

/// The four paths of the database `base` in `folder`; the switches as at the start.
database_files database_paths(const std::filesystem::path& folder, const std::string& base);

/// Makes `base` in files.folder the database in use and rebuilds the four paths; the switches stay.
void use_database(open_database& data, const std::string& base);

/// Reads options.mc of files.folder into `settings`. False, with `settings` unchanged, if the file can't be opened or
/// has fewer than five lines. A line ends with LF or CR LF; a leading blank is dropped; a comma ends the value.
bool read_options(open_database& data);
/// The same, but a file that is there and cannot be opened or read is a run_time_error (file).
bool require_readable_options(open_database& data);

/// What the program finds of its settings as it starts.
enum class first_settings {
  in_use,        ///< the database of options.mc is the one in use
  missing,       ///< no options.mc, or one that cannot be read
  not_on_offer,  ///< it names no database of the folder; the other settings hold, and no database is in use
};

/// The start of the program: read_options(), and the database that it names. One that is not on offer, since its teams
/// or grounds are missing, is in use all the same where its careers or records are there. `cause`, where given,
/// receives what keeps an options.mc that is there from being read. Raises run_time_error (file) for a folder that
/// cannot be read.
first_settings take_first_settings(open_database& data, std::string* cause = nullptr);

/// True if a line of options.mc gives the value back as it was.
bool can_be_kept(const std::string& value);

/// Replaces options.mc of files.folder by the five lines of `settings`, CR LF ends. Raises run_time_error (file); the
/// old file is whole then.
void write_options(const open_database& data);

/// The base names on offer in `folder`: those with both a .team and a .grd file, in byte order. A missing folder
/// offers none, and a name without a place in Windows-1252 is passed over. Raises run_time_error (file) for a folder
/// that cannot be read.
std::vector<std::string> databases_on_offer(const std::filesystem::path& folder);

/// Six uppercase hexadecimal digits, red, green, blue, of red + 256 x green + 65536 x blue. Raises run_time_error
/// (type) outside 0 to 16777215.
std::string change_to_hex(long color);
/// The decimal text of red + 256 x green + 65536 x blue for six hexadecimal digits. Raises run_time_error (type) for
/// anything else.
std::string change_to_rgb(std::string_view digits);

}  // namespace velorin
