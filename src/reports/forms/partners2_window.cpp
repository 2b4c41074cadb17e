// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/forms/partners2_window.h"

#include "reports/forms/report_parts.h"
#include "reports/partnerships.h"

namespace velorin {

Partners2Window::Partners2Window(const partners2& form, QWidget* parent)
    : Form(QStringLiteral("partners2"), Dismissal::closes, parent) {
  const QString title = QStringLiteral("1st Innings Partnerships");
  lay_out_table(*this, title, QStringLiteral("stands"), stands_table(form, title));
}

}  // namespace velorin
