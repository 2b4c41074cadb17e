// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/forms/bowlcard_window.h"

#include "desktop/shown_text.h"
#include "reports/bowling_figures.h"
#include "reports/forms/report_parts.h"

namespace velorin {

BowlcardWindow::BowlcardWindow(const bowlcard& form, QWidget* parent)
    : Form(QStringLiteral("Bowlcard"), Dismissal::closes, parent) {
  lay_out_table(*this, shown(bowlcard::title), QStringLiteral("bowlers"), bowling_table(form));
}

}  // namespace velorin
