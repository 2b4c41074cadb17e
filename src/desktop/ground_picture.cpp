// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/ground_picture.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include "desktop/theme.h"

namespace velorin {

namespace {

constexpr double horizon = 0.34;  // share of the height above the ground

void paint_sky(QPainter& painter, const QRectF& all, bool dark) {
  QLinearGradient sky(0, 0, 0, all.height() * horizon);
  sky.setColorAt(0, dark ? QColor(0x0B1A2E) : QColor(0x6FA8D6));
  sky.setColorAt(1, dark ? QColor(0x3B4A6B) : QColor(0xEAF2F2));
  painter.fillRect(QRectF(0, 0, all.width(), all.height() * horizon), sky);
}

void paint_stands(QPainter& painter, const QRectF& all, bool dark) {
  const double base = all.height() * horizon;
  painter.setPen(Qt::NoPen);
  painter.setBrush(dark ? QColor(0x1A2A25) : QColor(0x2F5D49));
  // A line of trees, crown over crown, and the roof of a stand.
  const int crowns = 22;
  for (int i = 0; i <= crowns; ++i) {
    const double size = all.width() * (0.05 + 0.012 * ((i * 5) % 4));
    const double lift = all.height() * (0.012 + 0.008 * ((i * 7) % 3));
    painter.drawEllipse(QPointF(all.width() * i / crowns, base - lift), size, size * 0.62);
  }
  painter.setBrush(dark ? QColor(0x25362F) : QColor(0x7E9AA8));
  const double from = all.width() * 0.06;
  const double to = all.width() * 0.36;
  const double roof = base - all.height() * 0.07;
  QPainterPath stand;
  stand.moveTo(from, base);
  stand.lineTo(from, roof + all.height() * 0.02);
  stand.quadTo((from + to) / 2, roof - all.height() * 0.02, to, roof + all.height() * 0.02);
  stand.lineTo(to, base);
  painter.drawPath(stand);
  painter.setBrush(dark ? QColor(0x3A4D45) : QColor(0xE9EFF0));
  for (int tier = 0; tier < 3; ++tier) {
    painter.drawRect(
        QRectF(from + 8, roof + all.height() * (0.026 + 0.015 * tier), to - from - 16, all.height() * 0.006));
  }
  // The pavilion with its clock.
  const double w = all.width() * 0.22;
  const QRectF house(all.width() * 0.62, base - all.height() * 0.075, w, all.height() * 0.075);
  painter.setBrush(dark ? QColor(0xB8AE92) : QColor(0xF3EAD3));
  painter.drawRect(house);
  painter.setBrush(dark ? QColor(0x6B2A2C) : QColor(0xA0463F));
  painter.drawPolygon(QPolygonF({house.topLeft() + QPointF(-6, 0), house.topRight() + QPointF(6, 0),
                                 QPointF(house.center().x() + w * 0.28, house.top() - all.height() * 0.035),
                                 QPointF(house.center().x() - w * 0.28, house.top() - all.height() * 0.035)}));
  painter.setBrush(dark ? QColor(0x3A3A34) : QColor(0x7A6F57));
  for (int i = 0; i < 7; ++i) {
    painter.drawRect(QRectF(house.left() + w * (0.06 + 0.13 * i), house.top() + house.height() * 0.35, w * 0.07,
                            house.height() * 0.4));
  }
}

void paint_outfield(QPainter& painter, const QRectF& all, bool dark) {
  const double top = all.height() * horizon;
  const QRectF field(0, top, all.width(), all.height() - top);
  painter.setClipRect(field);
  const QColor light = dark ? QColor(0x1F5A3C) : QColor(0x5FA868);
  const QColor deep = dark ? QColor(0x194C33) : QColor(0x529A5D);
  painter.fillRect(field, deep);
  // Mown stripes that meet far behind the pavilion.
  const QPointF far(all.width() * 0.5, top - all.height() * 0.25);
  const int stripes = 16;
  const double reach = all.width() * 2.6;
  for (int i = 0; i < stripes; ++i) {
    const double from = all.width() / 2 - reach / 2 + reach * i / stripes;
    const double to = from + reach / stripes + 1;
    painter.setBrush(i % 2 == 0 ? light : deep);
    painter.drawPolygon(QPolygonF({far, QPointF(to, all.height()), QPointF(from, all.height())}));
  }
  painter.setPen(QPen(dark ? QColor(0xCFC9B0) : QColor(0xFDFBF0), 3));
  painter.setBrush(Qt::NoBrush);
  painter.drawEllipse(QPointF(all.width() / 2, top + field.height() * 0.52), all.width() * 0.62, field.height() * 0.48);
  painter.setPen(Qt::NoPen);
}

void paint_pitch(QPainter& painter, const QRectF& all, bool dark) {
  const double top = all.height() * (horizon + 0.16);
  const double bottom = all.height() * 0.86;
  const double middle = all.width() * 0.5;
  painter.setBrush(dark ? QColor(0x9C8A5E) : QColor(0xE4D2A2));
  painter.drawPolygon(
      QPolygonF({QPointF(middle - all.width() * 0.045, top), QPointF(middle + all.width() * 0.045, top),
                 QPointF(middle + all.width() * 0.12, bottom), QPointF(middle - all.width() * 0.12, bottom)}));
  const auto stumps = [&](double x, double y, double height, double gap) {
    painter.setPen(
        QPen(dark ? QColor(0xF0E3BE) : QColor(0x6E4B1F), std::max(2.0, gap * 0.35), Qt::SolidLine, Qt::RoundCap));
    for (int i = -1; i <= 1; ++i) painter.drawLine(QPointF(x + i * gap, y), QPointF(x + i * gap, y - height));
    painter.drawLine(QPointF(x - gap, y - height), QPointF(x + gap, y - height));
    painter.setPen(Qt::NoPen);
  };
  stumps(middle, top + 4, all.height() * 0.045, all.width() * 0.010);
  stumps(middle, bottom - 10, all.height() * 0.105, all.width() * 0.022);
  // The ball on its way.
  painter.setBrush(dark ? QColor(0xD9565B) : QColor(0xA3232B));
  painter.drawEllipse(QPointF(middle + all.width() * 0.055, all.height() * 0.66), all.width() * 0.014,
                      all.width() * 0.014);
  painter.setClipping(false);
}

}  // namespace

GroundPicture::GroundPicture(const QString& name, QWidget* parent) : QWidget(parent) {
  setObjectName(name);
  setAccessibleName(QStringLiteral("A cricket ground"));
}

void GroundPicture::set_words(const QString& title, const QString& below) {
  title_ = title;
  below_ = below;
  update();
}

void GroundPicture::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF all(rect());
  const bool dark = theme().dark;
  paint_sky(painter, all, dark);
  paint_stands(painter, all, dark);
  paint_outfield(painter, all, dark);
  paint_pitch(painter, all, dark);
  if (title_.isEmpty()) return;
  QFont large = type_font(TypeStep::score);
  painter.setFont(large);
  painter.setPen(dark ? QColor(0xF7F2E0) : QColor(0x163B2C));
  const int line = painter.fontMetrics().height();
  painter.drawText(QRectF(28, 20, all.width() - 56, line), Qt::AlignLeft | Qt::AlignVCenter, title_);
  painter.setFont(type_font(TypeStep::heading));
  painter.drawText(QRectF(30, 20 + line, all.width() - 60, 30), Qt::AlignLeft | Qt::AlignVCenter, below_);
}

}  // namespace velorin
