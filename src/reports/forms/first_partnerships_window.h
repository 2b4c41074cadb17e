// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/form.h"

namespace velorin {

struct first_partnerships_form;

/// The stands of the first innings.
class FirstPartnershipsWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been opened; it is read here and not kept.
  explicit FirstPartnershipsWindow(const first_partnerships_form& form, QWidget* parent = front_window());
};

}  // namespace velorin
