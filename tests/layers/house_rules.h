// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>
#include <vector>

// The rules that the sources of this project keep, as checks over a tree of files. Each check returns one line for each
// breach, "file:line: what is wrong", in the order of the files' names, and nothing for a tree that keeps the rule. A
// missing folder has no files. Files that cannot be read raise std::runtime_error.

namespace velorin::house {

/// Every folder of src is a room on a floor; a room includes itself and rooms of lower floors, and the file or the
/// template (.in) that the build fills is there. The windows (`forms` folders) see the core, `desktop` and their own
/// room; the shell sees the windows too. Parts in `desktop` know no subsystem: only the model and the seam.
std::vector<std::string> check_floors(const std::filesystem::path& root);

/// Floors 1 to 7 and the companion include no Qt header, and floors 1 to 7 but the standard library, the system's own
/// headers and fmt. Windows are free of this.
std::vector<std::string> check_libraries(const std::filesystem::path& root);

/// The first line of each source, or the second behind "#!", names the licence.
std::vector<std::string> check_licence_lines(const std::filesystem::path& root);

/// No text file names a path of one machine or a document that readers of this project do not have.
std::vector<std::string> check_words(const std::filesystem::path& root);

}  // namespace velorin::house
