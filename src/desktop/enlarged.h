// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <QMargins>
#include <QSize>

#include "desktop/theme.h"

class QLayout;
class QWidget;

// A part of a window that is drawn larger than usual, where the window has the room.

namespace velorin {

/// Draws `root` and all within it so many times as large, 1 or more: its texts, and the room between its parts. What
/// paints itself asks for the enlargement.
void enlarge(QWidget& root, double factor);

/// The same for a page that knows nothing of it: fixed sizes, limits and icons of its parts grow as well. What came
/// since the last time, or was given another size, is made to fit; true if anything changed.
bool enlarge_page(QWidget& page, double factor);

/// A part of a page, or a layout, whose owner makes it fit the enlargement: the above leaves it alone.
void fit_by_its_owner(QObject& part);

/// How much larger than usual a page of this size is drawn, 1 to 2: to the eighth, so that a drag of the frame does not
/// restyle at every pixel.
double fitting_enlargement(QSize page);

/// How much larger than usual a widget is drawn.
double enlargement(const QWidget& widget);

/// So many pixels of the usual size, as the widget has them.
int enlarged(const QWidget& widget, int pixels);

/// A step of the type scale, so many times as large; as the widget has it.
QFont type_font(TypeStep step, double factor);
QFont type_font(const QWidget& widget, TypeStep step);

/// Another room around and between the parts of a layout within `root`, in pixels of the usual size.
void set_usual_room(const QWidget& root, QLayout& layout, QMargins around, int between);

}  // namespace velorin
