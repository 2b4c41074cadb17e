// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class QBoxLayout;
class QLabel;

namespace velorin {

struct match_state;

class CrestView;

/// The head of the console: score, overs, rate, what is needed, ground and clock, and whether it is practice.
class Scoreboard : public QWidget {
  Q_OBJECT

 public:
  explicit Scoreboard(const match_state& match, QWidget* parent = nullptr);

  void refresh();
  enum class Look {
    whole,
    low,      ///< in a row of little height, without the sides' names
    stacked,  ///< without sides, ground and clock; the chase in a line of its own
  };
  void set_look(Look look);

 private:
  QBoxLayout* whole_;
  QBoxLayout* chase_;
  QWidget* around_;  // sides, ground and clock
  CrestView* crest_;
  QLabel* side_;
  QLabel* score_;
  QLabel* overs_;
  QLabel* rate_;
  QLabel* target_;
  QLabel* needed_;
  QLabel* first_innings_;
  QLabel* teams_;
  QLabel* ground_;
  QLabel* practice_;
  QLabel* clock_;
  const match_state& match_;
};

}  // namespace velorin
