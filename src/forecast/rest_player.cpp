// SPDX-License-Identifier: GPL-3.0-or-later
#include "forecast/rest_player.h"

#include <cstddef>

#include "engine/over_play.h"
#include "engine/play_steps.h"
#include "forecast/nobody.h"
#include "model/run_time_error.h"
#include "setup/toss.h"
#include "ui/match_play.h"

namespace velorin {

namespace {

void put_back(batting_card_table& card, const card_figures& figures) {
  for (std::size_t i = 1; i < card.size(); ++i) {
    card[i].runs = figures.runs[i];
    card[i].balls = figures.balls[i];
    card[i].dots = 0;
  }
}

void put_back(bowling_card_table& card, const card_figures& figures) {
  for (std::size_t i = 1; i < card.size(); ++i) {
    card[i].runs = figures.runs[i];
    card[i].balls = figures.balls[i];
    card[i].wickets = figures.wickets[i];
    card[i].maidens = 0;
  }
}

}  // namespace

void seed_run(random_source& chance, std::uint64_t seed, long run) {
  chance.use_seed(random_source::mix(seed) + static_cast<std::uint64_t>(run));
}

rest_player::rest_player() { match_.deliveries.reserve(2 * std::size_t{balls_of_innings}); }

void rest_player::put_at(const match_start& start, random_source& chance) {
  const bool exchanged = start.toss_open && !draw_unattended_toss(chance);
  first_bats_odd_ = start.batting_first == forecast_side::first && !exchanged;
  static_cast<match_sides&>(match_) = start.sides[exchanged ? 1 : 0];
  static_cast<match_position&>(match_) = start.position;
  static_cast<match_play_place&>(match_) = start.place;
  static_cast<match_totals&>(match_) = start.totals;
  put_back(match_.batting_card, start.cards[0]);
  put_back(match_.bowling_card, start.cards[1]);
  put_back(match_.first_batting_card, start.cards[2]);
  put_back(match_.first_bowling_card, start.cards[3]);
  match_.deliveries.assign(start.deliveries.begin(), start.deliveries.end());
  match_.first_deliveries.clear();
  static_cast<match_known_aggressions&>(match_) = start.known_aggressions;
  static_cast<match_conditions&>(match_) = start.conditions;
  static_cast<match_bowler_pool&>(match_) = start.pool;
  static_cast<match_console&>(match_) = start.console;
  if (start.to_begin) begin_play(match_);
}

played_rest rest_player::result(const match_start& start) const {
  const bool first_bats = first_bats_odd_ == (match_.innings_number % 2 == 1);
  const innings_score batted_now{match_.score_runs, match_.score_wickets, match_.innings_balls};
  const innings_score batted_before{match_.first_total, match_.first_wickets, match_.first_balls};
  const match_decision decided = decision_on(match_);
  played_rest rest;
  rest.first_batted = !first_bats;
  rest.first = first_bats ? batted_now : batted_before;
  rest.second = first_bats ? batted_before : batted_now;
  rest.deliveries = static_cast<long>(match_.deliveries.size() + match_.first_deliveries.size()) -
                    static_cast<long>(start.deliveries.size());
  rest.rate_gain = rate_gain(match_);
  if (decided == match_decision::tie) {
    rest.outcome = rest_outcome::tie;
  } else {
    const bool batting_side_wins = decided == match_decision::wickets;
    rest.outcome = batting_side_wins == first_bats ? rest_outcome::first_wins : rest_outcome::second_wins;
  }
  return rest;
}

played_rest rest_player::play(const match_start& start, random_source& chance, const standing_orders* orders) {
  nobody user;
  try {
    put_at(start, chance);
    play_unread({match_, chance, user, no_files_}, start.unattended, orders);
  } catch (const run_time_error&) {
    return {};
  }
  return match_.next_step == play_step::match_reported ? result(start) : played_rest{};
}

const match_state* rest_player::play_to_ball(const match_start& start, random_source& chance) {
  nobody user;
  try {
    put_at(start, chance);
    play_unread_to_ball({match_, chance, user, no_files_}, start.unattended);
  } catch (const run_time_error&) {
    return nullptr;
  }
  return match_.next_step == play_step::ball_bowled ? &match_ : nullptr;
}

}  // namespace velorin
