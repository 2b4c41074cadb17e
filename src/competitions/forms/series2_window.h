// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "competitions/forms/entry_controls.h"
#include "desktop/form.h"

class QComboBox;

namespace velorin {

class NumberField;
struct series2;

/// A tri series: three teams, their captains, rounds. While it is played the window is hidden. Left before its first
/// match was over, it comes back.
class Series2Window : public Form {
  Q_OBJECT

 public:
  /// `form` has been opened and outlives the window.
  explicit Series2Window(series2& form, QWidget* parent = front_window());

 private:
  QWidget* new_sides();
  void show_choice();
  void play();

  series2& form_;
  QComboBox* grounds_;
  EntryFoot entry_foot_;
  NumberField* rounds_;
};

}  // namespace velorin
