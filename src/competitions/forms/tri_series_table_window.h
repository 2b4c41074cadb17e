// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "competitions/forms/played_matches.h"
#include "desktop/form.h"

class QVBoxLayout;

namespace velorin {

struct tri_series_table_form;

/// The table of the tri series, and its final.
class TriSeriesTableWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been opened and outlives the window.
  explicit TriSeriesTableWindow(tri_series_table_form& form, QWidget* parent = front_window());

  /// Lists these matches under the table; each opens its report.
  void lead_to(const PlayedMatches& played);

 private:
  tri_series_table_form& form_;
  QVBoxLayout* rows_;
};

}  // namespace velorin
