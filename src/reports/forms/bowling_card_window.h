// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/form.h"

namespace velorin {

struct bowling_card_form;

/// The bowlers of the innings in play.
class BowlingCardWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been opened; it is read here and not kept.
  explicit BowlingCardWindow(const bowling_card_form& form, QWidget* parent = front_window());
};

}  // namespace velorin
