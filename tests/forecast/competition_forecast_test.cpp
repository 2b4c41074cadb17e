// SPDX-License-Identifier: GPL-3.0-or-later
// What is left of a competition, played without anybody who reads, is draw for draw the one that is played in full.
#include <gmock/gmock.h>

#include <set>
#include <string>
#include <vector>

#include "competitions/game_state.h"
#include "competitions/tri_series.h"
#include "competitions/world_cup_fixtures.h"
#include "competitions/world_cup_form.h"
#include "competitions/world_cup_tables.h"
#include "forecast/competition_forecast.h"
#include "forecast/entered_matches.h"
#include "headless/headless_user.h"
#include "support/game_in_play.h"
#include "support/small_database.h"
#include "ui/match_play.h"

namespace velorin::testing {
namespace {

const std::vector<std::string> ten_teams = {"Ardell", "Brava",  "Corrin", "Dessa", "Elmar",
                                            "Farol",  "Gintra", "Halden", "Isker", "Jorvik"};

/// A squad of the sample men, a bit better or worse by the number of the team.
squad rated_squad(const std::string& name, int number) {
  squad men = sample_squad(name);
  for (player_rec& man : men) {
    if (!man.name.empty()) man.bat_skill = man.bat_skill + number;
  }
  return men;
}

std::string in_words(const std::vector<league_texts>& table) {
  std::string words;
  for (const league_texts& row : table) {
    for (const std::string& text : row) words += text + " ";
    words += "; ";
  }
  return words;
}

/// Keeps copies of the game at some balls, at some questions of a set-up and at the standings, and the last tables.
class keeper : public headless_user {
 public:
  keeper(const game_state& game, int every) : headless_user(game.match), game_(game), every_(every) {}

  using headless_user::show;
  void ball_bowled() override {
    if (every_ != 0 && ++balls_ % (every_ * 311) == 0) kept.push_back(own_copy(game_));
  }
  void show(conditions_form& form) override {
    look();
    headless_user::show(form);
  }
  void show(team_selection_form& form) override {
    look();
    headless_user::show(form);
  }
  void show(tri_series_table_form& form) override {
    look();
    last_tables = in_words({form.rows.begin(), form.rows.end()}) + form.final_result;
    headless_user::show(form);
  }
  void show(world_cup_fixtures_form& form) override {
    look();
    headless_user::show(form);
  }
  void show(world_cup_tables_form& form) override {
    look();
    last_tables = in_words(form.group_a) + in_words(form.group_b) + in_words(form.super_six) + form.winners_line;
    headless_user::show(form);
  }

  std::vector<game_state> kept;
  std::string last_tables;

 private:
  void look() {
    if (every_ != 0 && ++looks_ % every_ == 0) kept.push_back(own_copy(game_));
  }

  const game_state& game_;
  int every_;
  int balls_ = 0;
  int looks_ = 0;
};

class CompetitionForecast : public ::testing::Test {
 protected:
  void SetUp() override {
    match = {};
    series = {};
    tri = {};
    world_cup = {};
    for (std::size_t i = 0; i < ten_teams.size(); ++i) {
      database_.add_team(ten_teams[i], rated_squad(ten_teams[i], static_cast<int>(i)));
    }
    for (const std::string& name : ten_teams) {
      database_.add_ground(name, name + " Oval", 2, 4);
      database_.add_ground(name, name + " Park");
    }
    database_.write();
    data.files.elevens_in_memory = true;
    data.files.read_once = true;
    chance.use_seed(5);
  }

  /// States of a World Cup that was played in full.
  static std::vector<game_state> states_of_a_cup(int every) {
    keeper user(tested_game, every);
    world_cup_form form({match, chance, user, data}, world_cup);
    form.open();
    form.accept();
    return std::move(user.kept);
  }
  static std::vector<game_state> states_of_a_tri_series(int every) {
    keeper user(tested_game, every);
    tri_series_form form({match, chance, user, data}, tri);
    form.open();
    form.set_rounds(3);
    form.accept();
    return std::move(user.kept);
  }

