// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include "forecast/result_tally.h"

namespace velorin {

struct match_state;

/// Forecasts behind play: threads that answer the question asked last.
class forecast_worker {
 public:
  struct plan {
    long runs = 2'500;       ///< of each question, 1 or more
    std::uint64_t seed = 1;  ///< the same for each question
    int threads = 2;         ///< 1 or more
  };
  /// Takes an answer and the number of its question, in one of the worker's threads, one answer at a time. A question
  /// that came while the answer was on its way has a higher number. Raises nothing.
  using receiver = std::function<void(std::uint64_t question, const forecast_answer& answer)>;

  forecast_worker(const plan& planned, receiver receive);
  /// Stops at once: what is being played is dropped, and nothing is received any more.
  ~forecast_worker();
  forecast_worker(const forecast_worker&) = delete;
  forecast_worker& operator=(const forecast_worker&) = delete;

  /// Asks for the forecast of the match as it stands; whatever was asked before and is not yet answered is dropped.
  /// Takes no longer than copying a match. Returns the number of the question, from 1; 0 where the match cannot be
  /// forecast, and nothing is asked then.
  std::uint64_t ask(const match_state& match);
  /// Drops what was asked.
  void withdraw();

 private:
  class pool;
  std::unique_ptr<pool> pool_;
};

}  // namespace velorin
