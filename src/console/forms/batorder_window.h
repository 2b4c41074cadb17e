// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/form.h"

namespace velorin {

struct batorder;

/// The pick of the next batsman and of his aggression. The first man who can come in starts chosen: he is the one who
/// comes without a choice.
class BatorderWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been made and outlives the window.
  explicit BatorderWindow(batorder& form, QWidget* parent = front_window());

 private:
  QWidget* new_aggression();

  batorder& form_;
};

}  // namespace velorin
