// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/match_jobs.h"

#include <fmt/format.h>

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <exception>
#include <limits>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include "model/run_time_error.h"

namespace velorin::cli {

namespace {

constexpr std::size_t most_bytes_ahead = 65'536;  ///< of lines of a worker that wait for their turn

/// A worker as all threads see it.
struct worker {
  std::deque<std::string> lines;  ///< that wait for their turn
  std::size_t bytes = 0;          ///< of these lines
  bool ended = false;
  long failed = 0;           ///< the match that broke off, with an error
  std::exception_ptr error;  ///< nullptr if none
  std::condition_variable changed;
  std::thread thread;
};

/// All workers of a run.
class workforce {
 public:
  explicit workforce(const worker_task& task) : task_(task), workers_(static_cast<std::size_t>(task.jobs)) {}
  ~workforce() {
    stop_from(0);
    join();
  }
  workforce(const workforce&) = delete;
  workforce& operator=(const workforce&) = delete;

  void start() {
    try {
      for (int place = 0; place < task_.jobs; ++place) at(place).thread = std::thread([this, place] { work(place); });
    } catch (const std::system_error& error) {
      throw run_time_error(failure::file, fmt::format("A worker cannot be started: {}", error.code().message()),
                           {.file = {}, .record = 0, .field = {}, .player = {}});
    }
  }

  void take_lines() {
    for (long number = 1; number <= task_.matches; ++number) {
      const std::optional<std::string> line = next_line(at(static_cast<int>((number - 1) % task_.jobs)));
      // Whoever has no line for his match has broken off, and no later line counts.
      if (!line) return;
      task_.take(*line);
    }
  }

  void join() {
    for (worker& each : workers_) {
      if (each.thread.joinable()) each.thread.join();
    }
  }

  /// Requires that all have been joined.
  void raise_first_failure() const {
    const worker* first = nullptr;
    for (const worker& each : workers_) {
      if (each.error && (first == nullptr || each.failed < first->failed)) first = &each;
    }
    if (first != nullptr) std::rethrow_exception(first->error);
  }

 private:
  worker& at(int place) { return workers_[static_cast<std::size_t>(place)]; }

  /// The life of a worker: plays its share and tells of it.
  void work(int place) {
    worker& me = at(place);
    long number = place + 1;
    try {
      for (; number <= task_.matches && number < stopped_from_; number += task_.jobs) {
        std::string line = task_.play(place, number);
        if (task_.take) hand_over(me, number, std::move(line));
        task_.progress(++played_);
      }
      if (number - task_.jobs == task_.matches) {
        number = task_.matches;
        task_.finish(place);
      }
    } catch (...) {
      me.failed = number;
      me.error = std::current_exception();
      stop_from(number);
    }
    const std::lock_guard hold(guard_);
    me.ended = true;
    me.changed.notify_all();
  }

  /// Waits for room, unless the line does not count any more.
  void hand_over(worker& me, long number, std::string line) {
    std::unique_lock hold(guard_);
    me.changed.wait(hold, [&] {
      return me.lines.empty() || me.bytes + line.size() <= most_bytes_ahead || stopped_from_ <= number;
    });
    if (stopped_from_ <= number) return;
    me.bytes += line.size();
    me.lines.push_back(std::move(line));
    me.changed.notify_all();
  }

  /// The line of the worker's next match, or nothing if there is none.
  std::optional<std::string> next_line(worker& from) {
    std::unique_lock hold(guard_);
    from.changed.wait(hold, [&] { return !from.lines.empty() || from.ended; });
    if (from.lines.empty()) return std::nullopt;
    std::string line = std::move(from.lines.front());
    from.lines.pop_front();
    from.bytes -= line.size();
    from.changed.notify_all();
    return line;
  }

  /// No worker begins this match or a later one, nor waits with its line.
  void stop_from(long number) {
    const std::lock_guard hold(guard_);
    if (number >= stopped_from_) return;
    stopped_from_ = number;
    for (worker& each : workers_) each.changed.notify_all();
  }

  const worker_task& task_;
  std::mutex guard_;  ///< of what the workers and the one who takes their lines share
  std::atomic<long> stopped_from_ = std::numeric_limits<long>::max();
  std::atomic<long> played_ = 0;
  std::vector<worker> workers_;
};

}  // namespace

void play_in_workers(const worker_task& task) {
  workforce force(task);
  force.start();
  if (task.take) force.take_lines();
  force.join();
  force.raise_first_failure();
}

}  // namespace velorin::cli
