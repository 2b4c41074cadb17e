// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "competitions/forms/played_matches.h"
#include "desktop/form.h"

class QVBoxLayout;

namespace velorin {

class TableView;
struct series_results_form;

/// The results of the series so far.
class SeriesResultsWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been opened and outlives the window.
  explicit SeriesResultsWindow(series_results_form& form, QWidget* parent = front_window());

  /// The rows of these matches open their reports.
  void lead_to(PlayedMatches played);

 private:
  series_results_form& form_;
  PlayedMatches played_;
  TableView* results_;
  QVBoxLayout* rows_;
};

}  // namespace velorin
