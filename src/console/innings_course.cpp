// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/innings_course.h"

#include "model/commentary.h"
#include "model/innings_log.h"
#include "model/match_state.h"
#include "model/rules.h"

namespace velorin {

namespace {

std::vector<over_stage> course_of(const told_innings& innings) {
  std::vector<over_stage> course;
  over_stage now;
  // An innings may have begun with figures of its own.
  now.score = innings.score_runs;
  now.balls = innings.innings_balls;
  for (const delivery& ball : innings.deliveries) {
    now.score -= ball.score();
    now.balls -= int(ball.counted);
  }
  if (innings.last_ball_open && !innings.deliveries.empty()) now.balls += int(innings.deliveries.back().counted);
  std::span<const delivery> left = innings.deliveries;
  while (!left.empty()) {
    now.over = left.front().over;
    const std::span<const delivery> balls = deliveries_of_over(left, now.over);
    const over_entries entries = entries_of_over(balls, now.over);
    now.runs = entries.runs();
    now.wickets = entries.wickets();
    for (const delivery& ball : balls) {
      now.score += ball.score();
      now.balls += int(ball.counted);
    }
    now.run_rate = now.balls == 0 ? 0 : double{balls_of_over} * now.score / now.balls;
    course.push_back(now);
    left = left.subspan(balls.size());
  }
  return course;
}

}  // namespace

std::vector<over_stage> course_in_play(const match_state& match) {
  std::vector<over_stage> course = course_of(innings_in_play(match));
  if (match.first_total == 0) return course;
  for (over_stage& stage : course) {
    const int needed = match.first_total + 1 - stage.score;
    const int left = balls_of_innings - stage.balls;
    if (needed > 0 && left > 0) stage.required_rate = double{balls_of_over} * needed / left;
  }
  return course;
}

std::vector<over_stage> course_before(const match_state& match) {
  if (match.first_total == 0) return {};
  return course_of(innings_before(match));
}

}  // namespace velorin
