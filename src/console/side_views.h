// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

// Both sides of the innings in play, man by man.

namespace velorin {

struct match_state;

/// A man who can bowl: everybody but the wicket-keeper.
struct attack_row {
  int position = 0;  ///< in the bowling eleven
  std::string name;
  std::string overs;  ///< bowled
  std::string maidens;
  std::string runs;
  std::string wickets;
  std::string economy;         ///< runs an over to one place; "-" before his first ball
  int overs_left = 0;          ///< that he may still begin: 0 to 10
  bool bowls_now = false;      ///< has the over that is bowled or comes next
  bool bowls_next = false;     ///< has the one behind it, at the other end
  bool can_be_chosen = false;  ///< a human captain may give him this over
};

/// The attack, the best first: as a captain's advice ranks them, by skill, then by economy, then by their places; those
/// without overs left come last.
std::vector<attack_row> view_attack(const match_state& match);

/// A man of the batting side.
struct card_row {
  int position = 0;  ///< in the batting order
  std::string name;
  std::string how_out;  ///< "not out" at the crease; "" for a man who has not come in
  std::string runs;     ///< "" for a man who has not come in, as all behind it
  std::string balls;
  std::string fours;
  std::string sixes;
  std::string strike_rate;
  bool at_crease = false;
  bool on_strike = false;
  bool to_come = false;
};

/// The batting side in its order, as far as it has come; those to come behind.
std::vector<card_row> view_card(const match_state& match);

}  // namespace velorin
