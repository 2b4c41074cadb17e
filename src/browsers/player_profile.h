// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "browsers/shown_table.h"
#include "browsers/squad_standing.h"
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

  /// Teams with careers, in the order of the file, then those of the squads that are offered besides.
  std::vector<std::string> teams;
  /// Players of the chosen team, in the order of the file, then the men of its squad without a career, if squads are
  /// offered.
  std::vector<std::string> players;
  int chosen_team = -1;  ///< the chosen item of each list, counted from 0; -1 for none
  int chosen_player = -1;
  bool team_changed = false;  ///< a team has been chosen and its players are not listed yet
  bool locked = false;        ///< both lists are locked

  /// The chosen player in four blocks; empty until there is one.
  std::vector<shown_field> person;
  std::vector<shown_field> batting;
  std::vector<shown_field> bowling;
  std::vector<shown_field> fielding;
  /// Of a man without a career, who has `person` and no other block: what he can do.
  std::optional<squad_standing> standing;
  /// Of a man with a career who is in a squad: how he compares.
  std::optional<squad_standing> compared;

  std::optional<std::filesystem::path> photo;  ///< the photo
  bool no_photo_visible = false;               ///< the label in its place
  bool closed = false;
};

/// The form: fills the screen and follows the user.
struct player_profile_form : player_profile_screen {
  explicit player_profile_form(const open_database& data) : data_(data) {}

  /// Lists the teams, with nothing chosen. Reads the careers; raises what read_career_table raises.
  void open();
  /// Behind those with careers, offers the teams and men of the squads. Reads the teams, if they can be read.
  void offer_squads();
  /// Opens on one player, with both lists locked. Raises besides: run_time_error (subscript) if the careers have no
  /// such team or player.
  void open_locked(const std::string& team, const std::string& player);
  /// Likewise on a man of a squad, whether he has a career or not.
  void open_locked_in_squad(const std::string& team, const std::string& player);

  /// An item chosen by the user, and what follows at the next tick. A locked list is left alone. Choosing a team, the
  /// same one too, leaves no player chosen. Reads the folder of the photos.
  void choose_team(int index);
  void choose_player(int index);

  void accept() { closed = true; }

 private:
  void tick();
  void lock_on(const std::string& team, const std::string& player);
  void fill(const career_rec& career);
  void fill(const player_rec& man);
  /// The careers of the chosen team, nullptr if it has none.
  const career_team_rec* chosen_careers() const;

  career_table careers_;
  std::vector<team_rec> squads_;         // on offer
  std::vector<team_rec> compared_with_;  // all squads, once they have been read
  const open_database& data_;
};

/// Opens the profile of a player, locked, modal; of a man of a squad also where he has no career. If that fails, shows
/// the failure in a message titled "Error - Player Details" and returns false.
bool show_profile(front_end& user, const open_database& data, const std::string& team, const std::string& player);

}  // namespace velorin
