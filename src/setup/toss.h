// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "model/match_state.h"
#include "ui/match_play.h"

namespace velorin {

class random_source;

/// What the toss shows, and how it ends.
struct toss_fields : toss_screen {
  bool closed = false;
  bool left = false;  ///< the user has left the match here
};

/// The toss. First the coin's buttons are shown, then the decision's. What it shows is noted in match.toss.
struct toss_form : toss_fields {
  explicit toss_form(const match_play& play) : play_(play) {}

  /// The first team is to call. Reads the team names.
  void open();
  /// A computer first team tosses against a human second team: the decision is prepared. Draws what decide_toss draws.
  void open_decided();
  /// Two computer sides: the decision is prepared, with one button enabled. Draws it, after reseeding.
  void open_unattended();
  /// Shows match.toss, as it was last shown.
  void open_again();

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

/// The toss of two computer sides. Draws, after reseeding, the coin. True if the first team bats.
bool draw_unattended_toss(random_source& chance);

/// Makes the first team the second: elevens, names, captains. Asks and raises what exchange_elevens does.
void swap_teams(const match_play& play);

/// Brings the match to its toss, by the captains that the two teams have: match.step becomes toss_call or toss.
/// Requires both selections. Draws what is known before anybody is asked; asks nothing.
void begin_toss(const match_play& play);

/// The message of the toss is read, and the toss itself comes next. Draws the decision.
void go_on_to_toss(const match_play& play);

/// Asks for the toss, where a human is involved, then takes the elevens: match.step becomes play. False if the user
/// leaves the match: no eleven is taken then. Draws the coin once it is called.
bool hold_toss(const match_play& play);

}  // namespace velorin
