// SPDX-License-Identifier: GPL-3.0-or-later
// A second opinion on forecasts: the shares of whole matches of the ordinary engine, on other draws.
#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

#include "console/captain_forms.h"
#include "engine/play_steps.h"
#include "forecast/adviser.h"
#include "forecast/forecast.h"
#include "forecast/states_of_play.h"

namespace velorin::testing {
namespace {

// scripts/check-shares plays them in full.
#ifdef NDEBUG
constexpr int usual_matches = 400;
constexpr std::size_t states_of_each_end = 20;
constexpr int diced_states = 80;
constexpr int usual_advised_matches = 2'000;
#else
constexpr int usual_matches = 60;
constexpr std::size_t states_of_each_end = 2;
constexpr int diced_states = 12;
constexpr int usual_advised_matches = 300;
#endif

int wanted_matches(const char* variable, int usual) {
  const char* wanted = std::getenv(variable);
  return wanted == nullptr ? usual : std::stoi(wanted);
}

int ordinary_matches() { return wanted_matches("VELORIN_MATCHES_OF_SHARES", usual_matches); }
int advised_matches() { return wanted_matches("VELORIN_MATCHES_OF_ADVICE", usual_advised_matches); }

/// The share of matches that end in this way, played in full on draws of its own.
double share_in_full(
    const match_state& state, int matches, rest_outcome wanted,
    const std::function<void(match_state&)>& before_ball = [](match_state&) {}) {
  int counted = 0;
  for (int i = 0; i < matches; ++i) {
    random_source chance;
    chance.use_seed(70'000 + static_cast<std::uint64_t>(i));
    counted += played_ordinarily(state, chance, before_ball).rest.outcome == wanted ? 1 : 0;
  }
  return static_cast<double>(counted) / matches;
}

double error_of(double share, int matches) { return std::sqrt(std::max(share * (1 - share), 1.0 / matches) / matches); }

/// Holds a forecast against so many matches that the ordinary engine plays on; false where the match of the state ends
/// without a decision, which no share tells of.
bool compare(const match_state& state) {
  const int matches = ordinary_matches();
  const forecast_answer told = forecast_rest(state, {.runs = matches, .seed = 3, .threads = 1, .stop = {}});
  if (told.undecided != 0) return false;
  const double wanted = share_in_full(state, matches, rest_outcome::first_wins);
  const double allowed = 4 * std::hypot(error_of(wanted, matches), error_of(told.win_first, matches));
  EXPECT_NEAR(told.win_first, wanted, allowed) << described(state);
  return true;
}

TEST(ForecastShares, AreThoseOfTheOrdinaryEngineAtAnyState) {
  int states = 0;
  for (std::uint64_t seed = 1; states < diced_states; ++seed) {
    const auto kept = states_of_a_match(1000 + seed, 80);
    for (std::size_t i = 0; i < kept.size() && i < 10 && states < diced_states; ++i) states += compare(kept[i]) ? 1 : 0;
  }
}

class ForecastSharesBefore : public ::testing::TestWithParam<end_near> {};

TEST_P(ForecastSharesBefore, TheEndAreThoseOfTheOrdinaryEngine) {
  std::size_t states = 0;
  for (std::uint64_t seed = 1; states < states_of_each_end; seed += 1000) {
    for (const match_state& state : states_before(GetParam(), states_of_each_end - states, seed)) {
      ASSERT_TRUE(is_before(state, GetParam())) << described(state);
      states += compare(state) ? 1U : 0U;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(, ForecastSharesBefore, ::testing::ValuesIn(all_ends));

using kind = captains_choice::kind;

/// A kind of choice, and the side that makes it.
struct advised_kind {
  const char* name;
  kind what;
  advised_side side;
};
void PrintTo(const advised_kind& advised, std::ostream* out) { *out << advised.name; }

/// Either side may win.
bool is_open(const match_state& state) {
  const forecast_answer answer = forecast_rest(state, {.runs = 100, .seed = 3, .threads = 1, .stop = {}});
  return answer.undecided == 0 && std::min(answer.win_first, answer.win_second) > 0.25;
}

/// The choices of the kind at the first state of an open match that has any; of the men the first and the last, of one
/// man the least and the greatest aggression.
std::pair<match_state, std::vector<captains_choice>> first_asked(const advised_kind& advised) {
  for (std::uint64_t seed = 1;; ++seed) {
    for (const match_state& state : states_of_a_match(seed, 20)) {
      // Not those who open, whom other sheets ask for.
      const bool early = state.innings_balls > 0 && state.innings_balls < balls_of_innings / 2 &&
                         state.score_wickets < wickets_of_innings / 2;
      const bool of_one_man = advised.what == kind::batting_aggression || advised.what == kind::bowling_aggression;
      auto at_hand = choices_at_hand(state, advised.side);
      std::erase_if(at_hand, [&](const captains_choice& choice) { return choice.what != advised.what; });
      const int man = at_hand.empty() ? 0 : at_hand.front().position;
      std::erase_if(at_hand, [&](const captains_choice& choice) { return of_one_man && choice.position != man; });
      if (early && at_hand.size() > 1 && is_open(state)) return {state, {at_hand.front(), at_hand.back()}};
    }
  }
}

/// Lays an aggression down as a captain would before each ball of his man's.
void lay_down(const captains_choice& choice, int innings, match_state& played) {
  if (played.innings_number != innings) return;
  if (choice.what == kind::batting_aggression) {
    if (played.lower_batsman() == choice.position) played.batsman_aggression[0] = choice.level;
    if (played.higher_batsman() == choice.position) played.batsman_aggression[1] = choice.level;
  } else if (choice.what == kind::bowling_aggression && played.bowler == choice.position) {
    played.bowling_aggression[0] = choice.level;
  }
}

/// The men take their places as the sheets of a captain put them there.
match_state made(const match_state& state, const captains_choice& choice) {
  match_state chosen = state;
  if (choice.what == kind::bowler) {
    bowler_choice_form form(chosen, bowler_choice_form::use::change, "");
    form.choose(choice.position);
    form.accept();
  } else if (choice.what == kind::next_batsman) {
    next_batsman_form form(chosen, next_batsman_form::use::next);
    form.choose(choice.position);
    form.accept();
    send_in(chosen);
    chosen.next_step = play_step::ball_booked;
  }
  return chosen;
}

class ForecastSharesOfAdvice : public ::testing::TestWithParam<advised_kind> {};

TEST_P(ForecastSharesOfAdvice, DifferAsFullMatchesUnderEachChoiceDo) {
  const auto [state, choices] = first_asked(GetParam());
  const int matches = advised_matches();
  const bool first_bats = state.innings_number % 2 == 1;
  const bool is_first = (GetParam().side == advised_side::batting) == first_bats;
  const rest_outcome win = is_first ? rest_outcome::first_wins : rest_outcome::second_wins;
  const double computers = share_in_full(state, matches, win);
  const auto told = advise(state, GetParam().side, choices, {.runs = matches, .seed = 3, .threads = 1, .stop = {}});
  ASSERT_EQ(told.size(), choices.size() + 1);
  for (std::size_t i = 1; i < told.size(); ++i) {
    const captains_choice& choice = choices[i - 1];
    const double chosen = share_in_full(made(state, choice), matches, win,
                                        [&](match_state& played) { lay_down(choice, state.innings_number, played); });
    const double error = std::hypot(told[i].standard_error, error_of(chosen, matches), error_of(computers, matches));
    EXPECT_NEAR(told[i].difference, chosen - computers, 4 * error)
        << choice.position << " at " << choice.level << ", " << described(state);
    std::cout << GetParam().name << " of man " << choice.position << ", level " << choice.level << ": told "
              << told[i].difference << ", played " << chosen - computers << ", error " << error << '\n';
  }
}

INSTANTIATE_TEST_SUITE_P(, ForecastSharesOfAdvice,
                         ::testing::Values(advised_kind{"batting", kind::batting_aggression, advised_side::batting},
                                           advised_kind{"bowling", kind::bowling_aggression, advised_side::bowling},
                                           advised_kind{"bowler", kind::bowler, advised_side::bowling},
                                           advised_kind{"batsman", kind::next_batsman, advised_side::batting}),
                         [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace velorin::testing
