// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/forms/sri_result_window.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "competitions/series1.h"
#include "desktop/controls.h"
#include "desktop/shown_text.h"
#include "desktop/table_view.h"

namespace velorin {

namespace {

Table results_table(const sri_result& form) {
  Table table;
  table.name = shown(form.label4_1);
  table.columns = {{.heading = QStringLiteral("Match"), .stretches = true}, {.heading = QStringLiteral("Result")}};
  for (const sri_result::row& row : form.rows) {
    table.rows.push_back({.cells = {{.text = shown(row.label1)}, {.text = shown(row.label2)}}});
  }
  return table;
}

}  // namespace

SriResultWindow::SriResultWindow(sri_result& form, QWidget* parent)
    : Form(QStringLiteral("sri_result"), Dismissal::closes, parent), form_(form) {
  set_title(shown(form_.label4_1), shown(form_.label4_1));
  show_picture();
  name_heading(QStringLiteral("Label4_1"));
  auto* results = new TableView(QStringLiteral("results"));
  results->set_table(results_table(form_));
  results->setMinimumWidth(std::clamp(results->sizeHint().width(), 560, 960));
  results->show_all_rows();
  results->grow_rows(40, static_cast<int>(form_.rows.size()));
  auto* rows = new_column(body(), 1000);
  rows->addWidget(results, 1);
  rows->addSpacing(8);
  rows->addWidget(new_named_label(QStringLiteral("Label4_0"), shown(form_.label4_0), TextRole::heading));
  rows->addStretch();
  const auto close = [this] {
    form_.command1_click();
    if (form_.closed) accept();
  };
  add_default_button(QStringLiteral("Command1"), {.caption = QStringLiteral("OK"), .mnemonic = u'O'}, close)
      ->setFocus();
  on_dismiss(close);
}

}  // namespace velorin
