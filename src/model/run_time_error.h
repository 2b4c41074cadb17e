// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <stdexcept>
#include <string>

namespace velorin {

/// What went wrong in a way that ends the run of the program.
enum class failure {
  subscript,  ///< a place beyond a fixed size
  overflow,   ///< a figure beyond its width, or a record beyond its slot
  division,   ///< a division by zero
  type,       ///< a text where a number is needed, an unknown tag, a value out of a control's range
  file,       ///< a file that cannot be opened, read, written or replaced
  endless,    ///< a search that would never end
};

/// Where it happened. Empty texts and record 0 mean "does not apply".
struct error_place {
  std::string file;    ///< file name without its folder
  long record = 0;     ///< record or line number, from 1
  std::string field;   ///< field name
  std::string player;  ///< player, team or ground concerned
};

/// The one exception for all failures that end the program. what() is one line that names what happened and where, with
/// "?" for each control character.
class run_time_error : public std::runtime_error {
 public:
  run_time_error(failure kind, const std::string& happened, error_place place = {});

  failure kind() const { return kind_; }
  const error_place& place() const { return place_; }

 private:
  failure kind_;
  error_place place_;
};

}  // namespace velorin
