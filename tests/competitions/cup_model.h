// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>
#include <vector>

#include "competitions/competition_fixture.h"

namespace velorin::testing {

/// A second account of a World Cup, kept by the results of its matches alone. It outlives a tournament, as the tables
/// of the game do.
class cup_model {
 public:
  struct tally {
    std::string team;
    int played = 0;
    int won = 0;
    int lost = 0;
    int tied = 0;
    double rate = 0;

    int points() const { return 2 * won + tied; }
    void add(const tally& other);
  };
  using table = std::vector<tally>;

  /// Begins a tournament of these groups.
  void begin(const std::vector<std::string>& a, const std::vector<std::string>& b);
  /// Books a match of group 0 or 1.
  void book_group(int group, const entered_match& played);
  /// Sorts the groups and fills the Super Six with what the qualifiers carry over.
  void cut();
  void book_super_six(const entered_match& played);
  /// Sorts the Super Six for good, before the knock-out.
  void close();

  /// The sorted table of group 0 or 1, and of the Super Six.
  table group_table(int group) const;
  table super_six_table() const;
  /// The qualifiers in the places of the draw: three of the first group, three of the second.
  const table& super_six() const { return six_; }

 private:
  struct member {
    std::string team;
    std::array<tally, 5> against;
  };
  using group_members = std::array<member, 5>;

  static tally total(const member& team);

  std::array<group_members, 2> groups_;
  table six_ = table(6);
};

/// Checks the rows of a table as shown against a table of the account.
void expect_table(const std::vector<std::array<std::string, 7>>& shown, const cup_model::table& wanted,
                  const std::string& where);

}  // namespace velorin::testing
