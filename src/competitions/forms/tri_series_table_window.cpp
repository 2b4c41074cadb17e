// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/forms/tri_series_table_window.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "competitions/forms/league_view.h"
#include "competitions/tri_series.h"
#include "desktop/controls.h"
#include "desktop/shown_text.h"
#include "desktop/table_view.h"

namespace velorin {

namespace {

Table matches_table(const PlayedMatches& played) {
  Table table;
  table.name = QStringLiteral("Matches played");
  table.columns = {{.heading = QStringLiteral("No."), .numbers = true},
                   {.heading = QStringLiteral("Match")},
                   {.heading = QStringLiteral("Ground"), .stretches = true},
                   {.heading = QStringLiteral("Result")}};
  for (const PlayedMatch& match : played.all) {
    table.rows.push_back({.cells = {{.text = QString::number(match.number)},
                                    {.text = match.sides},
                                    {.text = match.ground},
                                    {.text = match.result}},
                          .id = match.number});
  }
  return table;
}

}  // namespace

TriSeriesTableWindow::TriSeriesTableWindow(tri_series_table_form& form, QWidget* parent)
    : Form(QStringLiteral("triserresult"), Dismissal::closes, parent), form_(form) {
  set_title(shown(form_.title), shown(form_.heading));
  auto* table = new_league_view(QStringLiteral("table"), shown(form_.heading), form_.rows, tri_headings, 3);
  table->setMinimumWidth(560);
  rows_ = new_column(body(), 1000);
  rows_->addWidget(table, 1);
  rows_->addSpacing(8);
  rows_->addWidget(new_named_label(QStringLiteral("final_line"), shown(form_.final_line), TextRole::strong));
  rows_->addWidget(new_named_label(QStringLiteral("final_result"), shown(form_.final_result), TextRole::accent));
  // Filled once it is known, in its place from the beginning.
  auto* chances = new_named_label(QStringLiteral("chances_line"), {}, TextRole::muted);
  chances->setWordWrap(true);
  chances->setMinimumHeight(chances->fontMetrics().height());
  rows_->addWidget(chances);
  rows_->addStretch();
  const auto close = [this] {
    form_.accept();
    if (form_.closed) accept();
  };
  add_default_button(QStringLiteral("accept"), {.caption = QStringLiteral("OK"), .mnemonic = u'O'}, close)->setFocus();
  on_dismiss(close);
}

void TriSeriesTableWindow::lead_to(const PlayedMatches& played) {
  if (played.all.empty()) return;
  auto* matches = new TableView(QStringLiteral("matches"));
  matches->set_table(matches_table(played));
  matches->on_open(played.open, TableView::Opens::press);
  constexpr int six_rows = 208;  // pixels, with the headings
  matches->setMinimumSize(560, std::min(matches->sizeHint().height(), six_rows));
  const int last = rows_->count() - 1;  // before what stretches
  rows_->insertSpacing(last, 8);
  rows_->insertWidget(last + 1, new_named_label(QStringLiteral("leads_on"), QLatin1String(leads_on), TextRole::muted));
  rows_->insertWidget(last + 2, matches, 2);
  setTabOrder(findChild<TableView*>(QStringLiteral("table")), matches);
}

}  // namespace velorin
