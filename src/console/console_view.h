// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>
#include <vector>

// The console's shown texts, written from the match when they are asked for. Reading only; nothing is drawn or asked.

namespace velorin {

/// The head of the score.
struct score_view {
  std::string label15_0;   ///< short name of the batting side
  std::string label15_1;   ///< runs "/" wickets
  std::string label15_2;   ///< overs and " Overs"
  std::string label15_19;  ///< run rate, " - " before the first ball
  std::string label27_0;   ///< the clock, "hh:mm"
  std::string team1;       ///< full name of the batting side
  std::string team2;       ///< full name of the bowling side
  std::string target;      ///< in a chase: "Target " and the runs that win
  std::string needed;      ///< in a chase: what is needed from how many balls, empty once it is made
};

/// One batsman at the crease.
struct batsman_view {
  int position = 0;
  std::string name;  ///< with " *" behind it for the man on strike
  int runs = 0;
  int balls = 0;
  int fours = 0;
  int sixes = 0;
  double settled_meter = 0;  ///< 0 to 915
  int aggression = 0;        ///< 1 to 5
  bool command4_enabled = false;
};

/// The bowler of this over and the man at the other end.
struct bowlers_view {
  std::string bowler;
  std::string label19_11;  ///< his overs
  std::string label19_10;  ///< maidens
  std::string label19_9;   ///< runs
  std::string label19_8;   ///< wickets
  std::string next_bowler;
  std::string next_figures;  ///< one line, items parted by " - "
  std::array<int, 2> aggression{};
  bool command3_enabled = false;  ///< and with it both aggression buttons
};

/// A row of the running table of bowlers.
struct bowler_line {
  int position = 0;
  std::string label25;  ///< the name as shown: shortened from 12 characters on
  std::string figures;
};

struct rate_cell {
  std::string heading;
  std::string text;
};

/// The rate panel: projections in a first innings, the chase in a second. From the change of innings on it shows
/// figures of the new innings alone.
struct rates_view {
  std::string label15_20;  ///< last five overs
  bool chase = false;
  std::vector<rate_cell> label26;  ///< projections: cells 0 to 4; chase: 0 to 6
  std::string label15_4;           ///< chase: "To win ", short name, " need..."; empty once it is made
  std::string label15_12;          ///< chase: the stage in overs; empty while nothing was bowled
  std::string label15_13;          ///< chase: this side's score
  std::string label15_14;          ///< chase: the other side's score at this stage
  std::string first_innings;       ///< chase: summary of the first innings
  std::string first_innings_overs;
};

score_view view_score();
/// The batsman in a slot: 0 the lower position at the crease, 1 the higher.
batsman_view view_batsman(int slot);
bowlers_view view_bowlers();
/// The filled rows, in the order in which the bowlers came on.
std::vector<bowler_line> view_bowler_list();
rates_view view_rates();
/// The last-wicket label; empty before the first wicket of the match.
std::string view_last_wicket();

}  // namespace velorin
