// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractButton>

namespace velorin {

/// An entry of the menu: a line of text, highlighted while the pointer is over it.
class MenuEntry : public QAbstractButton {
  Q_OBJECT

 public:
  MenuEntry(const QString& name, const QString& text, QChar mnemonic, QWidget* parent = nullptr);

  bool highlighted() const { return highlighted_; }
  void set_highlighted(bool on);

  QSize sizeHint() const override;

 protected:
  /// Up and Down belong to the menu, which goes round its entries.
  void keyPressEvent(QKeyEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  /// Highlights this entry alone among those of its panel.
  void take_highlight();

  bool highlighted_ = false;
};

}  // namespace velorin
