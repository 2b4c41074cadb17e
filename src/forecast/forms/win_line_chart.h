// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <vector>

#include "desktop/line_chart.h"
#include "forecast/match_line.h"

class QPainter;

namespace velorin {

/// The line as it is drawn.
struct WinLine {
  ChartSides sides;  ///< the side that bats first, and the other
  double before = 0;
  std::vector<line_point> points;
  std::vector<line_point> turns;  ///< numbered on the chart, in this order
};

/// The chance of winning ball by ball: up for the side that bats first, down for the other. A wicket is a cross, a four
/// a disc, a six a square; the turning points have numbers.
class WinLineChart : public QWidget {
  Q_OBJECT

 public:
  explicit WinLineChart(const QString& name, QWidget* parent = nullptr);

  void show_line(WinLine line);
  const WinLine& line() const { return line_; }
  /// Writes the chart to a file, SVG or PNG by its ending. False if that fails.
  bool save(const QString& path) const;

  QSize sizeHint() const override { return {820, 300}; }
  QSize minimumSizeHint() const override { return {320, 160}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void draw(QPainter& painter, const QRectF& room) const;
  /// Where the second innings begins; returns its x, or one beyond the plot.
  double draw_change_of_innings(QPainter& painter, const QRectF& plot) const;
  /// Each tenth over; none where the words at `change` stand.
  void draw_overs(QPainter& painter, const QRectF& plot, double change) const;
  /// The middle of a turning point's sign, apart from those that are taken.
  static QPointF place_of_turn(const QPointF& at, const QRectF& plot, const std::vector<QPointF>& taken);
  void draw_marks(QPainter& painter, const QRectF& plot) const;
  QPointF point(const QRectF& plot, std::size_t place) const;

  WinLine line_;
};

}  // namespace velorin
