// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/stands.h"

#include <algorithm>
#include <cstddef>
#include <string>

#include "model/commentary.h"
#include "model/match_state.h"
#include "model/rules.h"
#include "model/texts.h"

namespace velorin {

namespace {

/// What an innings has come to, or what it had at one of its balls.
struct figures {
  int score = 0;
  int balls = 0;
};

const std::string& name_of(const batting_card_table& batting, int position) {
  return batting[static_cast<std::size_t>(position)].name;
}

/// The figures with which the deliveries begin: what the innings has come to, less what they brought.
figures at_start(const told_innings& innings) {
  figures start = {innings.score_runs, innings.innings_balls};
  for (const delivery& ball : innings.deliveries) {
    start.score -= ball.score();
    start.balls -= int(ball.counted);
  }
  if (innings.last_ball_open && !innings.deliveries.empty()) start.balls += int(innings.deliveries.back().counted);
  return start;
}

void end_stand(fall_of_wicket_rec& fall, const fall_of_wicket_rec& before, const figures& now) {
  fall.partner_runs = now.score - before.score;
  fall.partner_balls = now.balls - before.balls;
}

/// The stand that the end of the innings has left unbroken.
void add_unbroken_stand(fall_of_wicket_table& falls, const told_innings& innings) {
  if (innings.score_wickets >= wickets_of_innings || innings.deliveries.empty()) return;
  const auto wickets = static_cast<std::size_t>(innings.score_wickets);
  fall_of_wicket_rec& stand = falls[wickets + 1];
  const crease left = crease_after(innings.deliveries.back());
  stand.batsman_a = name_of(innings.batting, std::min(left.striker, left.non_striker));
  stand.batsman_b = name_of(innings.batting, left.striker) + " * ";
  end_stand(stand, falls[wickets], {innings.score_runs, innings.innings_balls});
}

/// A showing writes the overs of the wickets that have fallen, and "0.0" for those to come, which keep it.
void add_overs_shown(fall_of_wicket_table& falls, int shown) {
  if (shown < 0) return;
  for (int k = 1; k <= wickets_of_innings; ++k) {
    fall_of_wicket_rec& fall = falls[static_cast<std::size_t>(k)];
    fall.overs_text = overs_from_balls(k <= shown ? int(fall.balls) : 0);
  }
}

fall_of_wicket_table falls_of(const told_innings& innings) {
  fall_of_wicket_table falls;
  figures now = at_start(innings);
  std::size_t wickets = 0;
  for (const delivery& ball : innings.deliveries) {
    now.score += ball.score();
    now.balls += int(ball.counted);
    if (!ball.is_wicket() || wickets == wickets_of_innings) continue;
    const fall_of_wicket_rec& before = falls[wickets];
    wickets += 1;
    fall_of_wicket_rec& fall = falls[wickets];
    fall.score = now.score;
    fall.balls = now.balls;
    fall.batsman_a = name_of(innings.batting, ball.non_striker);
    fall.batsman_b = name_of(innings.batting, ball.striker);
    end_stand(fall, before, now);
  }
  return falls;
}

}  // namespace

crease crease_after(const delivery& ball) {
  const int striker = ball.next_batsman != 0 ? ball.next_batsman : ball.striker;
  if (ball.is_no_ball_or_wide() || ball.score() % 2 == 0) return {striker, ball.non_striker};
  return {ball.non_striker, striker};
}

fall_of_wicket_table falls_in_play(const match_state& match) {
  const told_innings innings = innings_in_play(match);
  fall_of_wicket_table falls = falls_of(innings);
  if (match.last_stand_closed) add_unbroken_stand(falls, innings);
  add_overs_shown(falls, match.falls_shown);
  return falls;
}

fall_of_wicket_table falls_before(const match_state& match) {
  const told_innings innings = innings_before(match);
  fall_of_wicket_table falls = falls_of(innings);
  add_unbroken_stand(falls, innings);
  add_overs_shown(falls, match.first_falls_shown);
  return falls;
}

}  // namespace velorin
