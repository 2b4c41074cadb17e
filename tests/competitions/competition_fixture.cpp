// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/competition_fixture.h"

#include "competitions/series.h"
#include "competitions/tri_series.h"
#include "competitions/world_cup.h"
#include "setup/conditions.h"
#include "setup/match_steps.h"
#include "setup/team_selection.h"
#include "support/game_in_play.h"

namespace velorin::testing {

namespace {

void force_result(const entered_match& played, const forced_ending& forced) {
  const bool first = forced.how == ending::first_wins;
  if (forced.how == ending::tie) {
    match.result_winner.clear();
    match.result_loser.clear();
    match.result_margin = "Match tied.";
  } else {
    match.result_winner = first ? played.first : played.second;
    match.result_loser = first ? played.second : played.first;
    match.result_margin = competition_user::forced_margin;
  }
  for (rate_entry* rate : {&match.rate_first, &match.rate_second}) {
    rate->delta = rate->team == played.first ? forced.delta : -forced.delta;
  }
  if (played.first == played.second) match.rate_second.delta = -match.rate_first.delta;
}

}  // namespace

void competition_user::show(conditions_form& form) {
  entered_match entered;
  entered.first_human = !match.computer_bats;
  entered.second_human = !match.computer_bowls;
  entered.ground = match.ground.ground_name;
  matches.push_back(entered);
  scripted_user::show(form);
}

void competition_user::show(team_selection_form& form) {
  (matches.back().first.empty() ? matches.back().first : matches.back().second) = form.heading();
  scripted_user::show(form);
}

void competition_user::show(message_box const& message) {
  scripted_user::show(message);
  if (message.title != "End of Match") return;
  entered_match& played = matches.back();
  if (!endings.empty()) {
    const forced_ending forced = endings.front();
    endings.pop_front();
    if (forced.how != ending::as_played) force_result(played, forced);
  }
  played.result = match;
}

std::vector<std::string> competition_user::winners() const {
  std::vector<std::string> names;
  for (const entered_match& played : matches) names.push_back(played.result.result_winner);
  return names;
}

bool play_entered(const entered_side& first, const entered_side& second, const std::string& ground) {
  enter_match(in_play(), first, second, ground);
  return resume_match(in_play());
}

void CompetitionTest::SetUp() {
  match = match_state();
  series = series_record();
  tri = tri_record();
  world_cup = world_cup_record();
  data.files.elevens_in_memory = true;
  chance.use_seed(20);
}

void CompetitionTest::add_teams(const std::vector<std::string>& names) {
  for (const std::string& name : names) {
    database_.add_team(name);
    database_.add_ground(name, name + " Oval");
  }
  database_.add_ground("Neutral", "Halfway Field");
  for (const std::string& name : names) database_.add_ground(name, name + " Park", 2, 4, 1430);
  database_.write();
}

void CompetitionTest::force(const std::vector<int>& endings, double delta) {
  for (const int winner : endings) {
    const ending how = winner == 1 ? ending::first_wins : winner == 2 ? ending::second_wins : ending::tie;
    user_.endings.push_back({how, winner == 1 ? delta : winner == 2 ? -delta : 0});
  }
}

}  // namespace velorin::testing
