// SPDX-License-Identifier: GPL-3.0-or-later
#include "forecast/adviser.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <utility>

#include "console/captain_forms.h"
#include "engine/over_play.h"
#include "engine/play_steps.h"
#include "engine/standing_orders.h"
#include "forecast/computers_choice.h"
#include "forecast/shared_runs.h"
#include "model/match_state.h"
#include "model/random.h"

namespace velorin {

namespace {

using kind = captains_choice::kind;

/// What a bowler is chosen for as the match stands.
std::optional<bowler_choice_form::use> bowler_asked_for(const match_state& match) {
  using use = bowler_choice_form::use;
  switch (match.next_step) {
    case play_step::opening_bowlers:
      return use::first_opener;
    case play_step::second_opening_bowler:
      return use::second_opener;
    case play_step::quota_told:
    case play_step::quota_choice:
      return use::quota;
    case play_step::between_overs:
    case play_step::over_begins:
      return match.bowler != 0 ? std::optional(use::change) : std::nullopt;
    default:
      return std::nullopt;
  }
}

/// For what a batsman is chosen.
std::optional<next_batsman_form::use> batsman_asked_for(const match_state& match) {
  using use = next_batsman_form::use;
  switch (match.next_step) {
    case play_step::openers:
      return use::first_opener;
    case play_step::second_opener:
      return use::second_opener;
    case play_step::wicket_told:
    case play_step::next_batsman:
      return has_man_to_come(match) ? std::optional(use::next) : std::nullopt;
    default:
      return std::nullopt;
  }
}

bool can_come_in(const match_state& match, int position) {
  return batsman_asked_for(match) && position > match.higher_batsman() && position <= men_in_eleven;
}

bool can_bowl(const match_state& match, int position) {
  const auto asked = bowler_asked_for(match);
  if (!asked || position < 1 || position > men_in_eleven || position == match.next_bowler) return false;
  if (asked == bowler_choice_form::use::second_opener && position == match.bowler) return false;
  const auto at = static_cast<std::size_t>(position);
  return match.bowling_xi[at].is_keeper == 0 && match.bowling_card[at].balls < balls_of_quota;
}

bool is_toss_open(const match_state& match) {
  return match.next_step == play_step::closed && start_at(match).toss_open;
}

bool can_be_made(const match_state& match, const captains_choice& choice) {
  const bool level = choice.level >= least_aggression && choice.level <= most_aggression;
  const bool position = choice.position >= 1 && choice.position <= men_in_eleven;
  switch (choice.what) {
    case kind::computers:
      return true;
    case kind::batting_aggression:
    case kind::bowling_aggression:
      return level && position && match.next_step != play_step::closed;
    case kind::bowler:
      return can_bowl(match, choice.position);
    case kind::next_batsman:
      return can_come_in(match, choice.position);
    case kind::bat_first:
    case kind::bowl_first:
      return is_toss_open(match);
  }
  return false;
}

/// A choice made ready to be played.
struct alternative {
  captains_choice choice;
  match_start start;
  standing_orders orders;
};

/// The computer's choice. Where it opens the bowling, it draws by how much its attack is raised, and where a man has
/// bowled his overs, somebody else is asked, whoever captains: so that nothing else differs, the man that it would name
/// is put there as any other one.
captains_choice computers_man(const match_state& match) {
  const auto asked = bowler_asked_for(match);
  if (asked != bowler_choice_form::use::first_opener && asked != bowler_choice_form::use::quota) return {};
  const auto chosen = computers_bowler(match, *asked);
  return chosen ? captains_choice{kind::bowler, chosen->choice} : captains_choice{};
}

alternative made_ready(const match_state& match, const captains_choice& choice) {
  const bool computers = choice.what == kind::computers;
  alternative ready{choice, start_at(with_choice(match, computers ? computers_man(match) : choice)), {}};
  ready.orders.innings = match.innings_number;
  ready.orders.last_over = choice.last_over;
  const auto at = static_cast<std::size_t>(choice.position);
  if (choice.what == kind::batting_aggression) ready.orders.batting[at] = choice.level;
  if (choice.what == kind::bowling_aggression) ready.orders.bowling[at] = choice.level;
  if (choice.what == kind::bat_first) ready.start = with_toss_decided(ready.start, forecast_side::first);
  if (choice.what == kind::bowl_first) ready.start = with_toss_decided(ready.start, forecast_side::second);
  return ready;
}

/// Of one alternative: wins, and of the differences to the first one, run by run, sum and sum of squares.
struct paired_counts {
  long wins = 0;
  long differences = 0;
  long squares = 0;
};

class share_of_choices {
 public:
  share_of_choices(const std::vector<alternative>& all, rest_outcome win, std::uint64_t seed)
      : all_(&all), win_(win), seed_(seed), counts_(all.size()) {}

