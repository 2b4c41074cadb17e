// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "browsers/shown_table.h"
#include "database/lasting_records.h"

namespace velorin {

class front_end;
struct open_database;

/// The profile of one player: the figures of his career, the rates that follow from them, and his photo. Shown texts
/// stay until another player is chosen.
struct player_profile_screen {
  static constexpr std::string_view title = "Player Profiles";
  static constexpr std::string_view team_caption = "Team:";
  static constexpr std::string_view player_caption = "Player:";
  static constexpr std::string_view no_photo_caption = "No Pic Available";
  static constexpr std::string_view ok_caption = "OK";

  std::vector<std::string> teams;    ///< teams with careers, in the order of the file
  std::vector<std::string> players;  ///< players of the chosen team, in the order of the file
  int chosen_team = -1;              ///< the chosen item of each list, counted from 0; -1 for none
  int chosen_player = -1;
  bool team_changed = false;  ///< a team has been chosen and its players are not listed yet
  bool locked = false;        ///< both lists are locked

  /// The chosen player in four blocks; empty until there is one.
  std::vector<shown_field> person;
  std::vector<shown_field> batting;
  std::vector<shown_field> bowling;
  std::vector<shown_field> fielding;

  std::optional<std::filesystem::path> photo;  ///< the photo
  bool no_photo_visible = false;               ///< the label in its place
  bool closed = false;
};

/// The form: fills the screen and follows the user.
struct player_profile_form : player_profile_screen {
  explicit player_profile_form(const open_database& data) : data_(data) {}

  /// Lists the teams, with nothing chosen. Reads the careers; raises what read_career_table raises.
  void open();
  /// Opens on one player, with both lists locked. Raises besides: run_time_error (subscript) if the careers have no
  /// such team or player.
  void open_locked(const std::string& team, const std::string& player);

  /// An item chosen by the user, and what follows at the next tick. A locked list is left alone. Choosing a team, the
  /// same one too, leaves no player chosen. Reads the folder of the photos.
  void choose_team(int index);
  void choose_player(int index);

  void accept() { closed = true; }

 private:
  void tick();
  void fill(const career_rec& career);

  career_table careers_;
  const open_database& data_;
};

/// Opens the profile of a player, locked, modal. If that fails, shows the failure in a message titled "Error - Player
/// Details" and returns false.
bool show_profile(front_end& user, const open_database& data, const std::string& team, const std::string& player);

}  // namespace velorin
