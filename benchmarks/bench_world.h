// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>

#include "headless/headless_user.h"
#include "model/match_state.h"
#include "support/test_user.h"

namespace velorin::bench {

/// A user who keeps the match as it stood at some moments of a match.
class keeping_user : public test_user {
 public:
  match_state in_mid_play;  ///< 25 overs into the first innings
  match_state at_half;      ///< the first ball of the second innings is booked
  match_state in_last_ten;  ///< ten overs before the end of the second innings
  match_state at_end;       ///< the result known, before the updates
  long balls = 0;
  bool keeping = false;

  void ball_bowled() override;
  void open(report) override;
};

keeping_user& the_user();

/// Copies of the bundled team and ground files in a folder of its own, in use while it lives; gone afterwards.
class bench_world {
 public:
  explicit bench_world(const std::filesystem::path& teams);
  ~bench_world();
  bench_world(const bench_world&) = delete;
  bench_world& operator=(const bench_world&) = delete;

 private:
  std::filesystem::path folder_;
};

/// A whole unattended match between the teams that the form proposes.
void play_match();

/// Makes sure that 300 matches, of all teams in turn, are on record.
void put_on_record();

/// The highest memory, in kilobytes, that a process takes which plays so many matches. Raises std::runtime_error if it
/// fails.
long peak_memory(int matches);

}  // namespace velorin::bench
