// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/row_order.h"

namespace velorin {

RowSorter::RowSorter(QObject* parent) : QSortFilterProxyModel(parent) { setSortRole(Qt::UserRole); }

QVariant RowSorter::headerData(int section, Qt::Orientation orientation, int role) const {
  QVariant told = QSortFilterProxyModel::headerData(section, orientation, role);
  if (role != Qt::AccessibleTextRole || orientation != Qt::Horizontal || section != sortColumn()) return told;
  return QStringLiteral("%1, sorted %2")
      .arg(told.toString(),
           sortOrder() == Qt::AscendingOrder ? QStringLiteral("ascending") : QStringLiteral("descending"));
}

bool RowSorter::lessThan(const QModelIndex& left, const QModelIndex& right) const {
  const QVariant one = left.data(Qt::UserRole);
  const QVariant other = right.data(Qt::UserRole);
  const auto is_number = [](const QVariant& value) { return value.typeId() == QMetaType::Double; };
  const auto is_empty = [&](const QVariant& value) {
    return !is_number(value) && value.toString().trimmed().isEmpty();
  };
  if (is_empty(one) != is_empty(other)) return is_empty(sortOrder() == Qt::AscendingOrder ? other : one);
  if (is_number(one) != is_number(other)) return is_number(one);
  if (is_number(one)) return one.toDouble() < other.toDouble();
  return QString::localeAwareCompare(one.toString(), other.toString()) < 0;
}

}  // namespace velorin
