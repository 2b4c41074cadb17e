// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The tables and views of an archive. docs/formats/archive.md describes them.

namespace velorin {

/// The version that an archive has as its user_version. One of the first version is read as it is, and gets what it
/// lacks as soon as it is written.
inline constexpr int archive_version = 2;
/// In the head of the file, so that it is told from other databases: "Velo".
inline constexpr int archive_application = 0x56656C6F;

/// The statements that make an empty archive of the first version; those that add what the second has.
extern const char* const archive_schema;
extern const char* const archive_additions;

}  // namespace velorin
