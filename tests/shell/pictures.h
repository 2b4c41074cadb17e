// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;

namespace velorin {
class MenuWindow;
}

namespace velorin::testing {

/// A picture of the whole main window while this form is on top.
void take(QWidget& form, const char* name);

/// Opens an entry of a panel of the menu, and comes back.
void open(MenuWindow& menu, const char* panel, const char* entry);

/// The way into a match, its innings break, a console in a window of its own.
void picture_opening(MenuWindow& menu);

/// A guided match with its hints.
void picture_guide(MenuWindow& menu);

}  // namespace velorin::testing
