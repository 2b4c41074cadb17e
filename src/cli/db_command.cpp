// SPDX-License-Identifier: GPL-3.0-or-later
#include <memory>
#include <ostream>

#include <fmt/format.h>

#include "cli/commands.h"
#include "database/configuration.h"
#include "database/made_folders.h"
#include "database/world.h"
#include "model/code_page.h"
#include "model/run_time_error.h"

namespace velorin::cli {

namespace {

struct db_options {
  std::filesystem::path source;
  std::string base;
  std::filesystem::path target;
};

/// What is wrong with a base name; "" if nothing is.
std::string base_name(const std::string& typed) {
  const std::filesystem::path name = std::filesystem::path(typed).filename();
  if (typed.empty()) return not_empty(typed);
  return name.empty() || name == "." || name == ".." ? "no base name: " + typed : "";
}

/// The files of a database named on the command line: a base name in the teams folder, or a path without ending.
database_files named_files(const db_options& options, const program_options& program) {
  const std::filesystem::path given(options.base);
  database_files named = given.has_parent_path()
                             ? database_paths(given.parent_path(), core_text(given.filename().string()))
                             : database_paths(program.teams_dir, core_text(options.base));
  named.watcher = program.watcher;
  return named;
}

int build(const db_options& options, const program_options& program) {
  const database_files database = named_files(options, program);
  if (has_control(database.base)) {
    throw run_time_error(failure::type, fmt::format("The base name \"{}\" has a control character", database.base));
  }
  made_folders made(database.folder);
  build_database(options.source, database.team_file, database.ground_file, program.watcher);
  made.keep();
  return done;
}

int dump(const db_options& options, const program_options& program) {
  dump_database(named_files(options, program), options.target);
  return done;
}

int check(const db_options& options, const program_options& program, streams io) {
  const std::vector<database_fault> faults = check_database(named_files(options, program));
  const std::string base = shown_line(from_utf8(options.base).value_or(options.base));
  for (const database_fault& fault : faults) {
    io.out << shown_line(fault.file);
    if (fault.record != 0) io.out << fmt::format(": record {}", fault.record);
    if (!fault.field.empty()) io.out << ": " << shown_line(fault.field);
    io.out << ": " << shown_line(fault.what) << '\n';
  }
  io.out.flush();
  if (faults.empty()) {
    io.err << base << ": no fault found\n";
    return done;
  }
  io.err << fmt::format("{}: {} fault{} found\n", base, faults.size(), faults.size() == 1 ? "" : "s");
  return failed;
}

}  // namespace

void add_db(CLI::App& app, const program_options& program, streams io, command_action& action) {
  auto options = std::make_shared<db_options>();
  CLI::App* command = app.add_subcommand("db", "Builds, dumps and checks databases");
  command->require_subcommand(0, 1);
  CLI::App* build_it = command->add_subcommand("build", "Makes BASE.team and BASE.grd of players.csv and grounds.csv");
  build_it->add_option("SRC_DIR", options->source, "Folder of players.csv and grounds.csv")
      ->required()
      ->check(not_empty);
  build_it->add_option("BASE", options->base, "Base name in the teams folder, or a path")->required()->check(base_name);
  build_it->callback(
      [options, &program, &action] { action = [options, &program] { return build(*options, program); }; });
  CLI::App* dump_it = command->add_subcommand("dump", "The reverse, without loss; careers and records too");
  dump_it->add_option("BASE", options->base, "Base name in the teams folder, or a path")->required()->check(base_name);
  dump_it->add_option("DIR", options->target, "Folder for the tables")->required()->check(not_empty);
  dump_it->callback([options, &program, &action] { action = [options, &program] { return dump(*options, program); }; });
  CLI::App* check_it = command->add_subcommand("check", "Every fault of the four files, a line each");
  check_it->add_option("BASE", options->base, "Base name in the teams folder, or a path")->required()->check(base_name);
  check_it->callback(
      [options, &program, io, &action] { action = [options, &program, io] { return check(*options, program, io); }; });
}

}  // namespace velorin::cli
