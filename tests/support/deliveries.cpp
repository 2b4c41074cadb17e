// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/deliveries.h"

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
