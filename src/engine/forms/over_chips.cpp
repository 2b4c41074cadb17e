// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/forms/over_chips.h"

#include <QPainter>
#include <algorithm>

#include "desktop/accessible_role.h"
#include "desktop/enlarged.h"
#include "engine/forms/ball_chip.h"

namespace velorin {

OverChips::OverChips(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("over_symbols"));
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  give_role(*this, QAccessible::Graphic);
  set_symbols({});
}

void OverChips::set_symbols(const QStringList& symbols) {
  if (symbols == symbols_ && !accessibleName().isEmpty()) return;
  symbols_ = symbols;
  QStringList bowled;
  for (const QString& symbol : symbols_) {
    if (!symbol.isEmpty()) bowled << symbol;
  }
  setAccessibleName(bowled.isEmpty() ? QStringLiteral("No ball bowled in this over")
                                     : QStringLiteral("Balls of the over: %1").arg(bowled.join(QStringLiteral(", "))));
  update();
}

void OverChips::set_low(bool low) {
  low_ = low;
  updateGeometry();
}

int OverChips::tall() const {
  constexpr int usual = 40;
  constexpr int low = 32;
  return enlarged(*this, low_ ? low : usual);
}

QSize OverChips::sizeHint() const { return {6 * tall() + enlarged(*this, 5 * 8), tall()}; }
QSize OverChips::minimumSizeHint() const { return {6 * enlarged(*this, 32) + enlarged(*this, 5 * 6), tall()}; }

void OverChips::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const double factor = enlargement(*this);
  const int size = std::min({tall(), height(), (width() - enlarged(*this, 30)) / 6});
  // They stand apart as far as the row is wide, so that an over looks whole.
  const double gap = std::min(0.8 * size, (width() - 6.0 * size) / 5);
  for (int ball = 0; ball < 6; ++ball) {
    const QRectF place(ball * (size + gap) + 1, (height() - size) / 2.0 + 1, size - 2, size - 2);
    paint_chip(painter, place, ball < symbols_.size() ? symbols_[ball] : QString(), factor);
  }
}

}  // namespace velorin
