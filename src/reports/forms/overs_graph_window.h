// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reports/forms/chart_form.h"

namespace velorin {

struct overs_graph_form;

/// The runs of each over, as bars or as two tables.
class OversGraphWindow : public ChartForm {
  Q_OBJECT

 public:
  /// `form` has been opened and outlives the window.
  explicit OversGraphWindow(const overs_graph_form& form, QWidget* parent = front_window());
};

}  // namespace velorin
