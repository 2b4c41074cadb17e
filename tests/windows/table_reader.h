// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <QString>

#include "desktop/table_view.h"

namespace velorin::testing {

/// The text of the row with this id under a heading, or under what is spoken for one that is empty.
inline QString cell_text(const TableView& view, int id, const QString& heading) {
  const Table& table = view.table();
  for (const TableRow& row : table.rows) {
    if (row.id != id) continue;
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
      const TableColumn& column = table.columns[i];
      if ((column.heading.isEmpty() ? column.spoken : column.heading).trimmed() == heading) return row.cells[i].text;
    }
  }
  ADD_FAILURE() << "no cell under " << heading.toStdString() << " in row " << id;
  return {};
}

/// The headings as they are told.
inline QStringList headings_of(const TableView& view) {
  QStringList headings;
  for (const TableColumn& column : view.table().columns) headings << column.heading;
  return headings;
}

/// The place of the row with this id in the order shown, from 0; -1 for none.
inline int shown_place(const TableView& view, int id) {
  const Table shown = view.shown_table();
  for (std::size_t i = 0; i < shown.rows.size(); ++i) {
    if (shown.rows[i].id == id) return static_cast<int>(i);
  }
  return -1;
}

}  // namespace velorin::testing
