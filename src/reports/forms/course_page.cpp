// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/forms/course_page.h"

#include <QVBoxLayout>

namespace velorin {

CoursePage::CoursePage(const QString& name, CoursePicture::Kind kind, QWidget* parent)
    : CentrePage(name, parent),
      picture_(new CoursePicture(name + QStringLiteral("_picture"), kind)),
      figures_(new TablesPage(name + QStringLiteral("_page"), {{name + QStringLiteral("_figures"),
                                                                [](const match_story&, const innings_story& innings) {
                                                                  return overs_story(innings);
                                                                }}})) {
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(8);
  rows->addWidget(picture_, 3);
  rows->addWidget(figures_, 2);
  connect(picture_, &CoursePicture::over_picked, this, &CentrePage::over_picked);
  connect(figures_, &CentrePage::over_picked, this, &CentrePage::over_picked);
}

void CoursePage::show_innings(const match_story& match, std::size_t innings) {
  picture_->show_innings(match, innings);
  figures_->show_innings(match, innings);
  setAccessibleDescription(picture_->accessibleDescription());
}

void CoursePage::mark_over(int over) {
  picture_->mark_over(over);
  figures_->mark_over(over);
}

}  // namespace velorin
