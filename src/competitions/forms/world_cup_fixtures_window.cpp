// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/forms/world_cup_fixtures_window.h"

#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

#include "competitions/forms/cup_progress.h"
#include "competitions/world_cup.h"
#include "competitions/world_cup_fixtures.h"
#include "desktop/controls.h"
#include "desktop/program_end.h"
#include "desktop/question.h"
#include "desktop/shown_text.h"
#include "desktop/table_view.h"

namespace velorin {

namespace {

const cup_fixture& fixture_at(const world_cup_record& world_cup, int place) {
  return world_cup.fixtures[static_cast<std::size_t>(place)];
}

bool any_human_side(const world_cup_record& world_cup, const world_cup_fixtures_form& form) {
  for (int place = 1; place <= form.fixtures; ++place) {
    const fixture_captains captains = captains_of(world_cup, fixture_at(world_cup, place));
    if (captains.human_a || captains.human_b) return true;
  }
  return false;
}

/// A row of the list; all of the next match is dark blue.
TableRow table_row(const world_cup_record& world_cup, const world_cup_fixtures_form::row& row, int place,
                   bool with_captains) {
  const fixture_captains captains =
      row.team_a.empty() ? fixture_captains() : captains_of(world_cup, fixture_at(world_cup, place));
  TableRow line;
  const auto add = [&](const std::string& text, CellLook look) {
    line.cells.push_back({.text = shown(text), .look = row.is_next ? CellLook::dark_blue : look});
  };
  add(row.match_number, CellLook::muted);
  add(row.team_a, CellLook::normal);
  if (with_captains) add(captains.human_a ? "Human" : "", CellLook::muted);
  add(row.versus, CellLook::muted);
  add(row.team_b, CellLook::normal);
  if (with_captains) add(captains.human_b ? "Human" : "", CellLook::muted);
  add(row.at, CellLook::muted);
  add(row.venue, CellLook::normal);
  add(row.result, CellLook::normal);
  line.marked = row.is_next;
  line.id = place;
  return line;
}

Table fixtures_table(const world_cup_record& world_cup, const world_cup_fixtures_form& form, bool with_captains) {
  Table table;
  table.name = QStringLiteral("World Cup Fixtures");
  table.order = RowOrder::told;
  table.columns.push_back({.heading = QStringLiteral("Match No.")});
  table.columns.push_back({.heading = QStringLiteral("Team A"), .teams = true});
  if (with_captains) table.columns.push_back({.heading = {}, .spoken = QStringLiteral("Captain of Team A")});
  table.columns.push_back({.heading = {}, .spoken = QStringLiteral("vs")});
  table.columns.push_back({.heading = QStringLiteral("Team B"), .teams = true});
  if (with_captains) table.columns.push_back({.heading = {}, .spoken = QStringLiteral("Captain of Team B")});
  table.columns.push_back({.heading = {}, .spoken = QStringLiteral("at")});
  table.columns.push_back({.heading = QStringLiteral("Venue"), .stretches = true});
  table.columns.push_back({.heading = QStringLiteral("Match Result")});
  for (int place = 1; place <= form.fixtures; ++place) {
    table.rows.push_back(table_row(world_cup, form.row_of(place), place, with_captains));
  }
  return table;
}

}  // namespace

WorldCupFixturesWindow::WorldCupFixturesWindow(const world_cup_record& world_cup, world_cup_fixtures_form& form,
                                               QWidget* parent)
    : Form(QStringLiteral("wc_fix"), Dismissal::refused, parent),
      form_(form),
      any_human_(any_human_side(world_cup, form)),
      list_(new TableView(QStringLiteral("fixtures"))),
      world_cup_(world_cup) {
  set_title(QStringLiteral("World Cup Fixtures"), QStringLiteral("World Cup Fixtures"));
  set_subheading(cup_progress(world_cup));
  rows_ = new_column(body(), 1400);
  rows_->addWidget(list_, 1);
  rows_->addStretch();
  list_->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
  QScrollBar* scroll = list_->verticalScrollBar();
  scroll->setObjectName(QStringLiteral("scroll"));
  connect(scroll, &QScrollBar::valueChanged, this, [this](int value) { form_.scroll_to(value + 1); });
  refresh();
  list_->setMinimumSize(560, 200);
  list_->grow_rows(48, std::max(cup_list_rows, form_.fixtures));

  add_button(QStringLiteral("quit"), {.caption = QStringLiteral("Quit World Cup"), .mnemonic = u'Q'}, [this] {
    if (!ask(*this, QStringLiteral("quit_question"), QStringLiteral("Quit World Cup"),
             QStringLiteral("End the World Cup? What is still to be played is lost."))) {
      return;
    }
    form_.quit();
    if (form_.closed) accept();
  });
  add_button(QStringLiteral("open_tables"), {.caption = QStringLiteral("World Cup Tables"), .mnemonic = u'T'},
             [this] { form_.open_tables(); });
  add_default_button(QStringLiteral("accept"), {.caption = QStringLiteral("Play Next Match"), .mnemonic = u'P'},
                     [this] {
                       form_.accept();
                       if (form_.closed) accept();
                     })
      ->setFocus();
}

void WorldCupFixturesWindow::refresh() {
  Table table = fixtures_table(world_cup_, form_, any_human_);
  for (TableRow& row : table.rows) row.opens = played_.has(row.id);
  list_->set_table(std::move(table));
  show_next();
}

/// The present row is that of the next match, in sight.
void WorldCupFixturesWindow::show_next() {
  const std::vector<TableRow>& rows = list_->table().rows;
  for (int row = 0; row < static_cast<int>(rows.size()); ++row) {
    if (!rows[static_cast<std::size_t>(list_->table_row(row))].marked) continue;
    const QModelIndex next = list_->model()->index(row, 0);
    list_->setCurrentIndex(next);
    list_->scrollTo(next);
  }
  list_->clearSelection();
}

void WorldCupFixturesWindow::showEvent(QShowEvent* event) {
  Form::showEvent(event);
  QTimer::singleShot(0, this, [this] { show_next(); });
}

void WorldCupFixturesWindow::lead_to(PlayedMatches played) {
  played_ = std::move(played);
  refresh();
  if (played_.all.empty()) return;
  list_->on_open(played_.open, TableView::Opens::press);
  rows_->insertWidget(1, new_named_label(QStringLiteral("leads_on"), QLatin1String(leads_on), TextRole::muted));
}

}  // namespace velorin
