// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "archive/classic_questions.h"
#include "archive/forms/archive_form.h"
#include "database/configuration.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTimer;

namespace velorin {

class AnswerView;
class QuestionPanel;

/// The record book: a question to the archive, put together from parts, told as a sentence and answered as one changes
/// it. The classic questions and those that the user has kept stand at the left, or above where there is no room.
class RecordBookWindow : public ArchiveForm {
  Q_OBJECT

 public:
  RecordBookWindow(const database_files& files, archive_history& history, QWidget* parent = front_window());

 protected:
  void keep(archive_place& here) const override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  struct Offered {
    QString title;
    question asked;
    bool kept = false;  ///< by the user
  };

  QWidget* new_list();
  QWidget* new_drop_down();
  void add_buttons();
  /// Lists the questions on offer, and chooses the one of this title.
  void offer_questions();
  void choose(int offered);
  void show_chosen();
  void ask();
  void keep_question();
  void forget_question();
  /// Asks for a file of this ending and writes the answer there.
  void save(const QString& ending);

  std::vector<Offered> offered_;
  QString title_;  ///< of the question shown; "" for one that is none of those on offer
  QListWidget* list_ = nullptr;
  QComboBox* drop_down_ = nullptr;
  QWidget* above_ = nullptr;
  QuestionPanel* panel_;
  QLabel* sentence_;
  AnswerView* answer_;
  QLineEdit* name_;
  QTimer* soon_;
  QPushButton* keep_ = nullptr;
  QPushButton* forget_ = nullptr;
  std::vector<QPushButton*> savers_;
  bool showing_ = false;
};

}  // namespace velorin
