// SPDX-License-Identifier: GPL-3.0-or-later
#include <QAbstractButton>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <utility>

#include "desktop/controls.h"
#include "desktop/enlarged.h"
#include "desktop/table_view.h"
#include "engine/forms/attack_list.h"
#include "engine/forms/commentary_list.h"
#include "engine/forms/console_window.h"
#include "engine/forms/course_charts.h"
#include "engine/forms/forecast_bar.h"
#include "engine/forms/over_chips.h"
#include "engine/forms/over_strip.h"
#include "engine/forms/player_panels.h"
#include "engine/forms/rates_panel.h"
#include "engine/forms/scoreboard.h"
#include "model/rules.h"

// Where the console's cards stand, by the size of the window.

namespace velorin {

namespace {

// The least widths, in pixels, of the arrangements that stand beside a report.
constexpr int strip_from = 480;
constexpr int half_from = 800;
constexpr int narrow_from = 1200;

/// Gives a button less room around its text, or as much as usual.
void set_compact(QAbstractButton& button, bool compact) {
  if (button.property("compact").toBool() == compact || button.objectName() == QStringLiteral("take_back")) return;
  button.setProperty("compact", compact);
  button.style()->unpolish(&button);
  button.style()->polish(&button);
  button.updateGeometry();
}

}  // namespace

int ConsoleWindow::width_beside(int most) const {
  const double factor = wanted_enlargement();
  for (const int from : {narrow_from, half_from}) {
    if (most >= from * factor) return static_cast<int>(from * factor);
  }
  return static_cast<int>(strip_from * factor);
}

void ConsoleWindow::note_beside(bool beside) {
  if (beside == beside_) return;
  beside_ = beside;
  arrange();
}

ConsoleWindow::Arrangement ConsoleWindow::arrangement() const {
  constexpr int wide_from = 1600;
  constexpr int low_below = 700;
  constexpr int least_of_three_columns = 760;
  // In pixels of the usual size.
  const double wide = width() / wanted_enlargement();
  if (beside_ && wide < half_from) return Arrangement::strip;
  if (beside_ && wide < narrow_from) return Arrangement::half;
  if (height() < low_below * wanted_enlargement() && wide < wide_from) return Arrangement::low;
  if (wide < least_of_three_columns) return Arrangement::low;
  return wide < wide_from ? Arrangement::narrow : Arrangement::wide;
}

void ConsoleWindow::arrange() {
  // A single column of little height has the last six overs and the last wicket left out.
  constexpr int room_for_past = 860;
  const Arrangement wanted = arrangement();
  const double factor = wanted_enlargement();
  const bool past = wanted != Arrangement::strip || height() >= room_for_past * factor;
  strip_->setVisible(past);
  last_wicket_->setVisible(past && wanted != Arrangement::low && next_over_ != nullptr);
  if (wanted == arranged_ && factor == drawn_) return;
  if (wanted == Arrangement::low) choose_commentary_->setChecked(true);
  arranged_ = wanted;
  place_cards(wanted);
  if (factor != drawn_) enlarge(*this, factor);
  // Drawn larger it wants more room, and can become small again all the same.
  layout()->setSizeConstraint(factor > 1 ? QLayout::SetNoConstraint : QLayout::SetDefaultConstraint);
  drawn_ = factor;
  set_density(wanted);
  const bool by_turns = wanted != Arrangement::wide;
  const bool low = wanted == Arrangement::low;
  arrange_charts(!by_turns, low);
  sides_choice_->setVisible(by_turns);
  choose_commentary_->setVisible(low);
  choose_commentary_->setEnabled(low);
  if (!low && choose_commentary_->isChecked()) {
    sides_choice_->findChild<QPushButton*>(QStringLiteral("choose_attack"))->setChecked(true);
  }
  order_tabs();
  show_sides();
  // What it needs now, before anything is placed by what it needed.
  for (QLayout* each : findChildren<QLayout*>()) each->invalidate();
}

QSize ConsoleWindow::minimumSizeHint() const { return Form::minimumSizeHint() / drawn_; }

void ConsoleWindow::place_cards(Arrangement wanted) {
  while (QLayoutItem* item = columns_->takeAt(0)) {
    while (QLayoutItem* inner = item->layout()->takeAt(0)) delete inner;
    delete item;
  }
  QWidgetList shown;
  const auto add = [&](int stretch, std::initializer_list<std::pair<QWidget*, int>> cards) {
    auto* column = new QVBoxLayout;
    column->setSpacing(columns_->spacing());
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
    case Arrangement::low:
      add(24, {{batting_card_, 1}, {bowling_card_, 0}});
      add(20, {{forecast_, 0}, {over_card_, 0}, {rates_, 0}, {charts_card_, 1}, {forecast_choices_, 0}});
      add(20, {{sides_card_, 1}});
      break;
    case Arrangement::narrow:
      add(21, {{batting_card_, 5}, {bowling_card_, 4}});
      add(19, {{over_card_, 0}, {rates_, 0}, {charts_card_, 1}});
      add(21, {{commentary_card_, 11}, {sides_card_, 10}});
      break;
    case Arrangement::wide:
      add(21, {{batting_card_, 5}, {bowling_card_, 4}});
      add(21, {{over_card_, 0}, {rates_, 0}, {charts_card_, 1}});
      add(25, {{sides_card_, 1}});
      add(19, {{commentary_card_, 1}});
      break;
  }
  for (QWidget* card :
       QWidgetList{batting_card_, bowling_card_, over_card_, rates_, charts_card_, sides_card_, commentary_card_}) {
    card->setVisible(shown.contains(card));
  }
  // Without height for rows of their own they stand in a column.
  auto* rows = static_cast<QVBoxLayout*>(layout());
  if (wanted != Arrangement::low && rows->indexOf(forecast_) < 0) {
    rows->insertWidget(1, forecast_);
    last_line_->insertWidget(1, forecast_choices_);
  }
  // By turns with the sides it stands in their card.
  QFrame* around = wanted == Arrangement::low ? sides_card_ : commentary_card_;
  if (commentary_->parentWidget() != around) card_rows(around)->addWidget(commentary_, 1);
  commentary_->show();
}

void ConsoleWindow::set_density(Arrangement wanted) {
  const bool beside = wanted == Arrangement::strip || wanted == Arrangement::half;
  const bool low = wanted == Arrangement::low;
  const QMargins around = low ? QMargins(10, 5, 10, 5) : QMargins(12, 8, 12, 8);
  for (QFrame* card : {batting_card_, bowling_card_, over_card_, charts_card_, sides_card_, commentary_card_}) {
    const bool of_men = card == batting_card_ || card == bowling_card_;
    set_usual_room(*this, *card->layout(), around, low ? 3 : of_men ? 4 : 6);
  }
  set_usual_room(*this, *rates_->layout(), around, low ? 2 : 4);
  set_usual_room(*this, *body(), low ? QMargins(8, 5, 8, 5) : QMargins(16, 4, 16, 4), low ? 4 : 6);
  set_usual_room(*this, *columns_, {}, low ? 5 : 8);
  for (QObject* column : columns_->children()) {
    if (auto* rows = qobject_cast<QLayout*>(column)) rows->setSpacing(columns_->spacing());
  }
  for (BatsmanPanel* panel : batsmen_) panel->set_compact(low);
  for (BowlerPanel* panel : bowlers_) panel->set_compact(low);
  legend_->parentWidget()->setVisible(!low);
  chips_->set_low(low);
  for (QToolButton* step : {over_before_, over_after_}) set_compact(*step, low);
  for (QPushButton* choice : sides_choice_->findChildren<QPushButton*>()) set_compact(*choice, low);
  scoreboard_->set_look(beside ? Scoreboard::Look::stacked : low ? Scoreboard::Look::low : Scoreboard::Look::whole);
  attack_->fit_enlargement();
  batting_table_->grow_rows(enlarged(*this, 36), men_in_eleven);
  commentary_->doItemsLayout();
  auto* foot = findChild<QWidget*>(QStringLiteral("foot"));
  if (foot == nullptr) return;
  // The buttons are dead beside a report, and have no room there.
  foot->setVisible(!beside);
  set_usual_room(*this, *foot->layout(), low ? QMargins(8, 5, 8, 5) : QMargins(24, 12, 24, 12), -1);
  for (QHBoxLayout* row : foot->layout()->findChildren<QHBoxLayout*>(Qt::FindDirectChildrenOnly)) {
    set_usual_room(*this, *row, {}, low ? 3 : 6);
  }
  for (QPushButton* button : foot->findChildren<QPushButton*>()) set_compact(*button, low);
  foot->findChild<QWidget*>(QStringLiteral("apart"))->setFixedWidth(enlarged(*this, 40));
  foot->findChild<QWidget*>(QStringLiteral("pace_caption"))->setVisible(!low);
}

/// The keyboard goes down the columns, whichever they are.
void ConsoleWindow::order_tabs() {
  QWidgetList sides;
  for (QAbstractButton* button : sides_card_->findChildren<QAbstractButton*>()) {
    if (button->focusPolicy() != Qt::NoFocus && !button->objectName().isEmpty()) sides << button;
  }
  sides << batting_table_;
  QWidgetList order = {over_after_};
  const bool by_turns = arranged_ == Arrangement::narrow;
  if (by_turns) order << commentary_;
  order << sides;
  if (!by_turns) order << commentary_;
  const QWidgetList of_forecast = {captaincy_, match_centre_, next_ball_, match_line_, forecast_choice_};
  if (arranged_ == Arrangement::low) {
    order = QWidgetList{over_after_} + of_forecast + order.mid(1);
  } else {
    order << of_forecast;
  }
  order << take_back_;
  for (qsizetype i = 1; i < order.size(); ++i) setTabOrder(order[i - 1], order[i]);
}

void ConsoleWindow::arrange_charts(bool stacked, bool only_one) {
  for (CourseChart* chart : charts_) charts_grid_->removeWidget(chart);
  charts_grid_->addWidget(charts_[0], 0, 0, 1, 2);
  charts_grid_->addWidget(charts_[1], 1, 0, 1, stacked ? 2 : 1);
  charts_grid_->addWidget(charts_[2], stacked ? 2 : 1, stacked ? 0 : 1, 1, stacked ? 2 : 1);
  for (int row = 0; row < 3; ++row)
    charts_grid_->setRowStretch(row, row == 0 || (row == 1 && !only_one) || stacked ? 1 : 0);
  for (std::size_t i = 1; i < charts_.size(); ++i) charts_[i]->setVisible(!only_one);
}

void ConsoleWindow::show_sides() {
  const bool both = arranged_ == Arrangement::wide;
  const auto* batting = sides_choice_->findChild<QPushButton*>(QStringLiteral("choose_batting"));
  const auto* attack = sides_choice_->findChild<QPushButton*>(QStringLiteral("choose_attack"));
  if (attack_ == nullptr || batting_table_ == nullptr) return;
  attack_->setVisible(both || attack->isChecked());
  batting_table_->setVisible(both || batting->isChecked());
  attack_title_->setVisible(both);
  batting_title_->setVisible(both);
  if (arranged_ == Arrangement::low) commentary_->setVisible(choose_commentary_->isChecked());
  refresh_sides();
}

}  // namespace velorin
