// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFrame>
#include <functional>

#include "desktop/table.h"

class QVBoxLayout;

namespace velorin {

struct batting_screen;

/// A batting card on paper: a table with a row for each of the eleven, the extras, the total. The men's names are the
/// buttons `batting_name_1` to `batting_name_11`; those who have not come in stand below in grey. Ctrl+C copies it as
/// text, Ctrl+E saves it as CSV, both as told; the context menu offers the same.
class BattingCardView : public QFrame {
  Q_OBJECT

 public:
  /// `details`: what pressing the name of the man at a place does, 1 to 11.
  BattingCardView(const batting_screen& card, std::function<void(int place)> details, QWidget* parent = nullptr);

  /// The card as it is copied and saved.
  const Table& table() const { return table_; }
  void copy() const;

 private:
  QWidget* new_men(const batting_screen& card);
  void add_totals(QVBoxLayout& rows, const batting_screen& card);

  std::function<void(int)> details_;
  Table table_;
};

/// The card as it is copied and saved: name, the two parts of the dismissal, runs, balls; then the extras and the
/// total.
Table batting_table(const batting_screen& card);

/// The men as they are shown: name, dismissal, runs, balls, fours, sixes, strike rate; then those still to come. The id
/// of a row is the man's place; of a man still to come 0.
Table batsmen_table(const batting_screen& card);

}  // namespace velorin
