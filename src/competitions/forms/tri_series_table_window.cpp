// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/forms/tri_series_table_window.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "competitions/forms/league_view.h"
#include "competitions/tri_series.h"
#include "desktop/controls.h"
#include "desktop/shown_text.h"
#include "desktop/table_view.h"

namespace velorin {

TriSeriesTableWindow::TriSeriesTableWindow(tri_series_table_form& form, QWidget* parent)
    : Form(QStringLiteral("triserresult"), Dismissal::closes, parent), form_(form) {
  set_title(shown(form_.title), shown(form_.heading));
  auto* table = new_league_view(QStringLiteral("table"), shown(form_.heading), form_.rows, tri_headings, 3);
  table->setMinimumWidth(560);
  auto* rows = new_column(body(), 1000);
  rows->addWidget(table, 1);
  rows->addSpacing(8);
  rows->addWidget(new_named_label(QStringLiteral("final_line"), shown(form_.final_line), TextRole::strong));
  rows->addWidget(new_named_label(QStringLiteral("final_result"), shown(form_.final_result), TextRole::accent));
  rows->addStretch();
  const auto close = [this] {
    form_.accept();
    if (form_.closed) accept();
  };
  add_default_button(QStringLiteral("accept"), {.caption = QStringLiteral("OK"), .mnemonic = u'O'}, close)->setFocus();
  on_dismiss(close);
}

}  // namespace velorin
