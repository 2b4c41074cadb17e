// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/forms/league_view.h"

#include <QHeaderView>
#include <algorithm>

#include "desktop/shown_text.h"
#include "desktop/table_view.h"

namespace velorin {

namespace {
constexpr int highest_row = 40;  // pixels
}  // namespace

TableView* new_league_view(const QString& name, const QString& title, std::span<const league_texts> rows,
                           const league_headings& headings, int room, const std::vector<bool>& human) {
  const bool any_human = std::find(human.begin(), human.end(), true) != human.end();
  Table table;
  table.name = title;
  table.columns.push_back({.heading = QStringLiteral("Team"), .stretches = true, .teams = true});
  if (any_human) table.columns.push_back({.heading = {}, .spoken = QStringLiteral("Captain")});
  for (const char* heading : {"Played", "Won", "Lost", "Tied", headings.points, headings.rate}) {
    table.columns.push_back({.heading = QString::fromLatin1(heading), .numbers = true});
  }
  for (std::size_t place = 0; place < rows.size(); ++place) {
    TableRow row;
    for (const std::string& text : rows[place]) row.cells.push_back({.text = shown(text)});
    if (any_human) {
      const QString captain = human[place] ? QStringLiteral("Human") : QString();
      row.cells.insert(row.cells.begin() + 1, {.text = captain, .look = CellLook::muted});
    }
    table.rows.push_back(std::move(row));
  }
  auto* view = new TableView(name);
  view->set_table(std::move(table));
  view->show_all_rows();
  const int missing = room - std::max(1, static_cast<int>(rows.size()));
  view->setMinimumHeight(view->minimumHeight() + missing * view->verticalHeader()->defaultSectionSize());
  view->grow_rows(highest_row, room);
  view->setMinimumWidth(any_human ? 440 : 400);
  return view;
}

}  // namespace velorin
