// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reports/forms/centre_page.h"
#include "reports/forms/course_picture.h"

namespace velorin {

/// A picture of the innings with its figures over by over below it.
class CoursePage : public CentrePage {
  Q_OBJECT

 public:
  CoursePage(const QString& name, CoursePicture::Kind kind, QWidget* parent = nullptr);

  void show_innings(const match_story& match, std::size_t innings) override;
  void mark_over(int over) override;
  std::vector<Table> tables() const override { return figures_->tables(); }
  bool save_picture(const QString& path) const override { return picture_->save(path); }

 private:
  CoursePicture* picture_;
  TablesPage* figures_;
};

}  // namespace velorin
