// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/ground_backdrop.h"

#include <QLinearGradient>
#include <QPainterPath>
#include <QRadialGradient>
#include <algorithm>
#include <array>
#include <cmath>

#include "desktop/name_draw.h"

namespace velorin {

namespace {

void paint_clouds(const GroundPart& g) {
  NameDraw draw(g.scene.country + QStringLiteral("/clouds"));
  const int count = static_cast<int>(std::lround(g.light.cloud * 11));
  QColor cloud = g.light.night || g.dark ? g.light.sky_low.lighter(118) : QColor(0xFFFFFF);
  cloud.setAlphaF(g.scene.weather <= 2 ? 0.4F : 0.75F);
  g.painter.setBrush(cloud);
  for (int i = 0; i < count; ++i) {
    const double middle = g.x(draw.below(100) / 100.0);
    const double height = g.y(0.03 + draw.below(20) / 100.0);
    const double size = g.x(0.05 + draw.below(5) / 100.0);
    QPainterPath puffs;
    puffs.setFillRule(Qt::WindingFill);
    puffs.addEllipse(QPointF(middle, height), size, size * 0.28);
    puffs.addEllipse(QPointF(middle - size * 0.35, height - size * 0.16), size * 0.42, size * 0.28);
    puffs.addEllipse(QPointF(middle + size * 0.25, height - size * 0.24), size * 0.5, size * 0.34);
    g.painter.drawPath(puffs);
  }
}

void paint_ridge(const GroundPart& g, const QColor& color, double height, bool jagged) {
  NameDraw draw(g.scene.country + QStringLiteral("/ridge"));
  const double base = g.y(ground_horizon);
  g.painter.setBrush(color);
  const int tops = jagged ? 7 : 5;
  for (int i = 0; i <= tops; ++i) {
    const double middle = g.x((i + draw.below(60) / 100.0 - 0.3) / tops);
    const double top = base - g.y(height * (0.55 + draw.below(45) / 100.0));
    const double half = g.x(jagged ? 0.16 : 0.22);
    QPainterPath rise(QPointF(middle - half, base));
    if (jagged) {
      rise.lineTo(middle, top);
      rise.lineTo(middle + half, base);
    } else {
      rise.cubicTo(middle - half * 0.5, top, middle + half * 0.5, top, middle + half, base);
    }
    g.painter.drawPath(rise);
  }
}

void paint_trees(const GroundPart& g, double size_share) {
  g.painter.setBrush(g.lit(0x2F5D49, 0x1A2A25));
  // Crown over crown.
  const int crowns = 22;
  for (int i = 0; i <= crowns; ++i) {
    const double size = g.x((0.05 + 0.012 * ((i * 5) % 4)) * size_share);
    const double lift = g.y((0.012 + 0.008 * ((i * 7) % 3)) * size_share);
    g.painter.drawEllipse(QPointF(g.x(1.0 * i / crowns), g.y(ground_horizon) - lift), size, size * 0.62);
  }
}

void paint_palms(const GroundPart& g) {
  NameDraw draw(g.scene.country + QStringLiteral("/palms"));
  const double base = g.y(ground_horizon);
  const QColor leaf = g.lit(0x2E6B4A, 0x1B3A2C);
  const QColor trunk = g.lit(0x7A5C3C, 0x3A2E22);
  for (int i = 0; i < 9; ++i) {
    const double foot = g.x((i + draw.below(60) / 100.0) / 9);
    const double tall = g.y(0.07 + draw.below(4) / 100.0);
    const QPointF crown(foot + g.x((draw.below(5) - 2) / 100.0), base - tall);
    QPainterPath stem(QPointF(foot, base));
    stem.quadTo(QPointF(foot, base - tall * 0.5), crown);
    g.painter.setPen(QPen(trunk, std::max(2.0, g.x(0.009))));
    g.painter.setBrush(Qt::NoBrush);
    g.painter.drawPath(stem);
    g.painter.setPen(QPen(leaf, std::max(2.0, g.x(0.010)), Qt::SolidLine, Qt::RoundCap));
    for (const double turn : {-1.0, -0.75, -0.4, 0.4, 0.75, 1.0}) {
      QPainterPath frond(crown);
      const double reach = g.x(0.045) * turn;
      frond.quadTo(crown + QPointF(reach * 0.5, -g.y(0.022)),
                   crown + QPointF(reach, g.y(0.012) * std::abs(turn) * 2 - g.y(0.008)));
      g.painter.drawPath(frond);
    }
    g.painter.setPen(Qt::NoPen);
  }
}

void paint_skyline(const GroundPart& g) {
  NameDraw draw(g.scene.country + QStringLiteral("/skyline"));
  double left = 0;
  while (left < 1) {
    const double wide = 0.035 + draw.below(5) / 100.0;
    const double tall = 0.04 + draw.below(8) / 100.0;
    const QRectF house(g.x(left), g.y(ground_horizon - tall), g.x(wide), g.y(tall));
    g.painter.setBrush(draw.below(2) == 0 ? g.lit(0x8FA3B3, 0x24303A) : g.lit(0xA5B5C0, 0x2B3843));
    g.painter.drawRect(house);
    g.painter.setBrush(g.light.night || g.dark ? QColor(0xE8C873) : QColor(0xC3D2DC));
    for (double row = house.top() + g.y(0.012); row < house.bottom() - g.y(0.02); row += g.y(0.022)) {
      for (double at = house.left() + g.x(0.008); at < house.right() - g.x(0.01); at += g.x(0.016)) {
        if (draw.below(3) > 0) g.painter.drawRect(QRectF(at, row, g.x(0.006), g.y(0.008)));
      }
    }
    left += wide + draw.below(3) / 200.0;
  }
}

void paint_tiers(const GroundPart& g) {
  const double base = g.y(ground_horizon);
  const double top = g.y(ground_horizon - 0.115);
  QPainterPath bowl(QPointF(0, base));
  bowl.lineTo(0, top);
  bowl.quadTo(g.x(0.5), top + g.y(0.06), g.x(1), top);
  bowl.lineTo(g.x(1), base);
  g.painter.setBrush(g.lit(0x6E8796, 0x222E36));
  g.painter.drawPath(bowl);
  // The crowd.
  NameDraw draw(g.scene.country + QStringLiteral("/crowd"));
  constexpr std::array<QRgb, 5> shirts = {0xD9DEE0, 0xE8B04A, 0xC2534B, 0x5B8FC0, 0xF1ECDD};
  for (int row = 0; row < 6; ++row) {
    for (int seat = 0; seat < 70; ++seat) {
      const double across = (seat + 0.5) / 70;
      const double sag = 0.06 * 2 * across * (1 - across);
      const QRgb shirt = shirts[static_cast<std::size_t>(draw.below(5))];
      if (draw.below(5) == 0) continue;
      g.painter.setBrush(g.lit(shirt, QColor(shirt).darker(260).rgb()));
      g.painter.drawEllipse(QPointF(g.x(across), top + g.y(sag + 0.014 + 0.0125 * row)), g.x(0.004), g.x(0.004));
    }
  }
}

void paint_behind(const GroundPart& g) {
  switch (backdrop_of(g.scene.country)) {
    case Backdrop::trees:
      return paint_trees(g, 1);
    case Backdrop::hills:
      paint_ridge(g, g.lit(0x7FA08E, 0x223229), 0.11, false);
      return paint_trees(g, 0.55);
    case Backdrop::mountains:
      paint_ridge(g, g.lit(0x8C9DAF, 0x26313E), 0.125, true);
      return paint_trees(g, 0.55);
    case Backdrop::palms:
      paint_ridge(g, g.lit(0x8DB0A8, 0x21332F), 0.08, false);
      return paint_palms(g);
    case Backdrop::skyline:
      paint_skyline(g);
      return paint_trees(g, 0.45);
    case Backdrop::stands:
      return paint_tiers(g);
  }
}

/// Masts with lamps, lit at night.
void paint_lamps(const GroundPart& g) {
  for (const double at : {0.59, 0.95}) {
    const double top = g.y(ground_horizon - 0.2);
    g.painter.setPen(QPen(g.lit(0x8A949A, 0x3A444A), std::max(2.0, g.x(0.006))));
    g.painter.drawLine(QPointF(g.x(at), g.y(ground_horizon)), QPointF(g.x(at), top));
    g.painter.setPen(Qt::NoPen);
    if (g.light.night) {
      QRadialGradient glow(QPointF(g.x(at), top), g.x(0.11));
      glow.setColorAt(0, QColor(255, 250, 220, 150));
      glow.setColorAt(1, QColor(255, 250, 220, 0));
      g.painter.setBrush(glow);
      g.painter.drawEllipse(QPointF(g.x(at), top), g.x(0.11), g.x(0.11));
    }
    g.painter.setBrush(g.light.night ? QColor(0xFFFBE6) : g.lit(0xC9D2D6, 0x59656C));
    g.painter.drawRoundedRect(QRectF(g.x(at - 0.022), top - g.y(0.016), g.x(0.044), g.y(0.026)), 2, 2);
  }
}

}  // namespace

void paint_sky(const GroundPart& g) {
  QLinearGradient sky(0, 0, 0, g.y(ground_horizon));
  sky.setColorAt(0, g.scene.sky ? g.scene.sky->front() : g.light.sky_top);
  sky.setColorAt(1, g.scene.sky ? g.scene.sky->back() : g.light.sky_low);
  g.painter.fillRect(QRectF(0, 0, g.all.width(), g.y(ground_horizon)), sky);
  g.painter.setPen(Qt::NoPen);
  if (g.scene.sky) return;
  // From the middle at six to the right at nineteen, clear of the words; the moon stands still.
  const double day = (g.scene.minutes - 6 * 60) / (13.0 * 60);
  const QPointF at = g.light.night ? QPointF(g.x(0.8), g.y(0.08))
                                   : QPointF(g.x(0.62 + 0.3 * day), g.y(0.06 + 0.8 * (day - 0.5) * (day - 0.5)));
  if (g.scene.weather >= 3) {
    QColor disc(g.light.night ? 0xE8ECF4 : 0xFFF1C2);
    if (g.dark && !g.light.night) disc = QColor(0xD9C58E);
    g.painter.setBrush(disc);
    g.painter.drawEllipse(at, g.x(0.028), g.x(0.028));
  }
  paint_clouds(g);
}

void paint_backdrop(const GroundPart& g) {
  paint_behind(g);
  paint_lamps(g);
}

}  // namespace velorin
