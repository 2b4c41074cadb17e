// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reports/forms/centre_page.h"

class QComboBox;
class QLabel;
class QLineEdit;

namespace velorin {

/// The commentary of an innings, searched and filtered.
class ToldPage : public CentrePage {
  Q_OBJECT

 public:
  explicit ToldPage(const QString& name, QWidget* parent = nullptr);

  void show_innings(const match_story& match, std::size_t innings) override;
  void mark_over(int over) override;
  std::vector<Table> tables() const override;

 private:
  /// Lists the lines that are wanted.
  void list();

  const innings_story* innings_ = nullptr;
  story_table shown_;  // what the view has
  QLineEdit* words_;
  QComboBox* kind_;
  QComboBox* man_;
  QLabel* count_;
  TableView* lines_;
};

}  // namespace velorin
