// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "model/rules.h"
#include "reports/stand_shares.h"

// The partnerships of the match, as plain records of their shown texts.

namespace velorin {

struct match_state;

/// One stand.
struct partnership_row {
  std::string batsmen;      ///< "  &&  " between the two
  std::string partnership;  ///< runs, and balls in brackets
  std::string score;        ///< the side's runs at the fall
  std::string overs;        ///< the overs at the fall
  std::string wicket;       ///< its number
  bool visible = false;
};

/// What the two screens of partnerships have in common.
struct partnership_screen {
  static constexpr std::array<std::string_view, 5> headings = {"  Batsmen", "Partnership", "Score", "Overs", "Wkt."};

  std::array<partnership_row, wickets_of_innings + 1> rows;  ///< [1..10]
  std::vector<stand_share> shares;                           ///< who made the runs of each
};

/// The stands of the innings in play, the unbroken one in the row behind the last wicket.
struct partnerships_form : partnership_screen {
  explicit partnerships_form(match_state& match) : match_(match) {}

  /// Fills the screen afresh. From now on the falls tell their overs; see match_books.
  void open();

 private:
  match_state& match_;
};

/// The stands of the first innings. The unbroken one shows no score and no overs.
struct first_partnerships_form : partnership_screen {
  explicit first_partnerships_form(match_state& match) : match_(match) {}

  /// Fills the screen afresh. From now on the falls tell their overs; see match_books.
  void open();

 private:
  match_state& match_;
};

}  // namespace velorin
