// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

namespace velorin {

/// A bar that fills from the left, such as a batsman's settled meter.
class MeterBar : public QWidget {
  Q_OBJECT

 public:
  /// `spoken`: what it measures, for screen readers. `full`: the value that fills it.
  MeterBar(const QString& name, const QString& spoken, double full, QWidget* parent = nullptr);

  void set_value(double value);
  double value() const { return value_; }

  QSize sizeHint() const override { return {120, 10}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString spoken_;
  double full_;
  double value_ = 0;
};

}  // namespace velorin
