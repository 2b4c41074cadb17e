// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/form.h"

namespace velorin {

struct partnerships_form;

/// The stands of the innings in play.
class PartnershipsWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been opened; it is read here and not kept.
  explicit PartnershipsWindow(const partnerships_form& form, QWidget* parent = front_window());
};

}  // namespace velorin
