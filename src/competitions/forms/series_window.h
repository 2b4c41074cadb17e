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
struct series_form;

/// A series: teams, captains, number of matches. While it is played the window is hidden. Left before its first
/// match was over, it comes back.
class SeriesWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been opened and outlives the window.
  explicit SeriesWindow(match_state& match, open_database& database, series_form& form,
                        QWidget* parent = front_window());

 private:
  void show_choice();
  void play();

  series_form& form_;
  QComboBox* grounds_;
  GroundBelow* ground_below_ = nullptr;
  EntryFoot entry_foot_;
  NumberField* matches_;
  match_state& match_;
  open_database& data_;
};

}  // namespace velorin
