// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTableView>
#include <functional>

#include "desktop/table.h"

namespace velorin {

class RowSorter;
class TableColumns;
class TableModel;

/// Shows a table. Arrow keys move, Return, a double press and an assistive press open a row; a heading sorts, as do
/// Alt+Up and Alt+Down by the column of the present cell, and once more gives the order told back; Ctrl+H or the
/// heading's context menu tells which columns are shown. Ctrl+C copies the chosen rows or else the whole table, Ctrl+E
/// saves it as CSV: both with all columns and in the order shown. The context menu offers the same. Widths, hidden
/// columns and a free order are kept under the names of its window and its own.
class TableView : public QTableView {
  Q_OBJECT

 public:
  /// What opens a row beside Return.
  enum class Opens { double_press, press };

  explicit TableView(const QString& name, QWidget* parent = nullptr);

  void set_table(Table table);
  const Table& table() const;
  /// The same with the rows in the order shown.
  Table shown_table() const;
  /// What opening a row does; it gets the row's id. Without it rows cannot be opened.
  void on_open(std::function<void(int id)> act, Opens by = Opens::double_press);
  /// A row of the view leads on; opens it, if so.
  bool can_open(const QModelIndex& index) const;
  void open_row(const QModelIndex& index);
  TableColumns& columns() const { return *columns_; }
  /// The row of the table at a row of the view.
  int table_row(int view_row) const;

  /// All rows are shown at once: the view's height follows their number.
  void show_all_rows();

  /// The rows grow with the view, up to this height, so that `rows` of them fill it; the view grows no further.
  void grow_rows(int highest, int rows);

  void copy() const;
  /// Asks for a file and saves the table there.
  void save_csv();

  /// The least width at which every text of the columns shown is whole, in pixels.
  int needed_width() const;

  QSize sizeHint() const override;

 signals:
  /// A row has been opened; its id.
  void row_activated(int id);

 protected:
  void showEvent(QShowEvent* event) override;
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  bool sort_by_key(const QKeyEvent& event);
  int first_shown_column() const;
  int rows_height() const;

  TableModel* model_;
  RowSorter* order_;
  TableColumns* columns_ = nullptr;
  std::function<void(int)> opened_;
  bool opens_by_press_ = false;
  int highest_row_ = 0;
  int growing_rows_ = 1;
};

/// Offers the figures of a widget that is no table view as a table: Ctrl+C copies it, Ctrl+E saves it as CSV; the
/// context menu offers the same. `table` is asked each time; one without rows is not offered.
void offer_table(QWidget& widget, const std::function<Table()>& table);

/// Asks for a file, over `window`, and saves the table there as CSV. A failure is a message with its cause.
void save_table(const Table& table, QWidget* window);

/// Writes a CSV file whole, in place of what was there. Raises run_time_error (file), with the old file whole then.
void write_csv(const QString& path, const Table& table);

}  // namespace velorin
