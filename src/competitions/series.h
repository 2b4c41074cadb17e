// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "competitions/match_entry.h"
#include "ui/match_play.h"

namespace velorin {

struct match_state;

/// The longest series.
constexpr int most_series_matches = 10;

/// Where a series stands.
enum class series_step : std::uint8_t {
  over,      ///< none is in play
  entering,  ///< the next match is to be entered
  match,     ///< a match is on, or has just ended: the match tells where it stands
  results    ///< the results are shown
};

/// Results of a series so far and the place reached. Places count from 1.
struct series_standing {
  std::array<std::string, most_series_matches + 1> series_ground;  ///< [1..10]
  std::array<std::string, most_series_matches + 2> series_winner;  ///< [1..11]; the eleventh is never written
  std::array<std::string, most_series_matches + 1> series_margin;  ///< [1..10]
  entered_side home;
  entered_side away;
  std::vector<std::string> grounds;  ///< from which each match draws
  int matches = 0;                   ///< of the series, 1 to 10
  int match_no = 0;                  ///< the match in play, or the last one played
  std::string drawn_ground;          ///< of that match
  bool series_over = false;          ///< the last match has been played
};

/// The series in play.
struct series_record : series_standing {
  series_step step = series_step::over;
  std::string ground_before;  ///< the ground drawn before that of the match in play
  series_standing before;     ///< what stood here before, as long as no match is over
};

/// Goes on with a series from where it stands to its end: enters matches, plays on in the one that is on, shows the
/// results. Nothing but the match, its chance, its files and the record is needed for it. A match that the user leaves
/// before it has begun is still to be played: the results are shown again. False if no match was over by then: the
/// record is as before the series. Draws a ground each time that a match is entered, and what the match draws. Asks for
/// what the matches ask and for series_results_form. Raises what a match raises; a run_time_error ends the series.
bool resume_series(const match_play& play, series_record& series);

/// A series: teams, captains, number of matches. Its OK plays the whole series.
struct series_form {
  series_form(const match_play& play, series_record& series) : play_(play), series_(series) {}

  std::vector<team_entry> teams;     ///< list of teams, for home and away
  int home_team_index = -1;          ///< home team, from 0
  int away_team_index = -1;          ///< away team
  std::vector<std::string> grounds;  ///< grounds of the home team's country
  int ground_index = -1;             ///< the ground on show
  std::string typed_matches = "1";   ///< number of matches as typed
  bool computer_captains_home = true;
  bool computer_captains_away = true;
  bool closed = false;

  /// Loads the teams; preselects the second and the third, and the second ground. Raises what reading them raises.
  void open();
  void choose_home(int index);
  void choose_away(int index);
  /// The spin control, 1 to 10: writes its value into typed_matches.
  void set_matches(int value);
  /// Both teams are chosen, which "OK" requires.
  bool ready() const { return home_team_index >= 0 && away_team_index >= 0; }
  /// "OK": plays all matches, each on a ground drawn anew, and shows the results after each. If the user leaves the
  /// first match before it has begun, the form stays open and the record as it was. Draws, after reseeding once, and
  /// asks what resume_series() does. Raises run_time_error: a number of matches that is none of 1 to 10 (type), and
  /// what a match raises.
  void accept();
  /// "Cancel".
  void cancel() { closed = true; }

 private:
  void rebuild_grounds();
  match_play play_;
  series_record& series_;
};

/// The results of the series so far. The scan of the results stops at the first match without a winner.
struct series_results_form {
  series_results_form(match_state& match, series_record& series) : match_(match), series_(series) {}

  std::string team_a;
  std::string team_b;
  std::string heading;  ///< heading
  struct row {
    std::string match_and_ground;  ///< ordinal and ground
    std::string result;            ///< winner and margin
  };
  std::vector<row> rows;
  int won_a = 0;              ///< matches that team_a has won
  int won_b = 0;              ///< likewise team_b
  std::string standing_line;  ///< who leads or has won
  bool closed = false;

  /// Fills the form from `series`.
  void open();
  /// "OK": closes the form; at the end of the series clears its record.
  void accept();

 private:
  match_state& match_;
  series_record& series_;
};

}  // namespace velorin
