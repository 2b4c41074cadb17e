// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/form.h"

namespace velorin {

struct tri_series_table_form;

/// The table of the tri series, and its final.
class TriSeriesTableWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been opened and outlives the window.
  explicit TriSeriesTableWindow(tri_series_table_form& form, QWidget* parent = front_window());

 private:
  tri_series_table_form& form_;
};

}  // namespace velorin
