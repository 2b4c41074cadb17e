// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <vector>

#include "reports/stand_shares.h"

namespace velorin {

/// The stands of an innings as bars, one below the other: a part for each of the two batsmen and one for extras, as
/// long as the runs they made. The second man's part is hatched.
class StandBars : public QWidget {
  Q_OBJECT

 public:
  explicit StandBars(std::vector<stand_share> stands, QWidget* parent = nullptr);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int row_height() const;
  void paint_stand(QPainter& painter, const stand_share& stand, const QRect& row, int longest) const;

  std::vector<stand_share> stands_;
};

}  // namespace velorin
