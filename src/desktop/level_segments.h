// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRadioButton>
#include <array>
#include <functional>

#include "model/aggression_odds.h"

namespace velorin {

/// One level of an aggression: its figure and, under it, the runs an over and the balls for a wicket that it brings.
class LevelSegment : public QRadioButton {
  Q_OBJECT

 public:
  explicit LevelSegment(int level, QWidget* parent = nullptr);

  void show_answer(const QString& whose, const std::optional<ball_odds>& odds);
  /// What the level does to the chance of winning, for the tooltip and for screen readers; empty where nobody knows.
  void show_advice(const QString& words);
  /// With little height to spare.
  void set_low(bool low) { low_ = low; }
  QSize sizeHint() const override;
  /// Room for the runs alone.
  QSize minimumSizeHint() const override;
  /// What stands under the level: both figures where they have room, else the runs.
  QString shown_answer() const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool hitButton(const QPoint& at) const override { return rect().contains(at); }

 private:
  int tall() const;
  void tell();

  int level_;
  QString spoken_;
  QString sentence_;
  QString advice_;
  QString answer_;
  QString runs_;
  bool low_ = false;
};

/// An aggression of 1 to 5 as five segments, one of which is pressed. One press sets it; arrow keys and assistive
/// actions do as well.
class LevelSegments : public QWidget {
  Q_OBJECT

 public:
  explicit LevelSegments(const QString& name, QWidget* parent = nullptr);

  /// Shows the level in use, and what each would bring. `whose`: the man's name.
  void show_levels(const QString& whose, int level, const aggression_odds& odds, bool enabled);
  /// What setting a level does.
  void on_chosen(std::function<void(int level)> act) { chosen_ = std::move(act); }
  /// The level in use, 1 to 5; 0 before one is shown.
  int level() const;
  /// The keys 1 to 5 press their segment wherever the keyboard is in `window`.
  void answer_figures(QWidget& window);
  /// With little height to spare.
  void set_low(bool low);
  LevelSegment* segment(int level) const { return segments_[static_cast<std::size_t>(level - 1)]; }

 private:
  std::array<LevelSegment*, most_aggression> segments_{};
  std::function<void(int)> chosen_;
  bool showing_ = false;
};

}  // namespace velorin
