// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/form.h"
#include "reports/forms/export_choice.h"
#include "ui/match_play.h"

class QLabel;
class QVBoxLayout;

namespace velorin {

struct scorecard_form;

/// The batting card of the innings in play, with the way to the other reports and to the three files.
class ScorecardWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been opened and outlives the window.
  ScorecardWindow(const match_play& play, const scorecard_form& form, QWidget* parent = front_window());

  /// How a file is asked for, in place of the common dialog.
  void choose_files_with(FileChooser chooser) { chooser_ = std::move(chooser); }

 private:
  void add_reports();
  void add_exports();
  /// Writes a file; what fails is told in a line of the window.
  void save(export_kind kind);

  const scorecard_form& form_;
  FileChooser chooser_;
  QVBoxLayout* column_;
  QLabel* not_saved_;
  match_play play_;
};

}  // namespace velorin
