// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>
#include <vector>

// A match that has been decided, on one page: result, both cards whole, what milestones and records it brought. Plain
// values, made once; they stay true when the match has gone. Texts are single bytes of Windows-1252.

namespace velorin {

struct match_state;
struct open_database;
struct record_lists;

/// A man who has come in.
struct reported_batsman {
  std::string name;
  std::string how_out;  ///< "c Green b Ash", "not out"
  int runs = 0;
  int balls = 0;  ///< faced
  int fours = 0;
  int sixes = 0;
  std::string strike_rate;  ///< 100 x runs / balls to two places; "" before his first ball
  bool not_out = false;
  int position = 0;  ///< in the eleven, 1 to 11
};

/// A man who has bowled.
struct reported_bowler {
  std::string name;
  std::string overs;
  int maidens = 0;
  int runs = 0;
  int wickets = 0;
  std::string economy;  ///< runs an over to two places; "" before his first legal ball
  int position = 0;     ///< in the eleven, 1 to 11
};

/// The fall of a wicket.
struct reported_fall {
  int wicket = 0;       ///< its number, 1 to 10
  int score = 0;        ///< the side's runs
  std::string overs;    ///< of the innings, the wicket ball counted
  std::string batsman;  ///< who was out
};

struct reported_innings {
  std::string side;
  std::string bowling_side;
  int total = 0;
  int wickets = 0;
  std::string overs;
  std::string run_rate;                   ///< runs an over to two places; "" without a legal ball
  std::vector<reported_batsman> batsmen;  ///< in batting order
  std::vector<std::string> did_not_bat;   ///< likewise
  std::array<int, 4> extras{};            ///< no balls, wides, leg byes, byes; the total counts the last two
  std::vector<reported_fall> falls;       ///< by number
  std::vector<reported_bowler> bowlers;   ///< in the order in which they came on
  std::vector<int> runs_after;            ///< [0] 0, then after each over; the last entry after the last ball
  int balls = 0;                          ///< legal ones

  int extras_sum() const { return extras[0] + extras[1] + extras[2] + extras[3]; }
};

/// A fifty, a hundred, five wickets.
struct reported_milestone {
  std::string player;
  std::string side;
  std::string what;     ///< "Fifty", "Hundred", "150", "Double hundred", "Five wickets"
  std::string figures;  ///< "123* (110)", "10-1-38-5"
};

/// A line that the match takes in a record list.
struct reported_record {
  std::string list;         ///< "Highest scores" and the like
  int place = 0;            ///< from 1; of the record stands the wicket
  std::string who;          ///< the man, the pair, the side
  std::string figures;      ///< "123* (110)", "5-38", "280/6 (50)", "104 (88)"
  std::string team = {};    ///< whose line it is
  std::string player = {};  ///< the man it leads to, of a pair the first; "" for none
};

struct match_report {
  std::string ground;
  std::string winner;                       ///< "" for a tie
  std::string result;                       ///< winner and margin in one line
  std::array<reported_innings, 2> innings;  ///< in the order in which they were played
  std::vector<reported_milestone> milestones;
  std::vector<reported_record> records;
  bool records_known = false;  ///< the record lists take the match, and could be read
  bool practice = false;       ///< it counts for no career and no record
};

/// The report of a match that has been decided: in its second innings, the result block filled. `before`: the record
/// lists without the match; nullptr where they are not known or take no match. Draws nothing, writes nothing.
match_report report_on(const match_state& match, const record_lists* before);

/// The card of the innings before the one in play, and of the one in play, whether it has ended or not.
reported_innings report_on_first_innings(const match_state& match);
reported_innings report_on_innings_in_play(const match_state& match);

/// Appends the milestones of an innings for which men have been congratulated: of its batsmen; of its bowlers.
void add_batting_milestones(std::vector<reported_milestone>& to, const match_state& match,
                            const reported_innings& innings);
void add_bowling_milestones(std::vector<reported_milestone>& to, const match_state& match,
                            const reported_innings& innings);

/// The question of the end of a match: shows the report where somebody sits before the match. It is made only when it
/// is opened, so whoever does not look pays nothing. Match and database outlive the form.
struct match_report_form {
  match_report_form(const match_state& match, const open_database& data) : match_(match), data_(data) {}

  match_report report;

  /// Makes the report. Reads the record lists as they are before the match; where they cannot be read it goes without.
  void open();
  /// Somebody sits before the match. Others are shown nothing.
  bool attended() const;

 private:
  const match_state& match_;
  const open_database& data_;
};

}  // namespace velorin
