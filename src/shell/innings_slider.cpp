// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/innings_slider.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>

#include "desktop/theme.h"

namespace velorin {

namespace {
constexpr int margin = 10;
constexpr double knob = 7;
constexpr double line_y = 16;
constexpr double cross_y = 5;
constexpr double cross = 3;
}  // namespace

InningsSlider::InningsSlider(const QString& name, QWidget* parent) : QSlider(Qt::Horizontal, parent) {
  setObjectName(name);
  setSingleStep(1);
  setPageStep(6);
  setFocusPolicy(Qt::StrongFocus);
}

void InningsSlider::set_marks(std::vector<int> wickets, std::vector<int> tens) {
  wickets_ = std::move(wickets);
  tens_ = std::move(tens);
  update();
}

double InningsSlider::position_of(int place) const {
  const double span = width() - 2.0 * margin;
  return margin + span * (place - minimum()) / std::max(1, maximum() - minimum());
}

void InningsSlider::move_to(double x) {
  const double span = std::max(1.0, width() - 2.0 * margin);
  setValue(minimum() + static_cast<int>(std::lround((x - margin) / span * (maximum() - minimum()))));
}

void InningsSlider::paintEvent(QPaintEvent*) {
  const Theme& t = theme();
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(t.muted, 1));
  for (const int place : tens_) {
    painter.drawLine(QPointF(position_of(place), line_y - 6), QPointF(position_of(place), line_y + 6));
  }
  painter.setPen(QPen(t.line, 4, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(QPointF(position_of(minimum()), line_y), QPointF(position_of(maximum()), line_y));
  painter.setPen(QPen(t.accent, 4, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(QPointF(position_of(minimum()), line_y), QPointF(position_of(value()), line_y));
  painter.setPen(QPen(t.ball, 2, Qt::SolidLine, Qt::RoundCap));
  for (const int place : wickets_) {
    const QPointF at(position_of(place), cross_y);
    painter.drawLine(at + QPointF(-cross, -cross), at + QPointF(cross, cross));
    painter.drawLine(at + QPointF(-cross, cross), at + QPointF(cross, -cross));
  }
  painter.setPen(Qt::NoPen);
  painter.setBrush(t.accent);
  painter.drawEllipse(QPointF(position_of(value()), line_y), knob, knob);
  if (hasFocus()) {
    painter.setPen(QPen(t.focus, 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 6, 6);
  }
}

void InningsSlider::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) move_to(event->position().x());
}

void InningsSlider::mouseMoveEvent(QMouseEvent* event) {
  if (event->buttons().testFlag(Qt::LeftButton)) move_to(event->position().x());
}

}  // namespace velorin
