// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>
#include <array>
#include <string>

namespace velorin {

/// What the model of a delivery answers to each aggression from 1 to 5: "5.9 an over, a wicket every 29 balls". Empty
/// where it has no answer.
using level_answers = std::array<std::string, 5>;

/// The answers to all five aggressions as lines, that of the chosen one with a mark.
class LevelAnswers : public QWidget {
  Q_OBJECT

 public:
  explicit LevelAnswers(QWidget* parent = nullptr);

  /// Without any answer it hides.
  void show_answers(const level_answers& answers);
  /// `level`: 1 to 5.
  void choose(int level);

 private:
  level_answers answers_;
  int chosen_ = 0;
  std::array<QLabel*, 5> lines_{};
};

}  // namespace velorin
