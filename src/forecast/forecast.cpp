// SPDX-License-Identifier: GPL-3.0-or-later
#include "forecast/forecast.h"

#include <cstddef>

#include "engine/ball_odds.h"
#include "engine/delivery_model.h"
#include "forecast/shared_runs.h"
#include "model/match_state.h"
#include "model/random.h"
#include "model/run_time_error.h"

namespace velorin {

namespace {

/// A thread's share of a forecast.
class share_of_rests {
 public:
  share_of_rests(const match_start& start, std::uint64_t seed) : start_(&start), seed_(seed) {}

  void play(long run) {
    random_source chance;
    seed_run(chance, seed_, run);
    tally_.add(player_.play(*start_, chance));
  }
  const result_tally& tally() const { return tally_; }

 private:
  const match_start* start_;
  std::uint64_t seed_;
  rest_player player_;
  result_tally tally_;
};

/// The pair and the bowler of the next ball are at their places. No over begins with a man who has bowled his.
bool is_ball_to_come(const match_state& match) {
  switch (match.next_step) {
    case play_step::between_overs:
    case play_step::over_told:
    case play_step::over_begins:
      if (match.bowling_card[match.bowler].balls >= balls_of_quota) return false;
      [[fallthrough]];
    case play_step::ball_bowled:
      return match.striker != 0 && match.non_striker != 0 && match.bowler != 0;
    default:
      return false;
  }
}

std::optional<next_ball> odds_of_delivery(const match_state& match) {
  outcome_draws draws{};
  try {
    draws = draws_of(delivery_windows(expect_delivery(match)));
  } catch (const run_time_error&) {
    return std::nullopt;
  }
  const auto chance_of = [&draws](outcome what) {
    return draws[static_cast<std::size_t>(what)] / static_cast<double>(draw_scale);
  };
  next_ball odds;
  odds.wicket = chance_of(wicket);
  for (std::size_t off_the_bat = 0; off_the_bat < odds.runs.size(); ++off_the_bat) {
    odds.runs[off_the_bat] = draws[off_the_bat] / static_cast<double>(draw_scale);
  }
  odds.no_ball = chance_of(no_ball);
  odds.wide = chance_of(wide_ball);
  odds.leg_byes = chance_of(leg_byes);
  odds.byes = chance_of(byes);
  return odds;
}

/// Adds a share of a chance of another ball.
void add(next_ball& sum, const next_ball& odds, double share) {
  sum.wicket += share * odds.wicket;
  for (std::size_t i = 0; i < sum.runs.size(); ++i) sum.runs[i] += share * odds.runs[i];
  sum.no_ball += share * odds.no_ball;
  sum.wide += share * odds.wide;
  sum.leg_byes += share * odds.leg_byes;
  sum.byes += share * odds.byes;
}

}  // namespace

forecast_answer forecast_rest(const match_start& start, const forecast_options& options) {
  const auto shares =
      play_shared(options.runs, options.threads, options.stop, [&] { return share_of_rests(start, options.seed); });
  result_tally sum;
  for (const share_of_rests& share : shares) sum.add(share.tally());
  forecast_answer answer = sum.answer();
  answer.first = start.first;
  answer.second = start.second;
  return answer;
}

forecast_answer forecast_rest(const match_state& match, const forecast_options& options) {
  return forecast_rest(start_at(match), options);
}

std::optional<next_ball> odds_of_next_ball(const match_state& match) {
  return is_ball_to_come(match) ? odds_of_delivery(match) : std::nullopt;
}

std::optional<next_ball> odds_of_next_ball(const match_start& start) {
  if (start.toss_open) {
    const auto first = odds_of_next_ball(with_toss_decided(start, forecast_side::first));
    const auto second = odds_of_next_ball(with_toss_decided(start, forecast_side::second));
    if (!first || !second) return std::nullopt;
    next_ball mean;
    add(mean, *first, 0.5);
    add(mean, *second, 0.5);
    return mean;
  }
  // All that can be drawn before a ball is by how much the ratings of an innings' bowlers are raised: their order, and
  // so who opens, does not hang on it.
  random_source chance;
  chance.use_script({0.5}, {});
  rest_player player;
  const match_state* match = player.play_to_ball(start, chance);
  return match == nullptr ? std::nullopt : odds_of_delivery(*match);
}

}  // namespace velorin
