// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/form.h"

namespace velorin {

struct partners2;

/// The stands of the first innings.
class Partners2Window : public Form {
  Q_OBJECT

 public:
  /// `form` has been opened; it is read here and not kept.
  explicit Partners2Window(const partners2& form, QWidget* parent = front_window());
};

}  // namespace velorin
