// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/forms/series_results_window.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "competitions/series.h"
#include "desktop/controls.h"
#include "desktop/shown_text.h"
#include "desktop/table_view.h"

namespace velorin {

namespace {

Table results_table(const series_results_form& form) {
  Table table;
  table.name = shown(form.heading);
  table.columns = {{.heading = QStringLiteral("Match"), .stretches = true}, {.heading = QStringLiteral("Result")}};
  for (const series_results_form::row& row : form.rows) {
    table.rows.push_back({.cells = {{.text = shown(row.match_and_ground)}, {.text = shown(row.result)}}});
  }
  return table;
}

}  // namespace

SeriesResultsWindow::SeriesResultsWindow(series_results_form& form, QWidget* parent)
    : Form(QStringLiteral("sri_result"), Dismissal::closes, parent), form_(form) {
  set_title(shown(form_.heading), shown(form_.heading));
  show_picture();
  auto* results = new TableView(QStringLiteral("results"));
  results->set_table(results_table(form_));
  results->setMinimumWidth(std::clamp(results->sizeHint().width(), 560, 960));
  results->show_all_rows();
  results->grow_rows(40, static_cast<int>(form_.rows.size()));
  auto* rows = new_column(body(), 1000);
  rows->addWidget(results, 1);
  rows->addSpacing(8);
  rows->addWidget(new_named_label(QStringLiteral("standing_line"), shown(form_.standing_line), TextRole::heading));
  rows->addStretch();
  const auto close = [this] {
    form_.accept();
    if (form_.closed) accept();
  };
  add_default_button(QStringLiteral("accept"), {.caption = QStringLiteral("OK"), .mnemonic = u'O'}, close)->setFocus();
  on_dismiss(close);
}

}  // namespace velorin
