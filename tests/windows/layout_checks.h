// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

namespace velorin::testing {

/// How things lie in a form that is shown: neighbours do not overlap; what a widget paints as text lies within it, and
/// no text over another one; nothing scrolls sideways; keys lead to every button. Failures are test failures.
void check_layout(QWidget& form);

/// The part of it that is about painted texts; returns how many were met.
int check_painted_texts(QWidget& form);

}  // namespace velorin::testing
