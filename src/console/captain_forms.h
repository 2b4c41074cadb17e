// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "model/batsman_figures.h"
#include "model/rules.h"

// The dialogs of a human captain. A form is opened, changed through its fields as a user would, and closed by one of
// its buttons.

namespace velorin {

/// Picks the next batsman and his aggression.
struct batorder {
  static constexpr std::string_view names_heading = " Batsmen";
  static constexpr std::string_view label1_heading = " Skill";
  static constexpr std::string_view vscroll1_caption = " Induvidual Agg.";
  static constexpr std::string_view vscroll1_low = "Defensive";
  static constexpr std::string_view vscroll1_high = "Aggressive";

  std::string title;                              ///< "Select 1st Opener", "Select 2nd Opener" or "Select Next Batsman"
  std::array<bool, men_in_eleven + 1> enabled{};  ///< [1..11] the row's option can be chosen
  int chosen = 0;                                 ///< the chosen row, 0 for none
  int vscroll1 = 3;                               ///< aggression of the new man, 1 to 5
  bool closed = false;

  /// Sets next_batsman_slot and disables the rows of the men who have come in.
  explicit batorder(std::string title_text);

  std::string option1(int row) const;  ///< the row's name
  std::string label1(int row) const;   ///< his batting skill
  /// Chooses a row; a disabled one is left alone.
  void option1_click(int row);
  /// "OK": moves the chosen man to the place after next_batsman_slot and sets batsman_aggression for the pair.
  void command1_click();
};

/// Picks a bowler. One of the three OK buttons is visible.
struct chgbowler {
  /// `quota` is a change, too: the bowler has bowled his overs, and another man is needed.
  enum class use { change, first_opener, second_opener, quota };

  static constexpr std::string_view label1_heading = "Skill";
  static constexpr std::string_view label2_heading = "R.P.O";

  std::string title;
  use shown_for = use::change;  ///< decides which OK button is visible: Command1 (also for quota), 2 or 3
  std::array<bool, men_in_eleven + 1> enabled{};  ///< [1..11]
  int chosen = 0;                                 ///< starts at the current bowler
  bool closed = false;

  chgbowler(use shown, std::string title_text);

  std::string option1(int row) const;  ///< the row's name
  std::string label1(int row) const;   ///< under "Skill": 100 less the strike rate, rounded
  std::string label2(int row) const;   ///< under "R.P.O": the economy rate
  void option1_click(int row);
  /// The row of the best man who can be chosen and has overs left: of most skill, of these of the least runs an over,
  /// of these the first. Where nobody has, of those who can be chosen; 0 for none.
  int best_row() const;
  /// The visible OK: writes the chosen position, 0 for none, to bowler (change, first opener) or next_bowler.
  void command_click();
};

/// Shows a player's figures and sets his aggression.
struct aggr {
  static constexpr std::string_view vscroll1_low = "Def.";
  static constexpr std::string_view vscroll1_high = "Agg.";
  static constexpr double picture1_full = full_meter;  ///< the greatest width of the settled bar

  bool for_batsman = true;              ///< Command1 is shown, else Command2
  int text1 = 0;                        ///< the slot
  int vscroll1 = 0;                     ///< the aggression, 1 to 5
  std::string label1_0;                 ///< blank, name, blank
  std::array<std::string, 4> headings;  ///< of the figures, in shown order
  std::array<std::string, 4> figures;   ///< batsman: runs, balls, strike rate; bowler: overs, maidens, runs, wickets
  bool picture1_visible = true;         ///< the settled bar
  double picture1 = 0;                  ///< its width, 0 to 915
  std::string label1_4;                 ///< batsman: the side's score in a sentence
  bool closed = false;

  static aggr of_batsman(int slot);
  static aggr of_bowler(int slot);
  /// The shown OK: writes the aggression to its slot.
  void command_click();
};

/// How a batsman made his runs.
struct batsmandetails {
  /// In shown order: dots, singles, twos, threes, fours, sixes, runs, balls, strike rate.
  static constexpr std::array<std::string_view, 9> headings = {
      "Dots", "Singles", "Twos", "Threes", "Fours", "Sixes", "Runs", "Balls Faced", "Strike Rate "};

  std::string title;
  batsman_figures figures;
  bool closed = false;

  void command1_click() { closed = true; }
};

}  // namespace velorin
