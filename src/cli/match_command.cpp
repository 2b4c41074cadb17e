// SPDX-License-Identifier: GPL-3.0-or-later
#include <array>
#include <charconv>
#include <chrono>
#include <iostream>
#include <memory>
#include <optional>
#include <ostream>
#include <string_view>

#include <fmt/format.h>
#include <unistd.h>

#include "cli/commands.h"
#include "cli/match_json.h"
#include "cli/match_summary.h"
#include "database/configuration.h"
#include "database/fresh_file.h"
#include "database/teams_file.h"
#include "headless/headless_user.h"
#include "model/code_page.h"
#include "model/random.h"
#include "model/run_time_error.h"
#include "model/teams.h"
#include "reports/export.h"
#include "setup/teamfrm.h"

namespace velorin::cli {

namespace {

struct match_options {
  std::string team1;
  std::string team2;
  std::string ground;
  std::string captain1 = "cpu";
  std::string captain2 = "cpu";
  std::string conditions;
  long matches = 1;
  bool update = false;
  std::string json;
  std::string html;
  std::string text;
  std::string ball_by_ball;
  int export_innings = 2;
  bool quiet = false;
};

/// The headless user, who also keeps what the command prints.
class match_recorder : public headless_user {
 public:
  match_recorder(const match_options& options, match_summary& summary) : options_(options), summary_(summary) {}

  using headless_user::show;

  void begin_match(bool last) {
    last_ = last;
    innings_ = 0;
    scorecards_ = json::array();
    messages_ = json::array();
  }

  void show(const message_box& message) override {
    if (!options_.json.empty())
      messages_.push_back({{"title", to_utf8(message.title)}, {"text", to_utf8(message.text)}});
  }

  void open(report which) override {
    if (which != report::scorecard) return;
    ++innings_;
    if (options_.matches > 1) summary_.add_innings();
    if (!options_.json.empty()) scorecards_.push_back(state_json());
    if (!last_) return;
    if (prints_scorecard()) {
      scorecard card;
      card.open();
      shown_ = text_scorecard(card);
    }
    if (innings_ == options_.export_innings) save_exports();
    exported_ = exported_ || innings_ == options_.export_innings;
  }

  /// Raises run_time_error (file) if a file was asked for and its innings never came to an end.
  void require_exports() const {
    const bool wanted = !options_.html.empty() || !options_.text.empty() || !options_.ball_by_ball.empty();
    if (!wanted || exported_) return;
    throw run_time_error(failure::file,
                         fmt::format("Nothing to export: there was no end of innings {}", options_.export_innings));
  }

  /// One match and nothing else asked of standard output.
  bool prints_scorecard() const { return options_.matches == 1 && !options_.quiet && options_.json != "-"; }

  json match_object(std::uint64_t draws) const {
    return {{"format", "velorin-match"},    {"version", 1},       {"scorecards", scorecards_}, {"messages", messages_},
            {"result", result_json(match)}, {"draws_used", draws}};
  }

  /// The text scorecard of the last innings shown, UTF-8 with plain line ends.
  std::string shown_scorecard() const {
    std::string text = to_utf8(shown_);
    std::erase(text, '\r');
    return text;
  }

 private:
  void save_exports() const {
    const std::array<std::pair<export_kind, const std::string*>, 3> wanted = {
        {{export_kind::html, &options_.html},
         {export_kind::text, &options_.text},
         {export_kind::ball_by_ball, &options_.ball_by_ball}}};
    for (const auto& [kind, path] : wanted) {
      if (path->empty() || save_export(kind, *path)) continue;
      throw run_time_error(failure::file, "The export cannot be written",
                           {.file = *path, .record = 0, .field = {}, .player = {}});
    }
  }

  const match_options& options_;
  match_summary& summary_;
  bool last_ = false;
  bool exported_ = false;
  int innings_ = 0;
  json scorecards_;
  json messages_;
  std::string shown_;
};

/// The output of --json: a file or standard output.
class json_output {
 public:
  json_output(const std::string& path, std::ostream& out) : path_(path), out_(&out) {
    if (path.empty() || path == "-") return;
    file_ = std::make_unique<fresh_file>(path);
    out_ = &file_->stream();
    check();
  }

