// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/meter_bar.h"

#include <QPainter>
#include <algorithm>

#include "desktop/accessible_role.h"
#include "desktop/terms.h"
#include "desktop/theme.h"

namespace velorin {

MeterBar::MeterBar(const QString& name, const QString& spoken, double full, QWidget* parent)
    : QWidget(parent), spoken_(spoken), full_(full) {
  setObjectName(name);
  setFixedHeight(10);
  setMinimumWidth(60);
  give_role(*this, QAccessible::Graphic);
  setAccessibleName(QStringLiteral("%1: 0 %").arg(spoken_));
}

void MeterBar::set_value(double value) {
  if (value == value_) return;
  value_ = value;
  const int share = static_cast<int>(100 * value_ / full_);
  setAccessibleName(QStringLiteral("%1: %2 %").arg(spoken_).arg(share));
  const QString meaning = meaning_of(spoken_);
  setToolTip(meaning.isEmpty() ? accessibleName() : QStringLiteral("%1\n%2").arg(accessibleName(), meaning));
  update();
}

void MeterBar::paintEvent(QPaintEvent*) {
  const Theme& t = theme();
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF frame = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
  painter.setPen(t.line);
  painter.setBrush(t.card_raised);
  painter.drawRoundedRect(frame, 4, 4);
  const double share = std::clamp(value_ / full_, 0.0, 1.0);
  if (share <= 0) return;
  painter.setPen(Qt::NoPen);
  painter.setBrush(t.willow);
  painter.drawRoundedRect(QRectF(1, 1, std::max(6.0, (width() - 2) * share), height() - 2), 3.5, 3.5);
}

}  // namespace velorin
