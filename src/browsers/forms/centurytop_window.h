// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "browsers/centurytop.h"
#include "browsers/forms/record_window.h"

namespace velorin {

/// The players of most hundreds.
class CenturytopWindow : public RecordWindow {
 public:
  explicit CenturytopWindow(centurytop& form, QWidget* parent = front_window())
      : RecordWindow(QStringLiteral("centurytop"), form, true, parent) {}
};

}  // namespace velorin
