// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAccessible>

class QWidget;

namespace velorin {

/// Tells screen readers what a widget that paints itself is. To be called before the widget gets its name, which it
/// needs besides.
void give_role(QWidget& widget, QAccessible::Role role);

}  // namespace velorin
