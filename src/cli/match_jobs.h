// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "cli/match_summary.h"

namespace velorin::cli {

/// What the workers of a run do.
struct worker_task {
  long matches = 0;  ///< 1 or more
  int jobs = 1;      ///< worker processes, 1 to `matches`
  /// Fresh; each worker adds to a copy of its own, and all of these are added to it at the end.
  match_summary& summary;
  /// Plays a match by its number, from 1, and adds it to the summary. Returns the line to hand over, "" for none.
  /// Called in a worker.
  std::function<std::string(long number)> play;
  /// Ends the work of the worker that has played the last match. Called in that worker.
  std::function<void()> finish;
  /// Told of the number of matches played so far, by all workers together. Called in a worker.
  std::function<void(long played)> progress;
  /// Takes the lines, in the order of the matches; empty if there are none. Called in this process.
  std::function<void(std::string_view line)> take;
};

/// Plays the matches of a run in worker processes, each with a state of its own: worker w of J plays the matches w,
/// w + J, w + 2J and so on. Raises what the match of the lowest number that broke off raised, as std::runtime_error
/// with the same text; every match before it has been played then. Raises run_time_error (file) if a process cannot be
/// started or ends early.
void play_in_workers(const worker_task& task);

}  // namespace velorin::cli
