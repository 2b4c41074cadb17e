// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "browsers/player_profile.h"
#include "database/lasting_records.h"
#include "database/whole_file.h"
#include "support/game_in_play.h"
#include "support/scripted_user.h"
#include "support/small_database.h"

namespace velorin::testing {

/// A database whose careers hold one man, and a user who notes the profiles shown.
class profile_reader : public scripted_user {
 public:
  profile_reader(const std::string& team, const std::string& player) {
    career_table careers;
    careers.career_team_count = 1;
    careers.teams[1].team_name = team;
    careers.teams[1].player_count = 1;
    careers.teams[1].players[1].name = player;
    const folder_lock turn(data.files.career_file, nullptr);
    write_career_table(data, careers);
  }

  using scripted_user::show;
  void show(player_profile_form& form) override {
    requests.push_back("profile " + form.teams.at(static_cast<std::size_t>(form.chosen_team)) + " | " +
                       form.players.at(static_cast<std::size_t>(form.chosen_player)) + (form.locked ? " locked" : ""));
    form.accept();
  }

 private:
  small_database database_;
};

}  // namespace velorin::testing
