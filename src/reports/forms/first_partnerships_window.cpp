// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/forms/first_partnerships_window.h"

#include "reports/forms/report_parts.h"
#include "reports/forms/stand_bars.h"
#include "reports/partnerships.h"

namespace velorin {

FirstPartnershipsWindow::FirstPartnershipsWindow(const first_partnerships_form& form, QWidget* parent)
    : Form(QStringLiteral("partners2"), Dismissal::closes, parent) {
  stand_as(Place::beside);
  const QString title = QStringLiteral("1st Innings Partnerships");
  lay_out_table(*this, title, QStringLiteral("stands"), stands_table(form, title), new StandBars(form.shares));
}

}  // namespace velorin
