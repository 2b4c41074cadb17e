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

  QSize sizeHint() const override { return {6 * 40 + 5 * 8, 40}; }
  QSize minimumSizeHint() const override { return {6 * 34 + 5 * 6, 40}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QStringList symbols_;
};

}  // namespace velorin
