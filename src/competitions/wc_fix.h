// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>
#include <vector>

namespace velorin {

/// The fixture list, ten at a time.
struct wc_fix {
  /// A row as shown; all texts are empty past the last fixture.
  struct row {
    std::string label6;    ///< "Match No."
    std::string label1;    ///< "Team A"
    std::string label8;    ///< "vs"
    std::string label2;    ///< "Team B"
    std::string label7;    ///< "@"
    std::string label3;    ///< "Venue"
    std::string label4;    ///< "Match Result"
    bool is_next = false;  ///< the next match: dark blue throughout
  };

  int fixtures = 0;      ///< drawn so far
  int next_fixture = 0;  ///< place of the first unplayed one, 0 if there is none
  int scroll = 1;        ///< place of the first row, 1 to scroll_maximum
  int scroll_maximum = 1;
  std::array<row, 10> rows;
  bool closed = false;

  /// Fills the list from the tournament.
  void open();
  /// Moves the scroll bar; a value out of its range is brought to the nearer end.
  void vscroll_change(int value);
  /// The row of any fixture, 1 to 50.
  row row_of(int place) const;

  /// "Play Next Match".
  void command1_click() { closed = true; }
  /// "World Cup Tables".
  void command2_click();
  /// "Quit World Cup".
  void command3_click();
};

}  // namespace velorin
