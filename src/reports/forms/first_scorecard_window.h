// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/form.h"

namespace velorin {

struct first_scorecard_form;

/// The batting card of the first innings.
class FirstScorecardWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been opened and outlives the window.
  explicit FirstScorecardWindow(const first_scorecard_form& form, QWidget* parent = front_window());

 private:
  const first_scorecard_form& form_;
};

}  // namespace velorin
