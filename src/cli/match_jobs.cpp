// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/match_jobs.h"

#include <fmt/format.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>
#ifdef __linux__
#include <sys/prctl.h>
#endif

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstring>
#include <limits>
#include <new>
#include <optional>
#include <stdexcept>
#include <utility>
#include <vector>

#include "model/run_time_error.h"

namespace velorin::cli {

namespace {

[[noreturn]] void raise_worker(const std::string& what) {
  throw run_time_error(failure::file, what, {.file = {}, .record = 0, .field = {}, .player = {}});
}

/// What all processes of a run see.
struct common_board {
  std::atomic<long> first_failed = std::numeric_limits<long>::max();  ///< the lowest match that broke off
  std::atomic<long> played = 0;

  void note_failure(long number) {
    long known = first_failed;
    while (number < known && !first_failed.compare_exchange_weak(known, number)) continue;
  }
};

/// The board in memory that processes share.
class shared_board {
 public:
  shared_board() {
    memory_ = ::mmap(nullptr, sizeof(common_board), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory_ == MAP_FAILED) raise_worker(fmt::format("No memory for the workers: {}", std::strerror(errno)));
    board_ = new (memory_) common_board;
  }
  ~shared_board() { ::munmap(memory_, sizeof(common_board)); }
  shared_board(const shared_board&) = delete;
  shared_board& operator=(const shared_board&) = delete;

  common_board* operator->() const { return board_; }

 private:
  void* memory_ = nullptr;
  common_board* board_ = nullptr;
};

/// A message of a worker.
struct note {
  enum class kind : long { line, summary, failure };
  struct header {
    kind what = kind::line;
    long number = 0;  ///< of the match
    std::size_t size = 0;
  };

  header head;
  std::string text;
};

/// Writes all of it, or ends this worker: nobody listens any more.
void put(int pipe, const void* from, std::size_t size) {
  const char* bytes = static_cast<const char*>(from);
  while (size != 0) {
    const ssize_t written = ::write(pipe, bytes, size);
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) ::_exit(1);
    bytes += written;
    size -= static_cast<std::size_t>(written);
  }
}

void put_note(int pipe, note::kind what, long number, std::string_view text) {
  const note::header head = {what, number, text.size()};
  put(pipe, &head, sizeof head);
  put(pipe, text.data(), text.size());
}

/// False at the end of the pipe.
bool get(int pipe, void* to, std::size_t size) {
  char* bytes = static_cast<char*>(to);
  while (size != 0) {
    const ssize_t got = ::read(pipe, bytes, size);
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) return false;
    bytes += got;
    size -= static_cast<std::size_t>(got);
  }
  return true;
}

/// A worker as the process that started it sees it. It is gone with the object.
class worker {
 public:
  worker(pid_t process, int pipe) : process_(process), pipe_(pipe) {}

  worker(worker&& other) noexcept : process_(std::exchange(other.process_, 0)), pipe_(std::exchange(other.pipe_, -1)) {}
  worker& operator=(worker&&) = delete;
  ~worker() {
    if (process_ == 0) return;
    ::close(pipe_);
    while (::waitpid(process_, nullptr, 0) < 0 && errno == EINTR) continue;
  }

  int pipe() const { return pipe_; }

  note next_note() const {
    note told;
    if (get(pipe_, &told.head, sizeof told.head)) {
      told.text.resize(told.head.size);
      if (get(pipe_, told.text.data(), told.text.size())) return told;
    }
    raise_worker("A process that played matches ended before its work was done");
  }

 private:
  pid_t process_;
  int pipe_;
};

/// A worker does not outlive the run that started it.
void end_with(pid_t parent) {
#ifdef __linux__
  ::prctl(PR_SET_PDEATHSIG, SIGTERM);
#endif
  if (::getppid() != parent) ::_exit(1);
  std::signal(SIGPIPE, SIG_DFL);
}

/// The life of a worker: plays its share and tells of it.
void work(const worker_task& task, int place, int pipe, const shared_board& board) {
  long number = place + 1;
  try {
    for (; number <= task.matches && number < board->first_failed; number += task.jobs) {
      const std::string line = task.play(number);
      if (!line.empty()) put_note(pipe, note::kind::line, number, line);
      task.progress(++board->played);
    }
    const bool had_last = number == task.matches + task.jobs;
    number = task.matches;
    if (had_last) task.finish();
    put_note(pipe, note::kind::summary, 0, task.summary.packed());
  } catch (const std::exception& error) {
    board->note_failure(number);
    put_note(pipe, note::kind::failure, number, error.what());
  }
}

/// All workers of a run.
class workforce {
 public:
  explicit workforce(const worker_task& task) : task_(task) {
    men_.reserve(static_cast<std::size_t>(task.jobs));
    try {
      for (int place = 0; place < task.jobs; ++place) start(place);
    } catch (...) {
      stop();
      throw;
    }
  }
  ~workforce() { stop(); }
  workforce(const workforce&) = delete;
  workforce& operator=(const workforce&) = delete;

  const worker& of_match(long number) const { return men_[static_cast<std::size_t>((number - 1) % task_.jobs)]; }
  const std::vector<worker>& men() const { return men_; }

 private:
  /// No worker begins another match.
  void stop() { board_->first_failed = 0; }

  void start(int place) {
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0) raise_worker(fmt::format("No pipe for a worker: {}", std::strerror(errno)));
    const pid_t parent = ::getpid();
    const pid_t process = ::fork();
    if (process < 0) {
      const int cause = errno;
      ::close(ends[0]);
      ::close(ends[1]);
      raise_worker(fmt::format("A worker cannot be started: {}", std::strerror(cause)));
    }
    if (process == 0) {
      for (const worker& other : men_) ::close(other.pipe());
      ::close(ends[0]);
      end_with(parent);
      work(task_, place, ends[1], board_);
      ::_exit(0);
    }
    ::close(ends[1]);
    men_.emplace_back(process, ends[0]);
  }

  const worker_task& task_;
  shared_board board_;
  std::vector<worker> men_;
};

}  // namespace

void play_in_workers(const worker_task& task) {
  const workforce force(task);
  std::vector<std::optional<note>> ends(static_cast<std::size_t>(task.jobs));
  // Whoever tells of something else than a line has come to his end, and no later line counts.
  for (long number = 1; task.take && number <= task.matches; ++number) {
    note told = force.of_match(number).next_note();
    if (told.head.what != note::kind::line) {
      ends[static_cast<std::size_t>((number - 1) % task.jobs)] = std::move(told);
      break;
    }
    task.take(told.text);
  }
  const note* failed = nullptr;
  for (std::size_t i = 0; i < ends.size(); ++i) {
    while (!ends[i] || ends[i]->head.what == note::kind::line) ends[i] = force.men()[i].next_note();
    if (ends[i]->head.what == note::kind::summary) {
      task.summary.add(match_summary::unpacked(ends[i]->text));
    } else if (failed == nullptr || ends[i]->head.number < failed->head.number) {
      failed = &*ends[i];
    }
  }
  if (failed != nullptr) throw std::runtime_error(failed->text);
}

}  // namespace velorin::cli
