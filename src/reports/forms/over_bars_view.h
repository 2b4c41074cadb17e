// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <array>

#include "desktop/line_chart.h"

class QLabel;
class QPainter;

namespace velorin {

struct overs_graph_form;

/// What a bar says.
struct OverFigures {
  int runs = 0;
  bool wicket = false;
};

/// The figures of an over, 1 to 50, of the upper half 0 or the lower half 1.
OverFigures over_figures(const overs_graph_form& form, int half, int over);

/// The teams at the places of the sides, for their colours.
ChartSides sides_of(const overs_graph_form& form);

/// The runs of each over as bars, in the display units of the form: one scale for both halves. What stands higher than
/// the upper half widens the picture, nothing is cut off. A wicket is a lettered disc over its bar.
class OverBarsView : public QWidget {
  Q_OBJECT

 public:
  /// `form` outlives the view.
  explicit OverBarsView(const overs_graph_form& form, QWidget* parent = nullptr);

  /// Where a height in display units stands in the view, in pixels from its top.
  double y_of(int half, double units) const;
  /// The middle of an over's bar, in pixels from the view's left edge.
  double x_of(int over) const;
  /// The rectangle of a bar; its height is 0 for an over without runs.
  QRectF bar_of(int half, int over) const;
  /// The disc over a bar.
  QRectF mark_of(int half, int over) const;

  QSize sizeHint() const override { return {960, 540}; }
  QSize minimumSizeHint() const override { return {640, 380}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  bool event(QEvent* event) override;

 private:
  double pitch() const;
  void place_label(int half);
  void paint_axes(QPainter& painter, int half) const;
  void paint_bars(QPainter& painter, int half) const;
  void paint_marks(QPainter& painter, int half) const;
  void paint_rate(QPainter& painter, int half) const;

  const overs_graph_form& form_;
  double top_units_ = 0;
  std::array<QLabel*, 2> captions_{};
};

}  // namespace velorin
