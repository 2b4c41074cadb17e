// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <cstdint>

namespace velorin {

/// A name as it counts for what is drawn of it: outer and doubled blanks and the case of letters do not.
QString plain_name(const QString& name);

/// Numbers that follow from a name: the same name gives the same row of them everywhere. No chance of the game is in
/// it.
class NameDraw {
 public:
  explicit NameDraw(const QString& name);

  /// The next one, 0 to `count` - 1. `count` is 1 or more.
  int below(int count);
  /// The next one, `low` to `high`.
  int between(int low, int high) { return low + below(high - low + 1); }

 private:
  std::uint64_t state_;
};

}  // namespace velorin
