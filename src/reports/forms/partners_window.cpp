// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/forms/partners_window.h"

#include "reports/forms/report_parts.h"
#include "reports/partnerships.h"

namespace velorin {

PartnersWindow::PartnersWindow(const partners& form, QWidget* parent)
    : Form(QStringLiteral("partners"), Dismissal::closes, parent) {
  const QString title = QStringLiteral("Partnerships");
  lay_out_table(*this, title, QStringLiteral("stands"), stands_table(form, title));
}

}  // namespace velorin
