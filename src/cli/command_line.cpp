// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/command_line.h"

#include <algorithm>
#include <charconv>
#include <exception>
#include <ostream>

#include "cli/commands.h"
#include "cli/standard_output.h"
#include "cli/version.h"
#include "model/code_page.h"

namespace velorin::cli {

namespace {

/// An error as one line of UTF-8. Names within it are bytes of Windows-1252, or as they came from the command line.
std::string one_line(const std::exception& error) {
  std::string line = error.what();
  std::replace_if(
      line.begin(), line.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
  line = without_controls(line);
  return is_utf8(line) ? line : to_utf8(line);
}

}  // namespace

int run(const std::vector<std::string>& arguments, const std::filesystem::path& program_folder, streams io,
        turn_watcher* watcher) {
  program_options program;
  program.teams_dir = program_folder / "teams";
  program.watcher = watcher;
  command_action action;

  CLI::App app("Plays one-day cricket without a window, and builds, checks and dumps databases.", "velorin-cli");
  app.require_subcommand(0, 1);
  app.fallthrough();
  app.set_version_flag("--version", std::string("velorin-cli ") + version);
  app.add_option("--teams-dir", program.teams_dir, "Folder of the data files (default: teams beside the program)")
      ->type_name("DIR")
      ->check(not_empty);
  app.add_option("--database", program.database,
                 "Base name of the database (default: line 2 of options.mc, else the only one on offer)")
      ->type_name("BASE")
      ->check(not_empty);
  auto* seed = app.add_option("--seed", program.seed, "One seeded generator for the whole run")
                   ->transform(plain_number)
                   ->check([](const std::string& text) {
                     std::uint64_t number = 0;
                     const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
                     const bool good = error == std::errc() && end == text.data() + text.size();
                     return good ? "" : "not a whole number of 64 bits: " + text;
                   })
                   ->type_name("N");
  app.add_option("--draws", program.draws, "Scripted draws: a file with a number in [0,1) a line")
      ->type_name("FILE")
      ->check(not_empty)
      ->excludes(seed);
  add_match(app, program, io, action);
  add_competitions(app, program, io, action);
  add_replay(app, program, io, action);
  add_forecast(app, program, io, action);
  add_report(app, program, io, action);
  add_archive(app, program, io, action);
  add_query(app, program, io, action);
  add_db(app, program, io, action);

  try {
    int status = done;
    try {
      app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
      if (!action) throw CLI::RequiredError("A command");
      status = action();
    } catch (const CLI::Success& help) {
      app.exit(help, io.out, io.err);
    }
    require_written(io.out);
    return status;
  } catch (const CLI::ParseError& error) {
    io.err << "velorin-cli: " << one_line(error) << " (try --help)\n";
    return wrong_usage;
  } catch (const std::exception& error) {
    io.err << "velorin-cli: " << one_line(error) << '\n';
    return failed;
  }
}

}  // namespace velorin::cli
