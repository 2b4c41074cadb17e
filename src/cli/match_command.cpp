// SPDX-License-Identifier: GPL-3.0-or-later
#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <iostream>
#include <memory>
#include <optional>
#include <ostream>
#include <string_view>

#include "cli/commands.h"
#include "cli/match_jobs.h"
#include "cli/match_run.h"
#include "cli/match_summary.h"
#include "cli/output_files.h"
#include "database/configuration.h"
#include "database/open_database.h"
#include "database/teams_file.h"
#include "model/code_page.h"
#include "model/match_state.h"
#include "model/random.h"
#include "model/run_time_error.h"
#include "setup/new_match.h"

namespace velorin::cli {

namespace {

/// The four values of --conditions, or nothing if they are none.
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

void fill(open_database& data, new_match_form& form, const match_options& options) {
  form.open();
  if (!options.team1.empty()) form.choose_first_team(choose_team(form, options.team1));
  if (!options.team2.empty()) form.choose_second_team(choose_team(form, options.team2));
  if (!options.ground.empty()) choose_ground(data, form, options.ground);
  form.computer_captains_first = options.captain1 == "cpu";
  form.computer_captains_second = options.captain2 == "cpu";
}

void show_progress(long played, long matches, streams io) {
  constexpr long step = 5000;
  const bool due = played % step == 0 || played == matches;
  if (!due || matches <= step || &io.err != &std::cerr || isatty(STDERR_FILENO) == 0) return;
  io.err << fmt::format("\r{} of {} matches", played, matches) << (played == matches ? "\n" : "") << std::flush;
}

void print_result(const match_state& match, const match_recorder& recorder, std::ostream& out) {
  out << recorder.shown_scorecard() << '\n';
  if (match.result_margin.empty()) {
    out << "No result.\n";
  } else {
    out << shown_line(match.result_winner + match.result_margin) << '\n';
  }
}

/// A run of matches, whoever plays them.
class match_run {
 public:
  match_run(run_state& run, const match_options& options, const program_options& program, streams io)
      : run_(run),
        options_(options),
        program_(program),
        io_(io),
        recorder_(run.match, run.data, options, summary_),
        objects_(options.json, io.out) {
    recorder_.conditions = parse_conditions(options.conditions);
  }

  void play() {
    const int workers = static_cast<int>(std::min<long>(options_.jobs.value_or(1), options_.matches));
    if (workers > 1) {
      play_over(workers);
    } else {
      play_here();
    }
    if (!options_.json.empty()) objects_.close();
  }

  void print(std::chrono::duration<double> taken) const {
    if (options_.prints_scorecard()) print_result(run_.match, recorder_, io_.out);
    if (!options_.prints_summary()) return;
    summary_.print(io_.out);
    // A reproducible run says nothing on standard output that a clock decides.
    std::ostream& speed = program_.reproducible() ? io_.err : io_.out;
    speed << fmt::format("\n{:<24}{:.0f}\n", "Matches a second", static_cast<double>(options_.matches) / taken.count());
  }

 private:
  void play_here() {
    for (long number = 1; number <= options_.matches; ++number) {
      const std::string line = play_match(number);
      if (!line.empty()) objects_.write(line);
      show_progress(number, options_.matches, io_);
    }
    recorder_.require_exports();
  }

  void play_over(int workers) {
    worker_task task{.matches = options_.matches,
                     .jobs = workers,
                     .summary = summary_,
                     .play = {},
                     .finish = {},
                     .progress = {},
                     .take = {}};
    task.play = [this](long number) { return play_match(number); };
    task.finish = [this] { recorder_.require_exports(); };
    task.progress = [this](long played) { show_progress(played, options_.matches, io_); };
    if (!options_.json.empty()) task.take = [this](std::string_view line) { objects_.write(line); };
    play_in_workers(task);
  }

  /// Returns the match's object as a line, "" without --json.
  std::string play_match(long number) {
    if (options_.jobs && program_.seed) run_.chance.use_seed(seed_of_match(*program_.seed, number));
    new_match_form form({run_.match, run_.chance, recorder_, run_.data});
    fill(run_.data, form, options_);
    recorder_.begin_match(number == options_.matches);
    static_cast<match_result&>(run_.match) = {};
    const std::uint64_t before = run_.chance.draws_used();
    form.accept();
    if (options_.prints_summary()) summary_.add_result(run_.match);
    if (options_.json.empty()) return {};
    return recorder_.match_object(run_.chance.draws_used() - before).dump() + '\n';
  }

