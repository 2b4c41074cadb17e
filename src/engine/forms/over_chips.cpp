// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/forms/over_chips.h"

#include <QPainter>
#include <algorithm>

#include "desktop/accessible_role.h"
#include "desktop/theme.h"

namespace velorin {

namespace {

struct ChipLook {
  QColor fill;
  QColor text;
  bool square = false;
};

ChipLook look_of(const QString& symbol) {
  const Theme& t = theme();
  if (symbol == QLatin1String("W")) return {t.ball, t.on_ball, true};
  if (symbol == QLatin1String("4")) return {t.four, t.on_boundary};
  if (symbol == QLatin1String("6")) return {t.six, t.on_boundary};
  if (symbol == QLatin1String("0")) return {t.card_raised, t.muted};
  return {t.card, t.ink};
}

}  // namespace

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

void OverChips::paintEvent(QPaintEvent*) {
  const Theme& t = theme();
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const int size = std::min(40, std::min(height(), (width() - 30) / 6));
  const double gap = std::min(12.0, (width() - 6.0 * size) / 5);
  for (int ball = 0; ball < 6; ++ball) {
    const QRectF place(ball * (size + gap) + 1, (height() - size) / 2.0 + 1, size - 2, size - 2);
    const QString symbol = ball < symbols_.size() ? symbols_[ball] : QString();
    if (symbol.isEmpty()) {
      painter.setPen(QPen(t.line, 1.5, Qt::DotLine));
      painter.setBrush(Qt::NoBrush);
      painter.drawEllipse(place);
      continue;
    }
    const ChipLook look = look_of(symbol);
    painter.setPen(QPen(look.fill == t.card || look.fill == t.card_raised ? t.muted : look.fill, 1.5));
    painter.setBrush(look.fill);
    if (look.square) {
      painter.drawRoundedRect(place, 6, 6);
    } else {
      painter.drawEllipse(place);
    }
    painter.setPen(look.text);
    painter.setFont(type_font(symbol.size() > 1 ? TypeStep::strong : TypeStep::heading));
    painter.drawText(place, Qt::AlignCenter, symbol == QLatin1String("0") ? QStringLiteral("\u2022") : symbol);
  }
}

}  // namespace velorin
