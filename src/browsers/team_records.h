// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "browsers/shown_table.h"
#include "browsers/team_ranking.h"
#include "database/lasting_records.h"

namespace velorin {

struct open_database;

/// The records of one team: its results, its rank, its extreme totals and its best men. Empty until a team is chosen.
struct team_records_screen {
  /// Results at home, away, or both.
  struct results_column {
    std::string_view heading;
    std::array<std::string, 5> texts;  ///< under result_captions
  };

  static constexpr std::string_view team_caption = "Select Team:";
  static constexpr std::string_view individual_caption = "Induvidual  Records";
  static constexpr std::string_view ok_caption = "OK";
  static constexpr std::array<std::string_view, 5> result_captions = {"Played", "Won", "Lost", "Tied", "Success %"};

  std::vector<std::string> teams;  ///< teams of the table, in its order
  int chosen_team = -1;            ///< the chosen item, counted from 0; -1 for none

  std::string title;  ///< "Team Records - ", then the team
  std::array<results_column, 3> results{{{"Home", {}}, {"Away", {}}, {"Total", {}}}};
  shown_field world_ranking{"World Ranking : ", {}};
  std::array<shown_field, 4> extremes{{{"Highest total for :", {}},
                                       {"Highest total against :", {}},
                                       {"Lowest total for :", {}},
                                       {"Lowest total against :", {}}}};
  std::array<shown_field, 4> individual{
      {{"Highest Score:", {}}, {"Most Runs:", {}}, {"Best Bowling:", {}}, {"Most Wickets:", {}}}};
  std::array<std::string, 4> men_of_records;  ///< whom each of `individual` names, "" for none
  bool closed = false;
};

/// The form: fills the screen and follows the user.
struct team_records_form : team_records_screen {
  explicit team_records_form(const open_database& data) : data_(data) {}

  /// Lists the teams, with none chosen. Reads record lists and careers. Raises run_time_error: what ranking the teams
  /// raises, whatever reading them raises.
  void open();
  /// An item chosen by the user: shows that team. Raises run_time_error (overflow) for results too large to add up.
  void choose_team(int index);

  void accept() { closed = true; }

 private:
  void show_individual(const career_team_rec& men);

  record_lists lists_;
  career_table careers_;
  std::vector<ranked_team> ranking_;
  const open_database& data_;
};

}  // namespace velorin
