// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractSlider>
#include <QWidget>
#include <functional>
#include <string>

class QLineEdit;

namespace velorin {

/// Two arrows, one above the other. The upper one raises the value.
class Stepper : public QAbstractSlider {
  Q_OBJECT

 public:
  Stepper(const QString& name, int lowest, int highest, QWidget* parent = nullptr);

  QSize sizeHint() const override { return {28, 34}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
};

/// A box for a number and a stepper beside it, also moved by the arrow keys of the box. What is typed may be anything.
class NumberField : public QWidget {
  Q_OBJECT

 public:
  /// `name`: objectName of the box; that of the stepper has "_stepper" behind it. `typed` gets every text typed;
  /// `stepped` gets the stepper's value, and returns the text for the box.
  NumberField(const QString& name, const std::string& text, int highest, std::function<void(std::string)> typed,
              std::function<std::string(int)> stepped, QWidget* parent = nullptr);

  QLineEdit* text() const { return text_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QLineEdit* text_;
  Stepper* stepper_;
};

}  // namespace velorin
