// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace velorin::cli {

/// What the workers of a run do. A worker is a thread, known by its place, from 0.
struct worker_task {
  long matches = 0;  ///< 1 or more
  int jobs = 1;      ///< workers, 1 to `matches`
  /// Plays a match by its number, from 1. Returns the line to hand over, of which nothing is made without `take`.
  /// Called in the worker's thread.
  std::function<std::string(int place, long number)> play;
  /// Ends the work of the worker that has played the last match. Called in that worker's thread.
  std::function<void(int place)> finish;
  /// Told of the number of matches played so far, by all workers together. Called in the thread of any worker, in
  /// several at once.
  std::function<void(long played)> progress;
  /// Takes the lines, in the order of the matches; empty if there are none. Called in the thread of the caller.
  std::function<void(std::string_view line)> take;
};

/// Plays the matches of a run in threads: worker w of J plays the matches w, w + J, w + 2J and so on. A worker whose
/// lines wait for their turn plays on until they are 64 KiB, or one longer line. Raises what the match of the lowest
/// number that broke off raised; every match before it has been played and its line taken then. Raises run_time_error
/// (file) if a thread cannot be started, and what `take` raises. No thread is left at the end, whatever it is.
void play_in_workers(const worker_task& task);

}  // namespace velorin::cli
