// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

#include "model/random.h"
#include "recording/packing.h"
#include "recording/recording.h"

namespace velorin {

/// Writes entries one behind the other, each with its check.
class entry_writer {
 public:
  /// Begins a file.
  entry_writer() { start(); }
  /// Goes on behind the whole entries of a file.
  explicit entry_writer(const recording& before)
      : check_(before.check), last_reading_(before.readings.empty() ? 0 : before.readings.back()) {}

  /// Begins a file: its head is the first that is taken.
  void start();
  /// `same_squads`: teams and grounds are those of the beginning that it wrote last.
  void beginning(const recorded_beginning& begun, bool same_squads = false);
  /// Nothing for an empty log. Empties it.
  void chance(chance_log& log);
  void event(const recorded_event& event);

  /// What has been written since it was last taken.
  std::string take() {
    std::string taken(bytes_.bytes());
    bytes_.clear();
    return taken;
  }
  bool empty() const { return bytes_.empty(); }

 private:
  /// Adds the entry whose content has been packed.
  void entry(int tag);

  packer bytes_;
  packer content_;       // of the entry that is being made
  summed_bytes squads_;  // of the last beginning
  std::uint32_t check_ = 0;
  std::uint64_t last_reading_ = 0;
};

}  // namespace velorin
