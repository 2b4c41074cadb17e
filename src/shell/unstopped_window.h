// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include "desktop/form.h"

class QLabel;

namespace velorin {

struct match_state;

/// Names the match that runs without stopping, its score as it grows, and the matches left.
class UnstoppedWindow : public Form {
  Q_OBJECT

 public:
  /// `match` outlives the window. `stop`: the user asks to stop at the next match.
  UnstoppedWindow(const match_state& match, std::function<void()> stop, QWidget* parent = front_window());

  /// Shows the match as it stands. `left`: matches still to come.
  void show_progress(int left);

 private:
  QLabel* title_;
  QLabel* score_;
  QLabel* left_;
  QPushButton* stop_;
  const match_state& match_;
};

}  // namespace velorin
