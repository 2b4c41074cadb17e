// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace velorin::house {

/// Every .h and .cpp of src is named in docs/vocabulary.md, without its ending, and every name there is a file: in the
/// table of windows by its path, or in the first column of a table whose heading ("###") names its room. A name without
/// a folder lies in that of the name before it in the row, the first of a row in the room of the heading if that names
/// one alone. One line for each breach, "file:line: what is wrong", first those of the sources. Files that cannot be
/// read raise std::runtime_error.
std::vector<std::string> check_file_list(const std::filesystem::path& root);

}  // namespace velorin::house
