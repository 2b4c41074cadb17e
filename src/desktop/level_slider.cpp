// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/level_slider.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <cmath>

#include "desktop/theme.h"

namespace velorin {

namespace {
constexpr int margin = 14;
constexpr int knob = 8;
}  // namespace

LevelSlider::LevelSlider(const QString& name, int lowest, int highest, QWidget* parent)
    : QSlider(Qt::Horizontal, parent) {
  setObjectName(name);
  setRange(lowest, highest);
  setPageStep(1);
  setSingleStep(1);
  setFocusPolicy(Qt::StrongFocus);
}

QSize LevelSlider::sizeHint() const { return {2 * margin + 32 * (maximum() - minimum()), 44}; }

double LevelSlider::position_of(int level) const {
  const double span = width() - 2.0 * margin;
  return margin + span * (level - minimum()) / std::max(1, maximum() - minimum());
}

void LevelSlider::move_to(double x) {
  const double span = std::max(1.0, width() - 2.0 * margin);
  setValue(minimum() + static_cast<int>(std::lround((x - margin) / span * (maximum() - minimum()))));
}

void LevelSlider::paintEvent(QPaintEvent*) {
  const Theme& t = theme();
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const double y = 15;
  const QColor drawn = isEnabled() ? t.accent : t.muted;
  painter.setPen(QPen(t.line, 4, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(QPointF(position_of(minimum()), y), QPointF(position_of(maximum()), y));
  painter.setPen(QPen(drawn, 4, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(QPointF(position_of(minimum()), y), QPointF(position_of(value()), y));
  painter.setFont(type_font(TypeStep::small));
  for (int level = minimum(); level <= maximum(); ++level) {
    const QPointF at(position_of(level), y);
    painter.setPen(QPen(drawn, 2));
    painter.setBrush(level <= value() ? drawn : t.card);
    painter.drawEllipse(at, 4, 4);
    painter.setPen(level == value() ? t.ink : t.muted);
    painter.drawText(QRectF(at.x() - 12, y + 10, 24, 18), Qt::AlignCenter, QString::number(level));
  }
  painter.setPen(Qt::NoPen);
  painter.setBrush(drawn);
  painter.drawEllipse(QPointF(position_of(value()), y), knob, knob);
  if (hasFocus()) {
    painter.setPen(QPen(t.focus, 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 6, 6);
  }
}

void LevelSlider::keyPressEvent(QKeyEvent* event) {
  const int digit = event->key() - Qt::Key_0;
  if (event->modifiers().testFlag(Qt::AltModifier) || digit < minimum() || digit > maximum()) {
    QSlider::keyPressEvent(event);
    return;
  }
  setValue(digit);
}

void LevelSlider::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) move_to(event->position().x());
}

void LevelSlider::mouseMoveEvent(QMouseEvent* event) {
  if (event->buttons().testFlag(Qt::LeftButton)) move_to(event->position().x());
}

}  // namespace velorin
