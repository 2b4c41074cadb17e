// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFrame>
#include <array>

#include "model/match_records.h"
#include "model/match_set_up.h"
#include "setup/forms/quick_choices.h"
#include "setup/quick_plan.h"
#include "ui/match_play.h"

class QComboBox;
class QGridLayout;
class QLabel;

namespace velorin {

/// Shows what the computer answers of the set-up of a match, each answer to be changed: the conditions, both elevens by
/// name, the toss, and who opens for the sides that a user captains. What is not ticked is asked.
class QuickAnswersCard : public QFrame {
  Q_OBJECT

 public:
  /// Draws the conditions from a copy of the match's chance. What `play` speaks of outlives it.
  explicit QuickAnswersCard(const match_play& play, QWidget* parent = nullptr);

  /// Shows the answers for these sides on this ground. `humans`: whether a user captains each of them.
  void show_match(const std::array<chosen_team, 2>& teams, const std::string& ground, std::array<bool, 2> humans);
  QuickChoices choices() const;
  /// Its controls, in the order of the tab key.
  const QList<QWidget*>& controls() const { return controls_; }

 private:
  struct Answer;
  /// The openers of a side.
  struct Openers {
    QWidget* row = nullptr;
    QLabel* side = nullptr;
    std::array<QComboBox*, 4> men{};  // two batsmen, two bowlers
    std::array<int, 4> chosen{};      // the entries, as they stand
  };

  static const std::array<Answer, 4>& answers();
  void add_answer(QGridLayout& grid, int row, const Answer& answer);
  QWidget* new_conditions();
  QWidget* new_elevens();
  QWidget* new_toss();
  QWidget* new_openers();
  QComboBox* new_list(const QString& name, const QString& spoken, const QStringList& entries);
  void show_how();
  void show_elevens();
  void show_openers(std::size_t side);
  /// Nobody opens twice: who stood there before takes the other place.
  void exchange_opener(std::size_t side, std::size_t place);

  match_play play_;
  sky_ahead sky_;
  QuickAnswers answered_;
  std::array<QWidget*, 4> how_{};   // what is shown of each answer
  std::array<QLabel*, 4> words_{};  // in its place
  std::array<QComboBox*, 4> levels_{};
  std::array<QLabel*, 2> elevens_{};
  QComboBox* call_ = nullptr;
  QComboBox* decision_ = nullptr;
  std::array<Openers, 2> openers_;
  QList<QWidget*> controls_;

  std::array<chosen_team, 2> teams_;
  std::array<bool, 2> humans_{};
  std::array<eleven, 2> men_;
  std::array<bool, 2> known_{};  // the eleven of each
};

}  // namespace velorin
