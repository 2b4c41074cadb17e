// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "setup/new_match.h"

// How a competition enters a match, and the lists that its forms share.

namespace velorin {

struct match_state;
class random_source;
struct open_database;
struct match_play;

/// A side of a competition's match.
struct entered_side {
  std::string team;
  bool human = false;
};

/// Empties the result block, fills the form of a new match and brings the match to its first question: resume_match()
/// plays it. With one empty name no match is on: the other team has a walkover. With two there is no result. Draws the
/// conditions; raises what reading teams and grounds raises. A user who leaves the match finds the result block as it
/// was.
void enter_match(const match_play& play, const entered_side& first, const entered_side& second,
                 const std::string& ground);

/// A side without a team has lost by a walkover, which is written into an empty result block; of two without there is
/// no result. False where both sides have a team: nothing is changed then.
bool enter_walkover(match_state& match, const entered_side& first, const entered_side& second);

/// Plays the match between two sides on a ground and leaves its result block in the match of the competition.
using match_maker =
    std::function<void(const entered_side& first, const entered_side& second, const std::string& ground)>;

/// Sets the result strings to "" and clears the two rates.
void clear_result(match_state& match);

/// The teams of the database as entries of a list. Raises what reading them raises.
std::vector<team_entry> list_teams(open_database& data);
/// Names of the grounds, in file order, whose country is one of `countries`; an empty country matches nothing.
std::vector<std::string> list_grounds(open_database& data, const std::vector<std::string>& countries);

/// Those of the countries that have no ground, each once; an empty name is passed over.
std::vector<std::string> countries_without_ground(open_database& data, const std::vector<std::string>& countries);

/// Draws a ground: one number, also from an empty list, which gives "".
std::string draw_ground(random_source& chance, const std::vector<std::string>& grounds);

/// The text of a list's entry, "" for index -1.
std::string entry_text(const std::vector<team_entry>& list, int index);

/// An entry of a list as it is told to whoever records the game; nameless for index -1.
entered_team entered_team_of(const std::vector<team_entry>& list, int index, bool human);

/// The number typed into a box: a whole number from 1 to `most`. Raises run_time_error (type) for anything else.
int typed_number(const std::string& text, int most, const char* field);

/// The window that shows how far an unattended match has come.
struct match_progress {
  int over = 0;  ///< overs begun, from 1

  std::string title() const;                          ///< "Simming Match... (", overs begun, "% finished )"
  double bar_length() const { return over * 49.95; }  ///< display units; the frame is 4935 long
  static constexpr int bar_position = 60;
};

}  // namespace velorin
