// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QWidget>

namespace velorin::testing {

/// Does to every control of a window what assistive technology could: each action, another value, another text, another
/// row. Acts without asking for the state, as a client may whose knowledge is old. Returns how many acts were tried.
int try_everything(QWidget& window);

/// All that a window shows of its state: texts, ticks, choices, what can be pressed; with the preferences.
QString state_of(const QWidget& window);

/// Toggles every control of the window that can be ticked through its accessible action: that must do what a click
/// does. Leaves the window as it was, but for choices of one in a group where none was chosen. Returns how many there
/// are.
int check_toggles(QWidget& window);

}  // namespace velorin::testing
