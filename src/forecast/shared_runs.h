// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <atomic>
#include <exception>
#include <mutex>
#include <stop_token>
#include <thread>
#include <vector>

// Runs of a forecast, shared out among threads.

namespace velorin {

/// Plays the runs 0 to runs - 1 in so many threads, the caller's among them. `make()` makes what a thread plays on; its
/// play(run) is called for each run, in any order. Returns what has been made. Stops early where it is asked to. Raises
/// what a run raises, once no thread is left.
template <class Make>
auto play_shared(long runs, int threads, const std::stop_token& stop, const Make& make) {
  using player = decltype(make());
  constexpr long share = 16;  // runs that a thread takes at once
  std::vector<player> players;
  const long most = std::max(1L, std::min<long>(threads, (runs + share - 1) / share));
  players.reserve(static_cast<std::size_t>(most));
  for (long i = 0; i < most; ++i) players.push_back(make());
  std::atomic<long> next = 0;
  std::mutex guard;
  std::exception_ptr failed;
  const auto work = [&](player& mine) {
    try {
      for (long from = next.fetch_add(share); from < runs && !stop.stop_requested(); from = next.fetch_add(share)) {
        for (long run = from; run < std::min(from + share, runs); ++run) mine.play(run);
      }
    } catch (...) {
      next = runs;
      const std::lock_guard hold(guard);
      if (!failed) failed = std::current_exception();
    }
  };
  {
    std::vector<std::jthread> others;
    for (std::size_t i = 1; i < players.size(); ++i) others.emplace_back([&work, &players, i] { work(players[i]); });
    work(players.front());
  }
  if (failed) std::rethrow_exception(failed);
  return players;
}

}  // namespace velorin
