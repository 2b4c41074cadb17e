// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/forms/course_picture.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "desktop/accessible_role.h"
#include "desktop/enlarged.h"
#include "desktop/line_chart.h"
#include "desktop/shown_text.h"
#include "desktop/theme.h"
#include "model/rules.h"
#include "reports/forms/story_picture.h"

namespace velorin {

namespace {

constexpr QSize picture_size(1200, 560);
constexpr double highest_rate = 18;  // what is asked from the last balls knows no bounds; the line leaves the picture

/// A round step that cuts an axis into four or five.
double step_for(double top) {
  for (const double step : {1.0, 2.0, 3.0, 5.0, 10.0, 20.0, 25.0, 50.0, 100.0, 200.0}) {
    if (top / step <= 5) return step;
  }
  return 500;
}

QString rate_words(double rate) { return QString::number(rate, 'f', 2); }

}  // namespace

QString course_words(CoursePicture::Kind kind, const innings_story& innings) {
  if (innings.overs.empty()) return QStringLiteral("%1: no over yet.").arg(shown(innings.card.side));
  QStringList words;
  for (const story_over& over : innings.overs) {
    if (kind == CoursePicture::Kind::overs) {
      const QString out = over.wickets == 0 ? QString() : QStringLiteral(" with %1 out").arg(over.wickets);
      words << QStringLiteral("over %1: %2%3, %4/%5")
                   .arg(over.over)
                   .arg(over.runs)
                   .arg(out)
                   .arg(over.score)
                   .arg(over.down);
    } else {
      const QString required =
          over.required_rate ? QStringLiteral(", required %1").arg(rate_words(*over.required_rate)) : QString();
      words << QStringLiteral("over %1: %2%3").arg(over.over).arg(rate_words(over.run_rate), required);
    }
  }
  return QStringLiteral("%1. %2.").arg(shown(innings.card.side), words.join(QStringLiteral("; ")));
}

CoursePicture::CoursePicture(const QString& name, Kind kind, QWidget* parent) : QWidget(parent), kind_(kind) {
  setObjectName(name);
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  give_role(*this, QAccessible::Chart);
  setAccessibleName(kind == Kind::overs ? QStringLiteral("Manhattan and worm") : QStringLiteral("Run rate"));
}

void CoursePicture::show_innings(const match_story& match, std::size_t innings) {
  match_ = &match;
  innings_ = innings;
  marked_ = 0;
  setAccessibleDescription(course_words(kind_, match.innings[innings]));
  update();
}

void CoursePicture::mark_over(int over) {
  marked_ = over;
  update();
}

bool CoursePicture::save(const QString& path) const {
  return save_story_picture(path, accessibleName(), picture_size,
                            [this](QPainter& painter) { draw(painter, QRectF(QPointF(), picture_size)); });
}

double CoursePicture::Plot::x(double over) const { return area.left() + area.width() * over / overs_of_innings; }
double CoursePicture::Plot::bar(double value) const { return area.bottom() - area.height() * value / bars_top; }
double CoursePicture::Plot::score(double value) const { return area.bottom() - area.height() * value / scores_top; }

CoursePicture::Plot CoursePicture::plot_in(const QRectF& room) const {
  Plot plot{.area = room.adjusted(44, 40, kind_ == Kind::overs ? -52 : -20, -40)};
  plot.bars_top = kind_ == Kind::overs ? 12 : 6;
  plot.scores_top = 100;
  for (const innings_story& innings : match_->innings) {
    for (const story_over& over : innings.overs) {
      plot.scores_top = std::max(plot.scores_top, 1.05 * over.score);
      if (&innings != &match_->innings[innings_]) continue;
      const double rate = std::min(highest_rate, std::max(over.run_rate, over.required_rate.value_or(0)));
      plot.bars_top = std::max(plot.bars_top, kind_ == Kind::overs ? over.runs : 1.05 * rate);
    }
  }
  return plot;
}

QRectF CoursePicture::strip_of(int over) const {
  const Plot plot = plot_in(rect());
  return {plot.x(over - 1), plot.area.top(), plot.area.width() / overs_of_innings, plot.area.height()};
}

QColor CoursePicture::color_of(const innings_story& innings) const {
  const ChartSides sides = {shown(match_->teams[0]), shown(match_->teams[1])};
  return chart_color(sides, innings.card.side == match_->teams[0] ? 0 : 1);
}

void CoursePicture::draw(QPainter& painter, const QRectF& room) const {
  const Theme& t = theme();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(t.line);
  painter.setBrush(t.card);
  painter.drawRoundedRect(room.adjusted(0.5, 0.5, -0.5, -0.5), 8, 8);
  if (match_ == nullptr) return;
  const Plot plot = plot_in(room);
  if (marked_ != 0) {
    QColor band = t.focus;
    band.setAlpha(60);
    const QRectF strip(plot.x(marked_ - 1), plot.area.top(), plot.area.width() / overs_of_innings, plot.area.height());
    painter.fillRect(strip, band);
    painter.setPen(QPen(t.focus, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(strip);
  }
  draw_axes(painter, plot);
  if (kind_ == Kind::overs) {
    draw_bars(painter, plot);
    draw_worms(painter, plot);
  } else {
    draw_rates(painter, plot);
  }
  draw_key(painter, room);
}

void CoursePicture::draw_axes(QPainter& painter, const Plot& plot) const {
  const Theme& t = theme();
  painter.setFont(type_font(TypeStep::small));
  const double step = step_for(plot.bars_top);
  for (double value = 0; value <= plot.bars_top; value += step) {
    const double y = plot.bar(value);
    painter.setPen(QPen(t.line, 1, t.high_contrast ? Qt::DotLine : Qt::SolidLine));
    painter.drawLine(QPointF(plot.area.left(), y), QPointF(plot.area.right(), y));
    painter.setPen(t.muted);
    painter.drawText(QRectF(plot.area.left() - 40, y - 9, 34, 18), Qt::AlignRight | Qt::AlignVCenter,
                     QString::number(value));
  }
  if (kind_ == Kind::overs) {
    const double score_step = step_for(plot.scores_top);
    for (double value = score_step; value <= plot.scores_top; value += score_step) {
      painter.drawText(QRectF(plot.area.right() + 6, plot.score(value) - 9, 44, 18), Qt::AlignLeft | Qt::AlignVCenter,
                       QString::number(value));
    }
  }
  for (int over = 10; over <= overs_of_innings; over += 10) {
    painter.drawText(QRectF(plot.x(over) - 16, plot.area.bottom() + 2, 32, 16), Qt::AlignHCenter | Qt::AlignTop,
                     QString::number(over));
  }
  painter.drawText(QRectF(plot.area.left(), plot.area.bottom() + 18, plot.area.width(), 18), Qt::AlignCenter,
                   QStringLiteral("Overs"));
}

void CoursePicture::draw_bars(QPainter& painter, const Plot& plot) const {
  const innings_story& innings = match_->innings[innings_];
  QColor color = color_of(innings);
  color.setAlpha(theme().high_contrast ? 255 : 150);
  const double wide = plot.area.width() / overs_of_innings;
  painter.setPen(Qt::NoPen);
  painter.setBrush(color);
  for (const story_over& over : innings.overs) {
    const double y = plot.bar(over.runs);
    painter.drawRect(QRectF(plot.x(over.over - 1) + wide / 8, y, wide * 3 / 4, plot.area.bottom() - y));
  }
}

void CoursePicture::draw_worms(QPainter& painter, const Plot& plot) const {
  const Theme& t = theme();
  const QFontMetrics small(type_font(TypeStep::small));
  for (std::size_t i = 0; i < match_->innings.size(); ++i) {
    const innings_story& innings = match_->innings[i];
    if (innings.overs.empty()) continue;
    const QColor color = color_of(innings);
    QPen pen(color, i == innings_ ? 3 : 2, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin);
    if (i != innings_) pen.setDashPattern({3, 2});
    QPainterPath line(QPointF(plot.x(0), plot.score(0)));
    for (const story_over& over : innings.overs) line.lineTo(plot.x(over.over), plot.score(over.score));
    painter.setBrush(Qt::NoBrush);
    // An edge of the ground keeps the line clear of the bars.
    painter.setPen(QPen(t.card, pen.widthF() + 3));
    painter.drawPath(line);
    painter.setPen(pen);
    painter.drawPath(line);
    for (const story_over& over : innings.overs) {
      if (over.wickets == 0) continue;
      const QPointF at(plot.x(over.over), plot.score(over.score));
      painter.setPen(QPen(t.card, 1));
      painter.setBrush(i == innings_ ? t.ball : color);
      painter.drawEllipse(at, i == innings_ ? 7 : 4, i == innings_ ? 7 : 4);
      if (i != innings_ || over.wickets == 1) continue;
      painter.setPen(t.on_ball);
      painter.setFont(type_font(TypeStep::small));
      painter.drawText(QRectF(at.x() - 7, at.y() - 8, 14, 16), Qt::AlignCenter, QString::number(over.wickets));
    }
  }
}

void CoursePicture::draw_rates(QPainter& painter, const Plot& plot) const {
  const innings_story& innings = match_->innings[innings_];
  painter.save();
  painter.setClipRect(plot.area.adjusted(0, -2, 2, 2));
  painter.setBrush(Qt::NoBrush);
  QPainterPath rate;
  QPainterPath required;
  const auto add = [&](QPainterPath& line, const story_over& over, double value) {
    const QPointF at(plot.x(over.over), plot.bar(value));
    line.elementCount() == 0 ? line.moveTo(at) : line.lineTo(at);
  };
  for (const story_over& over : innings.overs) {
    add(rate, over, over.run_rate);
    if (over.required_rate) add(required, over, *over.required_rate);
  }
  painter.setPen(QPen(color_of(innings), 3, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
  painter.drawPath(rate);
  QPen dashed(theme().ball, 2, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin);
  dashed.setDashPattern({3, 2});
  painter.setPen(dashed);
  painter.drawPath(required);
  painter.restore();
}

void CoursePicture::draw_key(QPainter& painter, const QRectF& room) const {
  const Theme& t = theme();
  const innings_story& innings = match_->innings[innings_];
  QStringList words;
  if (kind_ == Kind::overs) {
    words << QStringLiteral("Bars and line: %1").arg(shown(innings.card.side));
    for (const innings_story& other : match_->innings) {
      if (&other != &innings) words << QStringLiteral("dashed: %1").arg(shown(other.card.side));
    }
    words << QStringLiteral("\u25CF wicket");
  } else {
    words << QStringLiteral("Line: run rate of %1").arg(shown(innings.card.side));
    const bool chase = std::any_of(innings.overs.begin(), innings.overs.end(),
                                   [](const story_over& over) { return over.required_rate.has_value(); });
    if (chase) words << QStringLiteral("dashed: required rate");
  }
  const auto marked = std::find_if(innings.overs.begin(), innings.overs.end(),
                                   [this](const story_over& over) { return over.over == marked_; });
  if (marked != innings.overs.end()) {
    words << QStringLiteral("over %1: %2, %3/%4")
                 .arg(marked->over)
                 .arg(marked->runs)
                 .arg(marked->score)
                 .arg(marked->down);
  }
  painter.setPen(t.ink);
  painter.setFont(type_font(TypeStep::small));
  const QString text = words.join(QStringLiteral("   "));
  const QRectF line = room.adjusted(16, 8, -16, 0);
  painter.drawText(QRectF(line.left(), line.top(), line.width(), 24), Qt::AlignLeft | Qt::AlignVCenter,
                   QFontMetrics(painter.font()).elidedText(text, Qt::ElideRight, static_cast<int>(line.width())));
}

QRectF CoursePicture::usual_room() const { return {QPointF(), QSizeF(size()) / enlargement(*this)}; }

void CoursePicture::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.save();
  painter.scale(enlargement(*this), enlargement(*this));
  draw(painter, usual_room());
  painter.restore();
  if (!hasFocus()) return;
  painter.setPen(QPen(theme().focus, 2));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 8, 8);
}

void CoursePicture::pick(int over) {
  if (match_ == nullptr || match_->innings[innings_].overs.empty()) return;
  const auto& overs = match_->innings[innings_].overs;
  emit over_picked(std::clamp(over, overs.front().over, overs.back().over));
}

void CoursePicture::mousePressEvent(QMouseEvent* event) {
  if (match_ == nullptr || event->button() != Qt::LeftButton) return QWidget::mousePressEvent(event);
  const Plot plot = plot_in(usual_room());
  const double over =
      (event->position().x() / enlargement(*this) - plot.area.left()) * overs_of_innings / plot.area.width();
  pick(static_cast<int>(std::floor(over)) + 1);
}

void CoursePicture::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Left:
      return pick(marked_ == 0 ? overs_of_innings : marked_ - 1);
    case Qt::Key_Right:
      return pick(marked_ + 1);
    default:
      QWidget::keyPressEvent(event);
  }
}

}  // namespace velorin
