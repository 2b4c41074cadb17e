// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "model/batsman_figures.h"
#include "model/rules.h"

// The batting cards of the match. Each is a plain record of its shown texts, filled by open() and named by its
// controls; control arrays start at 1. Texts are single bytes of Windows-1252.

namespace velorin {

struct match_state;
class front_end;

/// A button that bears a batsman's name and leads to his details.
struct batsman_button {
  std::string caption;
  bool visible = false;
};

/// What the two batting cards have in common.
struct batting_screen {
  static constexpr std::string_view ok_caption = "OK";

  std::string ground;                                             ///< the ground
  std::string batting_side;                                       ///< the side that bats
  std::array<std::string, men_in_eleven + 1> names;               ///< [1..11] names, "" for a man who has not come in
  std::array<std::string, men_in_eleven + 1> fielders;            ///< [1..11] the catcher's part of the dismissal
  std::array<std::string, men_in_eleven + 1> how_out;             ///< [1..11] the bowler's part of it
  std::array<std::string, men_in_eleven + 1> runs;                ///< [1..11] runs
  std::array<std::string, men_in_eleven + 1> balls_faced;         ///< [1..11] balls faced, in brackets
  std::array<batsman_button, men_in_eleven + 1> details_buttons;  ///< [1..11]
  std::array<std::string, men_in_eleven + 1> fours;               ///< [1..11]
  std::array<std::string, men_in_eleven + 1> sixes;               ///< [1..11]
  std::array<std::string, men_in_eleven + 1> strike_rates;        ///< [1..11] to two places, "" while no ball was faced
  std::vector<std::string> to_come;                               ///< the men who have not come in, or did not
  std::string to_come_words;                                      ///< what they have for a dismissal
  std::string total;                                              ///< the total
  std::string wickets_and_overs;                                  ///< wickets and overs, in brackets
  std::string run_rate;      ///< runs an over, to two places; "" while no ball was bowled
  std::string extras_line;   ///< the four extras
  std::string extras_total;  ///< their sum
  std::string not_counted;   ///< which of them the total leaves out; "" for none
};

/// The batting card of the innings in play. It opens by itself at the end of every innings.
struct scorecard_form : batting_screen {
  explicit scorecard_form(const match_state& match) : match_(match) {}

  static constexpr std::string_view bowling_caption = "Bowling Figures";
  static constexpr std::string_view first_innings_caption = "1st Innings";
  static constexpr std::string_view partnerships_caption = "Partnerships";
  static constexpr std::string_view overs_graph_caption = "Runs Per Over Graph";
  static constexpr std::string_view html_caption = "As HTML";
  static constexpr std::string_view text_caption = "As Text";
  static constexpr std::string_view ball_by_ball_caption = "Ball by Ball";
  static constexpr std::string_view worm_graph_caption = "Score Comparison Graph";

  bool first_innings_enabled = false;  ///< there is a first innings to show

  /// Fills the card afresh.
  void open();

  /// Each opens a further screen, modal. The first does nothing while it is disabled.
  void show_first_innings(front_end& user) const;
  void show_bowling(front_end& user) const;
  void show_partnerships(front_end& user) const;
  void show_overs_graph(front_end& user) const;
  void show_worm_graph(front_end& user) const;

  /// The details behind details_buttons[i]. Requires 1 <= i <= 11; meant for the visible buttons.
  batsman_figures details(int i) const;

 private:
  const match_state& match_;
};

/// The batting card of the first innings.
struct first_scorecard_form : batting_screen {
  explicit first_scorecard_form(const match_state& match) : match_(match) {}

  static constexpr std::string_view bowling_caption = "1st Innings Bowling Figures";
  static constexpr std::string_view partnerships_caption = "1st Innings Partnerships";

  /// Fills the card afresh.
  void open();

  /// Each opens a further screen, modal.
  void show_bowling(front_end& user) const;
  void show_partnerships(front_end& user) const;

  /// The details behind details_buttons[i]. Requires 1 <= i <= 11; meant for the visible buttons.
  batsman_figures details(int i) const;

 private:
  const match_state& match_;
};

/// Runs an over as the reports compute and show them: runs / balls * 6 to two places. Requires balls above 0.
double runs_per_over(int runs, int balls);

}  // namespace velorin
