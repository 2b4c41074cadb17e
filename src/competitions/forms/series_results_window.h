// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/form.h"

namespace velorin {

struct series_results_form;

/// The results of the series so far.
class SeriesResultsWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been opened and outlives the window.
  explicit SeriesResultsWindow(series_results_form& form, QWidget* parent = front_window());

 private:
  series_results_form& form_;
};

}  // namespace velorin
