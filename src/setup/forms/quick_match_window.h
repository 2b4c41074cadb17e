// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include "setup/forms/new_match_window.h"
#include "setup/forms/quick_choices.h"

namespace velorin {

class QuickAnswersCard;

/// A new match with the sides of the last one. What the set-up asks, the computer answers as far as it is told to: each
/// answer is shown, and can be left to the user instead. "Play" leads to the first ball.
class QuickMatchWindow : public NewMatchWindow {
  Q_OBJECT

 public:
  /// `answers` is told what is answered, as the match begins.
  QuickMatchWindow(match_state& match, new_match_form& form, std::function<void(QuickChoices)> answers,
                   QWidget* parent = front_window());

 protected:
  void play() override;

 private:
  void show_answers();

  std::function<void(QuickChoices)> tell_;
  new_match_form& form_;
  QuickAnswersCard* card_;
};

}  // namespace velorin
