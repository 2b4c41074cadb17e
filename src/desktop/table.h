// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <vector>

// A table as plain data: what a view shows, copies and exports.

namespace velorin {

/// How a cell is written. Never the only bearer of a meaning.
enum class CellLook { normal, muted, strong, red, blue, dark_blue };

struct TableCell {
  QString text;
  CellLook look = CellLook::normal;
  QString kept = {};  ///< what a file gets, where that is another text
};

struct TableColumn {
  QString heading;
  bool numbers = false;    ///< aligned to the right
  QString spoken = {};     ///< what screen readers call it, where the heading is empty
  bool stretches = false;  ///< takes what width is left; without any such column the first one that is no number does
  bool teams = false;      ///< its cells name teams, whose crests stand before them
  int covered = 0;         ///< controls lie over its cells, so many pixels wider than the texts; it is never hidden
};

struct TableRow {
  std::vector<TableCell> cells;  ///< one for each column
  bool marked = false;           ///< stands out, also by a sign at its head for those who see no colour
  int id = 0;                    ///< the owner's own
  bool opens = true;             ///< leads on, where the rows of its table do
  bool covered = false;          ///< a control lies over its first cell, where that column is covered
  QString head = {};             ///< stands before the first column, in no file and no copy: the row's place
};

/// Whose the order of the rows is: the window's alone; told, which its user may change until the table opens again; or
/// free, and kept as its user left it.
enum class RowOrder { fixed, told, free };

struct Table {
  QString name;  ///< for screen readers and for exported files
  std::vector<TableColumn> columns;
  std::vector<TableRow> rows;
  RowOrder order = RowOrder::told;
  QString heads = {};  ///< what the heads of the rows are, shown over them
};

/// The table, or the rows `chosen` of it, as lines of cells parted by tabs, headings first.
QString table_text(const Table& table, const std::vector<int>& chosen = {});
/// The table as CSV: RFC 4180, headings first, CR LF line ends.
QString table_csv(const Table& table);

}  // namespace velorin
