// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>
#include <vector>

#include "model/entered_game.h"
#include "model/match_records.h"
#include "model/match_set_up.h"
#include "ui/match_play.h"

namespace velorin {

/// An entry of a list of teams.
struct team_entry {
  std::string name;
  int record = 0;  ///< its record number in the team file, 2 to 21
};

/// The new match: teams, captains, ground. Its OK plays the whole match.
struct new_match_form {
  explicit new_match_form(const match_play& play) : play_(play) {}

  std::vector<team_entry> teams;         ///< list of teams; the second team's list is the same
  int first_team_index = -1;             ///< chosen entry of the first team, from 0; -1 for none
  int second_team_index = -1;            ///< chosen entry of the second team
  std::vector<std::string> grounds;      ///< grounds for the two teams
  int ground_index = -1;                 ///< chosen ground
  bool computer_captains_first = true;   ///< the computer captains the first team
  bool computer_captains_second = true;  ///< the computer captains the second team
  bool practice = false;                 ///< the match counts for nothing, and its balls can be taken back
  bool visible = false;
  bool left = false;  ///< the user has left the match at a step of the set-up

  /// Loads the teams and preselects the second, the third and, of their grounds, the second. Reads the files; sets
  /// match.team_list and team_count. Raises what reading the teams and grounds raises.
  void open();

  std::string first_team_name() const;  ///< name of the first team, "" for none
  std::string second_team_name() const;
  std::string ground_name() const;  ///< the ground, "" for none
  /// The country of the ground chosen, "" for none. Reads the grounds; raises what reading them raises.
  std::string ground_country() const;

  /// A choice of team: the ground list follows it. The entry must be in range or -1.
  void choose_first_team(int index);
  void choose_second_team(int index);
  /// Rebuilds the ground list from the two teams and shows its second entry.
  void rebuild_grounds();
  /// Enters teams by name and a single ground, as a competition does: the ground list is left to that ground. Raises
  /// run_time_error (subscript) for a team that is not in the list.
  void enter(const std::string& first, const std::string& second, const std::string& ground);

  /// "OK" does something: both teams and a ground are chosen.
  bool ready() const { return first_team_index >= 0 && second_team_index >= 0 && ground_index >= 0; }
  /// Brings the match of this choice to its first question, the conditions, which are drawn. Asks nothing. Raises what
  /// reading the grounds and drawing the conditions raises: no match is on then.
  void begin();
  /// "OK": conditions, both selections, toss and match, one after the other. Returns when the match is over, or left
  /// at one of these steps: nothing of it is kept then, in match and in the files of the elevens. Requires both teams
  /// chosen. Changes the match; draws and asks what each step does. Raises run_time_error: no team chosen or
  /// the twentieth team (subscript), a rating that is no number (type), and whatever a step raises; the form is visible
  /// again then.
  void accept();
  /// The teams chosen, with their records; {} for none.
  std::array<chosen_team, 2> chosen_teams() const;
  const match_play& play() const { return play_; }
  /// "Cancel".
  void cancel() { visible = false; }

  /// The choice as it is told to whoever records the match. Requires both teams chosen.
  entered_game entered() const;

 private:
  match_play play_;
};

/// Sorts a squad into the order of the selection screen: roles in descending text order, within a role by descending
/// batting skill, by two exchanges a step of a bubble sort.
void sort_squad(squad& men);

}  // namespace velorin
