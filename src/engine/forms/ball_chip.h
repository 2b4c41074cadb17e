// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPolygonF>
#include <QStringList>
#include <QWidget>

class QPainter;

namespace velorin {

/// The width in pixels of a ball's chip of this height, drawn so many times as large as usual: longer symbols are given
/// more.
double chip_width(const QString& symbol, double height, double factor = 1);

/// Paints a ball's chip into `place`, coloured by what the ball did and lettered as well. A wicket is a square, a four
/// a disc, a six a hexagon, another ball an outlined disc; "" is a ball to come.
void paint_chip(QPainter& painter, const QRectF& place, const QString& symbol, double factor = 1);

/// The shape of a six.
QPolygonF hexagon_in(const QRectF& place);

/// A man's last balls as a row of small chips, the newest at the right. What there is no room for is left out at the
/// left; screen readers get all of them.
class BallChips : public QWidget {
  Q_OBJECT

 public:
  /// `spoken`: what balls they are, for screen readers.
  BallChips(const QString& name, const QString& spoken, QWidget* parent = nullptr);

  void set_symbols(const QStringList& symbols);
  const QStringList& symbols() const { return symbols_; }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString spoken_;
  QStringList symbols_;
};

}  // namespace velorin
