// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/form.h"

namespace velorin {

struct conditions_form;

/// The conditions of a match: the sky, four sliders, and the words for what was drawn.
class ConditionsWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been opened and outlives the window.
  explicit ConditionsWindow(conditions_form& form, QWidget* parent = front_window());

 private:
  conditions_form& form_;
};

}  // namespace velorin
