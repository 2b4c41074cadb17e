// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFrame>
#include <QString>
#include <functional>

class QGridLayout;
class QLabel;

namespace velorin {

/// A bordered panel of rows of controls in columns: headings in row 0, then rows from 1. Every second visible row
/// stands on a band, so that the eye keeps to its row. A row whose widgets are all hidden takes no room; in a large
/// window the others become roomier, within reason.
class BandedGrid : public QFrame {
  Q_OBJECT

 public:
  /// `row_padding`: pixels above and below the controls of a row.
  explicit BandedGrid(int row_padding = 0, QWidget* parent = nullptr);

  /// The heading of a column, muted; numbers are aligned to the right. The column that `stretches` takes what is left.
  QLabel* add_heading(int column, const QString& text, bool numbers = false, bool stretches = false);
  /// Puts a control or a text at a place of the grid; one over numbers is aligned as its heading.
  void add(int row, int column, QWidget* widget);

  /// What a click on a row beside its controls does; it gets the row.
  void on_row_pressed(std::function<void(int row)> act) { pressed_ = std::move(act); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  /// From the left to the right border; empty for a hidden row.
  QRect band(int row) const;

  QGridLayout* cells_;
  int padding_;
  std::function<void(int)> pressed_;
};

}  // namespace velorin
