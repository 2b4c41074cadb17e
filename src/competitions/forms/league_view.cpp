// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/forms/league_view.h"

#include <QHeaderView>

#include "desktop/shown_text.h"
#include "desktop/table_view.h"

namespace velorin {

namespace {
constexpr int highest_row = 40;  // pixels
}  // namespace

TableView* new_league_view(const QString& name, const QString& title, std::span<const league_texts> rows,
                           const league_headings& headings, int room) {
  Table table;
  table.name = title;
  table.columns.push_back({.heading = QStringLiteral("Team"), .stretches = true});
  for (const char* heading : {"Played", "Won", "Lost", "Tied", headings.points, headings.rate}) {
    table.columns.push_back({.heading = QString::fromLatin1(heading), .numbers = true});
  }
  for (const league_texts& texts : rows) {
    TableRow row;
    for (const std::string& text : texts) row.cells.push_back({.text = shown(text)});
    table.rows.push_back(std::move(row));
  }
  auto* view = new TableView(name);
  view->set_table(std::move(table));
  view->show_all_rows();
  const int missing = room - std::max(1, static_cast<int>(rows.size()));
  view->setMinimumHeight(view->minimumHeight() + missing * view->verticalHeader()->defaultSectionSize());
  view->grow_rows(highest_row, room);
  view->setMinimumWidth(440);
  return view;
}

}  // namespace velorin
