// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/sample_match.h"

#include <gtest/gtest.h>

#include "database/configuration.h"
#include "engine/delivery_model.h"
#include "model/random.h"
#include "support/game_in_play.h"

namespace velorin::testing {

eleven sample_eleven(const std::string& prefix) {
  eleven men;
  for (int i = 1; i <= 11; ++i) {
    player_rec& man = men[i];
    man.name = prefix + std::to_string(i);
    man.bat_skill = i <= 7 ? 44 - i : 26 - i;
    man.bowl_sr = 70.0F + static_cast<float>(i);
    man.econ = 6.5F;
    man.bat_type = i <= 2 ? "RH Opener" : i <= 7 ? "LH Middle Order" : "RH Lower Order";
    man.bowler_type = "spinner";
  }
  men[7].is_keeper = flag_true;
  const char* kinds[] = {"Medium Pacer", "Fast Bowler", "Fast Bowler", "spinner", "Medium Pacer"};
  const int places[] = {6, 8, 9, 10, 11};
  for (int k = 0; k < 5; ++k) {
    men[places[k]].bowler_type = kinds[k];
    men[places[k]].bowl_sr = 32.0F + 1.5F * static_cast<float>(k);
    men[places[k]].econ = 4.6F + 0.2F * static_cast<float>(k);
  }
  return men;
}

void set_up_sample_match(bool computer_bats, bool computer_bowls) {
  match = match_state();
  match.team1_name = "Home";
  match.team2_name = "Away";
  match.batting_xi = sample_eleven("H.Bat");
  match.bowling_xi = sample_eleven("A.Bowl");
  match.computer_bats = computer_bats;
  match.computer_bowls = computer_bowls;
  match.ground.country = "Home";
  match.ground.ground_name = "The Oval";
  match.ground.pitch_bounce = 3;
  match.ground.pitch_surface = 3;
  match.ground.start_time = 1030;
  match.weather = 3;
  match.outfield = 3;
  data.files.updates = false;
  data.files.elevens_in_memory = true;
}

double draw_for(int n) { return die_draw(n, 1000); }

double die_draw(int face, int sides) { return (face - 0.5) / sides; }

void script_draws(std::vector<double> draws) { chance.use_script(std::move(draws), "script"); }

double draw_outcome(int outcome) {
  const auto windows = delivery_windows(expect_delivery(match));
  int end = 0;
  int first = 0;
  int last = 0;
  for (int draw = 1; draw <= 1000; ++draw) {
    if (classify(draw, windows) != outcome) continue;
    if (first == 0) first = draw;
    last = draw;
    ++end;
  }
  EXPECT_GT(end, 0) << "no window for outcome " << outcome;
  return draw_for((first + last) / 2);
}

}  // namespace velorin::testing
