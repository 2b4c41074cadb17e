// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/form.h"

namespace velorin {

struct bowlcard2nd;

/// The bowlers of the first innings.
class Bowlcard2ndWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been opened; it is read here and not kept.
  explicit Bowlcard2ndWindow(const bowlcard2nd& form, QWidget* parent = front_window());
};

}  // namespace velorin
