// SPDX-License-Identifier: GPL-3.0-or-later
#include "forecast/forms/win_line_chart.h"

#include <QLineF>
#include <QPainter>
#include <QPainterPath>
#include <QSvgGenerator>
#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "desktop/accessible_role.h"
#include "desktop/enlarged.h"
#include "desktop/theme.h"

namespace velorin {

namespace {

constexpr QSize picture_size(1200, 500);

bool same_ball(const line_point& a, const line_point& b) { return a.ball == b.ball && a.win_first == b.win_first; }

}  // namespace

WinLineChart::WinLineChart(const QString& name, QWidget* parent) : QWidget(parent) {
  setObjectName(name);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  give_role(*this, QAccessible::Chart);
  setAccessibleName(QStringLiteral("Line of the match"));
}

void WinLineChart::show_line(WinLine line) {
  line_ = std::move(line);
  update();
}

bool WinLineChart::save(const QString& path) const {
  if (path.endsWith(QLatin1String(".svg"), Qt::CaseInsensitive)) {
    QSvgGenerator file;
    file.setFileName(path);
    file.setSize(picture_size);
    file.setViewBox(QRect(QPoint(), picture_size));
    file.setTitle(accessibleName());
    file.setDescription(accessibleDescription());
    QPainter painter;
    if (!painter.begin(&file)) return false;
    draw(painter, QRectF(QPointF(), picture_size));
    return painter.end();
  }
  QImage picture(picture_size * 2, QImage::Format_RGB32);
  picture.setDevicePixelRatio(2);
  QPainter painter(&picture);
  draw(painter, QRectF(QPointF(), picture_size));
  painter.end();
  return picture.save(path);
}

void WinLineChart::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.scale(enlargement(*this), enlargement(*this));
  draw(painter, QRectF(QPointF(), QSizeF(size()) / enlargement(*this)));
}

QPointF WinLineChart::point(const QRectF& plot, std::size_t place) const {
  // The balls of a whole match, or as many as there are.
  const double all = std::max<double>(static_cast<double>(line_.points.size()), 60);
  const double win = place == 0 ? line_.before : line_.points[place - 1].win_first;
  return {plot.left() + plot.width() * static_cast<double>(place) / all, plot.bottom() - plot.height() * win};
}

void WinLineChart::draw(QPainter& painter, const QRectF& room) const {
  const Theme& t = theme();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(t.line);
  painter.setBrush(t.card);
  painter.drawRoundedRect(room.adjusted(0.5, 0.5, -0.5, -0.5), 8, 8);
  painter.setFont(type_font(TypeStep::small));
  const QRectF plot = room.adjusted(64, 28, -20, -28);
  for (const int percent : {0, 25, 50, 75, 100}) {
    const double y = plot.bottom() - plot.height() * percent / 100;
    painter.setPen(QPen(percent == 50 ? t.muted : t.line, 1));
    painter.drawLine(QPointF(plot.left(), y), QPointF(plot.right(), y));
    painter.setPen(t.muted);
    painter.drawText(QRectF(room.left() + 4, y - 10, 52, 20), Qt::AlignRight | Qt::AlignVCenter,
                     QStringLiteral("%1 %").arg(percent));
  }
  painter.setPen(t.ink);
  painter.drawText(QRectF(plot.left(), room.top() + 4, plot.width(), 20), Qt::AlignLeft | Qt::AlignVCenter,
                   QStringLiteral("\u25B2 %1").arg(line_.sides[0]));
  painter.drawText(QRectF(plot.left(), plot.bottom() + 4, plot.width(), 20), Qt::AlignLeft | Qt::AlignVCenter,
                   QStringLiteral("\u25BC %1").arg(line_.sides[1]));
  if (line_.points.empty()) return;
  const double change = draw_change_of_innings(painter, plot);
  draw_overs(painter, plot, change);
  QPainterPath path(point(plot, 0));
  for (std::size_t i = 1; i <= line_.points.size(); ++i) path.lineTo(point(plot, i));
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(t.ink, 1.8));
  painter.drawPath(path);
  draw_marks(painter, plot);
}

