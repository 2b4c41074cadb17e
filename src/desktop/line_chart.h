// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointF>
#include <QString>
#include <QWidget>
#include <array>
#include <vector>

class QChartView;

namespace velorin {

/// One line of a chart.
struct ChartLine {
  QString name;
  std::vector<QPointF> points;
};

/// A chart as plain data.
struct LineChart {
  QString name;    ///< for screen readers
  QString across;  ///< title of the horizontal axis
  QString up;      ///< title of the vertical axis
  double across_to = 50;
  int across_step = 10;
  std::vector<ChartLine> lines;  ///< named after their sides
  QString described;             ///< the chart in words, for those who cannot see it
  bool legend = true;            ///< names the lines; without, the window around it does
};

/// Shows a line chart in the style of all charts: lines differ in colour and in stroke, and each ends in a mark of its
/// own shape.
class LineChartView : public QWidget {
  Q_OBJECT

 public:
  explicit LineChartView(const QString& name, QWidget* parent = nullptr);

  void set_chart(const LineChart& chart);
  const LineChart& chart() const { return chart_; }

  QSize sizeHint() const override { return {960, 480}; }

 protected:
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void draw();

  LineChart chart_;
  QChartView* view_;
  double drawn_ = 1;  // how many times as large as usual
};

/// The teams at the two places of a match's charts.
using ChartSides = std::array<QString, 2>;

/// Colour of a side's line or bars by its place in the charts of its match, 0 or 1: its team's, as match_colors() has
/// them in the present look. Where a side has no name, both have colours of the look.
QColor chart_color(const ChartSides& sides, int place);

/// A short piece of the line at a place, for a caption that stands beside the chart.
QWidget* new_line_swatch(const ChartSides& sides, int place, QWidget* parent = nullptr);

}  // namespace velorin
