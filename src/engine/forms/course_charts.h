// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QWidget>
#include <array>
#include <vector>

#include "console/innings_course.h"
#include "desktop/line_chart.h"

class QPainter;

namespace velorin {

struct match_state;

/// What the small charts show: the innings in play and the one before it.
struct CourseFigures {
  std::array<QString, 2> sides;  ///< [0] in play, [1] before; "" for none
  std::array<int, 2> places{};   ///< of the sides in all charts, 0 or 1
  ChartSides teams;              ///< at these places
  std::vector<over_stage> now;
  std::vector<over_stage> before;
  int target = 0;  ///< runs that win; 0 in a first innings
};

CourseFigures course_figures(const match_state& match);

/// A small chart over the fifty overs, painted at once: cheap enough to follow every ball. Its figures are told to
/// screen readers in words.
class CourseChart : public QWidget {
  Q_OBJECT

 public:
  enum class Kind {
    runs,   ///< the runs of each over as bars, with a mark for every wicket; the other side's behind them
    score,  ///< the running scores as lines
    rates,  ///< the run rate as a line and, in a chase, the required rate
  };

  CourseChart(const QString& name, Kind kind, QWidget* parent = nullptr);

  void set_figures(const CourseFigures& figures);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString title() const;
  QString described() const;
  double find_highest() const;
  /// Lines of rates begin near the least, so that they fill the chart.
  double find_lowest_rate() const;
  /// The inner rectangle of the plot.
  QRectF plot() const;
  QPointF place(double over, double value) const;
  void paint_axes(QPainter& painter) const;
  void paint_bars(QPainter& painter) const;
  void paint_scores(QPainter& painter) const;
  void paint_rates(QPainter& painter) const;
  void paint_line(QPainter& painter, const std::vector<QPointF>& points, const QColor& color, bool dashed) const;
  void paint_caption(QPainter& painter) const;

  Kind kind_;
  CourseFigures figures_;
  double highest_ = 10;  // of the vertical axis
  double lowest_ = 0;
};

}  // namespace velorin
