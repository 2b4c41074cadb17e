// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractButton>

namespace velorin {

/// A link: dark red, and blue and underlined while the pointer is over it. Return and Space follow it.
class LinkButton : public QAbstractButton {
  Q_OBJECT

 public:
  LinkButton(const QString& name, const QString& text, QChar mnemonic, QWidget* parent = nullptr);

  QSize sizeHint() const override;
  /// The colour in which the text stands now.
  QColor color() const;

 protected:
  void enterEvent(QEnterEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  bool under_pointer_ = false;
};

}  // namespace velorin
