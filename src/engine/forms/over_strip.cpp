// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/forms/over_strip.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

#include "desktop/accessible_role.h"
#include "desktop/enlarged.h"
#include "desktop/shown_text.h"
#include "desktop/theme.h"
#include "engine/forms/ball_chip.h"

namespace velorin {

namespace {

/// A ball as a mark: a wicket is a square, a four a large disc, a six a hexagon, runs a small disc, no run a ring.
void paint_mark(QPainter& painter, const QPointF& at, double size, const std::string& symbol) {
  const Theme& t = theme();
  const double half = size / 2;
  painter.setPen(Qt::NoPen);
  if (symbol == "W") {
    painter.setBrush(t.ball);
    painter.drawRect(QRectF(at.x() - half, at.y() - half, size, size));
  } else if (symbol == "4") {
    painter.setBrush(t.four);
    painter.drawEllipse(at, half, half);
  } else if (symbol == "6") {
    painter.setBrush(t.six);
    painter.drawPolygon(hexagon_in(QRectF(at.x() - half, at.y() - half, size, size)));
  } else if (symbol == "0") {
    painter.setPen(QPen(t.muted, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(at, half - 1.5, half - 1.5);
  } else {
    painter.setBrush(t.muted);
    painter.drawEllipse(at, half - 1, half - 1);
  }
}

QString words_of(const over_in_strip& over) {
  QString text = QStringLiteral("over %1, %2: %3 runs").arg(over.over).arg(shown(over.bowler)).arg(over.runs);
  if (over.wickets > 0) text += QStringLiteral(", %1 out").arg(over.wickets);
  return text;
}

}  // namespace

OverStrip::OverStrip(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("last_overs"));
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  give_role(*this, QAccessible::Graphic);
  setAccessibleName(QStringLiteral("Last overs: none"));
}

void OverStrip::set_overs(std::vector<over_in_strip> shown) {
  shown_ = std::move(shown);
  QStringList words;
  for (const over_in_strip& over : shown_) words << words_of(over);
  const QString spoken =
      QStringLiteral("Last overs: %1").arg(words.isEmpty() ? QStringLiteral("none") : words.join("; "));
  if (spoken != accessibleName()) {
    setAccessibleName(spoken);
    setToolTip(words.join(QLatin1Char('\n')));
  }
  update();
}

QSize OverStrip::sizeHint() const { return {enlarged(*this, overs * 64), enlarged(*this, 56)}; }
QSize OverStrip::minimumSizeHint() const { return {enlarged(*this, overs * 44), enlarged(*this, 56)}; }

QRectF OverStrip::cell(int place) const {
  const double gap = 4;
  const double wide = (width() - gap * (overs - 1)) / overs;
  return {place * (wide + gap), 0, wide, double(height())};
}

void OverStrip::paintEvent(QPaintEvent*) {
  const Theme& t = theme();
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const double factor = enlargement(*this);
  for (int place = 0; place < overs; ++place) {
    const QRectF box = cell(place).adjusted(0.5, 0.5, -0.5, -0.5);
    const bool filled = place < static_cast<int>(shown_.size());
    painter.setPen(QPen(t.line, 1, filled ? Qt::SolidLine : Qt::DotLine));
    painter.setBrush(filled ? QBrush(t.card_raised) : QBrush(Qt::NoBrush));
    painter.drawRoundedRect(box, 6, 6);
    if (!filled) continue;
    const over_in_strip& over = shown_[static_cast<std::size_t>(place)];
    painter.setFont(type_font(*this, TypeStep::small));
    painter.setPen(t.muted);
    painter.drawText(box.adjusted(6 * factor, 3 * factor, -6 * factor, 0), Qt::AlignLeft | Qt::AlignTop,
                     QString::number(over.over));
    painter.setFont(type_font(*this, TypeStep::strong));
    painter.setPen(t.ink);
    QString runs = QString::number(over.runs);
    if (over.wickets > 0) runs += QStringLiteral("/%1").arg(over.wickets);
    painter.drawText(box.adjusted(6 * factor, 15 * factor, -6 * factor, -15 * factor), Qt::AlignCenter, runs);
    const auto balls = static_cast<double>(std::max<std::size_t>(6, over.balls.size()));
    const double step = std::min(10.0 * factor, (box.width() - 6 * factor) / balls);
    double x = box.center().x() - step * (static_cast<double>(over.balls.size()) - 1) / 2;
    for (const std::string& symbol : over.balls) {
      paint_mark(painter, {x, box.bottom() - 9 * factor}, std::min(8.0 * factor, step - 0.5), symbol);
      x += step;
    }
  }
}

void OverStrip::mouseReleaseEvent(QMouseEvent* event) {
  for (std::size_t place = 0; place < shown_.size(); ++place) {
    if (chosen_ && cell(static_cast<int>(place)).contains(event->position())) return chosen_(shown_[place].over);
  }
}

}  // namespace velorin
