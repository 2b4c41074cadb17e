// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/recent_play.h"

#include <algorithm>
#include <span>

#include "model/innings_log.h"
#include "model/match_state.h"
#include "model/texts.h"

namespace velorin {

namespace {

/// The symbols of the last deliveries that `wanted` picks, oldest first.
template <class Wanted>
std::vector<std::string> last_symbols(const delivery_list& deliveries, std::size_t most, Wanted wanted) {
  std::vector<std::string> symbols;
  for (auto ball = deliveries.rbegin(); ball != deliveries.rend() && symbols.size() < most; ++ball) {
    if (wanted(*ball)) symbols.push_back(ball_symbol(*ball));
  }
  std::reverse(symbols.begin(), symbols.end());
  return symbols;
}

over_in_strip strip_of(const match_state& match, int over, std::span<const delivery> balls) {
  over_in_strip shown;
  shown.over = over;
  const over_entries entries = entries_of_over(balls, over);
  shown.runs = entries.runs();
  shown.wickets = entries.wickets();
  shown.bowler = match.bowling_card[balls.front().bowler].name;
  for (const delivery& ball : balls) shown.balls.push_back(ball_symbol(ball));
  return shown;
}

}  // namespace

std::string ball_symbol(const delivery& ball) {
  switch (ball.outcome) {
    case wicket:
      return "W";
    case no_ball:
      return "nb";
    case wide_ball:
      return "wd";
    case leg_byes:
      return number_text(int(ball.extras)) + "lb";
    case byes:
      return number_text(int(ball.extras)) + "b";
    default:
      return number_text(int(ball.runs));
  }
}

std::vector<std::string> balls_faced(const match_state& match, int position, std::size_t most) {
  return last_symbols(match.deliveries, most,
                      [&](const delivery& ball) { return ball.striker == position && ball.is_faced(); });
}

std::vector<std::string> balls_bowled(const match_state& match, int position, std::size_t most) {
  return last_symbols(match.deliveries, most, [&](const delivery& ball) { return ball.bowler == position; });
}

over_share batsman_in_last_over(const match_state& match, int position) {
  over_share share;
  if (match.deliveries.empty()) return share;
  for (const delivery& ball : deliveries_of_over(match.deliveries, match.deliveries.back().over)) {
    if (ball.striker != position || !ball.is_faced()) continue;
    share.any = true;
    share.runs += ball.runs;
    share.balls += 1;
  }
  return share;
}

over_share bowler_in_his_last_over(const match_state& match, int position) {
  over_share share;
  int over = 0;
  for (auto ball = match.deliveries.rbegin(); ball != match.deliveries.rend(); ++ball) {
    if (over != 0 && ball->over != over) break;
    if (ball->bowler != position) continue;
    over = ball->over;
    share.any = true;
    share.runs += ball->runs;
    share.balls += int(ball->counted);
    share.wickets += int(ball->is_wicket() && ball->how != dismissal::run_out);
  }
  return share;
}

stand_view view_stand(const match_state& match) {
  stand_view stand;
  if (match.deliveries.empty()) return stand;
  stand.runs = match.score_runs - score_at_last_fall(match);
  for (auto ball = match.deliveries.rbegin(); ball != match.deliveries.rend() && !ball->is_wicket(); ++ball) {
    stand.balls += int(ball->counted);
    if (!ball->is_faced()) continue;
    stand.shares[ball->striker == match.lower_batsman() ? 0 : 1] += ball->runs;
  }
  return stand;
}

std::vector<over_in_strip> last_overs(const match_state& match, int most) {
  std::vector<over_in_strip> overs;
  const int last = match.deliveries.empty() ? 0 : match.deliveries.back().over;
  for (int over = std::max(1, last - most + 1); over <= last; ++over) {
    const std::span<const delivery> balls = deliveries_of_over(match.deliveries, over);
    if (!balls.empty()) overs.push_back(strip_of(match, over, balls));
  }
  return overs;
}

}  // namespace velorin
