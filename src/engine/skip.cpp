// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/skip.h"

#include "model/match_state.h"
#include "model/rules.h"

namespace velorin {

namespace {

/// The man who bowled the first ball of the skip bowls no more for now.
bool is_spell_over(const match_state& match, const skip& on_way) {
  if (match.deliveries.size() <= on_way.balls) return false;
  const int bowler = match.deliveries[on_way.balls].bowler;
  if (bowler != match.bowler && bowler != match.next_bowler) return true;
  return match.bowling_card[static_cast<std::size_t>(bowler)].balls >= balls_of_quota;
}

}  // namespace

int over_of(skip_target target) {
  switch (target) {
    case skip_target::over_10:
      return 10;
    case skip_target::over_20:
      return 20;
    case skip_target::over_30:
      return 30;
    case skip_target::over_40:
      return 40;
    case skip_target::next_wicket:
    case skip_target::end_of_spell:
    case skip_target::end_of_innings:
      break;
  }
  return 0;
}

bool is_ahead(const match_state& match, skip_target target) {
  const int over = over_of(target);
  return over == 0 || overs_closed(match) < over;
}

skip_target nearest_ahead(const match_state& match, skip_target target) {
  if (is_ahead(match, target)) return target;
  for (const skip_target later : every_skip_target) {
    if (over_of(later) > 0 && is_ahead(match, later)) return later;
  }
  return skip_target::end_of_innings;
}

skip skip_from(const match_state& match, skip_target target) {
  return {target, match.innings_number, match.score_wickets, match.deliveries.size()};
}

bool is_reached(const match_state& match, const skip& on_way) {
  if (match.next_step == play_step::closed || match.innings_number != on_way.innings) return true;
  if (on_way.target == skip_target::next_wicket) return match.score_wickets > on_way.wickets;
  if (match.next_step != play_step::between_overs) return false;
  if (on_way.target == skip_target::end_of_spell) return is_spell_over(match, on_way);
  return !is_ahead(match, on_way.target) && on_way.target != skip_target::end_of_innings;
}

}  // namespace velorin
