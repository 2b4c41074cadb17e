// SPDX-License-Identifier: GPL-3.0-or-later
#include <fmt/format.h>

#include <memory>
#include <sstream>
#include <utility>

#include "cli/commands.h"
#include "cli/match_json.h"
#include "cli/match_run.h"
#include "cli/output_files.h"
#include "cli/recorded_points.h"
#include "cli/standard_output.h"
#include "database/whole_file.h"
#include "model/code_page.h"
#include "model/match_state.h"
#include "model/run_time_error.h"
#include "recording/replay.h"
#include "reports/export.h"
#include "reports/scorecard.h"

namespace velorin::cli {

namespace {

struct replayed {
  std::string file;
  std::string to;
  match_options shown;
};

/// A recording played again, and what is printed of it.
class replay_run {
 public:
  replay_run(const replayed& asked, streams io)
      : asked_(asked),
        io_(io),
        recorded_(read_recording(std::filesystem::path(asked.file))),
        name_(file_name_text(asked.file)),
        game_(game_at_beginning(recorded_)),
        shown_(game_.match, game_.data, asked.shown, summary_) {}

  int play() {
    if (!asked_.to.empty()) return play_to(*parse_place(asked_.to));
    json_output objects(asked_.shown.json, io_.out);
    begin_match();
    replay_options options;
    options.watcher = &shown_;
    options.match_ends = [&](const game_state&) {
      end_match(objects);
      begin_match();
    };
    const replay_end end = replay(recorded_, name_, game_, options);
    // A recording that breaks off has a match on, and so has one that came to no result.
    const bool open = end != replay_end::over || matches_ == 0;
    if (open) end_match(objects);
    if (!asked_.shown.json.empty()) objects.close();
    if (asked_.shown.prints_scorecard()) print(end);
    io_.out.flush();
    return done;
  }

 private:
  void begin_match() {
    shown_.begin_match(true);
    draws_before_ = game_.chance.draws_used();
  }

  void end_match(json_output& objects) {
    ++matches_;
    result_ = game_.match;
    if (!asked_.shown.json.empty()) objects.write(shown_.match_line(game_.chance.draws_used() - draws_before_));
  }

  void print(replay_end end) {
    if (end == replay_end::over) {
      io_.out << shown_.shown_scorecard() << '\n';
      io_.out << (result_.decided == match_decision::none ? "No result."
                                                          : shown_line(result_.result_winner + result_.result_margin))
              << '\n';
      return;
    }
    print_state();
    io_.err << "The recording breaks off here.\n";
  }

  /// The card of the moment.
  void print_state() {
    if (game_.match.step != match_step::play || game_.match.innings_number == 0) {
      io_.out << "Nothing has been bowled.\n";
      return;
    }
    scorecard_form card(game_.match);
    card.open();
    std::istringstream lines(text_scorecard(game_.match, card));
    for (std::string line; std::getline(lines, line);) {
      if (!line.empty() && line.back() == '\r') line.pop_back();
      io_.out << shown_line(line) << '\n';
    }
  }

  int play_to(innings_place place) {
    // Of a competition the match that it has come to: the last in which the place was reached.
    int wanted = 0;
    const auto pass = [&](int number) {
      game_ = game_at_beginning(recorded_);
      int match = 1;
      bool reached = false;
      replay_options options;
      options.match_ends = [&](const game_state&) { ++match; };
      options.stops_at = [&](const game_state& now) {
        if (!stands_at(now.match, place)) return false;
        wanted = number == 0 ? match : wanted;
        reached = match == number;
        return reached;
      };
      replay(recorded_, name_, game_, options);
      return reached;
    };
    pass(0);
    if (wanted == 0 || !pass(wanted)) {
      io_.err << "velorin-cli: --to: The match never reached " << asked_.to << " (try --help)\n";
      return wrong_usage;
    }
    write_state();
    return done;
  }

  void write_state() {
    const match_options& wanted = asked_.shown;
    if (!wanted.json.empty()) {
      json_output object(wanted.json, io_.out);
      std::string line = R"({"format":"velorin-state","version":1,"at":")" + asked_.to + R"(","state":)";
      line.append(state_text(game_.match)).append("}\n");
      object.write(line);
      object.close();
    }
    if (!wanted.html.empty()) write_export(game_.match, game_.data, export_kind::html, wanted.html);
    if (!wanted.text.empty()) write_export(game_.match, game_.data, export_kind::text, wanted.text);
    if (!wanted.ball_by_ball.empty()) {
      write_export(game_.match, game_.data, export_kind::ball_by_ball, wanted.ball_by_ball);
    }
    if (wanted.prints_scorecard()) print_state();
    io_.out.flush();
  }

  const replayed& asked_;
  streams io_;
  recording recorded_;
  std::string name_;
  game_state game_;
  match_summary summary_;
  match_recorder shown_;
  match_result result_;
  std::uint64_t draws_before_ = 0;
  int matches_ = 0;
};

}  // namespace

void add_replay(CLI::App& app, const program_options&, streams io, command_action& action) {
  auto asked = std::make_shared<replayed>();
  CLI::App* command = app.add_subcommand("replay", "Plays a recording again and prints the scorecard");
  command->add_option("FILE", asked->file, "A recording")->required()->check(not_empty);
  command
      ->add_option("--to", asked->to,
                   "Stop when so many overs of an innings have been bowled, such as 2:31.4; with --json the state then")
      ->check(is_place)
      ->type_name("I:OVERS");
  match_options& shown = asked->shown;
  command->add_option("--json", shown.json, "One JSON object a match, a line each; - for standard output")
      ->type_name("FILE");
  command->add_option("--html", shown.html, "Save the scorecard as a page")->type_name("FILE");
  command->add_option("--text", shown.text, "Save the scorecard as text")->type_name("FILE");
  command->add_option("--ball-by-ball", shown.ball_by_ball, "Save the match ball by ball")->type_name("FILE");
  for (const char* name : {"--json", "--html", "--text", "--ball-by-ball"}) command->get_option(name)->check(not_empty);
  command->add_flag("--quiet", shown.quiet, "Print no scorecard");
  command->callback([asked, io, &action] { action = [asked, io] { return replay_run(*asked, io).play(); }; });
}

}  // namespace velorin::cli
