// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <utility>
#include <vector>

#include "database/slots.h"

// The team and ground files stay in memory as they were last read, and are read again when the system shows another
// state of the file.

namespace velorin {

/// What tells one state of a file from another.
struct file_state {
  std::uint64_t device = 0;
  std::uint64_t number = 0;
  std::int64_t size = 0;
  std::int64_t modified = 0;
  std::int64_t changed = 0;

  bool operator==(const file_state&) const = default;
};

/// The state of the file now. Raises run_time_error (file).
file_state state_of(const std::filesystem::path& file);

/// A file in this state, as it was just read, was last changed so long ago that a further change would show.
bool is_settled(const file_state& state);

/// The records of a file as last read, with the state of the file that they belong to.
template <typename Record>
class kept_file {
 public:
  /// Forgets the records unless they still are those of the file. `read_once`: they are taken for it unseen. Raises
  /// run_time_error (file).
  void renew(const std::filesystem::path& path, bool read_once) {
    if (held_) return;
    if (read_once && file_ && path.native() == path_.native()) return;
    const file_state now = state_of(path);
    if (settled_ && now == state_ && path.native() == path_.native()) return;
    forget();
    file_.emplace(slot_file::read_existing(path, team_slot));
    path_ = path;
    state_ = now;
    settled_ = is_settled(now) && state_of(path) == now;
  }

  void forget() {
    if (held_) return;
    settled_ = false;
    records_.reset();
    file_.reset();
  }

  /// From here on these are the records, whatever any file has: there is none.
  void hold(std::vector<Record> records) {
    forget();
    records_ = std::move(records);
    held_ = true;
  }
  bool held() const { return held_; }

  /// Requires a file that has been read.
  const slot_file& file() const { return *file_; }
  std::optional<std::vector<Record>>& records() { return records_; }

 private:
  std::filesystem::path path_;
  file_state state_;
  bool settled_ = false;
  bool held_ = false;
  std::optional<slot_file> file_;
  std::optional<std::vector<Record>> records_;
};

}  // namespace velorin
