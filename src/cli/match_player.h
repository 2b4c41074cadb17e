// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <iosfwd>
#include <optional>
#include <string>

#include "cli/commands.h"
#include "cli/match_run.h"
#include "cli/match_summary.h"
#include "recording/recorder.h"

namespace velorin {
struct new_match_form;
}  // namespace velorin

namespace velorin::cli {

/// The four values of --conditions, or nothing if they are none.
std::optional<std::array<int, 4>> parse_conditions(const std::string& text);

/// Adds the options that choose a match, up to --conditions.
void add_match_choice(CLI::App& command, match_options& options);
/// Enters the teams, captains and ground of the options into an opened form. Raises run_time_error for names that are
/// not known.
void fill(open_database& data, new_match_form& form, const match_options& options);

/// Plays matches of a run one after another, on a state of its own. The options must outlive it.
class match_player {
 public:
  match_player(run_state state, const match_options& options, const program_options& program);
  match_player(const match_player&) = delete;
  match_player& operator=(const match_player&) = delete;

  /// Plays a match by its number in the run, from 1. Returns the match's object as a line, "" without --json. Raises
  /// run_time_error.
  std::string play(long number);

  /// Raises run_time_error (file) if a file was asked for that the last match has not given.
  void require_exports() const { recorder_.require_exports(); }

  /// Prints the scorecard and the result of the last match of the run.
  void print_result(std::ostream& out) const;

  /// What the matches played add up to.
  const match_summary& summary() const { return summary_; }

 private:
  void save_recording(long number);

  run_state state_;
  const match_options& options_;
  const program_options& program_;
  match_summary summary_;
  match_recorder recorder_;
  recording_in_memory recorded_;
  std::optional<recorder> recording_;  // with --record
};

}  // namespace velorin::cli
