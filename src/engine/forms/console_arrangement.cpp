// SPDX-License-Identifier: GPL-3.0-or-later
#include <QAbstractButton>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>
#include <initializer_list>
#include <utility>

#include "desktop/table_view.h"
#include "engine/forms/attack_list.h"
#include "engine/forms/commentary_list.h"
#include "engine/forms/console_window.h"
#include "engine/forms/course_charts.h"
#include "engine/forms/rates_panel.h"

// Where the console's cards stand, by the size of the window.

namespace velorin {

ConsoleWindow::Arrangement ConsoleWindow::arrangement() const {
  constexpr int wide_from = 1600;
  constexpr int large_from = 2600;
  constexpr int large_height = 1800;
  if (width() < wide_from) return Arrangement::narrow;
  return width() >= large_from && height() >= large_height ? Arrangement::large : Arrangement::wide;
}

void ConsoleWindow::arrange(Arrangement wanted) {
  if (wanted == arranged_) return;
  arranged_ = wanted;
  while (QLayoutItem* item = columns_->takeAt(0)) {
    while (QLayoutItem* inner = item->layout()->takeAt(0)) delete inner;
    delete item;
  }
  const auto add = [this](int stretch, std::initializer_list<std::pair<QWidget*, int>> cards) {
    auto* column = new QVBoxLayout;
    column->setSpacing(8);
    for (const auto& [card, share] : cards) column->addWidget(card, share);
    columns_->addLayout(column, stretch);
  };
  switch (wanted) {
    case Arrangement::narrow:
      add(22, {{batting_card_, 5}, {bowling_card_, 4}});
      add(20, {{over_card_, 0}, {rates_, 0}, {charts_card_, 1}});
      add(20, {{commentary_card_, 11}, {sides_card_, 10}});
      break;
    case Arrangement::wide:
      add(20, {{batting_card_, 5}, {bowling_card_, 4}});
      add(22, {{over_card_, 0}, {rates_, 0}, {charts_card_, 1}});
      add(23, {{sides_card_, 1}});
      add(22, {{commentary_card_, 1}});
      break;
    case Arrangement::large:
      add(20, {{batting_card_, 5}, {bowling_card_, 4}});
      add(30, {{over_card_, 0}, {rates_, 0}, {charts_card_, 1}});
      add(20, {{sides_card_, 4}, {commentary_card_, 5}});
      break;
  }
  arrange_charts(wanted != Arrangement::narrow);
  order_tabs();
  sides_choice_->setVisible(wanted == Arrangement::narrow);
  show_sides();
}

/// The keyboard goes down the columns, whichever they are.
void ConsoleWindow::order_tabs() {
  QWidgetList sides;
  for (QAbstractButton* button : sides_card_->findChildren<QAbstractButton*>()) {
    if (button->focusPolicy() != Qt::NoFocus && !button->objectName().isEmpty()) sides << button;
  }
  sides << batting_table_;
  QWidgetList order = {over_after_};
  if (arranged_ == Arrangement::narrow) order << commentary_;
  order << sides;
  if (arranged_ != Arrangement::narrow) order << commentary_;
  order << take_back_;
  for (qsizetype i = 1; i < order.size(); ++i) setTabOrder(order[i - 1], order[i]);
}

void ConsoleWindow::arrange_charts(bool stacked) {
  for (CourseChart* chart : charts_) charts_grid_->removeWidget(chart);
  charts_grid_->addWidget(charts_[0], 0, 0, 1, 2);
  charts_grid_->addWidget(charts_[1], 1, 0, 1, stacked ? 2 : 1);
  charts_grid_->addWidget(charts_[2], stacked ? 2 : 1, stacked ? 0 : 1, 1, stacked ? 2 : 1);
  for (int row = 0; row < 3; ++row) charts_grid_->setRowStretch(row, row < 2 || stacked ? 1 : 0);
}

void ConsoleWindow::show_sides() {
  const bool both = arranged_ != Arrangement::narrow;
  const auto* batting = sides_choice_->findChild<QPushButton*>(QStringLiteral("choose_batting"));
  const bool shows_batting = batting != nullptr && batting->isChecked();
  if (attack_ == nullptr || batting_table_ == nullptr) return;
  attack_->setVisible(both || !shows_batting);
  batting_table_->setVisible(both || shows_batting);
  refresh_sides();
}

}  // namespace velorin
