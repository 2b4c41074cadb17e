// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/delegation.h"

#include <cstddef>

#include "console/captain_forms.h"
#include "engine/over_play.h"
#include "forecast/computers_choice.h"
#include "model/match_state.h"
#include "setup/toss.h"

namespace velorin {

void captain_before_ball(const match_state& match, console_form& console, bool bowling, bool aggressions) {
  if (bowling && !match.computer_bowls && match.next_step == play_step::between_overs) {
    const auto chosen = computers_bowler(match, bowler_choice_form::use::change);
    if (chosen && chosen->choice != match.bowler) console.choose_bowler(chosen->choice);
  }
  if (!aggressions) return;
  for (const int slot : {0, 1}) {
    const auto at = static_cast<std::size_t>(slot);
    if (!match.computer_bats) {
      const auto level = computers_batting_aggression(match, slot);
      if (level && level->choice != match.batsman_aggression[at]) console.set_batsman_aggression(slot, level->choice);
    }
    if (!match.computer_bowls) {
      const auto level = computers_bowling_aggression(match, slot);
      if (level && level->choice != match.bowling_aggression[at]) console.set_bowler_aggression(slot, level->choice);
    }
  }
}

void answer_toss(toss_form& form) {
  if (form.coin_visible) form.call_coin(0);
  const bool bats = form.bat_enabled && form.bowl_enabled ? computers_toss_bats() : form.bat_enabled;
  if (bats) {
    form.choose_to_bat();
  } else {
    form.choose_to_bowl();
  }
}

std::string answer_batsman(const match_state& match, next_batsman_form& form) {
  const auto chosen = computers_next_batsman(match, form.shown_for);
  if (!chosen) return {};
  form.choose(chosen->choice);
  form.accept();
  return chosen->reason;
}

std::string answer_bowler(const match_state& match, bowler_choice_form& form) {
  const auto chosen = computers_bowler(match, form.shown_for);
  if (!chosen) return {};
  form.choose(chosen->choice);
  form.accept();
  return chosen->reason;
}

}  // namespace velorin
