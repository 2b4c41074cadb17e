// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/forms/bowlcard2nd_window.h"

#include "desktop/shown_text.h"
#include "reports/bowling_figures.h"
#include "reports/forms/report_parts.h"

namespace velorin {

Bowlcard2ndWindow::Bowlcard2ndWindow(const bowlcard2nd& form, QWidget* parent)
    : Form(QStringLiteral("bowlcard2nd"), Dismissal::closes, parent) {
  lay_out_table(*this, shown(bowlcard2nd::title), QStringLiteral("bowlers"), bowling_table(form));
}

}  // namespace velorin
