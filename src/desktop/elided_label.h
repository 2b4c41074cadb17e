// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>

namespace velorin {

/// A line as wide as its place: of a text that is longer, dots stand for the part left out. text() stays whole.
class ElidedLabel : public QLabel {
  Q_OBJECT

 public:
  /// `left_out`: which end of a text too long.
  explicit ElidedLabel(const QString& name, Qt::TextElideMode left_out = Qt::ElideRight, QWidget* parent = nullptr);

  /// What of the text can be read.
  QString shown_part() const;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Qt::TextElideMode left_out_;
};

}  // namespace velorin
