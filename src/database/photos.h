// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

// The player photos: picture files in the folder settings.photo_path, named by the player's surname. The last three
// letters of a name, before its extension, hold his initials. Names are Windows-1252 here and UTF-8 on disk; upper and
// lower case count alike. Searching reads the folder and nothing else; a folder that cannot be read, or none, has no
// photo.

namespace velorin {

struct open_database;

/// The files of the folder whose names begin with `surname` and end in .bmp, .png or .jpg, in the order of the bytes of
/// their names.
std::vector<std::filesystem::path> photos_of(const open_database& data, std::string_view surname);

/// The console's photo of a player: the first file of his surname.
std::optional<std::filesystem::path> console_photo(const open_database& data, std::string_view name);

/// The profile's photo: the first file of his surname whose last three letters have his first initial among them. For a
/// name without initials, the first file of his surname.
std::optional<std::filesystem::path> profile_photo(const open_database& data, std::string_view name);

}  // namespace velorin