  void write(const json& object) {
    *out_ << object.dump() << '\n';
    check();
  }

  void close() {
    out_->flush();
    check();
    if (file_ && !file_->put_in_place()) refuse();
  }

 private:
  void check() const {
    if (!*out_) refuse();
  }

  [[noreturn]] void refuse() const {
    throw run_time_error(failure::file, "The output cannot be written",
                         {.file = path_, .record = 0, .field = {}, .player = {}});
  }

  std::string path_;
  std::ostream* out_;
  std::unique_ptr<fresh_file> file_;
};

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

int choose_team(const teamfrm& form, const std::string& name) {
  const std::string wanted = core_text(name);
  std::vector<std::string> known;
  for (std::size_t i = 0; i < form.combo1.size(); ++i) {
    if (form.combo1[i].name == wanted) return static_cast<int>(i);
    known.push_back(form.combo1[i].name);
  }
  raise_unknown("team", wanted, known);
}

void choose_ground(teamfrm& form, const std::string& name) {
  const std::string wanted = core_text(name);
  for (std::size_t i = 0; i < form.combo3.size(); ++i) {
    if (form.combo3[i] != wanted) continue;
    form.combo3_index = static_cast<int>(i);
    return;
  }
  std::vector<std::string> known;
  for (const ground_rec& ground : read_grounds()) {
    known.push_back(ground.ground_name);
    if (ground.ground_name != wanted) continue;
    throw run_time_error(failure::subscript,
                         "The ground is not on offer for " + form.combo1_text() + " and " + form.combo2_text(),
                         {.file = {}, .record = 0, .field = {}, .player = wanted});
  }
  raise_unknown("ground", wanted, known);
}

void fill(teamfrm& form, const match_options& options) {
  form.open();
  if (!options.team1.empty()) form.choose_first_team(choose_team(form, options.team1));
  if (!options.team2.empty()) form.choose_second_team(choose_team(form, options.team2));
  if (!options.ground.empty()) choose_ground(form, options.ground);
  form.option1_cpu = options.captain1 == "cpu";
  form.option3_cpu = options.captain2 == "cpu";
}

void show_progress(long played, long matches, streams io) {
  constexpr long step = 5000;
  const bool due = played % step == 0 || played == matches;
  if (!due || matches <= step || &io.err != &std::cerr || isatty(STDERR_FILENO) == 0) return;
  io.err << fmt::format("\r{} of {} matches", played, matches) << (played == matches ? "\n" : "") << std::flush;
}

void print_result(const match_recorder& recorder, std::ostream& out) {
  out << recorder.shown_scorecard() << '\n';
  if (match.result_margin.empty()) {
    out << "No result.\n";
  } else {
    out << to_utf8(match.result_winner + match.result_margin) << '\n';
  }
}

int play(const match_options& options, const program_options& program, streams io) {
  set_up_run(program);
  files.updates = options.update;
  match_summary summary;
  match_recorder recorder(options, summary);
  recorder.conditions = parse_conditions(options.conditions);
  const front_end_scope scope(recorder);
  json_output json_lines(options.json, io.out);
  const auto start = std::chrono::steady_clock::now();
  for (long played = 1; played <= options.matches; ++played) {
    teamfrm form;
    fill(form, options);
    recorder.begin_match(played == options.matches);
    static_cast<match_result&>(match) = {};
    const std::uint64_t before = chance.draws_used();
    form.command1_click();
    if (options.matches > 1) summary.add_result(match);
    if (!options.json.empty()) json_lines.write(recorder.match_object(chance.draws_used() - before));
    show_progress(played, options.matches, io);
  }
  recorder.require_exports();
  if (!options.json.empty()) json_lines.close();
  if (recorder.prints_scorecard()) print_result(recorder, io.out);
  if (options.matches > 1 && !options.quiet && options.json != "-") {
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    summary.print(io.out);
    // A reproducible run says nothing on standard output that a clock decides.
    std::ostream& speed = program.reproducible() ? io.err : io.out;
    speed << fmt::format("\n{:<24}{:.0f}\n", "Matches a second", static_cast<double>(options.matches) / taken.count());
  }
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
