// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>
#include <QWidget>

namespace velorin {

/// The six balls of an over, a chip each.
class OverChips : public QWidget {
  Q_OBJECT

 public:
  explicit OverChips(QWidget* parent = nullptr);

  /// The symbols as the console holds them, "" for a ball to come.
  void set_symbols(const QStringList& symbols);
  const QStringList& symbols() const { return symbols_; }

  /// With little height to spare.
  void set_low(bool low);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  /// A chip's height in pixels.
  int tall() const;

  QStringList symbols_;
  bool low_ = false;
};

}  // namespace velorin
