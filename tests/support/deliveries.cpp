// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/deliveries.h"

#include <algorithm>
#include <cstdint>
#include <stdexcept>
#include <string>

namespace velorin {

namespace {

std::uint8_t small(int figure) { return static_cast<std::uint8_t>(figure); }

delivery by_men(const men_at_work& men, int over, int ball, int outcome) {
  return {.innings = 1,
          .over = small(over),
          .ball = small(ball),
          .bowler = small(men.bowler),
          .striker = small(men.striker),
          .non_striker = small(men.non_striker),
          .batting_aggression = 3,
          .bowling_aggression = 3,
          .outcome = small(outcome)};
}

delivery with_extras(delivery ball, int extras) {
  ball.extras = small(extras);
  return ball;
}

/// The over and the place of the ball that follows those that count.
delivery next_ball(const delivery_list& deliveries, delivery ball) {
  const auto counted = std::count_if(deliveries.begin(), deliveries.end(), [](const delivery& b) { return b.counted; });
  ball.over = static_cast<std::uint8_t>(counted / 6 + 1);
  ball.ball = static_cast<std::uint8_t>(counted % 6 + 1);
  return ball;
}

/// The balls of a stand but for the last one, which ends it.
void add_runs(delivery_list& deliveries, const stand_made& stand, int bowler) {
  int runs = stand.runs;
  for (int i = 1; i < stand.balls; ++i) {
    const int off_the_bat = runs >= 6 ? 6 : std::min(runs, 4);
    runs -= off_the_bat;
    deliveries.push_back(next_ball(deliveries, ball_of_runs(off_the_bat, {bowler, stand.striker, stand.non_striker})));
  }
  if (runs > 0) throw std::invalid_argument("a stand of too many runs for its balls");
}

delivery uncounted(delivery ball) {
  ball.counted = false;
  return with_extras(ball, 1);
}

}  // namespace

delivery ball_of_runs(int runs, men_at_work men, int over, int ball) {
  delivery made = by_men(men, over, ball, runs > six_runs ? int(six_runs) : runs);
  made.runs = small(runs);
  return made;
}

delivery ball_of_leg_byes(int runs, men_at_work men, int over, int ball) {
  return with_extras(by_men(men, over, ball, leg_byes), runs);
}

delivery ball_of_byes(int runs, men_at_work men, int over, int ball) {
  return with_extras(by_men(men, over, ball, byes), runs);
}

delivery no_ball_on(int ball, men_at_work men, int over) { return uncounted(by_men(men, over, ball, no_ball)); }

delivery wide_on(int ball, men_at_work men, int over) { return uncounted(by_men(men, over, ball, wide_ball)); }

delivery ball_of_wicket(dismissal how, men_at_work men, int next_batsman, int over, int ball) {
  delivery made = by_men(men, over, ball, wicket);
  made.how = how;
  made.next_batsman = small(next_batsman);
  return made;
}

void add_stand(delivery_list& deliveries, stand_made stand, int bowler) {
  add_runs(deliveries, stand, bowler);
  const men_at_work men = {bowler, stand.striker, stand.non_striker};
  deliveries.push_back(next_ball(deliveries, ball_of_wicket(dismissal::bowled, men)));
}

void add_unbroken_stand(delivery_list& deliveries, stand_made stand, int bowler) {
  add_runs(deliveries, stand, bowler);
  const men_at_work men = {bowler, stand.striker, stand.non_striker};
  deliveries.push_back(next_ball(deliveries, ball_of_runs(0, men)));
}

void add_over(delivery_list& deliveries, int over, std::initializer_list<std::string_view> entries, men_at_work men) {
  int ball = 0;
  for (const std::string_view entry : entries) {
    ++ball;
    const auto letters = entry.find_first_not_of("0123456789");
    const int number = letters == 0 || entry.empty() ? 0 : std::stoi(std::string(entry.substr(0, letters)));
    if (entry.empty()) continue;
    if (entry == "W") {
      deliveries.push_back(ball_of_wicket(dismissal::bowled, men, 0, over, ball));
    } else if (entry.ends_with("lb")) {
      deliveries.push_back(ball_of_leg_byes(number, men, over, ball));
    } else if (entry.ends_with("b")) {
      deliveries.push_back(ball_of_byes(number, men, over, ball));
    } else if (letters != std::string_view::npos) {
      throw std::invalid_argument("no entry of a log: " + std::string(entry));
    } else {
      const int runs = number > six_runs ? int(six_runs) : number == 5 ? 4 : number;
      deliveries.push_back(ball_of_runs(runs, men, over, ball));
      for (int i = runs; i < number; ++i) deliveries.push_back(wide_on(ball, men, over));
    }
  }
}

}  // namespace velorin
