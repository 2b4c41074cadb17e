// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "browsers/forms/record_window.h"
#include "browsers/wldrank.h"

namespace velorin {

/// The ranking of all teams.
class WldrankWindow : public RecordWindow {
 public:
  explicit WldrankWindow(wldrank& form, QWidget* parent = front_window())
      : RecordWindow(QStringLiteral("wldrank"), form, false, parent) {}
};

}  // namespace velorin
