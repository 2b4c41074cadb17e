// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/forms/over_strip.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

#include "desktop/accessible_role.h"
#include "desktop/shown_text.h"
#include "desktop/theme.h"

namespace velorin {

namespace {

/// A ball as a mark: a wicket is a square, a boundary a large disc, runs a small one, no run a ring.
void paint_mark(QPainter& painter, const QPointF& at, double size, const std::string& symbol) {
  const Theme& t = theme();
  const double half = size / 2;
  painter.setPen(Qt::NoPen);
  if (symbol == "W") {
    painter.setBrush(t.ball);
    painter.drawRect(QRectF(at.x() - half, at.y() - half, size, size));
  } else if (symbol == "4" || symbol == "6") {
    painter.setBrush(symbol == "4" ? t.four : t.six);
    painter.drawEllipse(at, half, half);
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

QRectF OverStrip::cell(int place) const {
  const double gap = 4;
  const double wide = (width() - gap * (overs - 1)) / overs;
  return {place * (wide + gap), 0, wide, double(height())};
}

void OverStrip::paintEvent(QPaintEvent*) {
  const Theme& t = theme();
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  for (int place = 0; place < overs; ++place) {
    const QRectF box = cell(place).adjusted(0.5, 0.5, -0.5, -0.5);
    const bool filled = place < static_cast<int>(shown_.size());
    painter.setPen(QPen(t.line, 1, filled ? Qt::SolidLine : Qt::DotLine));
    painter.setBrush(filled ? QBrush(t.card_raised) : QBrush(Qt::NoBrush));
    painter.drawRoundedRect(box, 6, 6);
    if (!filled) continue;
    const over_in_strip& over = shown_[static_cast<std::size_t>(place)];
    painter.setFont(type_font(TypeStep::small));
    painter.setPen(t.muted);
    painter.drawText(box.adjusted(6, 3, -6, 0), Qt::AlignLeft | Qt::AlignTop, QString::number(over.over));
    painter.setFont(type_font(TypeStep::strong));
    painter.setPen(t.ink);
    QString runs = QString::number(over.runs);
    if (over.wickets > 0) runs += QStringLiteral("/%1").arg(over.wickets);
    painter.drawText(box.adjusted(6, 15, -6, -15), Qt::AlignCenter, runs);
    const auto balls = static_cast<double>(std::max<std::size_t>(6, over.balls.size()));
    const double step = std::min(10.0, (box.width() - 6) / balls);
    double x = box.center().x() - step * (static_cast<double>(over.balls.size()) - 1) / 2;
    for (const std::string& symbol : over.balls) {
      paint_mark(painter, {x, box.bottom() - 9}, std::min(8.0, step - 0.5), symbol);
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
