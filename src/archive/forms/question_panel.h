// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFrame>
#include <array>

#include "archive/question.h"

class QComboBox;
class QGridLayout;
class QLineEdit;

namespace velorin {

/// The parts of a question, to be chosen: what the rows are, by what they are summed, four conditions, by what they are
/// sorted, how many of them.
class QuestionPanel : public QFrame {
  Q_OBJECT

 public:
  explicit QuestionPanel(QWidget* parent = nullptr);

  /// Shows a question. What the panel has no place for is left out: fields to sum by beyond two, and conditions beyond
  /// four.
  void set_question(const question& asked);
  /// The question that stands in the panel.
  question asked() const;

 signals:
  /// The user has changed a part.
  void changed();

 private:
  struct ConditionRow {
    QComboBox* field;
    QComboBox* op;
    QLineEdit* value;
  };

  void add_source(QGridLayout& grid);
  void add_condition_row(QGridLayout& grid, int place);
  void add_order(QGridLayout& grid);
  QComboBox* new_choice(const QString& name, const QString& spoken);
  /// Offers what rows of this kind have, and keeps what is chosen where it is there still.
  void offer_fields();
  void offer_figures();
  /// So many rows at most; 0 for all.
  void offer_rows(long rows);
  void tell_change();

  QComboBox* from_;
  std::array<QComboBox*, 2> by_{};
  std::array<ConditionRow, 4> conditions_{};
  QComboBox* sort_;
  QComboBox* direction_;
  QComboBox* top_;
  bool showing_ = true;  // parts are being filled in
};

}  // namespace velorin
