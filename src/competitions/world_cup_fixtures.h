// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>
#include <vector>

namespace velorin {

class front_end;
struct world_cup_record;

/// Rows of the fixture list on show.
constexpr int cup_list_rows = 10;

/// The fixture list, ten at a time.
struct world_cup_fixtures_form {
  world_cup_fixtures_form(front_end& user, world_cup_record& world_cup) : user_(user), world_cup_(world_cup) {}

  /// A row as shown; all texts are empty past the last fixture.
  struct row {
    std::string match_number;  ///< "Match No."
    std::string team_a;        ///< "Team A"
    std::string versus;        ///< "vs"
    std::string team_b;        ///< "Team B"
    std::string at;            ///< "@"
    std::string venue;         ///< "Venue"
    std::string result;        ///< "Match Result"
    bool is_next = false;      ///< the next match: dark blue throughout
  };

  int fixtures = 0;      ///< drawn so far
  int next_fixture = 0;  ///< place of the first unplayed one, 0 if there is none
  int scroll = 1;        ///< place of the first row, 1 to scroll_maximum
  int scroll_maximum = 1;
  std::array<row, cup_list_rows> rows;
  bool closed = false;

  /// Fills the list from the tournament.
  void open();
  /// Moves the scroll bar; a value out of its range is brought to the nearer end.
  void scroll_to(int value);
  /// The row of any fixture, 1 to 50.
  row row_of(int place) const;

  /// "Play Next Match".
  void accept() { closed = true; }
  /// "World Cup Tables".
  void open_tables();
  /// "Quit World Cup".
  void quit();

 private:
  front_end& user_;
  world_cup_record& world_cup_;
};

}  // namespace velorin
