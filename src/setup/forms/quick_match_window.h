// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include "desktop/preferences.h"
#include "setup/forms/new_match_window.h"

namespace velorin {

/// A new match with the sides of the last one. What the set-up asks, the computer answers as far as it is told to: each
/// answer is shown, and can be left to the user instead. "Play" leads to the first ball.
class QuickMatchWindow : public NewMatchWindow {
  Q_OBJECT

 public:
  /// `answers` is told what the computer answers, as the match begins.
  QuickMatchWindow(match_state& match, new_match_form& form, std::function<void(QuickAnswers)> answers,
                   QWidget* parent = front_window());

 protected:
  void play() override;

 private:
  std::function<void(QuickAnswers)> tell_;
  QuickAnswers answers_;
};

}  // namespace velorin
