// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "model/commentary.h"
#include "model/delivery.h"
#include "model/match_records.h"
#include "model/match_result.h"
#include "model/match_set_up.h"
#include "model/play_place.h"
#include "model/rules.h"

// The state of a match. Fields are grouped by lifetime. A copy is a snapshot.

namespace velorin {

/// Who plays. From the set-up to the reset; the change of innings swaps the sides.
struct match_sides {
  std::string team1_name;      ///< the side now batting
  std::string team2_name;      ///< the side now bowling
  eleven batting_xi;           ///< [1..11] in batting order; changes when a man comes in out of order
  eleven bowling_xi;           ///< [1..11]
  bool computer_bats = true;   ///< the computer captains the batting side; the reset leaves true
  bool computer_bowls = true;  ///< the computer captains the bowling side; the reset leaves true
};

/// Where play stands. From the opening of the console to the reset.
struct match_position {
  integer over_no;                 ///< 1..50, the over in progress
  integer bowler;                  ///< position 1..11, bowls this over; 0 nobody yet
  integer next_bowler;             ///< position 1..11, bowls the next over
  integer striker;                 ///< position 1..11
  integer non_striker;             ///< position 1..11
  integer next_batsman_slot;       ///< 0..10, zero-based place of the man to come in
  integer ball_outcome;            ///< 0..11, result of the last delivery
  bool maiden_flag = false;        ///< no run off the bat has come in this over
  bool innings_over_flag = false;  ///< the last wicket has fallen
  integer clock_minutes;           ///< time of day of the match in minutes
};

/// The fourteen innings totals: the current innings, then the other one. `first_total` 0 marks the first innings.
struct match_totals {
  integer innings_total;    ///< filled at the end of the innings only
  integer innings_balls;    ///< legal balls so far
  integer innings_wickets;  ///< filled at the end of the innings only
  integer innings_no_balls;
  integer innings_wides;
  integer innings_byes;
  integer innings_leg_byes;
  integer first_total;
  integer first_balls;
  integer first_wickets;
  integer first_no_balls;
  integer first_wides;
  integer first_byes;
  integer first_leg_byes;
};

/// The books: each table for the current innings, and again with `first_` for the other one.
struct match_books {
  batting_card_table batting_card;
  batting_card_table first_batting_card;
  bowling_card_table bowling_card;
  bowling_card_table first_bowling_card;
  delivery_list deliveries;        ///< of the innings in play, in order
  delivery_list first_deliveries;  ///< of the innings before it
  bool commentary_stored = false;  ///< an innings has ended: the store of its lines ends with its marker
  bool last_stand_closed = false;  ///< the match has ended, and so has the stand at the crease
  int falls_shown = -1;            ///< wickets down when the stands were last shown, 0 to 10; -1 never
  int first_falls_shown = -1;      ///< likewise of the innings before it
};

/// Who has been congratulated for what, empty entries behind the last. Not cleared at the change of innings.
struct match_achievements {
  std::array<std::string, 23> fifty_list;             // 1..22
  std::array<std::string, 23> hundred_list;           // 1..22
  std::array<std::string, 11> century_and_half_list;  // 1..10
  std::array<std::string, 11> double_century_list;    // 1..10
  std::array<std::string, 23> five_wicket_list;       // 1..22
  std::array<std::string, 21> stand50_list;           // 1..20
  std::array<std::string, 21> stand100_list;          // 1..20
  std::array<std::string, 21> stand150_list;          // 1..20
  std::array<std::string, 21> stand200_list;          // 1..20
  std::array<std::string, 21> stand250_list;          // 1..20
  std::array<std::string, 21> stand300_list;          // 1..20
};

/// Ground and conditions. From the set-up to the reset.
struct match_conditions {
  ground_rec ground;  ///< the chosen ground; its two pitch figures become the conditions chosen
  integer weather;    ///< 1..4
  integer outfield;   ///< 1..4
};

/// A stand of an innings: wickets down and the pair's positions, the lower one first.
struct stand_key {
  int wickets = 0;
  int lower = 0;
  int higher = 0;

  bool operator==(const stand_key&) const = default;
};

/// Who is known to be on the achievement lists, so that no list is searched again for him: the step up to which a man
/// at a position, or the present pair, has been entered. Steps count the lists of a kind from 1 in rising order. Only
/// for the innings in play.
struct match_known_achievements {
  std::array<std::uint8_t, men_in_eleven + 1> batting_step{};      ///< [1..11] 1 to 4: 50, 100, 150, 200
  std::array<std::uint8_t, men_in_eleven + 1> five_wicket_step{};  ///< [1..11] 1: entered
  std::uint8_t stand_step = 0;                                     ///< 1 to 6: 50 to 300
  stand_key stand_of;                                              ///< the stand when the step was noted
};

/// A batsman's aggression as the computer chose it last, and all that it followed from: the choice for the same figures
/// is the same.
struct known_aggression {
  double base = 0;
  double strike_rate = 0;
  int form = 0;
  int bat_skill = 0;
  int aggression = 0;  ///< 1 to 5; 0: nothing was chosen
};

struct match_known_aggressions {
  std::array<known_aggression, 2> known_aggressions;  ///< by the batsmen's slots
};

/// The computer captain's list. Built once an innings.
struct match_bowler_pool {
  std::array<bowler_pool_rec, men_in_eleven + 1> bowler_pool;  // 1..11, best first
};

/// A row of the console's running table of bowlers: a man's figures when the table was last refreshed.
struct bowler_row {
  integer position;  ///< place in the bowling eleven; 0 for an empty row
  integer balls;
  integer maidens;
  integer runs;
  integer wickets;
};

/// The figures of the console's last refresh. The rate panel is written from them, and the projection is frozen from
/// them at the change of innings, which keeps them.
struct rate_figures {
  int score_runs = 0;
  int score_wickets = 0;
  integer innings_balls;  ///< 0: nothing bowled yet
  integer over_no;        ///< the over then about to begin
  bool of_innings_before =
      false;                 ///< the innings has changed since: the projection is spent, the panel shows none of it
  double required_rate = 0;  ///< last value of "RR Reqd."
  bool required_rate_shown = false;
};

/// The console's projected score at 6 runs an over, frozen at the change of innings.
struct projection_text {
  enum class kind : std::uint8_t { empty, dash, number };
  kind what = kind::empty;
  int value = 0;

