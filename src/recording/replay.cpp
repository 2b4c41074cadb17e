// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/replay.h"

#include <fmt/format.h>

#include <utility>

#include "competitions/series.h"
#include "competitions/tri_series.h"
#include "competitions/world_cup_form.h"
#include "database/elevens.h"
#include "database/teams_file.h"
#include "model/run_time_error.h"
#include "recording/recorded_user.h"
#include "setup/new_match.h"
#include "ui/front_end.h"
#include "ui/match_play.h"

namespace velorin {

namespace {

[[noreturn]] void raise_unknown_team(const std::string& name, const entered_team& team) {
  throw run_time_error(failure::file, "The recording has no squad of a team that it names",
                       {.file = name, .record = team.record, .field = {}, .player = team.name});
}

void require_teams(const recording& recorded, const std::string& name, std::size_t count) {
  const entered_game& game = recorded.beginning.game;
  if (game.teams.size() != count) {
    throw run_time_error(failure::file, fmt::format("The recording names {} teams, not {}", game.teams.size(), count),
                         {.file = name, .record = 1, .field = {}, .player = {}});
  }
}

/// Its place in a list of teams, by its number in the file; -1 for none.
int place_of(const recording& recorded, const std::string& name, const entered_team& team) {
  if (team.name.empty()) return -1;
  for (const auto& [number, rec] : recorded.beginning.teams) {
    if (number == team.record && rec.team_name == team.name) return number - 2;
  }
  raise_unknown_team(name, team);
}

void play_match(const recording& recorded, const std::string& name, const match_play& play) {
  require_teams(recorded, name, 2);
  const entered_game& entered = recorded.beginning.game;
  new_match_form form(play);
  form.open();
  form.first_team_index = place_of(recorded, name, entered.teams[0]);
  form.second_team_index = place_of(recorded, name, entered.teams[1]);
  form.grounds = {entered.ground};
  form.ground_index = 0;
  form.practice = entered.number == 1;
  form.computer_captains_first = !entered.teams[0].human;
  form.computer_captains_second = !entered.teams[1].human;
  form.accept();
}

void play_series(const recording& recorded, const std::string& name, const match_play& play, series_record& series) {
  require_teams(recorded, name, 2);
  const entered_game& entered = recorded.beginning.game;
  series_form form(play, series);
  form.open();
  form.choose_home(place_of(recorded, name, entered.teams[0]));
  form.choose_away(place_of(recorded, name, entered.teams[1]));
  form.set_matches(entered.number);
  form.computer_captains_home = !entered.teams[0].human;
  form.computer_captains_away = !entered.teams[1].human;
  form.accept();
}

void play_tri(const recording& recorded, const std::string& name, const match_play& play, tri_record& tri) {
  require_teams(recorded, name, tri_teams);
  const entered_game& entered = recorded.beginning.game;
  tri_series_form form(play, tri);
  form.open();
  for (std::size_t i = 0; i < tri_teams; ++i) {
    form.choose_team(static_cast<int>(i), place_of(recorded, name, entered.teams[i]));
    form.computer_captains[i] = !entered.teams[i].human;
  }
  form.set_rounds(entered.number);
  form.accept();
}

void play_cup(const recording& recorded, const std::string& name, const match_play& play, world_cup_record& cup) {
  require_teams(recorded, name, 2 * cup_group_teams);
  const entered_game& entered = recorded.beginning.game;
  if (entered.hosts.size() != cup_hosts) {
    throw run_time_error(failure::file,
                         fmt::format("The recording names {} hosts, not {}", entered.hosts.size(), cup_hosts),
                         {.file = name, .record = 1, .field = {}, .player = {}});
  }
  world_cup_form form(play, cup);
  form.teams = list_teams(play.data);
  for (std::size_t i = 0; i < cup_group_teams; ++i) {
    form.group_a_index[i] = place_of(recorded, name, entered.teams[i]);
    form.group_b_index[i] = place_of(recorded, name, entered.teams[i + cup_group_teams]);
    form.human_a[i] = entered.teams[i].human;
    form.human_b[i] = entered.teams[i + cup_group_teams].human;
  }
  // A host need not play: his name is all that counts.
  for (std::size_t i = 0; i < cup_hosts; ++i) {
    form.host_index[i] = -1;
    if (entered.hosts[i].empty()) continue;
    form.host_index[i] = static_cast<int>(form.teams.size());
    form.teams.push_back({entered.hosts[i], 0});
  }
  form.accept();
}

}  // namespace

game_state game_at_beginning(const recording& recorded) {
  const recorded_beginning& begun = recorded.beginning;
  game_state game;
  std::vector<team_rec> teams;
  for (const auto& [number, team] : begun.teams) {
    const auto place = static_cast<std::size_t>(std::max(2, std::min(number, team_limit + 1)) - 2);
    if (teams.size() <= place) teams.resize(place + 1);
    teams[place] = team;
  }
  hold_teams_and_grounds(game.data, std::move(teams), begun.grounds);
  game.data.settings.text_color = begun.text_color;
  game.data.settings.back_color = begun.back_color;
  game.data.files.updates = false;
  game.data.files.elevens_in_memory = true;
  switch (begun.chance) {
    case random_source::kind::seed:
      game.chance.use_state(begun.chance_state, recorded.readings);
      break;
    case random_source::kind::script:
      game.chance.use_script(recorded.draws, "recording");
      break;
    case random_source::kind::clock:
    case random_source::kind::readings:
      game.chance.use_readings(begun.chance_state, recorded.readings);
      break;
  }
  static_cast<match_worms&>(game.match) = begun.standing.worms;
  if (begun.standing.world_cup) game.world_cup = *begun.standing.world_cup;
  return game;
}

replay_end replay(const recording& recorded, const std::string& name, game_state& game, const replay_options& options) {
  recorded_user user(recorded, name, game, options);
  const match_play play{game.match, game.chance, user, game.data};
  try {
    switch (recorded.beginning.game.kind) {
      case game_kind::match:
        play_match(recorded, name, play);
        break;
      case game_kind::series:
        play_series(recorded, name, play, game.series);
        break;
      case game_kind::tri_series:
        play_tri(recorded, name, play, game.tri);
        break;
      case game_kind::world_cup:
        play_cup(recorded, name, play, game.world_cup);
        break;
    }
  } catch (const play_left& left) {
    return left.where;
  } catch (const run_time_error&) {
    // It broke off between what seeded chance and the next that was shown.
    if (user.at_end() && game.chance.ran_out()) return replay_end::open;
    throw;
  }
  return replay_end::over;
}

std::optional<game_state> game_to_continue(const recording& recorded, const std::string& name,
                                           const open_database& data, practice_history* remembered) {
  if (recorded.ended()) return std::nullopt;
  game_state game = game_at_beginning(recorded);
  // Where it broke off before what play drew was shown, play draws anew, up to the next that is. Of a seeded match of
  // practice that is the reading for fresh luck.
  game.chance.let_clock_follow();
  std::optional<random_source> chance;  // with what it keeps for a match of practice, and forgets as that is left
  replay_options options;
  options.console_left = [&](const console_form& form) {
    if (remembered == nullptr || !game.match.practice) return;
    *remembered = form.remembered();
    chance = game.chance;
  };
  if (replay(recorded, name, game, options) == replay_end::over) return std::nullopt;
  if (chance) game.chance = *std::move(chance);
  const elevens_held held = game.data.held;
  game.data = data;
  game.chance.go_on_by_clock();
  const match_step step = game.match.step;
  const bool first = step == match_step::second_selection || step == match_step::toss_call || step == match_step::toss;
  const bool both = step == match_step::toss_call || step == match_step::toss;
  if (first) write_eleven(game.data, side::first, held.of(side::first));
  if (both) write_eleven(game.data, side::second, held.of(side::second));
  return game;
}

bool stands_at(const match_state& match, innings_place place) {
  return match.innings_number == place.innings && match.innings_balls == place.balls;
}

}  // namespace velorin
