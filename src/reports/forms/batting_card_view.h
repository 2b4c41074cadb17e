// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFrame>
#include <functional>
#include <utility>
#include <vector>

#include "desktop/table.h"
#include "desktop/theme.h"

class QGridLayout;

namespace velorin {

struct batting_screen;

/// A batting card on paper: a row for each of the eleven, the extras, the total. The men's names are the buttons
/// `batting_name_1` to `batting_name_11`. Ctrl+C copies it as text, Ctrl+E saves it as CSV; the context menu offers the
/// same.
class BattingCardView : public QFrame {
  Q_OBJECT

 public:
  /// `details`: what pressing the name of the man at a place does, 1 to 11.
  BattingCardView(const batting_screen& card, std::function<void(int place)> details, QWidget* parent = nullptr);

  /// The card as a table.
  const Table& table() const { return table_; }
  void copy() const;

 protected:
  void contextMenuEvent(QContextMenuEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void add_headings();
  void add_man(const batting_screen& card, int place);
  void add_totals(const batting_screen& card);
  void add_rule(int row);

  std::function<void(int)> details_;
  Table table_;
  QGridLayout* grid_;
  std::vector<std::pair<QWidget*, TypeStep>> rows_;  // what is written larger where there is room, and its usual step
  bool roomy_ = false;
};

/// The card as a table: name, the two parts of the dismissal, runs, balls; then the extras and the total.
Table batting_table(const batting_screen& card);

}  // namespace velorin
