// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string_view>

namespace velorin::fuzz {

/// Makes base.team, base.grd, base.rec and base.ptr in scratch(): the small database after one match. Leaves a fresh
/// state.
void lay_out_database();

/// Makes of that the least database that is one, so that the targets of single files lose no time with the others:
/// three teams of one man each, a neutral ground, neither careers nor records.
void shrink_database();

/// Puts that match into `match` as it stands when careers and records are about to be updated.
void stage_finished_match();

/// Adds that match to careers and records together, as the end of a match does. One of the two files is fuzzed and has
/// the bytes `before`; this writes the other, whose bytes are `sound`. True if it was done, and both files can be read
/// again; else the error must name the fuzzed file, and both must be as they were. Nothing may be left beside them. The
/// other file is gone then.
bool update_both(const std::filesystem::path& fuzzed, std::string_view before, const std::filesystem::path& other,
                 std::string_view sound);

}  // namespace velorin::fuzz
