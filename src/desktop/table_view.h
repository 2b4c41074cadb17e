// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTableView>
#include <functional>
#include <map>

#include "desktop/table.h"
#include "desktop/theme.h"

class QLabel;

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
  /// Another text for a cell of the row with this id.
  void set_text(int id, int column, const QString& text);
  /// The same with the rows in the order shown.
  Table shown_table() const;
  /// What opening a row does; it gets the row's id. Without it rows cannot be opened.
  void on_open(std::function<void(int id)> act, Opens by = Opens::double_press);
  /// One press opens a row, where it can be opened at all.
  bool opens_by_press() const { return opens_by_press_; }
  /// A row of the view leads on; opens it, if so.
  bool can_open(const QModelIndex& index) const;
  void open_row(const QModelIndex& index);
  /// The column in which the row that was opened last was pressed; 0 before.
  int opened_column() const { return opened_column_; }
  TableColumns& columns() const { return *columns_; }
  /// The row of the table at a row of the view.
  int table_row(int view_row) const;
  /// The row of the view under the pointer that a press would open, -1 for none.
  int row_to_press() const { return row_to_press_; }

  /// All rows are shown at once: the view's height follows their number.
  void show_all_rows();

  /// The rows grow with the view, up to this height, so that `rows` of them fill it; the view grows no further.
  void grow_rows(int highest, int rows);

  /// Rows may be this low, in pixels, and are until grow_rows lets them grow; the view asks for room for rows of
  /// `usual` pixels, as low ones if 0.
  void set_lowest_row(int height, int usual = 0);

  /// Where rows are high and the width allows, the type is larger.
  void grow_type() { grows_type_ = true; }

  /// What is copied and saved of the whole table is this instead.
  void keep_as(std::function<Table()> table) { kept_ = std::move(table); }

  void copy() const;
  /// Asks for a file and saves the table there.
  void save_csv();

  /// The least width at which every text of the columns shown is whole in type of the usual size, in pixels. Where
  /// there is less, the type is smaller.
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
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  void point_at(int row);
  bool sort_by_key(const QKeyEvent& event);
  int first_shown_column() const;
  /// The least width for the columns shown in this type.
  int width_in(TypeStep step);
  void write_in(TypeStep step);
  void fit_type();
  /// Its rows, heads and icons follow how large its page is drawn.
  void fit_enlargement();
  int rows_height(int row) const;
  int heads_width() const;
  void place_heads();

  TableModel* model_;
  RowSorter* order_;
  TableColumns* columns_ = nullptr;
  std::function<void(int)> opened_;
  std::function<Table()> kept_;
  bool opens_by_press_ = false;
  QLabel* heads_;                     // over the heads of the rows
  std::map<TypeStep, int> measured_;  // in each type, for the columns shown
  QList<bool> measured_for_;          // these
  bool grows_type_ = false;
  int row_to_press_ = -1;
  int opened_column_ = 0;
  int lowest_row_;
  int usual_row_ = 0;  // of tables whose rows grow
  int highest_row_ = 0;
  int growing_rows_ = 1;
  double drawn_ = 1;  // how many times as large as usual
};

/// Offers the figures of a widget that is no table view as a table: Ctrl+C copies it, Ctrl+E saves it as CSV; the
/// context menu offers the same. `table` is asked each time; one without rows is not offered.
void offer_table(QWidget& widget, const std::function<Table()>& table);

/// Asks for a file, over `window`, and saves the table there as CSV. A failure is a message with its cause.
void save_table(const Table& table, QWidget* window);

/// Writes a CSV file whole, in place of what was there. Raises run_time_error (file), with the old file whole then.
void write_csv(const QString& path, const Table& table);
/// The same for other contents.
void write_whole(const QString& path, const QByteArray& contents);

}  // namespace velorin
