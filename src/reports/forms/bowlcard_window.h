// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/form.h"

namespace velorin {

struct bowlcard;

/// The bowlers of the innings in play.
class BowlcardWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been opened; it is read here and not kept.
  explicit BowlcardWindow(const bowlcard& form, QWidget* parent = front_window());
};

}  // namespace velorin
