// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <mutex>

#include "database/folder_lock.h"

namespace velorin::cli {

/// What the threads of a run share to speak to the user one at a time.
struct speech {
  std::mutex turn;
  int waiting = 0;  ///< threads that wait for a folder and have told so
};

/// Tells one watcher of the waits of several threads, as if they were one wait: it is over when none of them waits.
/// Each thread has an object of its own.
class common_watcher : public turn_watcher {
 public:
  /// Both must outlive this.
  common_watcher(turn_watcher& told, speech& shared) : told_(told), shared_(shared) {}

  void turn_is_waited_for(const std::filesystem::path& folder, std::chrono::milliseconds so_far) override {
    const std::lock_guard hold(shared_.turn);
    if (!waits_) ++shared_.waiting;
    waits_ = true;
    told_.turn_is_waited_for(folder, so_far);
  }

  void wait_is_over() override {
    const std::lock_guard hold(shared_.turn);
    if (!waits_) return;
    waits_ = false;
    if (--shared_.waiting == 0) told_.wait_is_over();
  }

 private:
  turn_watcher& told_;
  speech& shared_;
  bool waits_ = false;
};

}  // namespace velorin::cli
