// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "competitions/forms/entry_controls.h"
#include "desktop/form.h"

class QComboBox;

namespace velorin {

class NumberField;
struct series1;

/// A series: teams, captains, number of matches. While it is played the window is hidden. Left before its first
/// match was over, it comes back.
class Series1Window : public Form {
  Q_OBJECT

 public:
  /// `form` has been opened and outlives the window.
  explicit Series1Window(series1& form, QWidget* parent = front_window());

 private:
  void show_choice();
  void play();

  series1& form_;
  QComboBox* grounds_;
  EntryFoot entry_foot_;
  NumberField* matches_;
};

}  // namespace velorin