  void play(long run) {
    long first = 0;
    for (std::size_t i = 0; i < counts_.size(); ++i) {
      random_source chance;
      seed_run(chance, seed_, run);
      const alternative& played = (*all_)[i];
      const long won = player_.play(played.start, chance, &played.orders).outcome == win_ ? 1 : 0;
      if (i == 0) first = won;
      counts_[i].wins += won;
      counts_[i].differences += won - first;
      counts_[i].squares += (won - first) * (won - first);
    }
    ++runs_;
  }
  const std::vector<paired_counts>& counts() const { return counts_; }
  long runs() const { return runs_; }

 private:
  const std::vector<alternative>* all_;
  rest_outcome win_;
  std::uint64_t seed_;
  rest_player player_;
  std::vector<paired_counts> counts_;
  long runs_ = 0;
};

/// A win of the side that chooses, as a rest tells it.
rest_outcome win_of(const match_state& match, advised_side side) {
  const bool batting = side == advised_side::batting;
  const bool first_bats = match.innings_number % 2 == 1;
  const bool is_first = side == advised_side::team_chosen_first || match.next_step == play_step::closed
                            ? side != advised_side::bowling
                            : batting == first_bats;
  return is_first ? rest_outcome::first_wins : rest_outcome::second_wins;
}

void add_levels(std::vector<captains_choice>& choices, kind what, int position) {
  if (position == 0) return;
  for (int level = least_aggression; level <= most_aggression; ++level) choices.push_back({what, position, level});
}

}  // namespace

match_state with_choice(const match_state& match, const captains_choice& choice) {
  match_state chosen = match;
  if (choice.what == kind::bowler) {
    const auto asked = bowler_asked_for(match);
    const bool second = asked == bowler_choice_form::use::second_opener;
    (second ? chosen.next_bowler : chosen.bowler) = choice.position;
    if (second) chosen.next_step = play_step::openers;
    if (asked == bowler_choice_form::use::first_opener) chosen.next_step = play_step::second_opening_bowler;
    if (asked == bowler_choice_form::use::quota) chosen.next_step = play_step::over_begins;
  } else if (choice.what == kind::next_batsman) {
    const auto asked = batsman_asked_for(match).value_or(next_batsman_form::use::next);
    next_batsman_form form(chosen, asked);
    form.choose(choice.position);
    form.accept();
    if (asked == next_batsman_form::use::first_opener) {
      chosen.striker = 1;
      chosen.next_step = play_step::second_opener;
    } else if (asked == next_batsman_form::use::second_opener) {
      chosen.non_striker = 2;
      chosen.next_step = play_step::innings_opens;
    } else {
      send_in(chosen);
      chosen.next_step = play_step::ball_booked;
    }
  }
  return chosen;
}

std::vector<captains_choice> choices_at_hand(const match_state& match, advised_side side) {
  std::vector<captains_choice> choices;
  if (match.next_step == play_step::closed) {
    if (side == advised_side::team_chosen_first && is_toss_open(match))
      choices = {{kind::bat_first}, {kind::bowl_first}};
    return choices;
  }
  if (side == advised_side::batting) {
    if (batsman_asked_for(match)) {
      for (int position = 1; position <= men_in_eleven; ++position) {
        if (can_come_in(match, position)) choices.push_back({kind::next_batsman, position});
      }
      return choices;
    }
    add_levels(choices, kind::batting_aggression, match.lower_batsman());
    add_levels(choices, kind::batting_aggression, match.higher_batsman());
    return choices;
  }
  for (int position = 1; position <= men_in_eleven; ++position) {
    if (can_bowl(match, position)) choices.push_back({kind::bowler, position});
  }
  add_levels(choices, kind::bowling_aggression, match.bowler);
  add_levels(choices, kind::bowling_aggression, match.next_bowler);
  return choices;
}

std::vector<advice> advise(const match_state& match, advised_side side, const std::vector<captains_choice>& choices,
                           const forecast_options& options) {
  std::vector<alternative> all = {made_ready(match, {})};
  for (const captains_choice& choice : choices) {
    if (can_be_made(match, choice)) all.push_back(made_ready(match, choice));
  }
  const auto shares = play_shared(options.runs, options.threads, options.stop,
                                  [&] { return share_of_choices(all, win_of(match, side), options.seed); });
  std::vector<advice> advised;
  for (std::size_t i = 0; i < all.size(); ++i) {
    paired_counts sum;
    long played = 0;
    for (const share_of_choices& share : shares) {
      const paired_counts& counted = share.counts()[i];
      sum.wins += counted.wins;
      sum.differences += counted.differences;
      sum.squares += counted.squares;
      played += share.runs();
    }
    advice told{all[i].choice};
    if (played > 0) {
      const auto runs = static_cast<double>(played);
      told.win = static_cast<double>(sum.wins) / runs;
      told.difference = static_cast<double>(sum.differences) / runs;
      const double variance = static_cast<double>(sum.squares) / runs - told.difference * told.difference;
      told.standard_error = std::sqrt(std::max(variance, 0.0) / runs);
    }
    advised.push_back(told);
  }
  return advised;
}

}  // namespace velorin
