// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/form.h"

namespace velorin {

/// What a form of this id is for and what its user can do there, in a sentence or two; "" for an unknown id.
QString purpose_of(const QString& id);

/// Tells of a form what it is for, and of each of its controls what it does and by which key.
class HelpWindow : public Form {
  Q_OBJECT

 public:
  explicit HelpWindow(const Form& about, QWidget* parent = front_window());
};

}  // namespace velorin
