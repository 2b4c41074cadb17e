// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFrame>
#include <QPointer>
#include <functional>
#include <optional>

class QPushButton;

namespace velorin {

class Form;

/// A short hint in a bubble that points at the control it is about: beside it within a page, beside the sheet of one in
/// a sheet. It stops nothing: the form goes on as without it. "Got it", or a press on the control where that is a
/// button, takes it away. While another form stands over its own it is not seen.
class Hint : public QFrame {
  Q_OBJECT

 public:
  /// `form` holds the control. `gone` is called once the hint has been read.
  Hint(Form& form, QWidget& control, const QString& words, std::function<void()> gone);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void place();
  /// The place on one side of `about` where the hint stands beside its control, none if it does not fit there.
  std::optional<QRect> at_side(Qt::Edge side, const QRect& about, const QRect& control, const QRect& room) const;
  void go();

  Form& form_;
  QPointer<QWidget> control_;
  std::function<void()> gone_;
  bool going_ = false;
};

}  // namespace velorin
