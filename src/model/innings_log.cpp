// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/innings_log.h"

#include <algorithm>

#include "model/texts.h"

namespace velorin {

std::string ball_entry::text() const {
  switch (what) {
    case kind::none:
      return {};
    case kind::number:
      return number_text(number);
    case kind::wicket:
      return "W";
  }
  return {};
}

int over_entries::runs() const {
  int sum = 0;
  for (const ball_entry& ball : balls) sum += ball.number;
  return sum;
}

int over_entries::wickets() const {
  return static_cast<int>(std::count_if(balls.begin(), balls.end(), [](const ball_entry& b) { return b.is_wicket(); }));
}

bool over_entries::is_begun() const {
  return std::any_of(balls.begin(), balls.end(), [](const ball_entry& b) { return !b.is_empty(); });
}

void over_entries::add(const delivery& ball) {
  ball_entry& entry = balls[ball.ball];
  if (ball.is_wicket()) {
    entry = {ball_entry::kind::wicket, 0};
  } else if (!ball.is_no_ball_or_wide()) {
    entry = {ball_entry::kind::number, ball.score()};
  } else if (!ball.counted) {
    entry.number += 1;
  }
}

innings_log log_of(std::span<const delivery> deliveries) {
  innings_log log;
  for (const delivery& ball : deliveries) log[ball.over].add(ball);
  return log;
}

std::span<const delivery> deliveries_of_over(std::span<const delivery> deliveries, int over) {
  const auto first = std::partition_point(deliveries.begin(), deliveries.end(),
                                          [over](const delivery& ball) { return ball.over < over; });
  const auto last =
      std::partition_point(first, deliveries.end(), [over](const delivery& ball) { return ball.over == over; });
  return {first, last};
}

over_entries entries_of_over(std::span<const delivery> deliveries, int over) {
  over_entries entries;
  for (const delivery& ball : deliveries_of_over(deliveries, over)) entries.add(ball);
  return entries;
}

std::array<std::string, balls_of_over> live_symbols(std::span<const delivery> deliveries, int over) {
  std::array<std::string, balls_of_over> symbols;
  for (const delivery& ball : deliveries_of_over(deliveries, over)) {
    if (ball.is_no_ball_or_wide()) continue;
    std::string& symbol = symbols[ball.ball - 1U];
    if (ball.is_wicket()) {
      symbol = "W";
    } else {
      symbol = number_text(ball.score());
      if (ball.is_body_extra()) symbol += ball.outcome == leg_byes ? "lb" : "b";
    }
  }
  return symbols;
}

}  // namespace velorin
