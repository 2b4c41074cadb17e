// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "competitions/league.h"
#include "competitions/match_entry.h"
#include "ui/match_play.h"

namespace velorin {

class random_source;
struct match_state;

constexpr int tri_teams = 3;
constexpr int tri_round_matches = 3;  // each team against each other
constexpr int most_tri_rounds = 5;

/// Where a tri series stands.
enum class tri_step : std::uint8_t {
  over,      ///< none is in play
  entering,  ///< the next match is to be entered
  match,     ///< a match is on, or has just ended: the match tells where it stands
  table      ///< the table is shown
};

/// The table of a tri series and the place reached.
struct tri_standing {
  std::array<league_row, tri_teams + 1>
      tri_table;  ///< [1..3] in the order of the form; notes: finalists, result of the final
  std::array<entered_side, tri_teams + 1> sides;  ///< [1..3]
  std::vector<std::string> grounds;               ///< of the host's country
  int rounds = 0;                                 ///< of the league, 1 to 5
  int matches_played = 0;                         ///< league matches so far
  bool final_played = false;
  std::string drawn_ground;  ///< of the match in play or the last one
};

/// The tri series in play.
struct tri_record : tri_standing {
  tri_step step = tri_step::over;
  std::string ground_before;  ///< the ground drawn before that of the match in play
  tri_standing before;        ///< what stood here before, as long as no match is over
};

/// Goes on with a tri series from where it stands to its end: enters matches, plays on in the one that is on, shows the
/// table. Nothing but the match, its chance, its files and the record is needed for it. A league match is booked in
/// tri.tri_table; of a name that stands in several rows in the last of them, while each of them counts the match as
/// played. A match that the user leaves before it has begun is still to be played: the table is shown again. False if
/// no match was over by then: the record is as before the tri series. Draws a ground each time that a match is entered,
/// and what the match draws. Asks for what the matches ask and for tri_series_table_form. Raises what a match raises; a
/// run_time_error ends the tri series.
bool resume_tri_series(const match_play& play, tri_record& tri);

/// Plays what is left of a tri series without asking anybody: `play` plays each match. Where a match is on, it must
/// have been played: its result stands in `match`. The table of the league, with the notes of the finalists, and the
/// result of the final stay. Draws the grounds.
void finish_tri_series(match_state& match, random_source& chance, tri_record& tri, const match_maker& play);

/// A tri series: three teams, captains, rounds. Its OK plays the whole competition.
struct tri_series_form {
  tri_series_form(const match_play& play, tri_record& tri) : play_(play), tri_(tri) {}

  std::vector<team_entry> teams;            ///< list of teams, the same for all three
  std::array<int, tri_teams> team_index{};  ///< the host, the second, the third, from 0; -1 for none
  std::vector<std::string> grounds;         ///< grounds of the host's country
  int ground_index = -1;                    ///< the ground on show
  std::string typed_rounds = "1";           ///< rounds as typed
  std::array<bool, tri_teams> computer_captains = {true, true, true};  ///< in the order of the teams
  bool closed = false;

  /// Loads the teams; preselects the second, third and fourth, and the second ground.
  void open();
  /// Chooses the team in box 0, 1 or 2.
  void choose_team(int box, int index);
  /// The spin control, 1 to 5: writes its value into typed_rounds.
  void set_rounds(int value);
  /// All three teams are chosen, which "OK" requires.
  bool ready() const { return team_index[0] >= 0 && team_index[1] >= 0 && team_index[2] >= 0; }
  /// "OK": the league, then the final of its first two, and the table after each match. If the user leaves the first
  /// match before it has begun, the form stays open and the record as it was. Draws, after reseeding once, and asks
  /// what resume_tri_series() does. Raises run_time_error: a number of rounds that is none of 1 to 5 (type), and what a
  /// match raises.
  void accept();
  /// "Cancel".
  void cancel() { closed = true; }

 private:
  void rebuild_grounds();
  match_play play_;
  tri_record& tri_;
};

/// The table of the tri series. Opening it names the finalists of the moment.
struct tri_series_table_form {
  explicit tri_series_table_form(tri_record& tri) : tri_(tri) {}

  std::string title;
  std::string heading;                       ///< heading
  std::array<league_texts, tri_teams> rows;  ///< in the order of the table
  std::string final_line;                    ///< the final
  std::string final_result;                  ///< its result; empty until it is over
  bool closed = false;

  /// Fills the form from `tri`, and sets its first two notes.
  void open();
  void accept() { closed = true; }

 private:
  tri_record& tri_;
};

}  // namespace velorin
