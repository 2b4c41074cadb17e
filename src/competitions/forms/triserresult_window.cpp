// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/forms/triserresult_window.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "competitions/forms/league_view.h"
#include "competitions/series2.h"
#include "desktop/controls.h"
#include "desktop/shown_text.h"
#include "desktop/table_view.h"

namespace velorin {

TriserresultWindow::TriserresultWindow(triserresult& form, QWidget* parent)
    : Form(QStringLiteral("triserresult"), Dismissal::closes, parent), form_(form) {
  set_title(shown(form_.title), shown(form_.label4_1));
  name_heading(QStringLiteral("Label4_1"));
  auto* table = new_league_view(QStringLiteral("table"), shown(form_.label4_1), form_.rows, tri_headings, 3);
  table->setMinimumWidth(560);
  auto* rows = new_column(body(), 1000);
  rows->addWidget(table, 1);
  rows->addSpacing(8);
  rows->addWidget(new_named_label(QStringLiteral("Label5_0"), shown(form_.label5_0), TextRole::strong));
  rows->addWidget(new_named_label(QStringLiteral("Label5_1"), shown(form_.label5_1), TextRole::accent));
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
