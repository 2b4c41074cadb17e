// SPDX-License-Identifier: GPL-3.0-or-later
#include "forecast/forecast_worker.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

#include "forecast/match_start.h"
#include "forecast/rest_player.h"
#include "model/match_state.h"
#include "model/random.h"
#include "model/run_time_error.h"

namespace velorin {

namespace {

constexpr long runs_at_once = 16;  ///< that a thread plays before it looks up

}  // namespace

class forecast_worker::pool {
  /// A question on its way through the threads.
  struct question {
    std::uint64_t number = 0;
    match_start start;
    std::atomic<long> next_run = 0;
    std::atomic<bool> dropped = false;
    result_tally tally;     // under the guard of the pool
    bool answered = false;  // likewise
  };

 public:
  pool(const plan& planned, receiver receive) : plan_(planned), receive_(std::move(receive)) {
    for (int i = 0; i < plan_.threads; ++i) {
      threads_.emplace_back([this](const std::stop_token& stop) { work(stop); });
    }
  }

  ~pool() {
    for (std::jthread& thread : threads_) thread.request_stop();
    replace(nullptr);
    threads_.clear();
  }
  pool(const pool&) = delete;
  pool& operator=(const pool&) = delete;

  std::uint64_t ask(match_start start) {
    auto asked = std::make_shared<question>();
    asked->start = std::move(start);
    const std::uint64_t number = ++last_number_;
    asked->number = number;
    replace(std::move(asked));
    return number;
  }

  void replace(std::shared_ptr<question> asked) {
    {
      const std::lock_guard hold(guard_);
      if (current_) current_->dropped = true;
      current_ = std::move(asked);
    }
    changed_.notify_all();
  }

 private:
  void work(const std::stop_token& stop) {
    rest_player player;
    while (const std::shared_ptr<question> asked = next_question(stop)) {
      result_tally mine;
      play_share(*asked, player, mine, stop);
      hand_in(*asked, mine, stop);
    }
  }

  /// Waits for a question with runs to be played; nothing once the worker stops.
  std::shared_ptr<question> next_question(const std::stop_token& stop) {
    std::unique_lock hold(guard_);
    const bool found = changed_.wait(hold, stop, [this] { return current_ && current_->next_run.load() < plan_.runs; });
    return found && !stop.stop_requested() ? current_ : nullptr;
  }

  void play_share(question& asked, rest_player& player, result_tally& mine, const std::stop_token& stop) const {
    while (!asked.dropped && !stop.stop_requested()) {
      const long from = asked.next_run.fetch_add(runs_at_once);
      for (long run = from; run < std::min(from + runs_at_once, plan_.runs); ++run) {
        random_source chance;
        seed_run(chance, plan_.seed, run);
        mine.add(player.play(asked.start, chance));
      }
      if (from + runs_at_once >= plan_.runs) return;
    }
  }

  void hand_in(question& asked, const result_tally& mine, const std::stop_token& stop) {
    {
      const std::lock_guard hold(guard_);
      asked.tally.add(mine);
      if (asked.dropped || asked.answered || asked.tally.runs() < plan_.runs) return;
      asked.answered = true;
    }
    const std::lock_guard one_at_a_time(receiving_);
    if (asked.dropped || stop.stop_requested()) return;
    forecast_answer answer = asked.tally.answer();
    answer.first = asked.start.first;
    answer.second = asked.start.second;
    receive_(asked.number, answer);
  }

  const plan plan_;
  const receiver receive_;
  std::mutex guard_;      // of current_ and of what the threads hand in
  std::mutex receiving_;  // while an answer is received
  std::condition_variable_any changed_;
  std::shared_ptr<question> current_;
  std::atomic<std::uint64_t> last_number_ = 0;
  std::vector<std::jthread> threads_;  // last, since they work on all others
};

forecast_worker::forecast_worker(const plan& planned, receiver receive)
    : pool_(std::make_unique<pool>(planned, std::move(receive))) {}

forecast_worker::~forecast_worker() = default;

std::uint64_t forecast_worker::ask(const match_state& match) {
  if (!can_be_forecast(match)) return 0;
  try {
    return pool_->ask(start_at(match));
  } catch (const run_time_error&) {
    return 0;
  }
}

void forecast_worker::withdraw() { pool_->replace(nullptr); }

}  // namespace velorin
