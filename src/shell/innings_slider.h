// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSlider>
#include <vector>

namespace velorin {

/// A slider over the balls of an innings, with a cross for each wicket and a stroke for each tenth over.
class InningsSlider : public QSlider {
  Q_OBJECT

 public:
  explicit InningsSlider(const QString& name, QWidget* parent = nullptr);

  /// The places of the wickets and of the ends of each tenth over, within the range.
  void set_marks(std::vector<int> wickets, std::vector<int> tens);

  QSize sizeHint() const override { return {320, 25}; }
  QSize minimumSizeHint() const override { return {120, 25}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;

 private:
  double position_of(int place) const;
  void move_to(double x);

  std::vector<int> wickets_;
  std::vector<int> tens_;
};

}  // namespace velorin
