// SPDX-License-Identifier: GPL-3.0-or-later
#include "forecast/states_of_play.h"

#include <fmt/format.h>

#include <array>
#include <utility>

#include "engine/over_play.h"
#include "engine/play_steps.h"
#include "headless/headless_user.h"
#include "model/random.h"
#include "reports/match_report.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"
#include "ui/match_play.h"

namespace velorin::testing {

namespace {

void rate_men(eleven& men, random_source& dice, bool hopeless) {
  constexpr std::array<const char*, 3> roles = {"Opener", "Middle Order", "Lower Order"};
  constexpr std::array<const char*, 4> kinds = {"Fast Bowler", "Medium Pacer", "spinner", "Part Timer"};
  for (int i = 1; i <= men_in_eleven; ++i) {
    player_rec& man = men[static_cast<std::size_t>(i)];
    man.bat_skill = hopeless ? 1 : 5 + die(dice, 70);
    man.bowl_sr = static_cast<float>(hopeless ? 0.001 : 18 + die(dice, 60));
    man.econ = static_cast<float>(3 + die(dice, 50) / 10.0);
    man.bat_type = std::string("RH ") + roles[static_cast<std::size_t>(die(dice, 3) - 1)];
    man.bowler_type = kinds[static_cast<std::size_t>(die(dice, 4) - 1)];
  }
}

/// Somebody who answers at once and keeps some of the states that he is shown.
class keeper_of_states : public headless_user {
 public:
  keeper_of_states(const match_state& played, std::uint64_t seed, int every)
      : headless_user(played), played_(played), every_(every) {
    dice_.use_seed(seed);
  }

  using headless_user::show;
  void ball_bowled() override { look(); }
  void progress(int) override { look(); }

  void look() {
    if (played_.next_step >= play_step::match_end_told && played_.next_step <= play_step::match_closed) return;
    const bool chasing = played_.first_total != 0;
    const bool near_end = played_.score_wickets >= 9 || played_.innings_balls >= balls_of_innings - 2 ||
                          (chasing && played_.first_total - played_.score_runs <= 2);
    if (die(dice_, near_end ? 4 : every_) == 1) kept.push_back(played_);
  }

  std::vector<match_state> kept;

 private:
  const match_state& played_;
  random_source dice_;
  int every_;
};

/// Keeps how the match ends.
class witness : public headless_user {
 public:
  witness(const match_state& played, const random_source& chance)
      : headless_user(played), played_(played), chance_(chance) {}

  using headless_user::show;
  void show(match_report_form&) override {
    const bool first_bats = played_.innings_number % 2 == 1;
    const innings_score now{played_.score_runs, played_.score_wickets, played_.innings_balls};
    const innings_score before{played_.first_total, played_.first_wickets, played_.first_balls};
    end.rest.first = first_bats ? now : before;
    end.rest.second = first_bats ? before : now;
    end.rest.first_batted = !first_bats;
    end.rest.rate_gain = played_.rate_first.delta;
    const std::string& first = first_bats ? played_.team1_name : played_.team2_name;
    end.rest.outcome = played_.result_winner.empty()    ? rest_outcome::tie
                       : played_.result_winner == first ? rest_outcome::first_wins
                                                        : rest_outcome::second_wins;
    end.draws = chance_.draws_used();
  }

  ordinary_end end;

 private:
  const match_state& played_;
  const random_source& chance_;
};

}  // namespace

std::vector<match_state> states_of_a_match(std::uint64_t seed, int every) {
  random_source dice;
  dice.use_seed(seed);
  // Now and then a side is all out for 0, which ends an unattended match.
  const bool hopeless = die(dice, 12) == 1;
  const bool computer_bats = die(dice, 2) == 1 || hopeless;
  const bool computer_bowls = die(dice, 2) == 1 || hopeless;
  set_up_sample_match(computer_bats, computer_bowls);
  match_state played = match;
  rate_men(played.batting_xi, dice, hopeless);
  rate_men(played.bowling_xi, dice, hopeless);
  played.weather = die(dice, 4);
  played.outfield = die(dice, 4);
  random_source drawn;
  drawn.use_seed(seed + 1);
  keeper_of_states user(played, seed + 2, every);
  const match_play play{played, drawn, user, data};
  open_console(play);
  while (played.next_step != play_step::closed) {
    user.look();
    if (played.next_step == play_step::between_overs) played.next_step = play_step::over_begins;
    take_step(play);
  }
  return user.kept;
}

bool is_before(const match_state& state, end_near end) {
  const bool chasing = state.first_total != 0;
  const bool last_ball = state.innings_balls == balls_of_innings - 1 && state.next_step == play_step::ball_bowled;
  const bool nine_down = state.score_wickets == wickets_of_innings - 1;
  const bool bats_on = state.innings_balls < balls_of_innings && state.score_wickets < wickets_of_innings;
  const bool one_to_win = chasing && bats_on && state.score_runs == state.first_total;
  switch (end) {
    case end_near::innings_over:
      return !chasing && !bats_on;
    case end_near::last_ball:
      return last_ball;
    case end_near::nine_down:
      return nine_down && bats_on;
    case end_near::one_to_win:
      return one_to_win;
    case end_near::nine_down_one_to_win:
      return one_to_win && nine_down;
    case end_near::one_to_win_last_ball:
      return one_to_win && last_ball;
  }
  return false;
}

std::vector<match_state> states_before(end_near end, std::size_t count, std::uint64_t seed) {
  const bool level = end >= end_near::one_to_win;
  std::vector<match_state> found;
  while (found.size() < count) {
    for (match_state& state : states_of_a_match(seed++, 40)) {
      if (level && state.first_total != 0 && state.score_runs != 0) state.first_total = state.score_runs;
      if (!is_before(state, end)) continue;
      found.push_back(std::move(state));
      break;
    }
  }
  return found;
}

ordinary_end played_ordinarily(const match_state& state, random_source chance) {
  match_state played = state;
  set_captain(played, match_side::batting, true);
  set_captain(played, match_side::bowling, true);
  const std::uint64_t before = chance.draws_used();
  witness user(played, chance);
  resume_play({played, chance, user, data});
  if (user.end.draws != 0) user.end.draws -= before;
  return user.end;
}

ordinary_end played_ordinarily(const match_state& state, random_source chance,
                               const std::function<void(match_state&)>& before_ball) {
  match_state played = state;
  set_captain(played, match_side::batting, true);
  set_captain(played, match_side::bowling, true);
  witness user(played, chance);
  const match_play play{played, chance, user, data};
  while (played.next_step != play_step::closed && played.next_step != play_step::unattended_over) {
    if (played.next_step == play_step::between_overs) {
      if (!played.attended && is_unattended_over(played)) break;
      played.overs_begun += 1;
      played.next_step = play_step::over_begins;
    }
    if (played.next_step == play_step::ball_bowled) before_ball(played);
    take_step(play);
  }
  return user.end;
}

std::string described(const match_state& state) {
  return fmt::format("innings {}, {}/{} after {} balls, first total {}, step {}, attended {}",
                     int(state.innings_number), state.score_runs, state.score_wickets, int(state.innings_balls),
                     int(state.first_total), static_cast<int>(state.next_step), state.attended);
}

}  // namespace velorin::testing