double WinLineChart::draw_change_of_innings(QPainter& painter, const QRectF& plot) const {
  const Theme& t = theme();
  for (std::size_t i = 1; i < line_.points.size(); ++i) {
    if (line_.points[i].first_bats == line_.points[i - 1].first_bats) continue;
    const double x = point(plot, i).x();
    painter.setPen(QPen(t.muted, 1, Qt::DashLine));
    painter.drawLine(QPointF(x, plot.top()), QPointF(x, plot.bottom()));
    painter.setPen(t.muted);
    painter.drawText(QRectF(x - 70, plot.bottom() + 4, 140, 20), Qt::AlignCenter, QStringLiteral("Second innings"));
    return x;
  }
  return plot.right() + plot.width();
}

void WinLineChart::draw_overs(QPainter& painter, const QRectF& plot, double change) const {
  const Theme& t = theme();
  constexpr int overs_between = 10;
  constexpr double room = 70;  // of a word that stands there, in pixels
  painter.setPen(t.muted);
  for (std::size_t i = 0; i + 1 < line_.points.size(); ++i) {
    const delivery& ball = line_.points[i].ball;
    if (ball.over % overs_between != 0 || line_.points[i + 1].ball.over == ball.over) continue;
    const double x = point(plot, i + 1).x();
    painter.drawLine(QPointF(x, plot.bottom()), QPointF(x, plot.bottom() + 4));
    if (std::abs(x - change) < room) continue;
    painter.drawText(QRectF(x - 20, plot.bottom() + 4, 40, 20), Qt::AlignCenter, QString::number(ball.over));
  }
}

QPointF WinLineChart::place_of_turn(const QPointF& at, const QRectF& plot, const std::vector<QPointF>& taken) {
  constexpr double step = 20;  // so far apart, two do not touch
  const double away = at.y() < plot.center().y() ? 1 : -1;
  QPointF middle;
  for (int rows = 0; rows < 5; ++rows) {
    middle = at + QPointF(0, away * (18 + step * rows));
    const bool free = std::none_of(taken.begin(), taken.end(),
                                   [&](const QPointF& other) { return QLineF(other, middle).length() < step; });
    if (free) break;
  }
  return middle;
}

void WinLineChart::draw_marks(QPainter& painter, const QRectF& plot) const {
  const Theme& t = theme();
  std::vector<QPointF> taken;  // by the signs of turning points
  for (std::size_t i = 0; i < line_.points.size(); ++i) {
    const line_point& each = line_.points[i];
    const QPointF at = point(plot, i + 1);
    const QColor color = chart_color(line_.sides, each.first_bats ? 0 : 1);
    if (each.ball.is_wicket()) {
      painter.setPen(QPen(t.ball, 2.2));
      painter.drawLine(at + QPointF(-4, -4), at + QPointF(4, 4));
      painter.drawLine(at + QPointF(-4, 4), at + QPointF(4, -4));
    } else if (each.is_boundary()) {
      painter.setPen(QPen(t.card, 0.8));
      painter.setBrush(color);
      if (each.ball.outcome == four_runs) {
        painter.drawEllipse(at, 2.8, 2.8);
      } else {
        painter.drawRect(QRectF(at - QPointF(3.4, 3.4), QSizeF(6.8, 6.8)));
      }
    }
    const auto turn = std::find_if(line_.turns.begin(), line_.turns.end(),
                                   [&](const line_point& other) { return same_ball(other, each); });
    if (turn == line_.turns.end()) continue;
    const QPointF middle = place_of_turn(at, plot, taken);
    taken.push_back(middle);
    painter.setPen(QPen(t.ink, 1));
    painter.drawLine(at, middle);
    painter.setBrush(t.card);
    painter.drawEllipse(middle, 9, 9);
    painter.drawText(QRectF(middle - QPointF(9, 9), QSizeF(18, 18)), Qt::AlignCenter,
                     QString::number(turn - line_.turns.begin() + 1));
  }
}

}  // namespace velorin
