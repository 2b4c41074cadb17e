// SPDX-License-Identifier: GPL-3.0-or-later
#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <iostream>
#include <memory>
#include <mutex>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "cli/commands.h"
#include "cli/common_watcher.h"
#include "cli/kept_matches.h"
#include "cli/match_jobs.h"
#include "cli/match_player.h"
#include "cli/match_run.h"
#include "cli/match_summary.h"
#include "cli/output_files.h"
#include "database/configuration.h"
#include "database/open_database.h"
#include "database/whole_file.h"

namespace velorin::cli {

namespace {

/// A run of matches, by one player or by several at once.
class match_run {
 public:
  /// The state that each player begins with.
  match_run(run_state state, const match_options& options, const program_options& program, streams io)
      : state_(std::move(state)), options_(options), program_(program), io_(io), objects_(options.json, io.out) {}

  void play() {
    const int jobs = static_cast<int>(std::min<long>(options_.jobs.value_or(1), options_.matches));
    seats_.resize(static_cast<std::size_t>(jobs));
    if (jobs > 1) {
      play_over(jobs);
    } else {
      play_here();
    }
    for (const seat& each : seats_) summary_.add(each.player->summary());
    if (!options_.json.empty()) objects_.close();
  }

  void print(std::chrono::duration<double> taken) const {
    if (options_.prints_scorecard()) seats_.front().player->print_result(io_.out);
    if (!options_.prints_summary()) return;
    summary_.print(io_.out);
    // A reproducible run says nothing on standard output that a clock decides.
    std::ostream& speed = program_.reproducible() ? io_.err : io_.out;
    speed << fmt::format("\n{:<24}{:.0f}\n", "Matches a second", static_cast<double>(options_.matches) / taken.count());
  }

 private:
  struct seat {
    std::optional<common_watcher> watcher;
    std::unique_ptr<match_player> player;
  };

  void play_here() {
    match_player& player = player_at(0);
    for (long number = 1; number <= options_.matches; ++number) {
      const std::string line = player.play(number);
      if (!line.empty()) objects_.write(line);
      show_progress(number);
    }
    player.require_exports();
  }

  void play_over(int jobs) {
    worker_task task{.matches = options_.matches, .jobs = jobs, .play = {}, .finish = {}, .progress = {}, .take = {}};
    task.play = [this](int place, long number) { return player_at(place).play(number); };
    task.finish = [this](int place) { player_at(place).require_exports(); };
    task.progress = [this](long played) { show_progress(played); };
    if (!options_.json.empty()) {
      task.take = [this](std::string_view line) {
        const std::lock_guard hold(speech_.turn);
        objects_.write(line);
      };
    }
    play_in_workers(task);
  }

  /// The player at this place, who is made, in his own thread, when he is first asked for.
  match_player& player_at(int place) {
    seat& at = seats_[static_cast<std::size_t>(place)];
    if (!at.player) {
      run_state own = state_;
      if (turn_watcher* told = own.data.files.watcher; told != nullptr) {
        own.data.files.watcher = &at.watcher.emplace(*told, speech_);
      }
      at.player = std::make_unique<match_player>(std::move(own), options_, program_);
    }
    return *at.player;
  }

  /// In the thread of any player.
  void show_progress(long played) {
    constexpr long step = 5000;
    const long matches = options_.matches;
    const bool due = played % step == 0 || played == matches;
    if (!due || matches <= step || &io_.err != &std::cerr || isatty(STDERR_FILENO) == 0) return;
    const std::lock_guard hold(speech_.turn);
    io_.err << fmt::format("\r{} of {} matches", played, matches) << (played == matches ? "\n" : "") << std::flush;
  }

  const run_state state_;
  const match_options& options_;
  const program_options& program_;
  streams io_;
  speech speech_;  ///< of all that goes to the streams while several play
  std::vector<seat> seats_;
  match_summary summary_;
  json_output objects_;
};

int play(const match_options& options, const program_options& program, streams io) {
  run_state state = set_up_run(program);
  state.data.files.updates = options.update;
  const kept_matches kept(state.data.files);
  require_outputs_apart(state.data, options, program.draws);
  if (options.records_to_folder && !options.record.empty()) {
    std::error_code failed;
    std::filesystem::create_directories(options.record, failed);
    if (failed) raise_file_error("The folder of the recordings cannot be made", failed.value(), options.record);
  }
  match_run run(std::move(state), options, program, io);
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
  add_match_choice(*command, *options);
  command->add_option("--matches", options->matches, "Matches to play one after another (default: 1)")
      ->transform(plain_number)
      ->check(CLI::Range(1L, 1'000'000'000L))
      ->type_name("N");
  command
      ->add_option("--jobs", options->jobs,
                   "Play the matches of --matches in this many threads, 1 to 1024. With --seed each match has a seed "
                   "of its own then, so that its figures are the same for any number of threads")
      ->transform(plain_number)
      ->check(CLI::Range(1, 1024))
      ->needs(command->get_option("--matches"))
      ->excludes(app.get_option("--draws"))
      ->type_name("J");
  command->add_flag("--update", options->update, "Add every match to the careers and records of the database");
  command
      ->add_option("--record", options->record,
                   "Record the match, for replay and forecast; with --matches the folder of one recording a match")
      ->type_name("FILE");
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
  for (const char* name : {"--json", "--html", "--text", "--ball-by-ball", "--record"}) {
    command->get_option(name)->check(not_empty);
  }
  command->add_flag("--quiet", options->quiet, "Print neither scorecard nor summary");
  command->callback([options, command, &program, io, &action] {
    options->records_to_folder = command->count("--matches") > 0;
    action = [options, &program, io] { return play(*options, program, io); };
  });
}

}  // namespace velorin::cli
