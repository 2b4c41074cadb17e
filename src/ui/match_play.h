// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace velorin {

class front_end;
class random_source;
struct match_state;
struct open_database;

/// What playing a match takes: the match, where its chance comes from, whom it asks, and the files that it reads and
/// changes. All of them outlive it; a copy speaks of the same ones.
struct match_play {
  match_state& match;
  random_source& chance;
  front_end& user;
  open_database& data;
};

}  // namespace velorin
