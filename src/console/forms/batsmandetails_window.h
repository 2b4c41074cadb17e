// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/form.h"

namespace velorin {

struct batsmandetails;

/// How a batsman made his runs. Escape, Return and Space close it.
class BatsmandetailsWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been filled and outlives the window.
  explicit BatsmandetailsWindow(batsmandetails& form, QWidget* parent = front_window());

 private:
  batsmandetails& form_;
};

}  // namespace velorin
