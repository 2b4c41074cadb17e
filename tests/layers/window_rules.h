// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace velorin::house {

/// The windows of src and the table of windows in docs/vocabulary.md are the same, by id and file: none is forgotten
/// there, and none stands there that is gone. A window is a class that derives from Form, directly or not, and gives
/// its base an id; a question asked by ask(); a dialog of the toolkit that is named. A class whose id its users choose
/// takes a `const QString& name` and is no window of its own. One line for each breach, "file:line: what is wrong",
/// first those of the sources. Files that cannot be read raise std::runtime_error.
std::vector<std::string> check_window_list(const std::filesystem::path& root);

}  // namespace velorin::house