  /// Which worker plays a match must not matter, so its numbers follow from its place in the run alone.
  static std::uint64_t seed_of_match(std::uint64_t seed, long number) {
    return random_source::mix(seed) + static_cast<std::uint64_t>(number);
  }

  run_state& run_;
  const match_options& options_;
  const program_options& program_;
  streams io_;
  match_summary summary_;
  match_recorder recorder_;
  json_output objects_;
};

int play(const match_options& options, const program_options& program, streams io) {
  run_state state = set_up_run(program);
  state.data.files.updates = options.update;
  require_outputs_apart(state.data, options, program.draws);
  match_run run(state, options, program, io);
  const auto start = std::chrono::steady_clock::now();
  run.play();
  run.print(std::chrono::steady_clock::now() - start);
  io.out.flush();
  return done;
}

}  // namespace

void add_match(CLI::App& app, const program_options& program, streams io, command_action& action) {
  auto options = std::make_shared<match_options>();
  CLI::App* command = app.add_subcommand("match", "Plays matches and prints the scorecard, or a summary of several");
  command->add_option("--team1", options->team1, "First team (default: the second of the database)")->type_name("NAME");
  command->add_option("--team2", options->team2, "Second team (default: the third of the database)")->type_name("NAME");
  command->add_option("--ground", options->ground, "A ground of either team or a neutral one (default: the second)")
      ->type_name("NAME");
  command->add_option("--captain1", options->captain1, "Who captains the first team: cpu (default) or human")
      ->check(CLI::IsMember({"cpu", "human"}))
      ->type_name("WHO");
  command->add_option("--captain2", options->captain2, "Who captains the second team: cpu (default) or human")
      ->check(CLI::IsMember({"cpu", "human"}))
      ->type_name("WHO");
  command
      ->add_option("--conditions", options->conditions, "Weather, pitch surface, pitch bounce, outfield, 1 to 4 each")
      ->type_name("W,S,B,O")
      ->delimiter('\0')
      ->check([](const std::string& text) {
        return parse_conditions(text) ? "" : "not four values 1 to 4 parted by commas, such as 3,2,4,1: " + text;
      });
  command->add_option("--matches", options->matches, "Matches to play one after another (default: 1)")
      ->transform(plain_number)
      ->check(CLI::Range(1L, 1'000'000'000L))
      ->type_name("N");
  command
      ->add_option("--jobs", options->jobs,
                   "Play the matches of --matches in this many processes, 1 to 1024. With --seed each match has a seed "
                   "of its own then, so that its figures are the same for any number of processes")
      ->transform(plain_number)
      ->check(CLI::Range(1, 1024))
      ->needs(command->get_option("--matches"))
      ->excludes(app.get_option("--draws"))
      ->type_name("J");
  command->add_flag("--update", options->update, "Add every match to the careers and records of the database");
  command->add_option("--json", options->json, "One JSON object a match, a line each; - for standard output")
      ->type_name("FILE");
  command->add_option("--html", options->html, "Save the last match's scorecard as a page")->type_name("FILE");
  command->add_option("--text", options->text, "Save the last match's scorecard as text")->type_name("FILE");
  command->add_option("--ball-by-ball", options->ball_by_ball, "Save the last match ball by ball")->type_name("FILE");
  command
      ->add_option("--export-innings", options->export_innings,
                   "Save from the scorecard at the end of this innings (default: 2)")
      ->transform(plain_number)
      ->check(CLI::Range(1, 2))
      ->type_name("1|2");
  for (const char* name : {"--team1", "--team2", "--ground", "--json", "--html", "--text", "--ball-by-ball"}) {
    command->get_option(name)->check(not_empty);
  }
  command->add_flag("--quiet", options->quiet, "Print neither scorecard nor summary");
  command->callback(
      [options, &program, io, &action] { action = [options, &program, io] { return play(*options, program, io); }; });
}

}  // namespace velorin::cli
