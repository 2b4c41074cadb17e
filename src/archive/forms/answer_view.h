// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <functional>
#include <string>

#include "archive/archive_place.h"
#include "archive/question.h"
#include "database/configuration.h"

class QLabel;

namespace velorin {

class archive_file;
class BackWork;
class TableView;

/// Asks the archive behind the window and shows the answer as a table, in which every name leads on. An answer that
/// comes after something else has been asked is dropped.
class AnswerView : public QWidget {
  Q_OBJECT

 public:
  /// Finds the answer out, in a thread of its own. May raise question_error and run_time_error.
  using Find = std::function<answer(const archive_file&)>;

  explicit AnswerView(const database_files& files, QWidget* parent = nullptr);

  /// `asked`: what the columns shown depend on; `find` answers it. The table is called `name`.
  void look_up(const QString& name, const question& asked, Find find);
  /// What a press on a cell leads to.
  void on_link(std::function<void(const archive_subject&)> follow);
  /// The row, the column and the place to which one has scrolled, for the next answer to stand at.
  void stand_at(const archive_place& place);
  void keep_in(archive_place& place) const;

  bool is_waiting() const;
  /// The answer shown; without columns where there is none.
  const answer& told() const { return told_; }
  const question& asked() const { return asked_; }
  TableView& table() const { return *table_; }

 signals:
  /// An answer, or why there is none, is shown.
  void answered();

 private:
  enum class found { answer, no_matches, fault };

  void show_answer(const answer& told);
  void show_fault(found what, const std::string& why);
  void restore();

  database_files files_;
  BackWork* work_;
  QLabel* state_;
  TableView* table_;
  std::function<void(const archive_subject&)> follow_;
  QString name_;
  question asked_;
  answer told_;
  std::vector<int> columns_;
  archive_place wanted_;
};

}  // namespace velorin
