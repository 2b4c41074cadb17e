// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/form.h"

namespace velorin {

struct first_bowling_card_form;

/// The bowlers of the first innings.
class FirstBowlingCardWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been opened; it is read here and not kept.
  explicit FirstBowlingCardWindow(const first_bowling_card_form& form, QWidget* parent = front_window());
};

}  // namespace velorin
