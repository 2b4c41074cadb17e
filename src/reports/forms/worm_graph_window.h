// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/line_chart.h"
#include "reports/forms/chart_form.h"

namespace velorin {

struct worm_graph_form;

/// The running scores of the two sides, as lines or as a table.
class WormGraphWindow : public ChartForm {
  Q_OBJECT

 public:
  /// `form` has been opened; it is read here and not kept.
  explicit WormGraphWindow(const worm_graph_form& form, QWidget* parent = front_window());
};

/// The form's lines: row r stands for r - 1 overs.
LineChart worm_chart(const worm_graph_form& form);

}  // namespace velorin
