// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/line_chart.h"

#include <QChart>
#include <QChartView>
#include <QEvent>
#include <QGraphicsLayout>
#include <QLegendMarker>
#include <QLineSeries>
#include <QPainter>
#include <QPen>
#include <QScatterSeries>
#include <QVBoxLayout>
#include <QValueAxis>
#include <algorithm>
#include <cmath>
#include <memory>

#include "desktop/enlarged.h"
#include "desktop/team_colors.h"
#include "desktop/theme.h"

namespace velorin {

namespace {

void style_axis(QValueAxis& axis, const QString& title, double factor) {
  const Theme& t = theme();
  axis.setTitleText(title);
  axis.setTitleFont(type_font(TypeStep::small, factor));
  axis.setLabelsFont(type_font(TypeStep::small, factor));
  axis.setTitleBrush(t.muted);
  axis.setLabelsColor(t.muted);
  axis.setLinePenColor(t.line);
  axis.setGridLinePen(QPen(t.line, 1, t.high_contrast ? Qt::DotLine : Qt::SolidLine));
  axis.setLabelFormat(QStringLiteral("%d"));
}

ChartSides sides_of(const LineChart& chart) {
  return chart.lines.size() == 2 ? ChartSides{chart.lines[0].name, chart.lines[1].name} : ChartSides{};
}

QPen stroke(const QColor& color, int place) {
  QPen pen(color, 3, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin);
  if (place != 0) pen.setDashPattern({3, 1.5});
  return pen;
}

QLineSeries* new_series(const ChartLine& line, const QColor& color, int place) {
  auto* series = new QLineSeries;
  series->setName(line.name);
  QList<QPointF> points(line.points.begin(), line.points.end());
  series->replace(points);
  series->setPen(stroke(color, place));
  return series;
}

/// The mark at the last point of a line: a disc or a square.
QScatterSeries* new_end_mark(const ChartLine& line, const QColor& color, int place) {
  auto* mark = new QScatterSeries;
  mark->append(line.points.back());
  mark->setMarkerShape(place == 0 ? QScatterSeries::MarkerShapeCircle : QScatterSeries::MarkerShapeRectangle);
  mark->setMarkerSize(11);
  mark->setColor(color);
  mark->setBorderColor(theme().card);
  return mark;
}

/// A line's stroke and its mark beside a caption.
class LineSwatch : public QWidget {
 public:
  LineSwatch(const ChartSides& sides, int place, QWidget* parent) : QWidget(parent), sides_(sides), place_(place) {
    setFixedSize(44, 16);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor color = chart_color(sides_, place_);
    painter.setPen(stroke(color, place_));
    painter.drawLine(QPointF(0, 8), QPointF(36, 8));
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    const QRectF mark(32, 3, 10, 10);
    if (place_ == 0) {
      painter.drawEllipse(mark);
    } else {
      painter.drawRect(mark);
    }
  }

 private:
  ChartSides sides_;
  int place_;
};

/// The next whole step above the highest point and its mark: 50 at least.
double top_of(const LineChart& chart) {
  double highest = 0;
  for (const ChartLine& line : chart.lines) {
    for (const QPointF& point : line.points) highest = std::max(highest, point.y());
  }
  return std::max(50.0, 50.0 * std::ceil((highest + 6) / 50.0));
}

}  // namespace

QColor chart_color(const ChartSides& sides, int place) {
  const Theme& t = theme();
  if (!sides[0].isEmpty() && !sides[1].isEmpty()) {
    return match_colors(sides[0], sides[1], t)[static_cast<std::size_t>(place)];
  }
  return place == 0 ? t.accent : t.four;
}

LineChartView::LineChartView(const QString& name, QWidget* parent) : QWidget(parent), view_(new QChartView(this)) {
  setObjectName(name);
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->addWidget(view_);
  view_->setRenderHint(QPainter::Antialiasing);
  view_->setFocusPolicy(Qt::TabFocus);
  view_->viewport()->setFocusPolicy(Qt::NoFocus);
  setFocusProxy(view_);
  view_->setFrameShape(QFrame::NoFrame);
  view_->setMinimumSize(400, 240);
}

void LineChartView::set_chart(const LineChart& shown_chart) {
  chart_ = shown_chart;
  setAccessibleName(chart_.name);
  setAccessibleDescription(chart_.described);
  view_->setAccessibleName(chart_.name);
  view_->setAccessibleDescription(chart_.described);
  draw();
}

void LineChartView::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) draw();
}

void LineChartView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  if (view_->chart() != nullptr && drawn_ != enlargement(*this)) draw();
}

void LineChartView::draw() {
  const Theme& t = theme();
  auto* chart = new QChart;
  chart->setBackgroundBrush(t.card);
  chart->setBackgroundPen(t.line);
  chart->setMargins(QMargins(12, 16, 20, 12));
  chart->layout()->setContentsMargins(0, 0, 0, 0);
  chart->setBackgroundRoundness(8);
  auto* across = new QValueAxis;
  drawn_ = enlargement(*this);
  style_axis(*across, chart_.across, drawn_);
  across->setRange(0, chart_.across_to * 1.015);  // room for half a mark at the end
  across->setTickType(QValueAxis::TicksDynamic);
  across->setTickInterval(chart_.across_step);
  auto* up = new QValueAxis;
  style_axis(*up, chart_.up, drawn_);
  up->setRange(0, top_of(chart_));
  up->setTickType(QValueAxis::TicksDynamic);
  up->setTickInterval(50);
  chart->addAxis(across, Qt::AlignBottom);
  chart->addAxis(up, Qt::AlignLeft);
  for (std::size_t i = 0; i < chart_.lines.size(); ++i) {
    const auto place = static_cast<int>(i);
    const QColor color = chart_color(sides_of(chart_), place);
    QLineSeries* series = new_series(chart_.lines[i], color, place);
    chart->addSeries(series);
    series->attachAxis(across);
    series->attachAxis(up);
    if (chart_.lines[i].points.empty()) continue;
    QScatterSeries* mark = new_end_mark(chart_.lines[i], color, place);
    chart->addSeries(mark);
    mark->attachAxis(across);
    mark->attachAxis(up);
    for (QLegendMarker* entry : chart->legend()->markers(mark)) entry->setVisible(false);
  }
  chart->legend()->setLabelColor(t.ink);
  chart->legend()->setFont(type_font(TypeStep::body, drawn_));
  chart->legend()->setAlignment(Qt::AlignTop);
  chart->legend()->setVisible(chart_.legend);
  const std::unique_ptr<QChart> before(view_->chart());
  view_->setChart(chart);
  view_->setBackgroundBrush(t.ground);
}

QWidget* new_line_swatch(const ChartSides& sides, int place, QWidget* parent) {
  return new LineSwatch(sides, place, parent);
}

}  // namespace velorin
