// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "model/batsman_figures.h"
#include "model/message_kind.h"
#include "model/rules.h"

// The dialogs of a human captain. A form is opened, changed through its fields as a user would, and closed by one of
// its buttons.

namespace velorin {

struct match_state;

/// Picks the next batsman and his aggression.
struct next_batsman_form {
  static constexpr std::string_view names_heading = " Batsmen";
  static constexpr std::string_view skill_heading = " Skill";
  static constexpr std::string_view aggression_caption = " Induvidual Agg.";
  static constexpr std::string_view aggression_low = "Defensive";
  static constexpr std::string_view aggression_high = "Aggressive";

  /// For whom it asks: the openers come in one after the other.
  enum class use { first_opener, second_opener, next };

  std::string title;  ///< "Select 1st Opener", "Select 2nd Opener" or "Select Next Batsman"
  use shown_for = use::next;
  std::array<bool, men_in_eleven + 1> enabled{};  ///< [1..11] the row's option can be chosen
  int chosen = 0;                                 ///< the chosen row, 0 for none
  int aggression = 3;                             ///< aggression of the new man, 1 to 5
  bool closed = false;

  /// Sets next_batsman_slot and disables the rows of the men who have come in.
  next_batsman_form(match_state& match, use shown);

  std::string name(int row) const;   ///< the row's name
  std::string skill(int row) const;  ///< his batting skill
  /// Chooses a row; a disabled one is left alone.
  void choose(int row);
  /// "OK": moves the chosen man to the place after next_batsman_slot and sets batsman_aggression for the pair.
  void accept();

 private:
  match_state& match_;
};

/// Picks a bowler. One of the three OK buttons is visible.
struct bowler_choice_form {
  /// `quota` is a change, too: the bowler has bowled his overs, and another man is needed.
  enum class use { change, first_opener, second_opener, quota };

  static constexpr std::string_view skill_heading = "Skill";
  static constexpr std::string_view economy_heading = "R.P.O";

  std::string title;
  use shown_for = use::change;                    ///< decides which OK button is visible; `quota` has that of `change`
  std::array<bool, men_in_eleven + 1> enabled{};  ///< [1..11]
  int chosen = 0;                                 ///< starts at the current bowler
  bool closed = false;

  bowler_choice_form(match_state& match, use shown, std::string title_text);

  std::string name(int row) const;     ///< the row's name
  std::string skill(int row) const;    ///< under "Skill": 100 less the strike rate, rounded
  std::string economy(int row) const;  ///< under "R.P.O": the economy rate
  void choose(int row);
  /// The row of the first man who can be chosen and has overs left, 0 for none.
  int first_row() const;
  /// The row of the best man who can be chosen and has overs left: of most skill, of these of the least runs an over,
  /// of these the first. Where nobody has, of those who can be chosen; 0 for none.
  int best_row() const;
  /// The visible OK: writes the chosen position, 0 for none, to bowler (change, first opener) or next_bowler.
  void accept();

 private:
  match_state& match_;
};

/// Shows a player's figures and sets his aggression.
struct aggression_form {
  explicit aggression_form(match_state& match) : match_(match) {}

  static constexpr std::string_view aggression_low = "Def.";
  static constexpr std::string_view aggression_high = "Agg.";
  static constexpr double settled_full = full_meter;  ///< the greatest width of the settled bar

  bool for_batsman = true;              ///< a batsman's aggression, else a bowler's
  int player_slot = 0;                  ///< the slot
  int aggression = 0;                   ///< the aggression, 1 to 5
  std::string player_name;              ///< blank, name, blank
  std::array<std::string, 4> headings;  ///< of the figures, in shown order
  std::array<std::string, 4> figures;   ///< batsman: runs, balls, strike rate; bowler: overs, maidens, runs, wickets
  bool settled_visible = true;          ///< the settled bar
  double settled_width = 0;             ///< its width, 0 to 915
  std::string score_sentence;           ///< batsman: the side's score in a sentence
  bool closed = false;

  static aggression_form of_batsman(match_state& match, int slot);
  static aggression_form of_bowler(match_state& match, int slot);
  /// The match of the man.
  const match_state& match() const { return match_; }
  /// The shown OK: writes the aggression to its slot.
  void accept();

 private:
  match_state& match_;
};

/// How a batsman made his runs.
struct batsman_details_form {
  /// In shown order: dots, singles, twos, threes, fours, sixes, runs, balls, strike rate.
  static constexpr std::array<std::string_view, 9> headings = {
      "Dots", "Singles", "Twos", "Threes", "Fours", "Sixes", "Runs", "Balls Faced", "Strike Rate "};

  std::string title;
  batsman_figures figures;
  message_kind kind = message_kind::other;  ///< fall_of_wicket where the game tells of one
  bool closed = false;

  void accept() { closed = true; }
};

}  // namespace velorin
