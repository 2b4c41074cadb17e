// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "faults/program.h"

namespace velorin::testing {

/// Where a traced program stands: at the entry of a call of the system, or at the exit of it.
struct call_stop {
  bool entry = false;
  std::uint64_t number = 0;     ///< of the call (SYS_...)
  std::uint64_t words[6] = {};  ///< its arguments
  std::int64_t result = 0;      ///< at the exit; below 0 the negative number of an error
};

/// A program that stops at the entry and at the exit of every call of the system.
class traced_run {
 public:
  /// Starts it. `refused()` tells why the system does not let it be traced; "" if it does.
  traced_run(workbench& bench, program what);
  /// Kills it if it still runs.
  ~traced_run();
  traced_run(const traced_run&) = delete;
  traced_run& operator=(const traced_run&) = delete;

  const std::string& refused() const { return refused_; }

  /// Lets it run to the next stop. Nothing at its end.
  std::optional<call_stop> next();
  /// Kills it where it stands, and waits for its end. False if it had come to its end by itself.
  bool kill();
  /// How it ended. Requires: next() has given nothing, or kill() has been called.
  ending end() { return bench_.ending_of(status_); }

  /// A text of the program's memory, up to its end mark.
  std::string text_at(std::uint64_t address) const;

 private:
  bool wait();

  workbench& bench_;
  pid_t process_ = 0;
  int status_ = 0;
  int pending_signal_ = 0;
  bool ended_ = false;
  std::string refused_;
};

}  // namespace velorin::testing
