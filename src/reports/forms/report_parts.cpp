// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/forms/report_parts.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

#include "desktop/form.h"
#include "desktop/program_end.h"
#include "desktop/shown_text.h"
#include "desktop/table_view.h"
#include "model/rules.h"
#include "reports/bowling_figures.h"
#include "reports/partnerships.h"

namespace velorin {

namespace {

/// A name in a cell; files keep a doubled ampersand.
TableCell name_cell(const std::string& text) {
  return {.text = shown_caption(text), .look = CellLook::normal, .kept = shown(text)};
}

}  // namespace

QPushButton* new_report_button(const QString& name, const Act& act, std::function<void()> pressed) {
  auto* button = new QPushButton;
  button->setObjectName(name);
  button->setAutoDefault(false);
  name_act(*button, act);
  QObject::connect(button, &QPushButton::clicked, button, [pressed = std::move(pressed)] { guarded(pressed); });
  return button;
}

void add_ok(Form& form) {
  form.add_default_button(QStringLiteral("accept"),
                          {.caption = QStringLiteral("OK"), .mnemonic = u'O', .hint = QStringLiteral("Close")},
                          [&form] { form.accept(); });
}

void name_head(Form& form, const QString& heading, const QString& subheading) {
  form.name_heading(heading);
  auto* quiet = form.findChild<QLabel*>(QStringLiteral("subheading"));
  quiet->setProperty("role", QStringLiteral("subheading"));
  quiet->setObjectName(subheading);
}

QVBoxLayout* new_column(Form& form, int widest) {
  auto* column = new QWidget;
  column->setMaximumWidth(widest);
  auto* rows = new QVBoxLayout(column);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(8);
  auto* middle = new QHBoxLayout;
  middle->addStretch(0);
  middle->addWidget(column, 1);
  middle->addStretch(0);
  form.body()->addLayout(middle, 1);
  return rows;
}

Table bowling_table(const bowling_screen& screen) {
  Table table{.name = shown(bowling_screen::title), .columns = {}, .rows = {}, .order = RowOrder::free};
  table.columns.push_back({.heading = {}, .spoken = QStringLiteral("Bowler")});
  for (const std::string_view heading : bowling_screen::headings) {
    table.columns.push_back({.heading = shown(heading), .numbers = true});
  }
  for (std::size_t i = 1; i <= men_in_eleven; ++i) {
    table.rows.push_back({{name_cell(screen.names[i]),
                           {shown(screen.overs[i])},
                           {shown(screen.maidens[i])},
                           {shown(screen.runs[i])},
                           {shown(screen.wickets[i])},
                           {shown(screen.economy_rates[i])}}});
  }
  return table;
}

Table stands_table(const partnership_screen& screen, const QString& name) {
  Table table{.name = name, .columns = {}, .rows = {}};
  for (const std::string_view heading : partnership_screen::headings) {
    table.columns.push_back({.heading = shown(heading), .numbers = !table.columns.empty()});
  }
  for (const partnership_row& row : screen.rows) {
    if (!row.visible) continue;
    table.rows.push_back({{name_cell(row.batsmen),
                           {shown(row.partnership)},
                           {shown(row.score)},
                           {shown(row.overs)},
                           {shown(row.wicket)}}});
  }
  return table;
}

void lay_out_table(Form& form, const QString& title, const QString& table_name, const Table& table, QWidget* under) {
  form.set_title(title, title);
  auto* view = new TableView(table_name);
  view->set_table(table);
  const int rows = std::max(1, static_cast<int>(table.rows.size()));
  constexpr int least_row = 28;
  constexpr int heading = 40;
  view->setMinimumSize(560, std::min(180, heading + rows * least_row));
  view->grow_rows(40, rows);
  QVBoxLayout* column = new_column(form, widest_table);
  column->addWidget(view, 1);
  if (under != nullptr) {
    column->addSpacing(8);
    column->addWidget(under);
  }
  column->addStretch();
  add_ok(form);
  view->setFocus();
}

}  // namespace velorin
