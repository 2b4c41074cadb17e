// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

// <base>.counted names the matches that were added last to the careers and records, a line each, the newest first. It
// is put in place together with these, so that whoever was cut off in an update can see whether it was done.

namespace velorin {

struct database_files;

/// Names kept at most. A name is asked for by the program that was cut off, as it goes on with its match.
inline constexpr int most_counted_matches = 64;

std::filesystem::path counted_file(const database_files& files);

/// The list names the match.
bool is_counted(std::string_view list, std::string_view name);
/// The list with the match as the newest one.
std::string list_with(std::string_view list, std::string_view name);

}  // namespace velorin
