// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/check_match.h"

#include <algorithm>
#include <string_view>

#include <fmt/format.h>

#include "model/innings_log.h"
#include "model/match_state.h"
#include "model/rules.h"

namespace velorin {

namespace {

struct card_sums {
  int runs = 0;
  int balls = 0;
  int run_outs = 0;
};

std::string check_batting(const match_state& match, card_sums& sums) {
  for (int i = 1; i <= men_in_eleven; ++i) {
    const batting_card_rec& man = match.batting_card[i];
    const int from_strokes = man.singles + 2 * man.twos + 3 * man.threes + 4 * man.fours + 6 * man.sixes;
    const int strokes = man.singles + man.twos + man.threes + man.fours + man.sixes + man.dots;
    if (man.runs != from_strokes) {
      return fmt::format("batting_card {}: {} runs, but his strokes give {}", i, int(man.runs), from_strokes);
    }
    if (man.balls != strokes) {
      return fmt::format("batting_card {}: {} balls, but {} strokes and dots", i, int(man.balls), strokes);
    }
    if (man.name.empty() && man.balls != 0) return fmt::format("batting_card {}: balls without a name", i);
    sums.runs += man.runs;
    sums.balls += man.balls;
    sums.run_outs += man.how == dismissal::run_out ? 1 : 0;
  }
  return {};
}

std::string check_bowling(const match_state& match, const card_sums& batting) {
  int balls = 0;
  int runs = 0;
  int wickets = 0;
  for (int i = 1; i <= men_in_eleven; ++i) {
    const bowling_card_rec& man = match.bowling_card[i];
    if (man.maidens * balls_of_over > man.balls) return fmt::format("bowling_card {}: more maidens than overs", i);
    balls += man.balls;
    runs += man.runs;
    wickets += man.wickets;
  }
  if (balls != match.innings_balls) {
    return fmt::format("bowling_card: {} balls, innings_balls {}", balls, int(match.innings_balls));
  }
  if (runs != batting.runs) return fmt::format("bowling_card: {} runs, batting_card {}", runs, batting.runs);
  if (wickets + batting.run_outs != match.score_wickets) {
    return fmt::format("{} wickets and {} run outs, score_wickets {}", wickets, batting.run_outs, match.score_wickets);
  }
  return {};
}

/// Nobody begins an over with ten behind him; within one he may pass his sixty balls.
std::string check_quota(const match_state& match) {
  if (match.bowling_card[match.bowler].balls < balls_of_quota) return {};
  const auto over = deliveries_of_over(match.deliveries, match.over_no);
  const auto this_over = std::count_if(over.begin(), over.end(), [](const delivery& ball) { return ball.counted; });
  const auto before = match.bowling_card[match.bowler].balls - this_over;
  if (before >= balls_of_quota) {
    return fmt::format("bowling_card {}: began an over with {} balls", int(match.bowler), before);
  }
  return {};
}

/// The deliveries bring no more than the innings has come to.
std::string check_deliveries(const match_state& match) {
  int runs = 0;
  int balls = 0;
  int wickets = 0;
  for (const delivery& ball : match.deliveries) {
    runs += ball.score();
    balls += int(ball.counted);
    wickets += int(ball.is_wicket());
  }
  if (runs > match.score_runs) return fmt::format("deliveries: {} runs, score_runs {}", runs, match.score_runs);
  if (balls > match.innings_balls) {
    return fmt::format("deliveries: {} balls, innings_balls {}", balls, int(match.innings_balls));
  }
  if (wickets > match.score_wickets) {
    return fmt::format("deliveries: {} wickets, score_wickets {}", wickets, match.score_wickets);
  }
  return {};
}

std::string check_position(const match_state& match) {
  const auto place = [](int position) { return position >= 1 && position <= men_in_eleven; };
  if (!place(match.bowler) || !place(match.next_bowler)) {
    return fmt::format("bowlers at {} and {}", int(match.bowler), int(match.next_bowler));
  }
  if (!place(match.striker) || !place(match.non_striker) || match.striker == match.non_striker) {
    return fmt::format("batsmen at {} and {}", int(match.striker), int(match.non_striker));
  }
  if (match.over_no < 1 || match.over_no > overs_of_innings) return fmt::format("over_no {}", int(match.over_no));
  if (match.innings_balls < 0 || match.innings_balls > balls_of_innings) {
    return fmt::format("innings_balls {}", int(match.innings_balls));
  }
  if (match.score_wickets < 0 || match.score_wickets > wickets_of_innings) {
    return fmt::format("score_wickets {}", match.score_wickets);
  }
  if (match.ball_outcome < dot_ball || match.ball_outcome > byes || match.ball_outcome == four_runs + 1) {
    return fmt::format("ball_outcome {}", int(match.ball_outcome));
  }
  return {};
}

std::string check_console(const match_state& match) {
  for (int slot = 0; slot < 2; ++slot) {
    const auto fits = [](int aggression) { return aggression >= least_aggression && aggression <= most_aggression; };
    if (!fits(match.batsman_aggression[slot]) || !fits(match.bowling_aggression[slot])) {
      return fmt::format("aggressions {} and {} in slot {}", match.batsman_aggression[slot],
                         match.bowling_aggression[slot], slot);
    }
    const double meter = match.settled_meter[slot];
    if (meter < 0 || meter > full_meter) return fmt::format("settled_meter {} in slot {}", meter, slot);
  }
  const told_innings before = innings_before(match);
  if (has_too_many_lines(before.deliveries, before.overs_closed)) {
    return "commentary_store runs past its 1500 places";
  }
  return {};
}

}  // namespace

std::string check_match(const match_state& match) {
  if (match.innings_number > 2) return {};
  card_sums sums;
  if (std::string broken = check_position(match); !broken.empty()) return broken;
  if (std::string broken = check_batting(match, sums); !broken.empty()) return broken;
  if (std::string broken = check_bowling(match, sums); !broken.empty()) return broken;
  if (std::string broken = check_quota(match); !broken.empty()) return broken;
  if (std::string broken = check_console(match); !broken.empty()) return broken;
  if (std::string broken = check_deliveries(match); !broken.empty()) return broken;
  const int total = sums.runs + match.innings_byes + match.innings_leg_byes;
  if (total != match.score_runs) return fmt::format("score_runs {}, the books give {}", match.score_runs, total);
  if (sums.balls > match.innings_balls) {
    return fmt::format("batsmen faced {} balls of {}", sums.balls, int(match.innings_balls));
  }
  return {};
}

}  // namespace velorin
