// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "archive/archive_pages.h"
#include "archive/forms/archive_form.h"
#include "database/configuration.h"

class QComboBox;
class QLabel;
class QListWidget;
class QPushButton;

namespace velorin {

class AnswerView;
class LineChartView;

/// The page of a man, a team, a ground, a match or two of a kind: its sections at the left, or above where there is no
/// room, and the chosen one beside them, with a chart where it has one.
class ArchivePageWindow : public ArchiveForm {
  Q_OBJECT

 public:
  ArchivePageWindow(const database_files& files, archive_history& history, QWidget* parent = front_window());

 protected:
  void keep(archive_place& here) const override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  QWidget* new_sections();
  QWidget* new_drop_down();
  void add_buttons();
  void show_crest();
  void choose(int section);
  void show_chart();
  const page_section& shown_section() const;
  bool can_stand_beside() const;

  archive_page page_;
  int section_ = 0;
  QListWidget* list_ = nullptr;
  QComboBox* drop_down_ = nullptr;
  QWidget* above_ = nullptr;
  QLabel* title_ = nullptr;
  AnswerView* answer_ = nullptr;
  LineChartView* chart_ = nullptr;
  QPushButton* beside_ = nullptr;
};

}  // namespace velorin
