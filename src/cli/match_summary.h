// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <iosfwd>
#include <map>
#include <string>

#include "model/match_state.h"

namespace velorin::cli {

/// Mean and spread of a figure.
struct spread {
  long count = 0;
  double sum = 0;
  double squares = 0;

  void add(double value);
  void add(const spread& other);
  double mean() const;
  double deviation() const;  ///< of the sample; 0 for fewer than two
};

/// What many matches add up to.
class match_summary {
 public:
  /// Adds the innings in play as it stands at its end.
  void add_innings(const match_state& match);
  /// Adds a result.
  void add_result(const match_result& result);

  /// Adds what other matches add up to.
  void add(const match_summary& other);

  /// Prints the figures, a line each.
  void print(std::ostream& out) const;

 private:
  struct innings_figures {
    spread totals;
    spread wickets;
    long runs = 0;
    long balls = 0;
    long all_out = 0;
  };

  using counts_by_name = std::map<std::string, long>;

  std::array<innings_figures, 2> innings_;
  counts_by_name dismissals_;
  counts_by_name wins_;
  long first_wins_ = 0;
  long chases_ = 0;
  long ties_ = 0;
  long unfinished_ = 0;
  long matches_ = 0;
};

}  // namespace velorin::cli
