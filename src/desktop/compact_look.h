// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMargins>

class QBoxLayout;
class QLabel;
class QVBoxLayout;
class QWidget;

namespace velorin {

/// The parts of a form that need less height where there is little.
struct FormParts {
  QWidget* head;
  QBoxLayout* lines;  ///< of the head
  QLabel* heading;
  QLabel* subheading;
  QVBoxLayout* body;
  QWidget* foot;
  QMargins around_body;  ///< as it is where there is room
};

/// With less height than this, in pixels, a form is compact.
inline constexpr int least_roomy_height = 600;

/// Heading and subheading in one line where a form `width` pixels wide has room for it, less air, a small crest, no
/// picture; or all of it as usual.
void show_compact(const FormParts& parts, bool compact, int width);

}  // namespace velorin
