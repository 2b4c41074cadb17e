// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSortFilterProxyModel>

namespace velorin {

/// The rows of a table in the order in which its user wants them: numbers by value and before texts, texts as the
/// language has them, empty cells last in either direction, equal ones in the order told. The heading of the column
/// says how it is sorted.
class RowSorter : public QSortFilterProxyModel {
  Q_OBJECT

 public:
  explicit RowSorter(QObject* parent = nullptr);

  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 protected:
  bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;
};

}  // namespace velorin
