// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/forms/centre_page.h"

#include <QLabel>
#include <QScrollArea>
#include <QVBoxLayout>
#include <utility>

#include "desktop/controls.h"
#include "desktop/shown_text.h"
#include "desktop/table_view.h"
#include "reports/forms/story_picture.h"

namespace velorin {

Table shown_story(const story_table& table) {
  Table to{.name = shown(table.name), .columns = {}, .rows = {}};
  to.order = RowOrder::told;
  for (const story_column& column : table.columns) {
    to.columns.push_back({.heading = shown(column.heading),
                          .numbers = column.numbers,
                          .spoken = shown(column.spoken),
                          .stretches = column.wide});
  }
  for (const story_row& row : table.rows) {
    TableRow line;
    for (const std::string& cell : row.cells) {
      line.cells.push_back(
          {.text = shown_caption(cell), .look = row.total ? CellLook::strong : CellLook::normal, .kept = shown(cell)});
    }
    line.id = static_cast<int>(to.rows.size());
    line.opens = row.first_over != 0;
    to.rows.push_back(std::move(line));
  }
  return to;
}

void choose_over(TableView& view, const story_table& table, int over) {
  view.clearSelection();
  const std::optional<int> row = over == 0 ? std::nullopt : row_of_over(table, over);
  if (!row) return;
  for (int at = 0; at < view.model()->rowCount(); ++at) {
    if (view.table_row(at) != *row) continue;
    view.selectRow(at);
    view.scrollTo(view.model()->index(at, 0), QAbstractItemView::PositionAtCenter);
  }
}

CentrePage::CentrePage(const QString& name, QWidget* parent) : QWidget(parent) { setObjectName(name); }

bool CentrePage::save_picture(const QString& path) const { return save_story_picture(path, tables()); }

TablesPage::TablesPage(const QString& name, const std::vector<std::pair<QString, Maker>>& tables, QWidget* parent)
    : CentrePage(name, parent), told_(new_named_label(name + QStringLiteral("_words"), {})) {
  auto* rows = new QVBoxLayout(tables.size() > 1 ? new_scrolled_page() : this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(8);
  told_->setWordWrap(true);
  told_->hide();
  rows->addWidget(told_);
  parts_.reserve(tables.size());
  for (const auto& [table, make] : tables) {
    auto* view = new TableView(table);
    parts_.push_back({view, make, {}});
    rows->addWidget(view, 1);
    view->on_open(
        [this, part = parts_.size() - 1](int row) {
          const int over = parts_[part].shown.rows[static_cast<std::size_t>(row)].first_over;
          if (over != 0) emit over_picked(over);
        },
        TableView::Opens::press);
  }
  if (tables.size() > 1) rows->addStretch(1);
}

QWidget* TablesPage::new_scrolled_page() {
  auto* around = new QVBoxLayout(this);
  around->setContentsMargins(0, 0, 0, 0);
  auto* area = new QScrollArea;
  area->setObjectName(objectName() + QStringLiteral("_area"));
  area->setFrameShape(QFrame::NoFrame);
  area->setFocusPolicy(Qt::NoFocus);
  area->setWidgetResizable(true);
  area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  auto* page = new QWidget;
  area->setWidget(page);
  around->addWidget(area);
  return page;
}

void TablesPage::tell(std::function<std::string(const innings_story& innings)> words) {
  words_ = std::move(words);
  told_->show();
}

void TablesPage::show_innings(const match_story& match, std::size_t innings) {
  const innings_story& chosen = match.innings[innings];
  if (words_) told_->setText(shown_caption(words_(chosen)));
  QString described = words_ ? told_->text() : QString();
  for (Part& part : parts_) {
    part.shown = part.make(match, chosen);
    part.view->set_table(shown_story(part.shown));
    if (parts_.size() > 1) {
      part.view->show_all_rows();
      part.view->setMaximumHeight(part.view->minimumHeight());
    }
    const QString words = shown_caption(words_of(part.shown));
    part.view->setAccessibleDescription(words);
    described += (described.isEmpty() ? QString() : QStringLiteral(" ")) + words;
  }
  setAccessibleDescription(described);
}

void TablesPage::mark_over(int over) {
  for (Part& part : parts_) choose_over(*part.view, part.shown, over);
}

std::vector<Table> TablesPage::tables() const {
  std::vector<Table> all;
  for (const Part& part : parts_) all.push_back(part.view->shown_table());
  return all;
}

}  // namespace velorin
