// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "database/record_update.h"
#include "model/delivery.h"
#include "model/match_state.h"

// A match as the archive has it: the figures of its innings and men. Texts are single bytes of Windows-1252.

namespace velorin {

/// A man who has been in.
struct archived_batsman {
  std::string player;
  int position = 0;  ///< 1 to 11 on the card
  bool out = false;
  bool not_out = false;  ///< as careers count it: the last man of a first innings that was all out is neither
  dismissal how = dismissal::none;  ///< as the card has it
  fielding taken = fielding::none;  ///< likewise
  int fielder_position = 0;         ///< likewise
  std::string bowler;               ///< who has the wicket; "" where nobody has
  std::string fielder;              ///< who caught, stumped or threw; "" for nobody
  int runs = 0;
  int balls = 0;
  int dots = 0;
  int ones = 0;
  int twos = 0;
  int threes = 0;
  int fours = 0;
  int sixes = 0;
  int fifty_balls = 0;    ///< balls faced when he had made 50; 0 if he has not
  int hundred_balls = 0;  ///< likewise 100
};

/// A man of the side in the field, whether he has bowled or not.
struct archived_bowler {
  std::string player;
  int came_on = 0;  ///< place among the bowlers of the innings, from 1; 0 if he has not bowled
  int balls = 0;
  int maidens = 0;
  int runs = 0;
  int wickets = 0;
};

/// A stand, or a place of the table of falls that the match did not reach: such a one has no players.
struct archived_stand {
  int runs = 0;
  int balls = 0;
  int score = 0;     ///< of the side at the fall; 0 for an unbroken stand
  int at_balls = 0;  ///< of the innings at the fall, likewise
  bool unbroken = false;
  std::string overs;  ///< as the table of falls shows it, "" before it has been shown
  std::string player1;
  std::string player2;

  bool is_there() const { return !player1.empty(); }
};

/// An over of which at least one ball was bowled.
struct archived_over {
  int over = 0;  ///< from 1
  std::string bowler;
  int runs = 0;
  int wickets = 0;
};

/// A batsman against a bowler in an innings. Of no ball and wide it tells nothing.
struct archived_meeting {
  int position = 0;         ///< of the batsman on his card
  int bowler_position = 0;  ///< of the bowler in his eleven
  int balls = 0;
  int runs = 0;
  int dots = 0;
  int fours = 0;
  int sixes = 0;
  int outs = 0;  ///< 1 where the bowler got him out
};

struct archived_innings {
  std::string team;
  int runs = 0;
  int wickets = 0;
  int balls = 0;
  int wides = 0;
  int no_balls = 0;
  int byes = 0;
  int leg_byes = 0;
  int noted_wickets = 0;  ///< as its totals have them at the end, by which the lists of totals are ordered
  std::vector<archived_batsman> batting;  ///< in the order of the card
  std::vector<archived_bowler> bowling;   ///< the eleven of the side in the field, in its order
  std::vector<archived_stand> stands;     ///< the ten of the table of falls
  std::vector<archived_over> overs;
  std::vector<archived_meeting> meetings;  ///< by batsman and bowler; none in archives of version 1
};

struct archived_match {
  std::int64_t id = 0;         ///< from 1, in the order in which the matches were added
  std::string key;             ///< under which it is added once; "" for none
  std::int64_t played_at = 0;  ///< seconds since 1970, UTC
  std::string competition;
  std::string stage;
  int number = 0;  ///< within its competition, from 1; 0 for a match by itself
  std::string ground;
  std::string country;
  int weather = 0;  ///< 1 to 4, like the three others
  int pitch_surface = 0;
  int pitch_bounce = 0;
  int outfield = 0;
  bool human = false;  ///< a user captained a side at its end
  std::string winner;  ///< "" on a tie
  std::string margin;
  std::array<archived_innings, 2> innings;  ///< in the order of play
  std::string recording;                    ///< its bytes; "" for none
};

/// The match that stands at its end, the second innings in play. Without id, key, time and recording.
archived_match archived(const match_state& match);

/// As much of its state as goes into careers and records. Raises run_time_error (overflow) for figures that no match
/// has.
match_state state_of(const archived_match& match);
falls_of_match falls_of(const archived_match& match);

/// The name of a kind of competition.
std::string_view competition_name(game_kind kind);
/// How a man was out, such as "caught and bowled", or "not out".
std::string_view how_out_name(const archived_batsman& man);

}  // namespace velorin
