// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>
#include <vector>

// The console's shown texts, written from the match when they are asked for.

namespace velorin {

struct match_state;

/// The head of the score.
struct score_view {
  std::string batting_short_name;  ///< short name of the batting side
  std::string score;               ///< runs "/" wickets
  std::string overs;               ///< overs and " Overs"
  std::string run_rate;            ///< run rate, " - " before the first ball
  std::string time_of_day;         ///< the clock, "hh:mm"
  std::string batting_team;        ///< full name of the batting side
  std::string bowling_team;        ///< full name of the bowling side
  std::string target;              ///< in a chase: "Target " and the runs that win
  std::string needed;              ///< in a chase: what is needed from how many balls, empty once it is made
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
  bool aggression_enabled = false;
};

/// The bowler of this over and the man at the other end.
struct bowlers_view {
  std::string bowler;
  std::string overs;    ///< his overs
  std::string maidens;  ///< maidens
  std::string runs;     ///< runs
  std::string wickets;  ///< wickets
  std::string next_bowler;
  std::string next_figures;  ///< one line, items parted by " - "
  std::array<int, 2> aggression{};
  bool change_enabled = false;  ///< and with it both aggression buttons
};

/// A row of the running table of bowlers.
struct bowler_line {
  int position = 0;
  std::string name;                    ///< the name as shown: shortened from 12 characters on
  std::array<std::string, 4> figures;  ///< overs, maidens, runs, wickets
};

struct rate_cell {
  std::string heading;
  std::string text;
};

/// The rate panel: projections in a first innings, the chase in a second. From the change of innings on it shows
/// figures of the new innings alone.
struct rates_view {
  std::string last_five_overs;  ///< last five overs
  bool chase = false;
  /// The overs that the cells tell of, where balls have been bowled since, as in the course of an over; empty else.
  std::string told_after;
  std::vector<rate_cell> cells;  ///< projections: cells 0 to 4; chase: 0 to 6
  std::string chase_headline;    ///< chase: "To win ", short name, " need..."; empty once it is made
  std::string stage_overs;       ///< chase: the stage in overs; empty while nothing was bowled
  std::string score_now;         ///< chase: this side's score
  std::string score_then;        ///< chase: the other side's score at this stage
  std::string first_innings;     ///< chase: summary of the first innings
  std::string first_innings_overs;
};

score_view view_score(const match_state& match);
/// The batsman in a slot: 0 the lower position at the crease, 1 the higher.
batsman_view view_batsman(const match_state& match, int slot);
bowlers_view view_bowlers(const match_state& match);
/// A bowler's name where there is little room: 12 or more characters give the first 8, a mark and the last 2.
std::string shortened_name(const std::string& name);
/// The filled rows, in the order in which the bowlers came on.
std::vector<bowler_line> view_bowler_list(const match_state& match);
rates_view view_rates(const match_state& match);
/// The last-wicket label; empty before the first wicket of the match.
std::string view_last_wicket(const match_state& match);

}  // namespace velorin
