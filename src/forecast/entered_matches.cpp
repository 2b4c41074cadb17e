// SPDX-License-Identifier: GPL-3.0-or-later
#include "forecast/entered_matches.h"

#include <algorithm>
#include <utility>

#include "database/open_database.h"
#include "database/teams_file.h"
#include "forecast/nobody.h"
#include "model/run_time_error.h"
#include "setup/conditions.h"
#include "setup/match_steps.h"
#include "setup/new_match.h"
#include "setup/team_selection.h"
#include "ui/match_play.h"

namespace velorin {

namespace {

/// The eleven that the computer makes of a squad.
eleven computers_eleven(const std::string& team, squad men) {
  match_state unused_match;
  random_source unused_chance;
  nobody user;
  open_database no_files;
  sort_squad(men);
  team_selection_form form({unused_match, unused_chance, user, no_files});
  form.open(team, men);
  form.select_eleven();
  eleven chosen = form.chosen_men();
  for (player_rec& man : chosen) man.name.clear();
  return chosen;
}

/// The match has its sides and its ground, but not yet both its elevens.
match_start start_in_set_up(const match_state& match, const competition_world& world) {
  match_conditions conditions = match;
  if (match.step == match_step::conditions) {
    const auto& levels = match.conditions_drawn.levels;
    conditions.weather = levels[0];
    conditions.ground.pitch_surface = levels[1];
    conditions.ground.pitch_bounce = levels[2];
    conditions.outfield = levels[3];
  }
  const auto& [first, second] = match.chosen;
  return start_before_toss(first.name, second.name, world.elevens.at(first.name), world.elevens.at(second.name),
                           conditions);
}

}  // namespace

competition_world world_of_competition(match_state& match, open_database& data, const std::vector<std::string>& teams,
                                       bool match_is_on) {
  competition_world world;
  const std::vector<team_entry> entries = list_teams(data);
  for (const std::string& team : teams) {
    const auto entry =
        std::find_if(entries.begin(), entries.end(), [&](const team_entry& e) { return e.name == team; });
    if (team.empty() || world.elevens.contains(team)) continue;
    if (entry == entries.end()) {
      throw run_time_error(failure::subscript, "Subscript out of range: no such team in the database",
                           {.file = {}, .record = 0, .field = "team_name", .player = team});
    }
    world.elevens.emplace(team, computers_eleven(team, squad_of(data, {entry->name, entry->record})));
  }
  world.grounds = read_grounds(data);
  world.ground_before = match.ground;
  world.result_before = match;
  if (!match_is_on) return world;
  if (can_be_forecast(match)) {
    world.in_play = start_at(match);
  } else if (match.step != match_step::none) {
    world.in_play = start_in_set_up(match, world);
  }
  return world;
}

match_start start_anywhere(match_state& match, open_database& data) {
  if (can_be_forecast(match)) return start_at(match);
  return *world_of_competition(match, data, {match.chosen[0].name, match.chosen[1].name}, true).in_play;
}

entered_matches::entered_matches(const competition_world& world) : world_(&world) {}

void entered_matches::begin_run() {
  scratch_.ground = world_->ground_before;
  static_cast<match_result&>(scratch_) = world_->result_before;
}

void entered_matches::play(const entered_side& first, const entered_side& second, const std::string& ground,
                           random_source& chance) {
  if (enter_walkover(scratch_, first, second)) return;
  for (const ground_rec& known : world_->grounds) {
    if (known.ground_name == ground) scratch_.ground = known;
  }
  nobody user;
  open_database no_files;
  conditions_form conditions({scratch_, chance, user, no_files});
  conditions.open();
  conditions.accept();
  play_from(start_before_toss(first.team, second.team, world_->elevens.at(first.team), world_->elevens.at(second.team),
                              scratch_),
            chance);
}

void entered_matches::play_in_progress(random_source& chance) {
  if (world_->in_play) play_from(*world_->in_play, chance);
}

void entered_matches::play_from(const match_start& start, random_source& chance) {
  const played_rest rest = player_.play(start, chance);
  match_result& result = scratch_;
  result = {};
  if (rest.outcome == rest_outcome::undecided) return;
  const bool tied = rest.outcome == rest_outcome::tie;
  result.decided = tied ? match_decision::tie : match_decision::runs;
  if (!tied) result.result_winner = rest.outcome == rest_outcome::first_wins ? start.first : start.second;
  const std::string& before = rest.first_batted ? start.first : start.second;
  const std::string& after = rest.first_batted ? start.second : start.first;
  result.rate_first = {before, rest.rate_gain};
  result.rate_second = {after, rest.rate_gain == 0 ? 0 : -rest.rate_gain};
}

}  // namespace velorin
