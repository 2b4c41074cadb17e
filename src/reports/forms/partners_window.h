// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/form.h"

namespace velorin {

struct partners;

/// The stands of the innings in play.
class PartnersWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been opened; it is read here and not kept.
  explicit PartnersWindow(const partners& form, QWidget* parent = front_window());
};

}  // namespace velorin
