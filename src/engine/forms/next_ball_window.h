// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/form.h"
#include "desktop/table.h"

namespace velorin {

struct match_state;

/// The next ball's chances as a table, exact; without rows where the next ball is not known yet.
Table next_ball_table(const match_state& match);

/// What the next ball brings, and how likely each of it is.
class NextBallWindow : public Form {
  Q_OBJECT

 public:
  explicit NextBallWindow(const match_state& match, QWidget* parent = front_window());
};

}  // namespace velorin
