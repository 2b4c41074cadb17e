// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include "cli/command_line.h"
#include "competitions/game_state.h"

// One command a file. Each adds its options to the command line and sets what is to be run once the line is read.

namespace velorin::cli {

/// What the command line asks for: returns the exit status.
using command_action = std::function<int()>;

void add_match(CLI::App& app, const program_options& program, streams io, command_action& action);
void add_competitions(CLI::App& app, const program_options& program, streams io, command_action& action);
void add_replay(CLI::App& app, const program_options& program, streams io, command_action& action);
void add_forecast(CLI::App& app, const program_options& program, streams io, command_action& action);
void add_report(CLI::App& app, const program_options& program, streams io, command_action& action);
void add_archive(CLI::App& app, const program_options& program, streams io, command_action& action);
void add_query(CLI::App& app, const program_options& program, streams io, command_action& action);
void add_db(CLI::App& app, const program_options& program, streams io, command_action& action);

/// What a command works on, fresh as in a new process.
using run_state = game_state;

/// Opens the folder, the database and the source of chance of the command line, without updates and with the elevens in
/// memory. Raises run_time_error.
run_state set_up_run(const program_options& program);

/// The base name of the database to use: as given, else line 2 of options.mc, else the only one on offer. Raises
/// run_time_error.
std::string find_database(open_database& data, const program_options& program);

/// The numbers of a draws file. Raises run_time_error with file and line.
std::vector<double> read_draws(const std::filesystem::path& file);

/// `name` as the core writes it: single bytes. Raises run_time_error for a name that no file could hold.
std::string core_text(const std::string& name);

/// Up to three of `known` that are near to `name`, or begin much like it, nearest first.
std::vector<std::string> near_names(const std::string& name, const std::vector<std::string>& known);

/// A whole number of decimal digits as typed, without its leading zeros. Raises CLI::ValidationError for anything else.
std::string plain_number(std::string typed);

/// A check of an option: "" for a text, else what is wrong.
std::string not_empty(const std::string& typed);

/// Raises the run_time_error for an unknown team, ground or player, with near names. Texts in single bytes.
[[noreturn]] void raise_unknown(const std::string& what, const std::string& name,
                                const std::vector<std::string>& known);

}  // namespace velorin::cli
