// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include "desktop/form.h"
#include "model/aggression_odds.h"
#include "ui/match_play.h"

class QBoxLayout;

namespace velorin {

class LevelChoice;
struct next_batsman_form;

/// The pick of the next batsman and of his aggression. The first man who can come in starts chosen: he is the one who
/// comes without a choice.
class NextBatsmanWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been made and outlives the window.
  explicit NextBatsmanWindow(const match_play& play, next_batsman_form& form, QWidget* parent = front_window());
  /// `odds`: what each aggression would bring for the man of a row.
  NextBatsmanWindow(const match_play& play, std::function<aggression_odds(int row)> odds, next_batsman_form& form,
                    QWidget* parent = front_window());

  void note_compact(bool compact) override;

 private:
  QWidget* new_aggression();
  void choose(int row);

  std::function<aggression_odds(int)> odds_;  // none where nobody answers
  LevelChoice* levels_ = nullptr;
  QBoxLayout* parts_ = nullptr;  // the men, and the aggression of the one
  next_batsman_form& form_;
  match_play play_;
};

}  // namespace velorin
