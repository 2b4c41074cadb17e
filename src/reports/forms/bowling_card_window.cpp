// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/forms/bowling_card_window.h"

#include "desktop/shown_text.h"
#include "reports/bowling_figures.h"
#include "reports/forms/report_parts.h"

namespace velorin {

BowlingCardWindow::BowlingCardWindow(const bowling_card_form& form, QWidget* parent)
    : Form(QStringLiteral("Bowlcard"), Dismissal::closes, parent) {
  stand_as(Place::beside);
  lay_out_table(*this, shown(bowling_card_form::title), QStringLiteral("bowlers"), bowling_table(form));
}

}  // namespace velorin
