// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

// What the desktop around the program looks like, so far as it says so. All here requires the application object.

namespace velorin {

/// Takes down the palette that the platform gave, before the program sets its own.
void note_system_palette();

/// The user has asked his desktop for dark windows. Light where the desktop says nothing.
bool system_is_dark();
/// The user has asked his desktop for more contrast.
bool system_wants_contrast();
/// The user has asked his desktop for less motion.
bool system_wants_stillness();

/// Calls `act` when the desktop's settings change. One call at a time is kept.
void on_system_look_change(std::function<void()> act);

}  // namespace velorin
