// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/link_button.h"

#include <QKeyEvent>
#include <QPainter>

#include "desktop/form.h"
#include "desktop/theme.h"

namespace velorin {

LinkButton::LinkButton(const QString& name, const QString& text, QChar mnemonic, QWidget* parent)
    : QAbstractButton(parent) {
  setObjectName(name);
  setFocusPolicy(Qt::StrongFocus);
  setCursor(Qt::PointingHandCursor);
  setFont(type_font(TypeStep::strong));
  name_act(*this, {.caption = text, .mnemonic = mnemonic});
}

QSize LinkButton::sizeHint() const {
  const QFontMetrics metrics(font());
  return {metrics.size(Qt::TextShowMnemonic, text()).width() + 12, metrics.height() + 8};
}

QColor LinkButton::color() const {
  const Theme& t = theme();
  // On a dark ground the two colours would not be read: their lighter relatives stand in.
  if (under_pointer_) return t.dark ? t.blue : QColor(0, 0, 255);
  return t.dark ? t.ball : QColor(192, 0, 0);
}

void LinkButton::enterEvent(QEnterEvent* event) {
  under_pointer_ = true;
  update();
  QAbstractButton::enterEvent(event);
}

void LinkButton::keyPressEvent(QKeyEvent* event) {
  // Without this, Return would press the form's default button.
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return click();
  QAbstractButton::keyPressEvent(event);
}

void LinkButton::leaveEvent(QEvent* event) {
  under_pointer_ = false;
  update();
  QAbstractButton::leaveEvent(event);
}

void LinkButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QFont drawn = font();
  drawn.setUnderline(under_pointer_);
  painter.setFont(drawn);
  painter.setPen(color());
  painter.drawText(rect().adjusted(6, 0, -6, 0), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic, text());
  if (hasFocus()) {
    painter.setPen(QPen(theme().focus, 2));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 4, 4);
  }
}

}  // namespace velorin
