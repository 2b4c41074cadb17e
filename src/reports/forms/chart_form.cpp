// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/forms/chart_form.h"

#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "reports/forms/report_parts.h"

namespace velorin {

namespace {

/// As large as the chart: a long table scrolls.
class Pages : public QStackedWidget {
 public:
  QSize sizeHint() const override { return count() > 0 ? widget(0)->sizeHint() : QStackedWidget::sizeHint(); }
};

}  // namespace

ChartForm::ChartForm(const QString& name, QWidget* parent) : Form(name, Dismissal::closes, parent) {
  stand_as(Place::beside);
}

bool ChartForm::shows_table() const { return pages_->currentIndex() == 1; }

void ChartForm::set_pages(QWidget* chart, QWidget* table) {
  pages_ = new Pages;
  pages_->addWidget(chart);
  pages_->addWidget(table);
  body()->addWidget(pages_, 1);
  auto* toggle = new QPushButton;
  toggle->setObjectName(QStringLiteral("show_as_table"));
  toggle->setAutoDefault(false);
  toggle->setCheckable(true);
  name_act(*toggle, {.caption = QStringLiteral("Show as Table"),
                     .mnemonic = u'T',
                     .hint = QStringLiteral("The figures of the chart as a table")});
  connect(toggle, &QPushButton::toggled, this, [this](bool on) {
    pages_->setCurrentIndex(on ? 1 : 0);
    pages_->currentWidget()->setFocus();
  });
  add_aside(toggle);
  add_ok(*this);
  chart->setFocus();
}

}  // namespace velorin
