// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/ground_picture.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>

#include "desktop/ground_backdrop.h"
#include "desktop/theme.h"

namespace velorin {

namespace {

/// The roof of a stand, and the pavilion.
void paint_stands(const GroundPart& g) {
  QPainter& painter = g.painter;
  const QRectF& all = g.all;
  const double base = all.height() * ground_horizon;
  painter.setBrush(g.lit(0x7E9AA8, 0x25362F));
  const double from = all.width() * 0.06;
  const double to = all.width() * 0.36;
  const double roof = base - all.height() * 0.07;
  QPainterPath stand;
  stand.moveTo(from, base);
  stand.lineTo(from, roof + all.height() * 0.02);
  stand.quadTo((from + to) / 2, roof - all.height() * 0.02, to, roof + all.height() * 0.02);
  stand.lineTo(to, base);
  painter.drawPath(stand);
  painter.setBrush(g.lit(0xE9EFF0, 0x3A4D45));
  for (int tier = 0; tier < 3; ++tier) {
    painter.drawRect(
        QRectF(from + 8, roof + all.height() * (0.026 + 0.015 * tier), to - from - 16, all.height() * 0.006));
  }
  // The pavilion with its clock.
  const double w = all.width() * 0.22;
  const QRectF house(all.width() * 0.62, base - all.height() * 0.075, w, all.height() * 0.075);
  painter.setBrush(g.lit(0xF3EAD3, 0xB8AE92));
  painter.drawRect(house);
  painter.setBrush(g.lit(0xA0463F, 0x6B2A2C));
  painter.drawPolygon(QPolygonF({house.topLeft() + QPointF(-6, 0), house.topRight() + QPointF(6, 0),
                                 QPointF(house.center().x() + w * 0.28, house.top() - all.height() * 0.035),
                                 QPointF(house.center().x() - w * 0.28, house.top() - all.height() * 0.035)}));
  painter.setBrush(g.lit(0x7A6F57, 0x3A3A34));
  for (int i = 0; i < 7; ++i) {
    painter.drawRect(QRectF(house.left() + w * (0.06 + 0.13 * i), house.top() + house.height() * 0.35, w * 0.07,
                            house.height() * 0.4));
  }
}

void paint_outfield(const GroundPart& g) {
  QPainter& painter = g.painter;
  const QRectF& all = g.all;
  const double top = all.height() * ground_horizon;
  const QRectF field(0, top, all.width(), all.height() - top);
  painter.setClipRect(field);
  const QColor light = g.lit(0x5FA868, 0x1F5A3C);
  const QColor deep = g.lit(0x529A5D, 0x194C33);
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
  painter.setPen(QPen(g.lit(0xFDFBF0, 0xCFC9B0), 3));
  painter.setBrush(Qt::NoBrush);
  painter.drawEllipse(QPointF(all.width() / 2, top + field.height() * 0.52), all.width() * 0.62, field.height() * 0.48);
  painter.setPen(Qt::NoPen);
}

void paint_pitch(const GroundPart& g) {
  QPainter& painter = g.painter;
  const QRectF& all = g.all;
  const double top = all.height() * (ground_horizon + 0.16);
  const double bottom = all.height() * 0.86;
  const double middle = all.width() * 0.5;
  painter.setBrush(g.lit(0xE4D2A2, 0x9C8A5E));
  painter.drawPolygon(
      QPolygonF({QPointF(middle - all.width() * 0.045, top), QPointF(middle + all.width() * 0.045, top),
                 QPointF(middle + all.width() * 0.12, bottom), QPointF(middle - all.width() * 0.12, bottom)}));
  const auto stumps = [&](double x, double y, double height, double gap) {
    painter.setPen(QPen(g.lit(0x6E4B1F, 0xF0E3BE), std::max(2.0, gap * 0.35), Qt::SolidLine, Qt::RoundCap));
    for (int i = -1; i <= 1; ++i) painter.drawLine(QPointF(x + i * gap, y), QPointF(x + i * gap, y - height));
    painter.drawLine(QPointF(x - gap, y - height), QPointF(x + gap, y - height));
    painter.setPen(Qt::NoPen);
  };
  stumps(middle, top + 4, all.height() * 0.045, all.width() * 0.010);
  stumps(middle, bottom - 10, all.height() * 0.105, all.width() * 0.022);
  // The ball on its way.
  painter.setBrush(g.lit(0xA3232B, 0xD9565B));
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

void GroundPicture::set_scene(const GroundScene& scene) {
  scene_ = scene;
  scene_.minutes = std::clamp(scene.minutes, 0, 24 * 60 - 1);
  scene_.weather = std::clamp(scene.weather, 1, 4);
  update();
}

GroundBelow::GroundBelow() : picture_(new GroundPicture(QStringLiteral("ground_below"), this)) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
}

void GroundBelow::show_country(const QString& country) { picture_->set_scene({.country = country}); }

void GroundBelow::resizeEvent(QResizeEvent* event) {
  constexpr int least_height = 120;
  QWidget::resizeEvent(event);
  picture_->setGeometry(rect());
  picture_->setVisible(height() >= least_height);
}

void GroundPicture::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF all(rect());
  const bool dark = theme().dark;
  const GroundLight light = light_of(scene_, dark);
  const GroundPart ground{painter, all, dark, scene_, light};
  painter.setPen(Qt::NoPen);
  paint_sky(ground);
  paint_backdrop(ground);
  paint_stands(ground);
  paint_outfield(ground);
  paint_pitch(ground);
  if (title_.isEmpty()) return;
  QFont large = type_font(TypeStep::score);
  painter.setFont(large);
  painter.setPen(ink_on_sky(light));
  const int line = painter.fontMetrics().height();
  painter.drawText(QRectF(28, 20, all.width() - 56, line), Qt::AlignLeft | Qt::AlignVCenter, title_);
  painter.setFont(type_font(TypeStep::heading));
  painter.drawText(QRectF(30, 20 + line, all.width() - 60, 30), Qt::AlignLeft | Qt::AlignVCenter, below_);
}

}  // namespace velorin
