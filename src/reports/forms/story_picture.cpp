// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/forms/story_picture.h"

#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <QSvgGenerator>
#include <algorithm>
#include <cstddef>

#include "desktop/theme.h"

namespace velorin {

namespace {

constexpr int row_height = 24;
constexpr int around = 16;      // pixels at the edges
constexpr int column_gap = 16;  // columns

std::vector<int> widths_of(const Table& table) {
  const QFontMetrics strong(type_font(TypeStep::strong));
  std::vector<int> widths;
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    int width = strong.horizontalAdvance(table.columns[i].heading);
    for (const TableRow& row : table.rows) width = std::max(width, strong.horizontalAdvance(row.cells[i].text));
    widths.push_back(width + column_gap);
  }
  return widths;
}

QSize size_of(const std::vector<Table>& tables) {
  int width = 240;
  int height = around;
  for (const Table& table : tables) {
    int wide = 0;
    for (const int column : widths_of(table)) wide += column;
    width = std::max({width, wide, QFontMetrics(type_font(TypeStep::heading)).horizontalAdvance(table.name)});
    height += (static_cast<int>(table.rows.size()) + 3) * row_height;
  }
  return {width + 2 * around, height};
}

void paint_row(QPainter& painter, const Table& table, const std::vector<int>& widths, int top, const TableRow* row) {
  int from = around;
  for (std::size_t i = 0; i < widths.size(); ++i) {
    const QRect cell(from, top, widths[i] - column_gap, row_height);
    const int side = table.columns[i].numbers ? Qt::AlignRight : Qt::AlignLeft;
    painter.drawText(cell, side | Qt::AlignVCenter, row == nullptr ? table.columns[i].heading : row->cells[i].text);
    from += widths[i];
  }
}

void paint_tables(QPainter& painter, const std::vector<Table>& tables, QSize size) {
  const Theme& t = theme();
  painter.fillRect(QRect(QPoint(), size), t.card);
  int top = around;
  for (const Table& table : tables) {
    const std::vector<int> widths = widths_of(table);
    painter.setPen(t.ink);
    painter.setFont(type_font(TypeStep::heading));
    painter.drawText(QRect(around, top, size.width(), row_height), Qt::AlignVCenter, table.name);
    top += row_height;
    painter.setPen(t.muted);
    painter.setFont(type_font(TypeStep::body));
    paint_row(painter, table, widths, top, nullptr);
    top += row_height;
    painter.setPen(t.line);
    painter.drawLine(around, top, size.width() - around, top);
    for (const TableRow& row : table.rows) {
      const bool strong = !row.cells.empty() && row.cells[0].look == CellLook::strong;
      painter.setPen(t.ink);
      painter.setFont(type_font(strong ? TypeStep::strong : TypeStep::body));
      paint_row(painter, table, widths, top, &row);
      top += row_height;
    }
    top += row_height;
  }
}

}  // namespace

bool save_story_picture(const QString& path, const QString& title, QSize size, const PaintStory& paint) {
  QPainter painter;
  if (path.endsWith(QLatin1String(".svg"), Qt::CaseInsensitive)) {
    QSvgGenerator file;
    file.setFileName(path);
    file.setSize(size);
    file.setViewBox(QRect(QPoint(), size));
    file.setTitle(title);
    if (!painter.begin(&file)) return false;
    paint(painter);
    return painter.end();
  }
  QImage picture(size * 2, QImage::Format_RGB32);
  picture.setDevicePixelRatio(2);
  picture.fill(theme().card);
  painter.begin(&picture);
  paint(painter);
  painter.end();
  return picture.save(path);
}

bool save_story_picture(const QString& path, const std::vector<Table>& tables) {
  const QSize size = size_of(tables);
  return save_story_picture(path, tables.empty() ? QString() : tables.front().name, size,
                            [&](QPainter& painter) { paint_tables(painter, tables, size); });
}

}  // namespace velorin
