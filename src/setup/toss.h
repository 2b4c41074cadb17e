// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "ui/match_play.h"

namespace velorin {

/// What the toss shows.
struct toss_fields {
  std::string headline;       ///< the headline
  std::string deciding_line;  ///< deciding line: the team for which "Bat" and "Bowl" speak
  std::string other_line;     ///< the other team
  bool coin_visible = true;   ///< "Heads" and "Tails" are shown, else "Bat" and "Bowl"
  bool bat_enabled = true;    ///< "Bat"
  bool bowl_enabled = true;   ///< "Bowl"
  bool closed = false;
  bool left = false;  ///< the user has left the match here
};

/// The toss. First the coin's buttons are shown, then the decision's.
struct toss_form : toss_fields {
  explicit toss_form(const match_play& play) : play_(play) {}

  /// The first team is to call. Reads the team names.
  void open();
  /// A computer first team tosses against a human second team: the decision is prepared. Draws what decide_toss draws.
  void open_decided();

  /// "Heads" (0) or "Tails" (1): which one has no influence. Draws, after reseeding, the coin, and the election of a
  /// computer second team that wins.
  void call_coin(int index);
  /// "Bat": the team on the deciding line bats first.
  void choose_to_bat();
  /// "Bowl": the team on the other line bats first.
  void choose_to_bowl();
  /// The user leaves the match: the form closes, and the set-up is undone.
  void leave() { left = closed = true; }

 private:
  match_play play_;
};

/// Makes the first team the second: elevens, names, captains. Asks and raises what exchange_elevens does.
void swap_teams(const match_play& play);

/// The toss by the captains that the two teams have, then the elevens and the match. Requires both selections. Returns
/// when the match is over. False if the user leaves it at the toss: no eleven is loaded then and no console opened.
/// Draws the toss; asks for its message and screen where a human is involved, then shows the console.
bool toss_and_play(const match_play& play);

}  // namespace velorin
