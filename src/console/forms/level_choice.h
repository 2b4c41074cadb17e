// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFrame>
#include <functional>

#include "model/aggression_odds.h"

class QLabel;

namespace velorin {

class LevelSegments;

/// The words around an aggression.
struct level_words {
  QString caption;
  QString low;   ///< at the side of 1
  QString high;  ///< at the side of 5
};

/// The choice of an aggression in a captain's sheet: the five segments ("aggression"), each with what the model says of
/// it, and below them the sentence of the one that is pressed.
class LevelChoice : public QFrame {
  Q_OBJECT

 public:
  /// `level`: 1 to 5, the one in use. `chosen`: what a press does.
  LevelChoice(const level_words& words, int level, std::function<void(int level)> chosen, QWidget* parent = nullptr);

  /// `whose`: the man's name. Without an answer to any level nothing stands below.
  void show_answers(const QString& whose, const aggression_odds& odds);
  /// As by a press.
  void choose(int level);
  /// The keys 1 to 5 choose wherever the keyboard is in `window`.
  void answer_figures(QWidget& window);
  /// Moves the keyboard to the segment that is pressed.
  void take_keyboard();

 private:
  void show_chosen();

  LevelSegments* levels_;
  QLabel* caption_;
  QLabel* answer_;
  aggression_odds odds_;
};

}  // namespace velorin
