// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace velorin::fuzz {

/// Makes base.team, base.grd, base.rec and base.ptr in scratch(): the small database after one match. Leaves a fresh
/// state.
void lay_out_database();

/// Makes of that the least database that is one, so that the targets of single files lose no time with the others:
/// three teams of one man each, a neutral ground, neither careers nor records.
void shrink_database();

/// Puts that match into `match` as it stands when careers and records are about to be updated.
void stage_finished_match();

}  // namespace velorin::fuzz
