// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/forms/course_charts.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "desktop/accessible_role.h"
#include "desktop/enlarged.h"
#include "desktop/line_chart.h"
#include "desktop/shown_text.h"
#include "desktop/terms.h"
#include "desktop/theme.h"
#include "model/match_state.h"
#include "model/rules.h"
#include "model/texts.h"
#include "reports/worm_graph.h"

namespace velorin {

namespace {

constexpr double head = 22;        // pixels for the caption
constexpr double foot = 16;        // for the overs
constexpr double value_room = 26;  // for the values
constexpr double margin = 6;       // at the right

/// A round step that cuts the axis into three or four.
double step_for(double highest) {
  for (const double step : {1.0, 2.0, 3.0, 5.0, 10.0, 20.0, 25.0, 50.0, 100.0, 200.0, 500.0}) {
    if (highest / step <= 4) return step;
  }
  return 1000;
}

}  // namespace

CourseFigures course_figures(const match_state& match) {
  CourseFigures figures;
  figures.sides[0] = shown(short_name(match.team1_name));
  figures.places[0] = chart_place(match, match.team1_name);
  figures.places[1] = 1 - figures.places[0];
  figures.teams[static_cast<std::size_t>(figures.places[0])] = shown(match.team1_name);
  figures.teams[static_cast<std::size_t>(figures.places[1])] = shown(match.team2_name);
  figures.now = course_in_play(match);
  figures.before = course_before(match);
  if (match.first_total != 0) {
    figures.sides[1] = shown(short_name(match.team2_name));
    figures.target = match.first_total + 1;
  }
  return figures;
}

CourseChart::CourseChart(const QString& name, Kind kind, QWidget* parent) : QWidget(parent), kind_(kind) {
  setObjectName(name);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  give_role(*this, QAccessible::Graphic);
  setAccessibleName(title());
}

QString CourseChart::title() const {
  switch (kind_) {
    case Kind::runs:
      return QStringLiteral("Runs an over");
    case Kind::score:
      return QStringLiteral("Score");
    case Kind::rates:
      break;
  }
  return figures_.target != 0 ? QStringLiteral("Run rate and required") : QStringLiteral("Run rate");
}

QString CourseChart::described() const {
  if (figures_.now.empty()) return QStringLiteral("No over yet");
  const over_stage& last = figures_.now.back();
  QString text = QStringLiteral("%1 after %2 overs: ").arg(figures_.sides[0]).arg(last.over);
  if (kind_ == Kind::runs) {
    QStringList runs;
    for (const over_stage& stage : figures_.now) {
      runs << (stage.wickets == 0 ? QString::number(stage.runs)
                                  : QStringLiteral("%1 with %2 out").arg(stage.runs).arg(stage.wickets));
    }
    return text + runs.join(QStringLiteral(", "));
  }
  if (kind_ == Kind::score) {
    text += QStringLiteral("%1 runs").arg(last.score);
    for (const over_stage& stage : figures_.before) {
      if (stage.over == last.over) text += QStringLiteral("; %1 had %2").arg(figures_.sides[1]).arg(stage.score);
    }
    return text;
  }
  text += QStringLiteral("run rate %1").arg(last.run_rate, 0, 'f', 2);
  if (last.required_rate) text += QStringLiteral(", required %1").arg(*last.required_rate, 0, 'f', 2);
  return text;
}

void CourseChart::set_figures(const CourseFigures& figures) {
  figures_ = figures;
  highest_ = find_highest();
  lowest_ = kind_ == Kind::rates ? find_lowest_rate() : 0;
  setAccessibleName(title());
  const QString words = described();
  if (words != accessibleDescription()) {
    setAccessibleDescription(words);
    const QString meaning = meaning_of(title());
    setToolTip(meaning.isEmpty() ? words : QStringLiteral("%1\n%2").arg(words, meaning));
  }
  update();
}

QSize CourseChart::sizeHint() const { return {enlarged(*this, 240), enlarged(*this, 140)}; }
QSize CourseChart::minimumSizeHint() const { return {enlarged(*this, 140), enlarged(*this, 56)}; }

double CourseChart::find_highest() const {
  double top = kind_ == Kind::score ? 50 : kind_ == Kind::runs ? 10 : 6;
  for (const std::vector<over_stage>* course : {&figures_.now, &figures_.before}) {
    for (const over_stage& stage : *course) {
      if (kind_ == Kind::runs) top = std::max(top, double(stage.runs));
      if (kind_ == Kind::score) top = std::max(top, double(stage.score));
      if (kind_ != Kind::rates || course != &figures_.now) continue;
      top = std::max({top, stage.run_rate, stage.required_rate.value_or(0)});
    }
  }
  // What is asked for from the last balls knows no bounds; the line leaves the chart there.
  // Lines keep off the caption.
  constexpr double above_lines = 1.08;
  return above_lines * (kind_ == Kind::rates ? std::min(top, 18.0) : top);
}

double CourseChart::find_lowest_rate() const {
  double least = figures_.target != 0 ? double(figures_.target) / overs_of_innings : 4;
  for (const over_stage& stage : figures_.now) {
    least = std::min({least, stage.run_rate, stage.required_rate.value_or(stage.run_rate)});
  }
  return std::max(0.0, std::floor(least - 0.5));
}

QRectF CourseChart::plot() const {
  const double factor = enlargement(*this);
  return QRectF(rect()).adjusted(value_room * factor, head * factor, -margin * factor, -foot * factor);
}

QPointF CourseChart::place(double over, double value) const {
  const QRectF area = plot();
  return {area.left() + area.width() * over / overs_of_innings,
          area.bottom() - area.height() * (value - lowest_) / (highest_ - lowest_)};
}

void CourseChart::paint_axes(QPainter& painter) const {
  const Theme& t = theme();
  painter.setFont(type_font(*this, TypeStep::small));
  const QRectF area = plot();
  const double factor = enlargement(*this);
  double step = step_for(highest_ - lowest_);
  // Where there is little height there are fewer figures, but two at least.
  if (area.height() < 70 * factor && highest_ - std::ceil(lowest_ / (2 * step)) * 2 * step >= 2 * step) step *= 2;
  const int style = t.high_contrast ? Qt::DotLine : Qt::SolidLine;
  for (double value = std::ceil(lowest_ / step) * step; value <= highest_; value += step) {
    const double y = place(0, value).y();
    painter.setPen(QPen(t.line, 1, static_cast<Qt::PenStyle>(style)));
    painter.drawLine(QPointF(area.left(), y), QPointF(area.right(), y));
    painter.setPen(t.muted);
    if (y < (head - 2) * factor + 3) continue;  // the caption stands there
    painter.drawText(QRectF(0, y - 8 * factor, (value_room - 4) * factor, 16 * factor),
                     Qt::AlignRight | Qt::AlignVCenter, QString::number(int(value)));
  }
  for (int over = 10; over <= overs_of_innings; over += area.width() < 150 * factor ? 20 : 10) {
    const double x = std::min(place(over, 0).x(), area.right() - 4);
    painter.drawText(QRectF(x - 12 * factor, area.bottom() + 1, 24 * factor, foot * factor - 1),
                     Qt::AlignHCenter | Qt::AlignTop, QString::number(over));
  }
}

void CourseChart::paint_bars(QPainter& painter) const {
  const Theme& t = theme();
  const double wide = plot().width() / overs_of_innings;
  QColor behind = chart_color(figures_.teams, figures_.places[1]);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(behind, 1));
  // The other side as steps, so that the bars in front stay clear.
  QPainterPath steps;
  for (const over_stage& stage : figures_.before) {
    const QPointF from = place(stage.over - 1, stage.runs);
    steps.isEmpty() ? steps.moveTo(from) : steps.lineTo(from);
    steps.lineTo(place(stage.over, stage.runs));
  }
  painter.drawPath(steps);
  painter.setPen(Qt::NoPen);
  for (const over_stage& stage : figures_.now) {
    const QPointF from = place(stage.over - 1, stage.runs);
    const double gap = wide > 4 ? 1 : 0.5;
    painter.setBrush(chart_color(figures_.teams, figures_.places[0]));
    painter.drawRect(QRectF(from.x() + gap / 2, from.y(), std::max(1.0, wide - gap), plot().bottom() - from.y()));
    painter.setBrush(t.ball);
    const double size = std::clamp(wide, 4.0 * enlargement(*this), 8.0 * enlargement(*this));
    for (int out = 0; out < stage.wickets; ++out) {
      const double y = std::max(from.y(), plot().top() + 4) - size - 1 - out * (size + 1);
      painter.drawRect(QRectF(from.x() + (wide - size) / 2, y, size, size));
    }
  }
}

