// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/forms/overs_graph_window.h"

#include <QHBoxLayout>
#include <QLabel>

#include "desktop/controls.h"
#include "desktop/shown_text.h"
#include "desktop/table_view.h"
#include "reports/forms/over_bars_view.h"
#include "reports/overs_graph.h"

namespace velorin {

namespace {

Table overs_table(const overs_graph_form& form, int half) {
  Table table{.name = shown(form.captions[static_cast<std::size_t>(half)]), .columns = {}, .rows = {}};
  table.columns = {{.heading = QStringLiteral("Over"), .numbers = true},
                   {.heading = QStringLiteral("Runs"), .numbers = true},
                   {.heading = QStringLiteral("Wickets")}};
  for (int over = 1; over <= form.overs[static_cast<std::size_t>(half)]; ++over) {
    const OverFigures figures = over_figures(form, half, over);
    table.rows.push_back({{{QString::number(over)},
                           {QString::number(figures.runs)},
                           {figures.wicket ? QStringLiteral("W") : QString()}}});
  }
  return table;
}

QWidget* new_tables(const overs_graph_form& form) {
  auto* page = new QWidget;
  auto* row = new QHBoxLayout(page);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(16);
  for (const int half : {0, 1}) {
    auto* side = new QVBoxLayout;
    const Table table = overs_table(form, half);
    side->addWidget(new_named_label(QStringLiteral("side_%1").arg(half), table.name, TextRole::heading));
    auto* view = new TableView(QStringLiteral("overs_%1").arg(half));
    view->set_table(table);
    side->addWidget(view, 1);
    row->addLayout(side, 1);
    if (half == 0) page->setFocusProxy(view);
  }
  return page;
}

}  // namespace

OversGraphWindow::OversGraphWindow(const overs_graph_form& form, QWidget* parent)
    : ChartForm(QStringLiteral("graphs"), parent) {
  const QString title = QStringLiteral("Runs Per Over Graph");
  set_title(title, title);
  set_pages(new OverBarsView(form), new_tables(form));
}

}  // namespace velorin
