// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QStringList>
#include <vector>

#include "desktop/preferences.h"

class QMenu;
class QPoint;
class QTableView;

namespace velorin {

struct Table;

/// The columns of a table's view: which are shown, how wide each is, by which the rows are sorted. What its user has
/// changed is kept under the names of window and table. A column is as wide as its contents until its user draws it;
/// one that stretches takes what is left.
class TableColumns : public QObject {
  Q_OBJECT

 public:
  /// `view` outlives it.
  explicit TableColumns(QTableView& view);

  /// The view shows another table now. One with the same name and columns is shown as its user left it.
  void show(const Table& table);

  /// Gives every column its width. Called whenever the view, its contents or its type change.
  void fit();

  bool is_shown(int column) const;
  /// The width of its contents, in pixels.
  int natural_width(int column) const;
  /// Hides a column or brings it back; the last one stays.
  void set_shown(int column, bool shown);

  /// Sorts by a column, or as told once it is sorted so already.
  void sort(int column, Qt::SortOrder order);
  /// The order as it was told.
  void sort_as_told();

  /// What of it the user has sorted by, in words: "sorted by Runs, descending"; "" for the order told.
  QString sorting() const;

  /// The columns with a tick each, and all of them again, at a place on the screen.
  void open_menu(const QPoint& at);

 signals:
  /// The columns have their widths.
  void fitted();

 private:
  /// Under which name its window keeps it; "" without a window.
  QString window_name() const;
  int shown_count() const;
  int drawn_width(int column) const;
  /// Those that share what is left: where all of these are hidden or drawn, the first that holds texts.
  std::vector<int> sharing() const;
  void lay_out();
  void hide_as_kept();
  void note_width(int column, int width);
  void note_sorting(int column, Qt::SortOrder order);
  void restore();
  void keep();

  QTableView& view_;
  QString name_;
  QStringList keys_;             // of the columns, in their order
  std::vector<bool> stretches_;  // likewise
  std::vector<bool> texts_;      // likewise: no figures
  std::vector<int> covered_;     // likewise: how much wider the controls over them are
  bool order_is_free_ = false;
  bool sortable_ = false;
  TableState state_;
  bool restored_ = false;
  bool fitting_ = false;
};

}  // namespace velorin
