// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>
#include <string_view>

// The runs of each over as bars, the innings in play above and the first innings below. All heights are in display
// units, counted downwards from the top of the window.

namespace velorin {

struct match_state;

/// The bar of one over.
struct over_bar {
  int height = 0;
  int top = 0;  ///< the base line less the height; may lie above the window
  bool visible = false;
};

struct overs_graph_screen {
  static constexpr int units_a_run = 165;
  static constexpr std::array<int, 2> base_line = {3300, 6840};  ///< [0] upper half, [1] lower half
  static constexpr std::string_view runs_axis = "R U N S";
  static constexpr std::array<int, 3> runs_marks = {5, 10, 15};
  static constexpr std::string_view overs_axis = "O V E R S";
  static constexpr std::array<int, 5> overs_marks = {10, 20, 30, 40, 50};

  /// The place of an over in `shape1` and `shape2`: half 0 the innings in play, 1 the first innings; over 1 to 50.
  static constexpr int place(int half, int over) { return half == 0 ? over : 102 - over; }

  std::array<over_bar, 102> bars;             ///< [1..50], [52..101] runs of an over
  std::array<bool, 102> wicket_marks{};       ///< likewise: the mark of an over with a wicket is visible
  std::array<int, 2> overs{};                 ///< the last over of each half of which a ball is on record, 0 to 50
  std::array<double, 2> rate{};               ///< runs an over of each half, to two places; 0 without a ball
  std::array<double, 2> rate_line_heights{};  ///< height of each half's level rate line, both ends
  std::array<std::string, 2> captions;        ///< each half's side and score
  std::array<int, 2> side{};                  ///< each half's place in all charts, 0 or 1
  std::array<std::string, 2> teams;           ///< at these places
};

/// The form: fills the screen and follows the user.
struct overs_graph_form : overs_graph_screen {
  explicit overs_graph_form(const match_state& match) : match_(match) {}

  /// Fills the graphs afresh.
  void open();

 private:
  const match_state& match_;
};

}  // namespace velorin
