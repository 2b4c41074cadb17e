// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/form.h"

namespace velorin {

struct wecond;

/// The conditions of a match: the sky, four sliders, and the words for what was drawn.
class WecondWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been opened and outlives the window.
  explicit WecondWindow(wecond& form, QWidget* parent = front_window());

 private:
  wecond& form_;
};

}  // namespace velorin
