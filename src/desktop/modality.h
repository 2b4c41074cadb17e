// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;

namespace velorin {

/// From now on a window that another, modal one stands over is dead for every kind of press: mouse, keys, shortcuts and
/// the actions of assistive technology, which finds its controls disabled. Its looks stay, and so do its focus and what
/// is chosen in it; what the program itself changes meanwhile holds, but for texts of line edits, which are put back. A
/// second call does nothing. Requires the application object.
void keep_covered_windows_dead();

/// Whether a modal window stands over the window of this widget.
bool is_covered(const QWidget& widget);

/// The same for a form within a window: it is dead until it is uncovered. A second call does nothing.
void cover(QWidget& form);
void uncover(QWidget& form);

}  // namespace velorin
