// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/form.h"

namespace velorin {

struct aggr;

/// A player's figures in this match and his aggression.
class AggrWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been made and outlives the window.
  explicit AggrWindow(aggr& form, QWidget* parent = front_window());

 private:
  QWidget* new_figures();
  QWidget* new_aggression();

  aggr& form_;
};

}  // namespace velorin
