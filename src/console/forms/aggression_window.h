// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/form.h"
#include "desktop/sheet_adviser.h"
#include "model/aggression_odds.h"

class QLabel;

namespace velorin {

class LevelChoice;
struct aggression_form;

/// A player's figures in this match and his aggression.
class AggressionWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been made and outlives the window. `odds`: what each aggression would bring.
  explicit AggressionWindow(aggression_form& form, QWidget* parent = front_window());
  AggressionWindow(const aggression_odds& odds, aggression_form& form, QWidget* parent = front_window());

 private:
  QWidget* new_figures();
  QWidget* new_aggression(const aggression_odds& odds);
  void add_adviser();
  SheetAdviser::Acts advised_levels() const;

  aggression_form& form_;
  LevelChoice* levels_ = nullptr;
  QLabel* advised_ = nullptr;
};

}  // namespace velorin
