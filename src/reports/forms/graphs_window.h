// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reports/forms/chart_form.h"

namespace velorin {

struct graphs;

/// The runs of each over, as bars or as two tables.
class GraphsWindow : public ChartForm {
  Q_OBJECT

 public:
  /// `form` has been opened and outlives the window.
  explicit GraphsWindow(const graphs& form, QWidget* parent = front_window());
};

}  // namespace velorin
