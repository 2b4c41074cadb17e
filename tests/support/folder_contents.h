// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace velorin::testing {

/// The bytes of a file; fails the test if it cannot be read.
std::string file_bytes(const std::filesystem::path& file);
/// Every file below a folder and its bytes, by the path within the folder.
std::map<std::string, std::string> contents_of(const std::filesystem::path& folder);

}  // namespace velorin::testing