void CourseChart::paint_line(QPainter& painter, const std::vector<QPointF>& points, const QColor& color,
                             bool dashed) const {
  if (points.empty()) return;
  const double factor = enlargement(*this);
  QPen pen(color, 2 * factor, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin);
  if (dashed) pen.setDashPattern({3, 2});
  painter.setPen(pen);
  painter.setBrush(Qt::NoBrush);
  QPainterPath line(points.front());
  for (const QPointF& point : points) line.lineTo(point);
  painter.save();
  painter.setClipRect(plot().adjusted(0, -4 * factor, 4 * factor, 2 * factor));
  painter.drawPath(line);
  painter.setPen(Qt::NoPen);
  painter.setBrush(color);
  const QPointF last = points.back();
  if (dashed) {
    painter.drawRect(QRectF(last.x() - 3 * factor, last.y() - 3 * factor, 6 * factor, 6 * factor));
  } else {
    painter.drawEllipse(last, 3.5 * factor, 3.5 * factor);
  }
  painter.restore();
}

void CourseChart::paint_scores(QPainter& painter) const {
  const Theme& t = theme();
  for (const int which : {1, 0}) {
    const std::vector<over_stage>& course = which == 0 ? figures_.now : figures_.before;
    if (course.empty()) continue;
    std::vector<QPointF> points = {place(course.front().over - 1, 0)};
    for (const over_stage& stage : course) points.push_back(place(stage.over, stage.score));
    paint_line(painter, points, chart_color(figures_.teams, figures_.places[static_cast<std::size_t>(which)]),
               figures_.places[static_cast<std::size_t>(which)] != 0);
    painter.setPen(Qt::NoPen);
    painter.setBrush(t.ball);
    for (const over_stage& stage : course) {
      if (stage.wickets > 0 && which == 0)
        painter.drawRect(QRectF(place(stage.over, stage.score) - QPointF(2.5, 2.5), QSizeF(5, 5)));
    }
  }
}

