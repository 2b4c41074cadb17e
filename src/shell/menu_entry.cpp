// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/menu_entry.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include "desktop/form.h"
#include "desktop/theme.h"

namespace velorin {

MenuEntry::MenuEntry(const QString& name, const QString& text, QChar mnemonic, QWidget* parent)
    : QAbstractButton(parent) {
  setObjectName(name);
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  setCursor(Qt::PointingHandCursor);
  setFont(type_font(TypeStep::heading));
  // A form that opens and closes clears the highlight, while the pointer may have stayed over the entry.
  setMouseTracking(true);
  const QString spoken = QString(text).remove(QLatin1Char('<'));
  name_act(*this, {.caption = text, .mnemonic = mnemonic, .key = {}, .hint = {}, .spoken = spoken});
}

QSize MenuEntry::sizeHint() const {
  const QFontMetrics metrics(font());
  return {metrics.size(Qt::TextShowMnemonic, text()).width() + 40, metrics.height() + 18};
}

void MenuEntry::set_highlighted(bool on) {
  if (highlighted_ == on) return;
  highlighted_ = on;
  update();
}

void MenuEntry::take_highlight() {
  for (MenuEntry* other : parentWidget()->findChildren<MenuEntry*>()) other->set_highlighted(other == this);
}

void MenuEntry::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down) {
    event->ignore();
  } else {
    QAbstractButton::keyPressEvent(event);
  }
}

void MenuEntry::enterEvent(QEnterEvent* event) {
  take_highlight();
  QAbstractButton::enterEvent(event);
}

void MenuEntry::mouseMoveEvent(QMouseEvent* event) {
  take_highlight();
  QAbstractButton::mouseMoveEvent(event);
  event->accept();  // beyond the entry it would count as a move outside of all of them
}

void MenuEntry::leaveEvent(QEvent* event) {
  set_highlighted(false);
  QAbstractButton::leaveEvent(event);
}

void MenuEntry::paintEvent(QPaintEvent*) {
  const Theme& t = theme();
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF frame = QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5);
  const bool lit = highlighted_ || isDown();
  if (lit) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(t.accent);
    painter.drawRoundedRect(frame, 8, 8);
    painter.setBrush(t.willow);
    painter.drawRoundedRect(QRectF(frame.left(), frame.top() + 6, 4, frame.height() - 12), 2, 2);
  }
  if (hasFocus()) {
    painter.setPen(QPen(t.focus, 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(frame, 8, 8);
  }
  painter.setPen(lit ? t.on_accent : t.ink);
  painter.drawText(rect().adjusted(20, 0, -20, 0), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic, text());
}

}  // namespace velorin