  /// "", "-" (no over was completed) or the number.
  std::string text() const;
  /// The number. Raises run_time_error (type) where the text is none.
  double number() const {
    if (what != kind::number) [[unlikely]]
      raise_no_number();
    return value;
  }

 private:
  [[noreturn]] void raise_no_number() const;
};

/// The man out last, for the console's label.
struct last_wicket_note {
  integer position;        ///< on the batting card of that innings; 0 for none yet
  integer innings_number;  ///< of the innings in which he was out
  int score_runs = 0;      ///< the side's runs at that moment
};

/// The over whose balls the console shows.
struct over_shown {
  integer over;                    ///< 1..50; 0 for none
  bool in_play = false;            ///< as it is bowled; else one that has been browsed
  bool of_innings_before = false;  ///< the innings has changed since
};

/// The values that the console holds. A fresh one comes with each opening of the console.
struct match_console {
  int score_runs = 0;                              ///< runs of the innings, wides and no balls left out
  int score_wickets = 0;                           ///< 0..10
  over_shown over_on_show;                         ///< whose six balls the console shows
  std::array<int, 2> batsman_aggression = {1, 2};  ///< 1..5; slot 0 the lower batting position at the crease
  std::array<int, 2> bowling_aggression = {1, 2};  ///< 1..5; slot 0 the over being bowled
  std::array<double, 2> settled_meter = {0, 0};    ///< 0..915, slots of the batsmen
  std::array<bowler_row, 11> bowler_list;          // rows 1..10 in the order in which the bowlers came on
  int bowler_row_in_use = 1;                       ///< of these, the one that was written last
  rate_figures rates;
  projection_text first_innings_projection;  ///< frozen at the change of innings
  std::array<integer, 2> opening_bowlers;    ///< positions of this innings' opening pair
  bool bowler_change_pending = false;        ///< a change is still to be announced
  integer bowler_change_out;
  integer bowler_change_in;
  last_wicket_note last_wicket;
  int browsed_over = 0;       ///< value of the over browser
  int browser_maximum = 0;    ///< highest over that can be browsed
  integer innings_number;     ///< innings begun in this match
  bool console_open = false;  ///< the console is loaded
};

/// One side's line in the graph of running scores.
struct worm_line {
  std::string team;                                  ///< caption; empty until the graph is first touched
  int score_runs = 0;                                ///< the score as last written
  int score_wickets = 0;                             ///< likewise
  bool score_set = false;                            ///< a score has been written
  std::array<int, overs_of_innings + 2> row{};       // 1..51, running score; row 1 is the over that opens the innings
  std::array<bool, overs_of_innings + 2> row_set{};  // rows written so far
};

/// The graph of running scores, as the innings before the one in play have left it. Lives as long as the program runs:
/// nothing resets it.
struct match_worms {
  bool loaded = false;
  std::array<worm_line, 2> worm;
};

struct match_state : match_sides,
                     match_position,
                     match_play_place,
                     match_totals,
                     match_books,
                     match_achievements,
                     match_known_achievements,
                     match_known_aggressions,
                     match_conditions,
                     match_set_up,
                     match_bowler_pool,
                     match_console,
                     match_result,
                     match_worms {
  /// Somebody sits before the match, also while the computer captains both sides for him.
  bool human_involved() const { return attended || !computer_bats || !computer_bowls; }
  const std::string& venue_name() const { return ground.ground_name; }
  /// Overs bowled in this innings, such as "49.5".
  std::string overs_text() const;
  /// The batsmen's slot of the striker: 0 if his is the lower position at the crease.
  int striker_slot() const { return int(int(striker) >= int(non_striker)); }
  int lower_batsman() const { return std::min(int(striker), int(non_striker)); }
  int higher_batsman() const { return std::max(int(striker), int(non_striker)); }
};

/// What each ball of the over on show did, [0..5].
std::array<std::string, balls_of_over> over_symbols(const match_state& match);
/// The name of the man who bowled an over of the innings in play; "" unless it has come to its end.
std::string bowler_of_over(const match_state& match, int over);
/// The last delivery waits for a word on its wicket: the balls of innings and bowler do not count it yet.
bool is_last_ball_open(const match_state& match);
/// The number of the last over of the innings in play that has come to its end, 0 for none.
int overs_closed(const match_state& match);

/// The innings in play, for those who tell of its balls. Refers to the match.
told_innings innings_in_play(const match_state& match);
/// The innings before it, whose last over never comes to its end.
told_innings innings_before(const match_state& match);

/// The side's runs at the fall of the last wicket of the innings in play, 0 if none has fallen.
int score_at_last_fall(const match_state& match);

/// The lines shown in the console's commentary box: this innings so far.
std::vector<std::string> commentary_lines(const match_state& match);
/// The stored lines of the innings before, up to but not including the marker "end of byb", the empty line before the
/// marker kept. Empty before the change of innings.
std::vector<std::string> stored_commentary_lines(const match_state& match);

}  // namespace velorin
