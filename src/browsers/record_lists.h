// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string_view>

#include "browsers/shown_table.h"

namespace velorin {

struct open_database;

/// One of the record lists, and how it is filled.
struct record_list {
  std::string_view group;    ///< "Batting", "Bowling" or "Teams"
  std::string_view caption;  ///< as the menu names it
  std::string_view form;     ///< id of the form that fills it, such as "allrecs"
  int record_mode;           ///< of that form; 0 for one without modes
  bool ranked;               ///< places stand before its rows
};

/// All lists, group by group, in the order in which "All Batting Stats" and "All Bowling Stats" pass through them.
inline constexpr std::array<record_list, 14> every_record_list = {{
    {"Batting", "Highest Totals", "totrecords", 1, true},
    {"Batting", "Lowest Totals", "totrecords", 0, true},
    {"Batting", "Highest Individual Scores", "highinduv", 1, true},
    {"Batting", "Most Runs Scored", "allrecs", 2, true},
    {"Batting", "Highest Averages", "allrecs", 1, true},
    {"Batting", "Highest Strike Rates", "allrecs", 3, true},
    {"Batting", "% Innings 50 or More", "allrecs", 4, true},
    {"Batting", "Top Century Makers", "centurytop", 0, true},
    {"Batting", "Record Partnerships", "partnrec", 0, true},
    {"Bowling", "Most Wickets", "allrecs", 5, true},
    {"Bowling", "Best Bowling Averages", "allrecs", 7, true},
    {"Bowling", "Best Economy Rates", "allrecs", 6, true},
    {"Bowling", "Best Bowling Analysis", "highinduv", 0, true},
    {"Teams", "World Rankings", "wldrank", 0, false},
}};

/// The place of a list in every_record_list. Requires a form and mode that are in it.
int record_list_place(std::string_view form, int record_mode = 0);

/// The record lists, one shown at a time.
struct record_lists_form : table_form {
  explicit record_lists_form(const open_database& data) : data_(data) {}

  int shown_list = -1;  ///< place in every_record_list, -1 before one has been shown
  /// Where a group is passed through: which of its lists has come, from 1, and how many there are; else 0.
  int walked = 0;
  int walk_length = 0;

  /// Opens on one list. Raises what the form of that list raises.
  void open(int list);
  /// Opens on the first list of a group; OK then shows the next one, until none is left.
  void open_group(std::string_view group);

  /// A list chosen by the user; a group is passed through all the same. Raises likewise, with the former list shown.
  void choose(int list);

  /// OK: the next list of a group that is passed through, else closes. Raises likewise; that list is passed over then.
  void accept();

 private:
  int walk_begin_ = 0;
  const open_database& data_;
};

}  // namespace velorin
