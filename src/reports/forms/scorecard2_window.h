// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/form.h"

namespace velorin {

struct scorecard2;

/// The batting card of the first innings.
class Scorecard2Window : public Form {
  Q_OBJECT

 public:
  /// `form` has been opened and outlives the window.
  explicit Scorecard2Window(const scorecard2& form, QWidget* parent = front_window());

 private:
  const scorecard2& form_;
};

}  // namespace velorin