  small_database database_;
};

/// The end that a run of a forecast comes to, its last tables in words and what it drew.
struct end_of_competition {
  std::string tables;
  std::uint64_t draws = 0;
};

match_maker unread(entered_matches& matches, random_source& drawn) {
  return [&](const entered_side& first, const entered_side& second, const std::string& ground) {
    matches.play(first, second, ground, drawn);
  };
}

TEST_F(CompetitionForecast, EndsAWorldCupAsItIsPlayed) {
  const std::vector<game_state> states = states_of_a_cup(7);
  ASSERT_GT(states.size(), 15U);
  int in_play = 0;
  for (const game_state& state : states) {
    game_state full = own_copy(state);
    full.chance.use_seed(9);
    keeper user(full, 0);
    resume_world_cup({full.match, full.chance, user, full.data}, full.world_cup);

    game_state quick = own_copy(state);
    random_source drawn;
    drawn.use_seed(9);
    const competition_world world =
        world_of_competition(quick.match, quick.data, ten_teams,
                             quick.world_cup.step == cup_step::match && quick.match.step != match_step::none);
    in_play += world.in_play ? 1 : 0;
    entered_matches matches(world);
    matches.begin_run();
    matches.play_in_progress(drawn);
    finish_world_cup(matches.match(), drawn, quick.world_cup, unread(matches, drawn));
    world_cup_tables_form tables(quick.world_cup);
    tables.open();
    EXPECT_EQ(in_words(tables.group_a) + in_words(tables.group_b) + in_words(tables.super_six) + tables.winners_line,
              user.last_tables);
    EXPECT_EQ(drawn.draws_used(), full.chance.draws_used());
  }
  EXPECT_GT(in_play, 5);
}

TEST_F(CompetitionForecast, EndsATriSeriesAsItIsPlayed) {
  const std::vector<game_state> states = states_of_a_tri_series(3);
  ASSERT_GT(states.size(), 8U);
  for (const game_state& state : states) {
    game_state full = own_copy(state);
    full.chance.use_seed(3);
    keeper user(full, 0);
    resume_tri_series({full.match, full.chance, user, full.data}, full.tri);

    game_state quick = own_copy(state);
    random_source drawn;
    drawn.use_seed(3);
    const competition_world world =
        world_of_competition(quick.match, quick.data, {"Brava", "Corrin", "Dessa"},
                             quick.tri.step == tri_step::match && quick.match.step != match_step::none);
    entered_matches matches(world);
    matches.begin_run();
    matches.play_in_progress(drawn);
    finish_tri_series(matches.match(), drawn, quick.tri, unread(matches, drawn));
    tri_series_table_form table(quick.tri);
    table.open();
    EXPECT_THAT(user.last_tables,
                ::testing::StartsWith(in_words({table.rows.begin(), table.rows.end()}) + table.final_result));
    EXPECT_EQ(drawn.draws_used(), full.chance.draws_used());
  }
}

TEST_F(CompetitionForecast, SendsSixFourTwoAndOneTeamOn) {
  for (game_state& state : states_of_a_cup(40)) {
    const auto forecast = forecast_cup(state, {.runs = 20, .seed = 1, .threads = 2, .stop = {}});
    ASSERT_EQ(forecast.teams.size(), 10U);
    EXPECT_EQ(forecast.runs, 20);
    cup_chances sum;
    for (const cup_chances& team : forecast.teams) {
      EXPECT_GE(team.super_six, team.semi_finals) << team.team;
      EXPECT_GE(team.semi_finals, team.grand_final) << team.team;
      EXPECT_GE(team.grand_final, team.title) << team.team;
      sum.super_six += team.super_six;
      sum.semi_finals += team.semi_finals;
      sum.grand_final += team.grand_final;
      sum.title += team.title;
    }
    EXPECT_NEAR(sum.super_six, 6, 1e-9);
    EXPECT_NEAR(sum.semi_finals, 4, 1e-9);
    EXPECT_LE(sum.grand_final, 2 + 1e-9) << "a tied semi-final sends nobody on";
    EXPECT_GT(sum.title, 0.7);
    EXPECT_LE(sum.title, 1 + 1e-9);
  }
}

TEST_F(CompetitionForecast, IsTheSameForAnyNumberOfThreads) {
  std::vector<game_state> states = states_of_a_cup(60);
  const auto titles = [&](game_state& state, int threads) {
    std::vector<double> won;
    for (const cup_chances& team : forecast_cup(state, {.runs = 50, .seed = 2, .threads = threads, .stop = {}}).teams) {
      won.push_back(team.title);
    }
    return won;
  };
  for (game_state& state : states) EXPECT_EQ(titles(state, 1), titles(state, 3));
}

TEST_F(CompetitionForecast, TellsTheChancesOfEachMatchToComeWhoseSidesAreKnown) {
  std::set<std::size_t> numbers;
  for (game_state& state : states_of_a_cup(40)) {
    const auto found = forecast_fixtures(state, {.runs = 40, .seed = 1, .threads = 2, .stop = {}});
    const auto alone = forecast_fixtures(state, {.runs = 40, .seed = 1, .threads = 1, .stop = {}});
    numbers.insert(found.size());
    ASSERT_EQ(found.size(), alone.size());
    int before = 0;
    for (std::size_t i = 0; i < found.size(); ++i) {
      const fixture_chances& match = found[i];
      EXPECT_GT(match.place, before) << "in their order";
      before = match.place;
      EXPECT_EQ(state.world_cup.fixtures[static_cast<std::size_t>(match.place)].result, "");
      EXPECT_GT(match.win_a + match.win_b, 0.7);
      EXPECT_LE(match.win_a + match.win_b, 1 + 1e-9);
      EXPECT_EQ(match.win_a, alone[i].win_a);
      EXPECT_EQ(match.win_b, alone[i].win_b);
    }
  }
  EXPECT_GT(*numbers.rbegin(), 9U);
  EXPECT_EQ(*numbers.begin(), 0U) << "once all are played";
}

TEST_F(CompetitionForecast, SendsTwoToTheFinalOfATriSeries) {
  for (game_state& state : states_of_a_tri_series(5)) {
    const auto forecast = forecast_tri(state, {.runs = 40, .seed = 1, .threads = 1, .stop = {}});
    ASSERT_EQ(forecast.teams.size(), 3U);
    double finals = 0;
    double titles = 0;
    for (const tri_chances& team : forecast.teams) {
      finals += team.final;
      titles += team.title;
      EXPECT_GE(team.final, team.title);
    }
    EXPECT_NEAR(finals, 2, 1e-9);
    EXPECT_GT(titles, 0.8);
  }
}

TEST_F(CompetitionForecast, KnowsNobodyOnceTheCompetitionIsOver) {
  EXPECT_TRUE(forecast_cup(tested_game, {}).teams.empty());
  EXPECT_TRUE(forecast_tri(tested_game, {}).teams.empty());
}

}  // namespace
}  // namespace velorin::testing
