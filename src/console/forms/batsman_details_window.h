// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/form.h"

namespace velorin {

struct batsman_details_form;

/// How a batsman made his runs. Escape, Return and Space close it.
class BatsmanDetailsWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been filled and outlives the window.
  explicit BatsmanDetailsWindow(batsman_details_form& form, QWidget* parent = front_window());

 private:
  batsman_details_form& form_;
};

}  // namespace velorin
