// SPDX-License-Identifier: GPL-3.0-or-later
#include "browsers/player_profile.h"

#include <fmt/format.h>

#include <algorithm>

#include "browsers/career_rates.h"
#include "database/configuration.h"
#include "database/open_database.h"
#include "database/photos.h"
#include "database/whole_file.h"
#include "model/run_time_error.h"
#include "model/texts.h"
#include "ui/front_end.h"

namespace velorin {

namespace {

constexpr std::string_view unknown_rate = " -  ";
constexpr std::string_view no_ball_faced = " 0 ";

/// The place of a text in a list, or -1.
int index_of(const std::vector<std::string>& list, const std::string& text) {
  const auto found = std::find(list.begin(), list.end(), text);
  return found == list.end() ? -1 : static_cast<int>(found - list.begin());
}

[[noreturn]] void raise_no_career(const open_database& data, const std::string& happened, const std::string& name) {
  throw run_time_error(failure::subscript, happened,
                       {.file = file_name_text(data.files.career_file), .record = 0, .field = {}, .player = name});
}

std::vector<shown_field> batting_fields(const career_rec& career) {
  return {{"Innings", number_text(career.innings)},
          {"Not Outs", number_text(career.not_outs)},
          {"Runs ", number_text(career.runs)},
          {"Balls faced", number_text(career.balls_faced)},
          {"Highest Score:", high_score_text(career) + "  vs  " + career.high_against},
          {"Average", rate_text(batting_average(career), unknown_rate)},
          {"Strike Rate", rate_text(batting_strike_rate(career), no_ball_faced)},
          {"Hundreds", number_text(career.hundreds)},
          {"Fifties", number_text(career.fifties)},
          {"% 50 +", rate_text(fifty_plus_rate(career), unknown_rate)},
          {"Fours", number_text(career.fours)},
          {"Sixes", number_text(career.sixes)}};
}

std::vector<shown_field> bowling_fields(const career_rec& career) {
  return {{"Overs", overs_from_balls(career.balls_bowled)},
          {"Balls Bowled", number_text(career.balls_bowled)},
          {"Maidens", number_text(career.maidens)},
          {"Runs Given", number_text(career.runs_given)},
          {"Wickets", number_text(career.wickets)},
          {"Best Bowling:", best_bowling_text(career) + "  vs  " + career.best_against},
          {"Average", rate_text(bowling_average(career), unknown_rate)},
          {"Strike Rate", rate_text(bowling_strike_rate(career), unknown_rate)},
          {"Economy", rate_text(economy_rate(career), unknown_rate)},
          {"5 wkts ", number_text(career.five_wickets)}};
}

}  // namespace

void player_profile_form::open() {
  static_cast<player_profile_screen&>(*this) = {};
  squads_.clear();
  careers_ = read_career_table(data_);
  for (int t = 1; t <= careers_.career_team_count; ++t) teams.push_back(careers_.teams[t].team_name);
}

void player_profile_form::offer_squads() {
  squads_ = squads_on_hand(data_);
  for (const team_rec& team : squads_) {
    if (index_of(teams, team.team_name) < 0) teams.push_back(team.team_name);
  }
}

void player_profile_form::open_locked(const std::string& team, const std::string& player) {
  open();
  lock_on(team, player);
}

void player_profile_form::open_locked_in_squad(const std::string& team, const std::string& player) {
  open();
  offer_squads();
  lock_on(team, player);
}

void player_profile_form::lock_on(const std::string& team, const std::string& player) {
  const int team_index = index_of(teams, team);
  if (team_index < 0) raise_no_career(data_, "No player of the team has a career", team);
  choose_team(team_index);
  const int player_index = index_of(players, player);
  if (player_index < 0) raise_no_career(data_, fmt::format("The player has no career for {}", team), player);
  choose_player(player_index);
  locked = true;
}

void player_profile_form::choose_team(int index) {
  if (locked) return;
  chosen_team = index;
  team_changed = true;
  tick();
}

void player_profile_form::choose_player(int index) {
  if (locked) return;
  chosen_player = index;
  tick();
}

const career_team_rec* player_profile_form::chosen_careers() const {
  return chosen_team < careers_.career_team_count ? &careers_.teams[chosen_team + 1] : nullptr;
}

void player_profile_form::tick() {
  if (chosen_team < 0) return;
  const career_team_rec* with_careers = chosen_careers();
  const std::string& team = teams[static_cast<std::size_t>(chosen_team)];
  int careers = 0;
  if (with_careers != nullptr) careers = with_careers->player_count;
  if (team_changed) {
    players.clear();
    chosen_player = -1;
    for (int p = 1; p <= careers; ++p) players.push_back(with_careers->players[p].name);
    for (const team_rec& offered : squads_) {
      if (offered.team_name != team) continue;
      for (const player_rec& man : offered.squad) {
        if (!man.name.empty() && index_of(players, man.name) < 0) players.push_back(man.name);
      }
    }
    team_changed = false;
  }
  if (chosen_player < 0) return;
  if (chosen_player < careers) return fill(with_careers->players[chosen_player + 1]);
  fill(*squad_man(squads_, team, players[static_cast<std::size_t>(chosen_player)]));
}

void player_profile_form::fill(const career_rec& career) {
  person = {{"Name", career.name}, {"Matches", number_text(career.matches)}};
  batting = batting_fields(career);
  bowling = bowling_fields(career);
  fielding = {{"Catches", number_text(career.catches)}, {"Stumpings", number_text(career.stumpings)}};
  standing.reset();
  compared.reset();
  if (compared_with_.empty()) compared_with_ = squads_on_hand(data_);
  const std::string& team = teams[static_cast<std::size_t>(chosen_team)];
  if (const player_rec* man = squad_man(compared_with_, team, career.name); man != nullptr) {
    compared = standing_of(compared_with_, *man);
  }
  photo = profile_photo(data_, career.name);
  no_photo_visible = !photo;
}

void player_profile_form::fill(const player_rec& man) {
  standing = standing_of(squads_, man);
  compared.reset();
  person = {{"Name", man.name}, {"Matches", number_text(0)}};
  batting.clear();
  bowling.clear();
  fielding.clear();
  photo = profile_photo(data_, man.name);
  no_photo_visible = !photo;
}

bool show_profile(front_end& user, const open_database& data, const std::string& team, const std::string& player) {
  player_profile_form form(data);
  try {
    form.open_locked(team, player);
  } catch (const run_time_error& failed) {
    if (squad_man(squads_on_hand(data), team, player) == nullptr || failed.kind() != failure::subscript) {
      user.show(message_box{"Error - Player Details", failed.what()});
      return false;
    }
    form.open_locked_in_squad(team, player);
  }
  user.show(form);
  return true;
}

}  // namespace velorin
