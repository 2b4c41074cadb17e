// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/form.h"

namespace velorin {

class front_end;

struct first_scorecard_form;

/// The batting card of the first innings.
class FirstScorecardWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been opened and outlives the window.
  FirstScorecardWindow(front_end& user, const first_scorecard_form& form, QWidget* parent = front_window());

 private:
  const first_scorecard_form& form_;
  front_end& user_;
};

}  // namespace velorin
