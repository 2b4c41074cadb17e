// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/form.h"
#include "ui/match_play.h"

class QPushButton;

namespace velorin {

struct bowler_choice_form;
class ManList;

/// The pick of a bowler. Its OK needs a row that can be chosen.
class BowlerChoiceWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been made and outlives the window.
  explicit BowlerChoiceWindow(const match_play& play, bowler_choice_form& form, QWidget* parent = front_window());

 private:
  QString note(int row) const;
  void add_adviser();
  void add_acts();
  void show_choice();

  bowler_choice_form& form_;
  ManList* men_;
  QPushButton* ok_ = nullptr;
  match_play play_;
};

}  // namespace velorin
