// SPDX-License-Identifier: GPL-3.0-or-later
// Forecasts seeded matches at ten points each and prints how each of these matches went: a line a point with the number
// of the match, innings, wickets, the chance told for the side that bats first, and 1 where it won. Arguments: the
// first and the last number of the matches, the runs of a forecast. The folder of the data files is named by
// VELORIN_TEAMS.
#include <fmt/format.h>

#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#include "competitions/game_state.h"
#include "database/configuration.h"
#include "forecast/forecast.h"
#include "headless/headless_user.h"
#include "setup/new_match.h"

namespace velorin::bench {
namespace {

constexpr std::size_t points_a_match = 10;

/// A moment of a match.
struct moment {
  match_start start;
  int innings = 0;
  int wickets = 0;
};

/// Keeps the moments of a match, one every few balls.
class keeper : public headless_user {
 public:
  explicit keeper(const match_state& played) : headless_user(played), played_(played) {}

  using headless_user::show;
  void ball_bowled() override {
    if (balls_++ % 6 == 3) moments.push_back({start_at(played_), played_.innings_number, played_.score_wickets});
  }

  std::vector<moment> moments;

 private:
  const match_state& played_;
  int balls_ = 0;
};

void play_and_tell(game_state& game, long number, long runs) {
  game.chance.use_seed(static_cast<std::uint64_t>(number));
  keeper user(game.match);
  new_match_form form({game.match, game.chance, user, game.data});
  form.open();
  const int teams = static_cast<int>(form.teams.size());
  const int first = die(game.chance, teams) - 1;
  form.choose_first_team(first);
  form.choose_second_team((first + die(game.chance, teams - 1)) % teams);
  form.accept();
  const std::size_t count = user.moments.size();
  for (std::size_t i = 0; i < points_a_match && i < count; ++i) {
    const moment& at = user.moments[(2 * i + 1) * count / (2 * points_a_match)];
    const forecast_answer told = forecast_rest(
        at.start, {.runs = runs, .seed = static_cast<std::uint64_t>(1'000'000 + number), .threads = 1, .stop = {}});
    std::cout << fmt::format("{},{},{},{},{}\n", number, at.innings, at.wickets, told.win_first,
                             game.match.result_winner == told.first ? 1 : 0);
  }
}

}  // namespace
}  // namespace velorin::bench

int main(int argc, char** argv) {
  const char* teams = std::getenv("VELORIN_TEAMS");
  if (teams == nullptr || argc != 4) {
    std::cerr << "usage: VELORIN_TEAMS=FOLDER velorin-forecast-calibration FIRST LAST RUNS\n";
    return 2;
  }
  velorin::game_state game;
  game.data.files = velorin::database_paths(teams, "world");
  game.data.files.elevens_in_memory = true;
  game.data.files.read_once = true;
  game.data.files.updates = false;
  for (long number = std::stol(argv[1]); number <= std::stol(argv[2]); ++number) {
    velorin::bench::play_and_tell(game, number, std::stol(argv[3]));
  }
  return 0;
}
