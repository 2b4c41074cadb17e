// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractTableModel>
#include <QWidget>

#include "desktop/table.h"

namespace velorin {

/// What one can do with the heading of a table that can be sorted.
inline constexpr const char* header_hint = "A press sorts, the third one as told (Alt+Up, Alt+Down). Columns: Ctrl+H";

/// A plain table for a view. Qt::UserRole gives what a column is sorted by: a number where the text begins with one.
class TableModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  /// `view`: whose enlargement its texts have.
  explicit TableModel(QWidget* view) : QAbstractTableModel(view) {}

  void set_table(Table table);
  const Table& table() const { return table_; }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  Table table_;
};

}  // namespace velorin
