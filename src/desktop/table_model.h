// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractTableModel>
#include <QFont>
#include <QWidget>
#include <vector>

#include "desktop/table.h"
#include "desktop/theme.h"

namespace velorin {

/// What one can do with the heading of a table that can be sorted.
inline constexpr const char* header_hint = "A press sorts, the third one as told (Alt+Up, Alt+Down). Columns: Ctrl+H";

/// Whether a control lies over the cell and tells its text.
inline constexpr int covered_role = Qt::UserRole + 1;

/// A plain table for a view. Figures of a column are shown with as many decimals as the one that has most of them; what
/// is copied stays as it is. Qt::UserRole gives what a column is sorted by: a number where the text begins with one.
class TableModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  /// `view`: whose enlargement its texts have; without one they have the usual size.
  explicit TableModel(QWidget* view = nullptr) : QAbstractTableModel(view) {}

  void set_table(Table table);
  const Table& table() const { return table_; }
  /// Another text for a cell; in a column of figures it has as many decimals as the others.
  void set_text(int row, int column, const QString& text);
  /// Small, body or heading: how large the cells are written. Views have to be told of it.
  void write_in(TypeStep step) { step_ = step; }
  TypeStep written_in() const { return step_; }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  QFont cell_font(bool strong) const;
  /// The text as shown.
  QString shown_text(int row, int column) const;

  Table table_;
  std::vector<int> decimals_;  // of each column; 0 where it holds no such figures
  TypeStep step_ = TypeStep::body;
};

}  // namespace velorin
