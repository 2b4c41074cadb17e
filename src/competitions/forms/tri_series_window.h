// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "competitions/forms/entry_controls.h"
#include "desktop/form.h"

class QComboBox;

namespace velorin {

class GroundBelow;
struct match_state;
struct open_database;

class NumberField;
struct tri_series_form;

/// A tri series: three teams, their captains, rounds. While it is played the window is hidden. Left before its first
/// match was over, it comes back.
class TriSeriesWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been opened and outlives the window.
  explicit TriSeriesWindow(match_state& match, open_database& database, tri_series_form& form,
                           QWidget* parent = front_window());

 private:
  QWidget* new_sides();
  void show_choice();
  void play();

  tri_series_form& form_;
  QComboBox* grounds_;
  GroundBelow* ground_below_ = nullptr;
  EntryFoot entry_foot_;
  NumberField* rounds_;
  match_state& match_;
  open_database& data_;
};

}  // namespace velorin
