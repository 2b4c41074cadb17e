// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

namespace velorin::testing {

/// What a page keeps to in whatever room it has, on a visible window: nothing in it scrolls sideways, and of two areas
/// within each other only one scrolls up and down. Failures are test failures.
void check_room(const QWidget& page);

/// A visible sheet ends with its last row: below it stands nothing but the usual margin, and likewise in its cards and
/// tables. A sheet that scrolls has none to spare. Failures are test failures.
void check_end_of_sheet(const QWidget& sheet);

}  // namespace velorin::testing
