// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFrame>
#include <functional>

class QPushButton;

namespace velorin {

/// A short hint in a bubble beside the control that it is about, within that control's form. It stops nothing: the form
/// goes on as without it. "Got it", or a press on the control where that is a button, takes it away.
class Hint : public QFrame {
  Q_OBJECT

 public:
  /// `form` holds the control. `gone` is called once the hint has been read.
  Hint(QWidget& form, QWidget& control, const QString& words, std::function<void()> gone);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void place();
  void go();

  QWidget& form_;
  QWidget& control_;
  std::function<void()> gone_;
  bool going_ = false;
};

}  // namespace velorin
