// SPDX-License-Identifier: GPL-3.0-or-later
#include <array>
#include <cmath>
#include <filesystem>
#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include <fmt/format.h>

#include "cli/commands.h"
#include "cli/competition_options.h"
#include "cli/forecast_points.h"
#include "cli/json.h"
#include "cli/match_player.h"
#include "cli/match_run.h"
#include "cli/recorded_points.h"
#include "cli/standard_output.h"
#include "cli/text_table.h"
#include "competitions/game_state.h"
#include "competitions/world_cup_form.h"
#include "database/whole_file.h"
#include "forecast/competition_forecast.h"
#include "forecast/entered_matches.h"
#include "headless/headless_user.h"
#include "model/code_page.h"
#include "model/random.h"
#include "model/run_time_error.h"
#include "recording/recording.h"
#include "setup/new_match.h"

namespace velorin::cli {

namespace {

struct forecast_choice {
  std::string file;             ///< of a recording; empty: none
  std::vector<std::string> at;  ///< places of it
  bool each_over = false;
  bool match = false;
  bool world_cup = false;
  match_options of_match;
  competition_options of_cup;
  long runs = 10'000;
  int jobs = 1;
  bool json = false;
};

/// Without a seed the runs follow from the clock, as matches do.
forecast_options options_of(const forecast_choice& choice, const program_options& program, random_source& chance) {
  const auto drawn = static_cast<std::uint64_t>(std::ldexp(chance.rnd(), 32));
  return {.runs = choice.runs, .seed = program.seed.value_or(drawn), .threads = choice.jobs, .stop = {}};
}

int forecast_match(const forecast_choice& choice, const program_options& program, streams io) {
  run_state state = set_up_run(program);
  headless_user user(state.match);
  new_match_form form({state.match, state.chance, user, state.data});
  form.open();
  fill(state.data, form, choice.of_match);
  form.begin();
  if (const auto told = parse_conditions(choice.of_match.conditions)) state.match.conditions_drawn.levels = *told;
  const forecast_point before = point_at("0:0.0", start_anywhere(state.match, state.data));
  print_forecasts({before}, options_of(choice, program, state.chance), choice.json, io);
  return done;
}

void print(const competition_forecast<cup_chances>& forecast, bool as_json, std::ostream& out) {
  if (as_json) {
    json teams = json::array();
    for (std::size_t i = 0; i < forecast.teams.size(); ++i) {
      const cup_chances& team = forecast.teams[i];
      teams.push_back({{"team", to_utf8(team.team)},
                       {"group", i < cup_group_teams ? "A" : "B"},
                       {"super_six", team.super_six},
                       {"semi_finals", team.semi_finals},
                       {"grand_final", team.grand_final},
                       {"title", team.title}});
    }
    out << json{{"format", "velorin-cup-forecast"}, {"version", 1}, {"runs", forecast.runs}, {"teams", teams}}.dump()
        << '\n';
    return;
  }
  text_table table({"Team", "Super Six", "Semi Finals", "Grand Final", "Title"}, "lrrrr");
  const auto percent = [](double share) { return fmt::format("{:.1f} %", 100 * share); };
  for (const cup_chances& team : forecast.teams) {
    table.add({team.team, percent(team.super_six), percent(team.semi_finals), percent(team.grand_final),
               percent(team.title)});
  }
  table.print(out);
  out << fmt::format("{} World Cups\n", forecast.runs);
}

int forecast_world_cup(const forecast_choice& choice, const program_options& program, streams io) {
  run_state state = set_up_run(program);
  game_state game{
      .match = {}, .chance = state.chance, .data = std::move(state.data), .series = {}, .tri = {}, .world_cup = {}};
  headless_user user(game.match);
  world_cup_form form({game.match, game.chance, user, game.data}, game.world_cup);
  fill(form, choice.of_cup);
  form.begin();
  const forecast_options options = options_of(choice, program, game.chance);
  print(forecast_cup(game, options), choice.json, io.out);
  return done;
}

int forecast_recording(const forecast_choice& choice, const program_options& program, streams io) {
  const recording recorded = read_recording(std::filesystem::path(choice.file));
  const std::string name = file_name_text(choice.file);
  asked_points asked;
  asked.each_over = choice.each_over;
  for (const std::string& place : choice.at) asked.places.push_back(*parse_place(place));
  const recorded_points found = states_of(recorded, name, asked);
  if (found.missing) {
    io.err << "velorin-cli: --at: The match never reached " << text_of(*found.missing) << " (try --help)\n";
    return wrong_usage;
  }
  if (found.states.empty()) {
    throw run_time_error(failure::file, "No match to forecast: the elevens are not known yet", {name, 0, {}, {}});
  }
  std::vector<forecast_point> points;
  points.reserve(found.states.size());
  for (const match_state& state : found.states) points.push_back(point_at(state));
  random_source chance;
  chance.reseed();
  print_forecasts(points, options_of(choice, program, chance), choice.json, io);
  return done;
}

int run_forecast(const forecast_choice& choice, const program_options& program, streams io) {
  if (!choice.file.empty()) return forecast_recording(choice, program, io);
  return choice.world_cup ? forecast_world_cup(choice, program, io) : forecast_match(choice, program, io);
}

}  // namespace

void add_forecast(CLI::App& app, const program_options& program, streams io, command_action& action) {
  auto choice = std::make_shared<forecast_choice>();
  CLI::App* command = app.add_subcommand(
      "forecast",
      "Plays the rest of a match, or of a World Cup, many times by the computer, and prints how it is likely to end");
  auto* file =
      command->add_option("FILE", choice->file, "A recording: the rest of its match is played")->check(not_empty);
  auto* at = command->add_option("--at", choice->at,
                                 "From when so many overs of an innings have been bowled, such as 2:31.4; more than "
                                 "once for several points (default: the end of the recording)");
  at->check(is_place)->type_name("I:OVERS")->expected(1)->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
  auto* each_over = command->add_flag("--each-over", choice->each_over,
                                      "From the beginning of each innings, after each over, and from the end");
  at->needs(file);
  each_over->needs(file);
  each_over->excludes(at);
  auto* match = command->add_flag("--match", choice->match,
                                  "Forecasts a match before the toss, at \"0:0.0\": the options of match up to "
                                  "--conditions choose it; first is the first team then");
  auto* cup = command->add_flag("--worldcup", choice->world_cup,
                                "Forecasts a World Cup, its fixtures drawn: how often each team gets how far");
  add_match_choice(*command, choice->of_match);
  add_cup_choice(*command, choice->of_cup);
  for (const char* name : {"--team1", "--team2", "--ground", "--captain1", "--captain2", "--conditions"}) {
    command->get_option(name)->needs(match);
  }
  for (const char* name : {"--group-a", "--group-b", "--hosts"}) command->get_option(name)->needs(cup);
  match->excludes(cup);
  file->excludes(match);
  file->excludes(cup);
  file->excludes(app.get_option("--draws"));
  match->excludes(app.get_option("--draws"));
  cup->excludes(app.get_option("--draws"));
  command->add_option("--runs", choice->runs, "How often the rest is played (default: 10000)")
      ->transform(plain_number)
      ->check(CLI::Range(1L, 1'000'000'000L))
      ->type_name("N");
  command
      ->add_option("--jobs", choice->jobs, "Threads that play, 1 to 1024; with --seed the answer is the same for any")
      ->transform(plain_number)
      ->check(CLI::Range(1, 1024))
      ->type_name("J");
  command->add_flag("--json", choice->json, "Standard output is one JSON object");
  command->callback([choice, &program, io, &action] {
    if (!choice->match && !choice->world_cup && choice->file.empty()) {
      throw CLI::RequiredError("FILE, --match or --worldcup");
    }
    action = [choice, &program, io] { return run_forecast(*choice, program, io); };
  });
}

}  // namespace velorin::cli
