// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSize>
#include <QWidget>

namespace velorin::testing {

/// The smallest screen that every window must fit.
inline constexpr QSize smallest_screen(1024, 700);

/// The checks that every window passes, on a visible window: it has a title; it fits the smallest screen; the keyboard
/// reaches every control, in the order in which they stand, from top to bottom and from left to right within a row;
/// every button has a mnemonic or a key, no two have the same, and the tooltip names it; every control has a name for
/// screen readers; no text is cut off. Failures are test failures.
void check_window(QWidget& window);

/// The part of it that is about the controls, at whatever size the window has.
void check_controls(QWidget& window);

/// Likewise at the smallest screen's size and as it came.
void check_window_at_sizes(QWidget& window);

/// Saves a picture of the window in the folder named by the environment variable VELORIN_SHOTS, under this name; does
/// nothing without it. VELORIN_SHOT_SIZE, such as "1280x800", sets the size that the window has in it.
void take_picture(QWidget& window, const char* name);

}  // namespace velorin::testing
