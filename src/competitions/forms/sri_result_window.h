// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/form.h"

namespace velorin {

struct sri_result;

/// The results of the series so far.
class SriResultWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been opened and outlives the window.
  explicit SriResultWindow(sri_result& form, QWidget* parent = front_window());

 private:
  sri_result& form_;
};

}  // namespace velorin
