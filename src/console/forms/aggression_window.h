// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "console/forms/level_answers.h"
#include "desktop/form.h"
#include "desktop/sheet_adviser.h"

class QLabel;

namespace velorin {

struct aggression_form;

/// A player's figures in this match and his aggression.
class AggressionWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been made and outlives the window. `answers`: what each aggression would bring.
  explicit AggressionWindow(aggression_form& form, QWidget* parent = front_window());
  AggressionWindow(level_answers answers, aggression_form& form, QWidget* parent = front_window());

 private:
  QWidget* new_figures();
  QWidget* new_aggression();
  void add_adviser();
  SheetAdviser::Acts advised_levels() const;

  level_answers answers_;
  aggression_form& form_;
  QLabel* advised_ = nullptr;
};

}  // namespace velorin
