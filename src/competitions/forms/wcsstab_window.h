// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/form.h"

namespace velorin {

struct wcsstab;

/// The tables of the World Cup: both groups, the Super Six, the knock-out.
class WcsstabWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been opened and outlives the window.
  explicit WcsstabWindow(wcsstab& form, QWidget* parent = front_window());

 private:
  QWidget* new_knock_out();

  wcsstab& form_;
};

}  // namespace velorin
