// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "model/entered_game.h"
#include "model/integer.h"
#include "model/match_records.h"
#include "model/match_result.h"

// The set-up of a match: its open question, and what it has collected.

namespace velorin {

/// Where a match stands: the question that is open, or play. It moves on as a question is answered. What the question
/// shows is drawn before it is asked and stands in the record, so that it can be asked again as it was.
enum class match_step : std::uint8_t {
  none,              ///< no match is on
  conditions,        ///< the conditions
  first_selection,   ///< the eleven of the team chosen first
  second_selection,  ///< the eleven of the other
  toss_call,         ///< the message that tells what a computer side has called
  toss,              ///< the coin, or what the winner of the toss does; without a human side it asks nobody
  play               ///< the sides are known: the console is to open, or is open
};

/// A team as chosen for a match.
struct chosen_team {
  std::string name;
  int record = 0;  ///< its number in the team file, 2 to 21; 0 for none chosen
};

/// The conditions as drawn.
struct drawn_conditions {
  std::array<int, 4> levels = {1, 1, 1, 1};  ///< weather, pitch surface, pitch bounce, outfield, 1 to 4 each
  int temperature = 0;                       ///< degrees Celsius
  int humidity = 0;                          ///< percent
};

/// What the toss shows.
struct toss_screen {
  std::string headline;       ///< the headline
  std::string deciding_line;  ///< deciding line: the team for which "Bat" and "Bowl" speak
  std::string other_line;     ///< the other team
  bool coin_visible = true;   ///< "Heads" and "Tails" are shown, else "Bat" and "Bowl"
  bool bat_enabled = true;    ///< "Bat"
  bool bowl_enabled = true;   ///< "Bowl"
};

/// A file of an eleven as it stood before the set-up.
struct eleven_file_before {
  bool there = false;
  std::string bytes;
};

/// The files of both elevens; nothing for one that is not to be put back.
using eleven_files_before = std::array<std::optional<eleven_file_before>, 2>;

/// What a match is played for.
struct match_occasion {
  game_kind competition = game_kind::match;
  std::string stage;  ///< of a tri series or a World Cup, such as "Super Six"; "" for any other
  int number = 0;     ///< within its competition, from 1; 0 for a match by itself
};

/// What the set-up collects on its way to the toss.
struct match_set_up {
  match_step step = match_step::none;
  bool practice = false;  ///< counts for no career and no record; its balls can be taken back
  match_occasion occasion;
  integer team_count;                     ///< teams of the database
  std::array<std::string, 21> team_list;  ///< [1..20] names in file order
  std::array<squad, 2> squads;            ///< the first and the second team's men, sorted
  std::array<eleven, 2> selected;         ///< the eleven of the team chosen first and of the other
  bool elevens_exchanged = false;         ///< the toss made the team chosen first the second
  bool elevens_unsaved = false;           ///< the user has gone on without the files of the elevens
  bool first_team_done = false;           ///< the first side's selection is confirmed
  bool exchange_tried = false;            ///< an exchange of the elevens has failed, and is still to be done
  std::array<chosen_team, 2> chosen;      ///< the first and the second team
  drawn_conditions conditions_drawn;
  std::string toss_call;                      ///< what a computer side has called, as its message tells it
  toss_screen toss;                           ///< as last shown
  eleven_files_before elevens_before;         ///< for a user who leaves the match
  std::optional<match_result> result_before;  ///< likewise, where a competition has emptied the result
};

}  // namespace velorin
