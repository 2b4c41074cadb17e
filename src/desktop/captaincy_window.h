// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/form.h"

namespace velorin {

/// What a captain leaves to the computer, and whether an adviser weighs what he does himself; each with a box. What is
/// chosen holds at once, and for later matches.
class CaptaincyWindow : public Form {
  Q_OBJECT

 public:
  explicit CaptaincyWindow(QWidget* parent = front_window());
};

}  // namespace velorin
