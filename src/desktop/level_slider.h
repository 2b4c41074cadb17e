// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSlider>

namespace velorin {

/// A slider of a few whole steps, each with its figure under it. Arrow keys and the figures' own keys move it.
class LevelSlider : public QSlider {
  Q_OBJECT

 public:
  LevelSlider(const QString& name, int lowest, int highest, QWidget* parent = nullptr);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;

 private:
  double position_of(int level) const;
  void move_to(double x);
};

}  // namespace velorin
