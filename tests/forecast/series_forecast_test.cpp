// SPDX-License-Identifier: GPL-3.0-or-later
// Two sides that meet next in a series, and stages of competitions that are known.
#include <gmock/gmock.h>

#include <cstddef>
#include <string>
#include <vector>

#include "competitions/game_state.h"
#include "competitions/series.h"
#include "competitions/tri_series.h"
#include "forecast/competition_forecast.h"
#include "forecast/forecast_words.h"
#include "forecast/series_forecast.h"
#include "headless/headless_user.h"
#include "support/game_in_play.h"
#include "support/small_database.h"
#include "ui/match_play.h"

namespace velorin::testing {
namespace {

/// Keeps a copy of the game at each standing.
class keeper_of_standings : public headless_user {
 public:
  explicit keeper_of_standings(const game_state& game) : headless_user(game.match), game_(game) {}

  using headless_user::show;
  void show(series_results_form& form) override {
    kept.push_back(own_copy(game_));
    headless_user::show(form);
  }
  void show(tri_series_table_form& form) override {
    kept.push_back(own_copy(game_));
    headless_user::show(form);
  }

  std::vector<game_state> kept;

 private:
  const game_state& game_;
};

class SeriesForecast : public ::testing::Test {
 protected:
  SeriesForecast() {
    match = {};
    series = {};
    tri = {};
    for (const char* name : {"Ardell", "Brava", "Corrin"}) {
      squad men = sample_squad(name);
      // The others hardly bat.
      for (player_rec& man : men) {
        if (!man.name.empty() && std::string(name) != "Corrin") man.bat_skill = 5;
      }
      database_.add_team(name, men);
      database_.add_ground(name, std::string(name) + " Oval");
      database_.add_ground(name, std::string(name) + " Park");
    }
    database_.write();
    data.files.elevens_in_memory = true;
    data.files.read_once = true;
    chance.use_seed(5);
  }

  small_database database_;
};

constexpr int runs = 200;
const forecast_options few_runs = {.runs = runs, .seed = 1, .threads = 2, .stop = {}};

TEST_F(SeriesForecast, FollowsTheBetterSideAndTheMatchesWon) {
  keeper_of_standings user(tested_game);
  series_form form({match, chance, user, data}, series);
  form.open();
  form.choose_home(0);
  form.choose_away(2);
  form.typed_matches = "5";
  form.accept();
  ASSERT_EQ(user.kept.size(), 5U);
  for (game_state& state : user.kept) {
    const auto found = forecast_series(state, few_runs);
    ASSERT_EQ(found.has_value(), state.series.match_no < 5) << state.series.match_no;
    if (!found) continue;
    EXPECT_EQ(found->next.a == "Corrin" ? found->next.b : found->next.a, "Ardell");
    const double next = found->next.a == "Corrin" ? found->next.win_a : found->next.win_b;
    const double whole = found->series.a == "Corrin" ? found->series.win_a : found->series.win_b;
    EXPECT_GT(next, 0.6) << "they are better by far";
    EXPECT_LE(found->next.win_a + found->next.win_b, 1 + 1e-9);
    int won = 0;
    for (int each = 1; each <= state.series.match_no; ++each) {
      won += state.series.series_winner[static_cast<std::size_t>(each)] == "Corrin" ? 1 : 0;
    }
    if (won >= 3) {
      EXPECT_EQ(whole, 1) << "nobody can catch up";
    } else if (2 * won >= state.series.match_no) {
      EXPECT_GT(whole, 0.6);
    }
    // The same seed, the same chances, whoever plays.
    const auto alone = forecast_series(state, {.runs = runs, .seed = 1, .threads = 1, .stop = {}});
    ASSERT_TRUE(alone);
    EXPECT_EQ(alone->series.win_a, found->series.win_a);
    EXPECT_EQ(alone->next.win_b, found->next.win_b);
  }
}

TEST_F(SeriesForecast, OfATriSeriesTellsOfTheNextMatchUpToTheFinal) {
  keeper_of_standings user(tested_game);
  tri_series_form form({match, chance, user, data}, tri);
  form.open();
  form.set_rounds(1);
  form.accept();
  ASSERT_EQ(user.kept.size(), 4U) << "three of the league, and the final";
  for (std::size_t i = 0; i < user.kept.size(); ++i) {
    const auto found = forecast_next_of_tri(user.kept[i], few_runs);
    ASSERT_EQ(found.has_value(), i < 3) << i;
    if (found) {
      EXPECT_NE(found->a, found->b);
      EXPECT_GT(found->win_a + found->win_b, 0.9);
    }
    const auto stages = forecast_tri(user.kept[i], {.runs = 40, .seed = 1, .threads = 1, .stop = {}});
    EXPECT_EQ(stages.settled, i < 2 ? 0 : i == 2 ? 1 : 2);
    for (const tri_chances& team : stages.teams) {
      const std::string final = stage_words({team.final, team.title}, stages.settled, 0);
      if (stages.settled == 0) continue;
      EXPECT_TRUE(final == "0 %" || final == "100 %") << final;
      if (team.final == 0) {
        EXPECT_EQ(stage_words({team.final, team.title}, stages.settled, 1), "0 %");
      }
    }
  }
}

TEST(ChanceWords, AreCertainOnlyWhereNothingIsLeftToChance) {
  EXPECT_EQ(chance_words(0), "<1 %");
  EXPECT_EQ(chance_words(1), ">99 %");
  EXPECT_EQ(chance_words(0, true), "0 %");
  EXPECT_EQ(chance_words(1, true), "100 %");
  EXPECT_EQ(chance_words(0.4, true), "40 %");
  EXPECT_EQ(stage_words({1, 0.5, 0.2}, 1, 0), "100 %");
  EXPECT_EQ(stage_words({1, 0.5, 0}, 1, 2), "<1 %") << "in with a chance";
  EXPECT_EQ(stage_words({0, 0, 0}, 1, 2), "0 %") << "out";
}

}  // namespace
}  // namespace velorin::testing
