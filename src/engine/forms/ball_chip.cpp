// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/forms/ball_chip.h"

#include <QPainter>
#include <algorithm>

#include "desktop/accessible_role.h"
#include "desktop/enlarged.h"
#include "desktop/theme.h"

namespace velorin {

namespace {

constexpr int small_chip = 20;
constexpr int small_gap = 3;
constexpr int fewest_chips = 5;

enum class Shape { disc, square, hexagon };

struct ChipLook {
  QColor fill;
  QColor text;
  QColor edge;
  Shape shape = Shape::disc;
};

ChipLook look_of(const QString& symbol) {
  const Theme& t = theme();
  if (symbol == QLatin1String("W")) return {t.ball, t.on_ball, t.ball, Shape::square};
  if (symbol == QLatin1String("4")) return {t.four, t.on_boundary, t.four};
  if (symbol == QLatin1String("6")) return {t.six, t.on_boundary, t.six, Shape::hexagon};
  if (symbol == QLatin1String("0")) return {t.card_raised, t.muted, t.line};
  return {t.card, t.ink, t.muted};
}

QFont chip_font(double height, qsizetype letters, double factor) {
  if (height >= 32 * factor) return type_font(letters > 1 ? TypeStep::strong : TypeStep::heading, factor);
  QFont font = type_font(TypeStep::small, factor);
  font.setWeight(QFont::Medium);
  return font;
}

}  // namespace

QPolygonF hexagon_in(const QRectF& place) {
  const double inset = place.width() / 4;
  const double middle = place.center().y();
  return QPolygonF({{place.left() + inset, place.top()},
                    {place.right() - inset, place.top()},
                    {place.right(), middle},
                    {place.right() - inset, place.bottom()},
                    {place.left() + inset, place.bottom()},
                    {place.left(), middle}});
}

double chip_width(const QString& symbol, double height, double factor) {
  if (symbol.size() < 2) return height;
  return std::max(height,
                  QFontMetricsF(chip_font(height, symbol.size(), factor)).horizontalAdvance(symbol) + 8 * factor);
}

void paint_chip(QPainter& painter, const QRectF& place, const QString& symbol, double factor) {
  const Theme& t = theme();
  if (symbol.isEmpty()) {
    painter.setPen(QPen(t.line, 1.5, Qt::DotLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(place);
    return;
  }
  const ChipLook look = look_of(symbol);
  painter.setPen(QPen(look.edge, place.height() < 32 * factor ? factor : 1.5 * factor));
  painter.setBrush(look.fill);
  switch (look.shape) {
    case Shape::square:
      painter.drawRoundedRect(place, place.height() / 7, place.height() / 7);
      break;
    case Shape::hexagon:
      painter.drawPolygon(hexagon_in(place));
      break;
    case Shape::disc:
      painter.drawRoundedRect(place, place.height() / 2, place.height() / 2);
      break;
  }
  painter.setPen(look.text);
  painter.setFont(chip_font(place.height(), symbol.size(), factor));
  painter.drawText(place, Qt::AlignCenter, symbol == QLatin1String("0") ? QStringLiteral("\u2022") : symbol);
}

BallChips::BallChips(const QString& name, const QString& spoken, QWidget* parent) : QWidget(parent), spoken_(spoken) {
  setObjectName(name);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  give_role(*this, QAccessible::Graphic);
  setAccessibleName(QStringLiteral("%1: none").arg(spoken_));
}

QSize BallChips::sizeHint() const { return QSize(8 * (small_chip + small_gap), small_chip + 2) * enlargement(*this); }

QSize BallChips::minimumSizeHint() const {
  return QSize(fewest_chips * (small_chip + small_gap), small_chip + 2) * enlargement(*this);
}

void BallChips::set_symbols(const QStringList& symbols) {
  if (symbols == symbols_) return;
  symbols_ = symbols;
  const QString balls = symbols_.isEmpty() ? QStringLiteral("none") : symbols_.join(QStringLiteral(", "));
  setAccessibleName(QStringLiteral("%1: %2").arg(spoken_, balls));
  setToolTip(accessibleName());
  update();
}

void BallChips::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  // As many of the newest as there is room for, from the left.
  const double factor = enlargement(*this);
  const double chip = small_chip * factor;
  const double gap = small_gap * factor;
  double used = 0;
  qsizetype first = symbols_.size();
  while (first > 0) {
    const double next = chip_width(symbols_[first - 1], chip, factor) + (used > 0 ? gap : 0);
    if (used + next > width()) break;
    used += next;
    --first;
  }
  double left = 0.5;
  for (qsizetype i = first; i < symbols_.size(); ++i) {
    const double wide = chip_width(symbols_[i], chip, factor);
    paint_chip(painter, QRectF(left, (height() - chip) / 2.0 + 0.5, wide - 1, chip - 1), symbols_[i], factor);
    left += wide + gap;
  }
}

}  // namespace velorin
