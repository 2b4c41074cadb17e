// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "model/batsman_figures.h"
#include "model/rules.h"

// The batting cards of the match. Each is a plain record of its shown texts, filled by open() and named by its
// controls; control arrays start at 1. Texts are single bytes of Windows-1252.

namespace velorin {

/// A button that bears a batsman's name and leads to his details.
struct batsman_button {
  std::string caption;
  bool visible = false;
};

/// What the two batting cards have in common.
struct batting_screen {
  static constexpr std::string_view command1_caption = "OK";

  std::string label12;                                     ///< the ground
  std::string label10;                                     ///< the side that bats
  std::array<std::string, men_in_eleven + 1> label1;       ///< [1..11] names, "" for a man who has not come in
  std::array<std::string, men_in_eleven + 1> label8;       ///< [1..11] the catcher's part of the dismissal
  std::array<std::string, men_in_eleven + 1> label9;       ///< [1..11] the bowler's part of it
  std::array<std::string, men_in_eleven + 1> label2;       ///< [1..11] runs
  std::array<std::string, men_in_eleven + 1> label3;       ///< [1..11] balls faced, in brackets
  std::array<batsman_button, men_in_eleven + 1> command4;  ///< [1..11]
  std::string label4;                                      ///< the total
  std::string label5;                                      ///< wickets and overs, in brackets
  std::string label7;                                      ///< runs an over, to two places; "" while no ball was bowled
  std::string label14;                                     ///< the four extras
  std::string label13;                                     ///< their sum
  std::string not_counted;                                 ///< which of them the total leaves out; "" for none
};

/// The batting card of the innings in play. It opens by itself at the end of every innings.
struct scorecard : batting_screen {
  static constexpr std::string_view command2_caption = "Bowling Figures";
  static constexpr std::string_view command3_caption = "1st Innings";
  static constexpr std::string_view command5_caption = "Partnerships";
  static constexpr std::string_view command6_caption = "Runs Per Over Graph";
  static constexpr std::string_view command7_caption = "As HTML";
  static constexpr std::string_view command8_caption = "As Text";
  static constexpr std::string_view command9_caption = "Ball by Ball";
  static constexpr std::string_view command10_caption = "Score Comparison Graph";

  bool command3_enabled = false;  ///< there is a first innings to show

  /// Fills the card afresh. Reads match.
  void open();

  /// Each opens a further screen, modal. Asks the front end. The first does nothing while it is disabled.
  void command3_click() const;   // scorecard2
  void command2_click() const;   // bowlcard
  void command5_click() const;   // partners
  void command6_click() const;   // graphs
  void command10_click() const;  // worms

  /// The details behind command4[i]. Requires 1 <= i <= 11; meant for the visible buttons. Reads match.
  batsman_figures details(int i) const;
};

/// The batting card of the first innings.
struct scorecard2 : batting_screen {
  static constexpr std::string_view command2_caption = "1st Innings Bowling Figures";
  static constexpr std::string_view command3_caption = "1st Innings Partnerships";

  /// Fills the card afresh. Reads match.
  void open();

  /// Each opens a further screen, modal. Asks the front end.
  void command2_click() const;  // bowlcard2nd
  void command3_click() const;  // partners2

  /// The details behind command4[i]. Requires 1 <= i <= 11; meant for the visible buttons. Reads match.
  batsman_figures details(int i) const;
};

/// Runs an over as the reports compute and show them: runs / balls * 6 to two places. Requires balls above 0.
double runs_per_over(int runs, int balls);

}  // namespace velorin
