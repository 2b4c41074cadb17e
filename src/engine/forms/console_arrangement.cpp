// SPDX-License-Identifier: GPL-3.0-or-later
#include <QAbstractButton>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
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
#include "engine/forms/over_strip.h"
#include "engine/forms/rates_panel.h"
#include "engine/forms/scoreboard.h"

// Where the console's cards stand, by the size of the window.

namespace velorin {

namespace {

// The least widths, in pixels, of the arrangements that stand beside a report.
constexpr int strip_from = 480;
constexpr int half_from = 800;
constexpr int narrow_from = 1200;

}  // namespace

int ConsoleWindow::width_beside(int most) const {
  return most >= narrow_from ? narrow_from : most >= half_from ? half_from : strip_from;
}

ConsoleWindow::Arrangement ConsoleWindow::arrangement() const {
  constexpr int wide_from = 1600;
  constexpr int large_from = 2600;
  constexpr int large_height = 1800;
  if (beside_ && width() < half_from) return Arrangement::strip;
  if (beside_ && width() < narrow_from) return Arrangement::half;
  if (width() < wide_from) return Arrangement::narrow;
  return width() >= large_from && height() >= large_height ? Arrangement::large : Arrangement::wide;
}

void ConsoleWindow::arrange(Arrangement wanted) {
  // A single column of little height has the last six overs and the last wicket left out.
  constexpr int room_for_past = 860;
  const bool past = wanted != Arrangement::strip || height() >= room_for_past;
  strip_->setVisible(past);
  last_wicket_->setVisible(past);
  if (wanted == arranged_) return;
  arranged_ = wanted;
  while (QLayoutItem* item = columns_->takeAt(0)) {
    while (QLayoutItem* inner = item->layout()->takeAt(0)) delete inner;
    delete item;
  }
  QWidgetList shown;
  const auto add = [&](int stretch, std::initializer_list<std::pair<QWidget*, int>> cards) {
    auto* column = new QVBoxLayout;
    column->setSpacing(8);
    for (const auto& [card, share] : cards) {
      column->addWidget(card, share);
      shown << card;
    }
    columns_->addLayout(column, stretch);
  };
  switch (wanted) {
    case Arrangement::strip:
      add(1, {{batting_card_, 5}, {bowling_card_, 4}, {over_card_, 0}});
      break;
    case Arrangement::half:
      add(1, {{batting_card_, 5}, {bowling_card_, 4}});
      add(1, {{over_card_, 0}, {rates_, 0}, {charts_card_, 1}});
      break;
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
  for (QWidget* card :
       QWidgetList{batting_card_, bowling_card_, over_card_, rates_, charts_card_, sides_card_, commentary_card_}) {
    card->setVisible(shown.contains(card));
  }
  const bool beside = wanted == Arrangement::strip || wanted == Arrangement::half;
  scoreboard_->set_compact(beside);
  // The buttons are dead beside a report, and have no room there.
  if (auto* foot = findChild<QWidget*>(QStringLiteral("foot"))) foot->setVisible(!beside);
  const bool by_turns = wanted != Arrangement::wide && wanted != Arrangement::large;
  arrange_charts(!by_turns);
  order_tabs();
  sides_choice_->setVisible(by_turns);
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
  const bool by_turns = arranged_ != Arrangement::wide && arranged_ != Arrangement::large;
  if (by_turns) order << commentary_;
  order << sides;
  if (!by_turns) order << commentary_;
  order << next_ball_ << match_line_ << forecast_choice_ << take_back_;
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
  const bool both = arranged_ == Arrangement::wide || arranged_ == Arrangement::large;
  const auto* batting = sides_choice_->findChild<QPushButton*>(QStringLiteral("choose_batting"));
  const bool shows_batting = batting != nullptr && batting->isChecked();
  if (attack_ == nullptr || batting_table_ == nullptr) return;
  attack_->setVisible(both || !shows_batting);
  batting_table_->setVisible(both || shows_batting);
  refresh_sides();
}

}  // namespace velorin
