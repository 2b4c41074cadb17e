// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/match_player.h"

#include <fcntl.h>
#include <fmt/format.h>

#include <cerrno>
#include <cstdint>
#include <ostream>
#include <utility>
#include <vector>

#include "cli/version.h"
#include "database/file_calls.h"
#include "database/fresh_file.h"
#include "database/teams_file.h"
#include "database/whole_file.h"
#include "model/code_page.h"
#include "model/run_time_error.h"
#include "setup/new_match.h"

namespace velorin::cli {

namespace {

int choose_team(const new_match_form& form, const std::string& name) {
  const std::string wanted = core_text(name);
  std::vector<std::string> known;
  for (std::size_t i = 0; i < form.teams.size(); ++i) {
    if (form.teams[i].name == wanted) return static_cast<int>(i);
    known.push_back(form.teams[i].name);
  }
  raise_unknown("team", wanted, known);
}

void choose_ground(open_database& data, new_match_form& form, const std::string& name) {
  const std::string wanted = core_text(name);
  for (std::size_t i = 0; i < form.grounds.size(); ++i) {
    if (form.grounds[i] != wanted) continue;
    form.ground_index = static_cast<int>(i);
    return;
  }
  std::vector<std::string> known;
  for (const ground_rec& ground : read_grounds(data)) {
    known.push_back(ground.ground_name);
    if (ground.ground_name != wanted) continue;
    throw run_time_error(failure::subscript,
                         "The ground is not on offer for " + form.first_team_name() + " and " + form.second_team_name(),
                         {.file = {}, .record = 0, .field = {}, .player = wanted});
  }
  raise_unknown("ground", wanted, known);
}

/// Which worker plays a match must not matter, so its numbers follow from its place in the run alone.
std::uint64_t seed_of_match(std::uint64_t seed, long number) {
  return random_source::mix(seed) + static_cast<std::uint64_t>(number);
}

}  // namespace

std::optional<std::array<int, 4>> parse_conditions(const std::string& text) {
  std::array<int, 4> values{};
  bool good = text.size() == 7;
  for (std::size_t i = 0; good && i < 4; ++i) {
    const char digit = text[2 * i];
    good = digit >= '1' && digit <= '4' && (i == 3 || text[2 * i + 1] == ',');
    values[i] = digit - '0';
  }
  if (!good) return std::nullopt;
  return values;
}

void add_match_choice(CLI::App& command, match_options& chosen) {
  command.add_option("--team1", chosen.team1, "First team (default: the second of the database)")->type_name("NAME");
  command.add_option("--team2", chosen.team2, "Second team (default: the third of the database)")->type_name("NAME");
  command.add_option("--ground", chosen.ground, "A ground of either team or a neutral one (default: the second)")
      ->type_name("NAME");
  command.add_option("--captain1", chosen.captain1, "Who captains the first team: cpu (default) or human")
      ->check(CLI::IsMember({"cpu", "human"}))
      ->type_name("WHO");
  command.add_option("--captain2", chosen.captain2, "Who captains the second team: cpu (default) or human")
      ->check(CLI::IsMember({"cpu", "human"}))
      ->type_name("WHO");
  command.add_option("--conditions", chosen.conditions, "Weather, pitch surface, pitch bounce, outfield, 1 to 4 each")
      ->type_name("W,S,B,O")
      ->delimiter('\0')
      ->check([](const std::string& text) {
        return parse_conditions(text) ? "" : "not four values 1 to 4 parted by commas, such as 3,2,4,1: " + text;
      });
  for (const char* name : {"--team1", "--team2", "--ground"}) command.get_option(name)->check(not_empty);
}

void fill(open_database& data, new_match_form& form, const match_options& options) {
  form.open();
  if (!options.team1.empty()) form.choose_first_team(choose_team(form, options.team1));
  if (!options.team2.empty()) form.choose_second_team(choose_team(form, options.team2));
  if (!options.ground.empty()) choose_ground(data, form, options.ground);
  form.computer_captains_first = options.captain1 == "cpu";
  form.computer_captains_second = options.captain2 == "cpu";
}

match_player::match_player(run_state state, const match_options& options, const program_options& program)
    : state_(std::move(state)),
      options_(options),
      program_(program),
      recorder_(state_.match, state_.data, options, summary_) {
  recorder_.conditions = parse_conditions(options.conditions);
  if (!options.record.empty()) {
    recording_.emplace(recorder_, state_, recorded_, version, checked_overs::every_tenth);
  }
}

std::string match_player::play(long number) {
  if (options_.jobs && program_.seed) state_.chance.use_seed(seed_of_match(*program_.seed, number));
  front_end& user = recording_ ? static_cast<front_end&>(*recording_) : recorder_;
  new_match_form form({state_.match, state_.chance, user, state_.data});
  fill(state_.data, form, options_);
  recorder_.begin_match(number == options_.matches);
  static_cast<match_result&>(state_.match) = {};
  const std::uint64_t before = state_.chance.draws_used();
  form.accept();
  if (recording_) save_recording(number);
  if (options_.prints_summary()) summary_.add_result(state_.match);
  if (options_.json.empty()) return {};
  return recorder_.match_line(state_.chance.draws_used() - before);
}

void match_player::save_recording(long number) {
  recording_->game_over();
  if (!options_.records_to_folder) {
    fresh_file file(options_.record);
    file.stream() << recorded_.bytes();
    return file.put_in_place();
  }
  const std::filesystem::path path =
      std::filesystem::path(options_.record) / fmt::format("{:06}{}", number, recording_extension);
  descriptor file(open_file(path, O_WRONLY | O_CREAT | O_TRUNC, 0666));
  if (!file.open() || !write_all(file.number(), recorded_.bytes()) || !file.close()) {
    raise_file_error("The recording cannot be written", errno, path);
  }
}

void match_player::print_result(std::ostream& out) const {
  const match_state& match = state_.match;
  out << recorder_.shown_scorecard() << '\n';
  if (match.decided == match_decision::none) {
    out << "No result.\n";
  } else {
    out << shown_line(match.result_winner + match.result_margin) << '\n';
  }
}

}  // namespace velorin::cli
