// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>
#include <vector>

#include "competitions/world_cup.h"
#include "ui/match_play.h"

namespace velorin {

class random_source;
struct match_state;

/// What the form of the World Cup shows.
struct world_cup_fields {
  std::vector<team_entry> teams;                         ///< the list of all boxes
  std::array<int, cup_group_teams> group_a_index{};      ///< Group A, entries from 0
  std::array<int, cup_group_teams> group_b_index{};      ///< Group B
  std::array<bool, cup_group_teams> human_a{};           ///< human sides of Group A
  std::array<bool, cup_group_teams> human_b{};           ///< human sides of Group B
  std::array<int, cup_hosts> host_index = {-1, -1, -1};  ///< hosts; -1 for none
  bool closed = false;
  bool hidden = false;  ///< play has begun; after a tournament played to its end the form stays loaded and hidden
};

/// The World Cup: groups, hosts, human sides. Its OK plays the whole tournament.
struct world_cup_form : world_cup_fields {
  world_cup_form(const match_play& play, world_cup_record& world_cup) : play_(play), world_cup_(world_cup) {}

  static constexpr const char* too_few_teams = "Not enough teams in current database to play the World cup";
  static constexpr const char* note = "Note: Select all the human controlled teams.";

  /// Loads the teams and sets the defaults; with fewer than ten teams reports that in a message and closes.
  void open();
  /// The form is asked for again: where it has stayed loaded it shows the choices made, else, or if the database has
  /// other teams by now, it opens as at first.
  void show_again();
  /// All ten teams are chosen, which "OK" requires.
  bool ready() const;
  /// The hosts' names, "" for a box left empty.
  std::vector<std::string> hosts() const;
  /// Draws the fixtures of the choice made: the list is shown next. Draws what draw_group_fixtures() does.
  void begin();
  /// "OK": draws the fixtures and plays the stages, with the fixture list and the tables between the matches, to the
  /// end or until the user quits. Draws, asks and raises what draw_group_fixtures() and resume_world_cup() do.
  void accept();
  /// The choice as it is told to whoever records the game.
  entered_game entered() const;
  /// "Cancel".
  void cancel() { closed = true; }

 private:
  match_play play_;
  world_cup_record& world_cup_;
};

/// Goes on with a tournament from where it stands to its end, or until the user quits: enters matches, plays on in the
/// one that is on, shows the tables and the fixture list. Nothing but the match, its chance, its files and the record
/// is needed for it. A match that the user leaves before it has begun is still to be played: the list is shown again,
/// in the knock-out behind the tables. Draws the Super Six, the grounds of the knock-out, and what the matches draw.
/// Asks for what the matches ask, for world_cup_tables_form and world_cup_fixtures_form. True if the user has quit; in
/// the Super Six his request stays set instead, and the next tournament ends at its first list. Raises what a match
/// raises; a run_time_error ends the tournament.
bool resume_world_cup(const match_play& play, world_cup_record& world_cup);

/// Plays what is left of a tournament without asking anybody: `play` plays each match. Where a match is on, it must
/// have been played: its result stands in `match`. Draws the Super Six and the grounds of the knock-out. Raises what
/// booking a match raises.
void finish_world_cup(match_state& match, random_source& chance, world_cup_record& world_cup, const match_maker& play);

/// Books the last match in the cells of the two teams of a group, found by name; of several the last counts. Raises
/// run_time_error: a team that is not in the group (subscript), a figure beyond its width (overflow).
void book_group_match(const match_state& match, cup_group& group, const std::string& first, const std::string& second);

/// Fills the groups and draws the twenty group fixtures: venues, then thirty exchanges, then the numbers. Draws, each
/// exchange after reseeding.
void draw_group_fixtures(random_source& chance, world_cup_record& world_cup);
/// Sorts both groups, fills wc_super_six with the first three of each and what they carry over.
void build_super_six(world_cup_record& world_cup);
/// Notes the human sides and draws the nine Super Six fixtures: venues, then ten exchanges, then the numbers.
void draw_super_six_fixtures(random_source& chance, world_cup_record& world_cup);

}  // namespace velorin