void CourseChart::paint_rates(QPainter& painter) const {
  std::vector<QPointF> rate;
  std::vector<QPointF> required;
  if (figures_.target != 0) {
    const double at_first = double(figures_.target) / overs_of_innings;
    required.push_back(place(0, at_first));
    // What the whole innings has to bring stays as a line to compare with.
    painter.setPen(QPen(theme().muted, 1, Qt::DotLine));
    painter.drawLine(place(0, at_first), place(overs_of_innings, at_first));
  }
  for (const over_stage& stage : figures_.now) {
    rate.push_back(place(stage.over, stage.run_rate));
    if (stage.required_rate) required.push_back(place(stage.over, *stage.required_rate));
  }
  if (figures_.target != 0) paint_line(painter, required, theme().ball, true);
  paint_line(painter, rate, chart_color(figures_.teams, figures_.places[0]), false);
}

void CourseChart::paint_caption(QPainter& painter) const {
  const Theme& t = theme();
  painter.setFont(type_font(*this, TypeStep::small));
  painter.setPen(t.ink);
  const double factor = enlargement(*this);
  const QRectF line(0, 0, width() - margin * factor, (head - 4) * factor);
  painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter, title());
  if (figures_.now.empty()) return;
  const over_stage& last = figures_.now.back();
  QString text;
  if (kind_ == Kind::runs) text = QStringLiteral("%1").arg(last.runs);
  if (kind_ == Kind::score) text = QStringLiteral("%1 %2").arg(figures_.sides[0]).arg(last.score);
  if (kind_ == Kind::rates) {
    text = QString::number(last.run_rate, 'f', 2);
    if (last.required_rate) text += QStringLiteral(" / %1").arg(*last.required_rate, 0, 'f', 2);
  }
  const double room = line.width() - painter.fontMetrics().horizontalAdvance(title()) - 8;
  if (painter.fontMetrics().horizontalAdvance(text) > room) return;
  painter.setPen(t.muted);
  painter.drawText(line, Qt::AlignRight | Qt::AlignVCenter, text);
}

void CourseChart::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  paint_caption(painter);
  paint_axes(painter);
  switch (kind_) {
    case Kind::runs:
      return paint_bars(painter);
    case Kind::score:
      return paint_scores(painter);
    case Kind::rates:
      return paint_rates(painter);
  }
}

}  // namespace velorin
