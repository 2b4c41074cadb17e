// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "console/recent_play.h"

namespace velorin {

/// The last six overs side by side: number, runs, and each ball as a small mark. A click on one shows that over.
class OverStrip : public QWidget {
  Q_OBJECT

 public:
  static constexpr int overs = 6;

  explicit OverStrip(QWidget* parent = nullptr);

  void set_overs(std::vector<over_in_strip> shown);
  /// What a click on an over does.
  void on_chosen(std::function<void(int over)> act) { chosen_ = std::move(act); }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  QRectF cell(int place) const;

  std::vector<over_in_strip> shown_;
  std::function<void(int)> chosen_;
};

}  // namespace velorin
