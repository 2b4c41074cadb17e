// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "database/lasting_records.h"
#include "support/game_in_play.h"

namespace velorin::testing {

/// Rows of shown texts.
using text_rows = std::vector<std::vector<std::string>>;

/// Careers, record lists and the win record counted anew from the objects of matches, to compare the reports with.
/// Texts are UTF-8.
class recount {
 public:
  /// `home_of` tells each ground's country.
  explicit recount(std::map<std::string, std::string> home_of) : home_of_(std::move(home_of)) {}

  void add(const nlohmann::json& match);

  /// Teams in the order in which they entered the careers, and the men of each.
  std::vector<std::string> teams() const;
  std::vector<career_rec> men(const std::string& team) const;
  std::vector<career_rec> everybody() const;

  /// The rows of each list of the report.
  text_rows highest_scores() const;
  text_rows best_bowling() const;
  text_rows highest_totals() const { return totals(highest_); }
  text_rows lowest_totals() const { return totals(lowest_); }
  text_rows partnerships() const;
  text_rows centuries() const;
  /// The ranking of a record mode, 1 to 9, of these men.
  static text_rows ranking(const std::vector<career_rec>& men, int mode);
  text_rows world_ranking() const;

  /// The object of a team's or a player's report.
  nlohmann::json team(const std::string& name) const;
  static nlohmann::json player(const career_rec& man);

 private:
  struct entry {  // of the scores and analyses
    int first = 0;
    int second = 0;
    std::string player;
    std::string team;
    std::string against;
    std::string venue;
  };
  struct total {
    int runs = 0;
    int wickets = 0;
    std::string team;
    std::string against;
  };
  struct stand {
    int runs = 0;
    int balls = 0;
    std::string pair;
    bool unbroken = false;
    std::string team;
    std::string against;
  };
  struct extreme {
    int runs = 0;
    std::string text;  // " vs Tamar at Harbour Park"
  };
  struct win_record {
    std::string team;
    std::map<std::string, int> counts;  // "Home Won" and the like
    extreme high_for;
    extreme high_against;
    extreme low_for{1000, {}};
    extreme low_against{1000, {}};

    int count(const std::string& name) const;
    int played(const std::string& where) const;
    double success() const;
  };
  struct side;

  void add_careers(const side& played);
  void add_scores(const side& played);
  void add_analyses(const side& played);
  void add_stands(const side& played);
  void add_win_record(const side& played, const nlohmann::json& result);
  static void insert_highest(std::vector<total>& list, const total& made, int wickets);
  static void insert_lowest(std::vector<total>& list, const total& made, int wickets);
  static text_rows totals(const std::vector<total>& list);
  /// The win records in the order of the ranking.
  std::vector<win_record> ranked() const;

  std::map<std::string, std::string> home_of_;
  std::vector<std::pair<std::string, std::vector<career_rec>>> careers_;
  std::vector<entry> scores_;
  std::vector<entry> analyses_;
  std::vector<total> highest_;
  std::vector<total> lowest_;
  std::vector<stand> stands_ = std::vector<stand>(11);  // by wicket
  std::vector<win_record> win_records_;
};

}  // namespace velorin::testing
