// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>

namespace velorin {

class front_end;

/// Saves something of the game by calling `save`. Where that raises a run_time_error, the user is asked: it is called
/// again as often as he wants. `without` tells him what it means to go on without it. True if it is saved, false if he
/// goes on without. Raises the run_time_error that he does not answer.
bool saved(front_end& user, const std::string& without, const std::function<void()>& save);

}  // namespace velorin
