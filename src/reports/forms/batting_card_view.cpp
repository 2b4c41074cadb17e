// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/forms/batting_card_view.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QShortcut>

#include "desktop/controls.h"
#include "desktop/form.h"
#include "desktop/program_end.h"
#include "desktop/shown_text.h"
#include "desktop/table_view.h"
#include "model/rules.h"
#include "reports/forms/report_parts.h"
#include "reports/scorecard.h"

namespace velorin {

namespace {

enum Column { name, fielder, bowler, runs, balls, columns };

constexpr int row_height = 28;
constexpr int side_space = 10;
constexpr QSize large(1100, 640);  // from this size on the type is a step larger

QString numbered(const char* control, int place) {
  return QStringLiteral("%1_%2").arg(QLatin1String(control)).arg(place);
}

/// A right-aligned figure.
QLabel* new_figure(const QString& control, const QString& text, TextRole role) {
  QLabel* label = new_named_label(control, text, role);
  label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  return label;
}

QString counted(const QString& number, const char* what) {
  return QStringLiteral("%1 %2%3").arg(number, QLatin1String(what), QLatin1String(number == u"1" ? "" : "s"));
}

/// A whole row, read out: the man, how he got out, what he made.
QString spoken_row(const batting_screen& card, std::size_t i) {
  QStringList parts;
  const QString balls_faced = shown(card.balls_faced[i]).remove(QLatin1Char('(')).remove(QLatin1Char(')'));
  parts << shown_caption(card.details_buttons[i].caption);
  for (const std::string& part : {card.fielders[i], card.how_out[i]}) {
    const QString words = shown_caption(part).trimmed();
    if (!words.isEmpty()) parts << words;
  }
  parts << counted(shown(card.runs[i]), "run") << counted(balls_faced, "ball") << QStringLiteral("details");
  return parts.join(QStringLiteral(", "));
}

TableCell cell(const std::string& text) {
  return {.text = shown_caption(text), .look = CellLook::normal, .kept = shown(text)};
}

}  // namespace

Table batting_table(const batting_screen& card) {
  Table table{.name = shown(card.batting_side), .columns = {}, .rows = {}};
  for (const char* heading : {"Batsman", "Fielder", "Bowler"}) {
    table.columns.push_back({.heading = QString::fromLatin1(heading)});
  }
  for (const char* heading : {"Runs", "Balls"}) {
    table.columns.push_back({.heading = QString::fromLatin1(heading), .numbers = true});
  }
  for (std::size_t i = 1; i <= men_in_eleven; ++i) {
    if (!card.details_buttons[i].visible) continue;
    table.rows.push_back({{cell(card.names[i]), cell(card.fielders[i]), cell(card.how_out[i]), cell(card.runs[i]),
                           cell(card.balls_faced[i])}});
  }
  table.rows.push_back({{cell(card.extras_line), {}, {}, cell(card.extras_total), {}}});
  table.rows.push_back({{cell(card.wickets_and_overs), {}, {}, cell(card.total), {}}});
  return table;
}

BattingCardView::BattingCardView(const batting_screen& card, std::function<void(int)> details, QWidget* parent)
    : QFrame(parent), details_(std::move(details)), table_(batting_table(card)), grid_(new QGridLayout(this)) {
  setProperty("card", true);
  setObjectName(QStringLiteral("card"));
  setAccessibleName(QStringLiteral("Batting card, %1").arg(shown(card.batting_side)));
  grid_->setContentsMargins(16, 8, 16, 8);
  grid_->setHorizontalSpacing(12);
  grid_->setVerticalSpacing(0);
  grid_->setColumnStretch(name, 3);
  grid_->setColumnStretch(fielder, 3);
  grid_->setColumnStretch(bowler, 4);
  grid_->setColumnMinimumWidth(name, 170);
  grid_->setColumnMinimumWidth(fielder, 160);
  grid_->setColumnMinimumWidth(bowler, 180);
  grid_->setColumnMinimumWidth(runs, 72);
  grid_->setColumnMinimumWidth(balls, 72);
  add_headings();
  for (int place = 1; place <= men_in_eleven; ++place) add_man(card, place);
  add_totals(card);

  connect(new QShortcut(QKeySequence::Copy, this), &QShortcut::activated, this, [this] { copy(); });
  connect(new QShortcut(Qt::CTRL | Qt::Key_E, this), &QShortcut::activated, this,
          [this] { guarded([this] { save_table(table_, window()); }); });
}

void BattingCardView::add_headings() {
  auto* batsman = new_label(QStringLiteral("Batsman"), TextRole::small_muted);
  batsman->setContentsMargins(side_space, 0, 0, 0);
  grid_->addWidget(batsman, 0, name);
  grid_->addWidget(new_label(QStringLiteral("Dismissal"), TextRole::small_muted), 0, fielder);
  grid_->addWidget(new_figure({}, QStringLiteral("Runs"), TextRole::small_muted), 0, runs);
  auto* faced = new_figure({}, QStringLiteral("Balls"), TextRole::small_muted);
  faced->setContentsMargins(0, 0, side_space, 0);
  grid_->addWidget(faced, 0, balls);
  grid_->setRowMinimumHeight(0, 22);
}

void BattingCardView::add_man(const batting_screen& card, int place) {
  const auto i = static_cast<std::size_t>(place);
  const auto add = [&](QWidget* widget, Column column, TypeStep step) {
    grid_->addWidget(widget, place, column);
    rows_.emplace_back(widget, step);
  };
  if (place % 2 == 1) {
    auto* band = new QFrame;
    band->setProperty("band", true);
    grid_->addWidget(band, place, 0, 1, columns);
  }
  const QString man = shown_caption(card.details_buttons[i].caption);
  auto* button = new_report_button(numbered("batting_name", place),
                                   {.caption = man,
                                    .key = QKeySequence(Qt::Key_F1 + place - 1),
                                    .hint = QStringLiteral("Details of %1").arg(man),
                                    .spoken = spoken_row(card, i)},
                                   [this, place] { details_(place); });
  button->setProperty("link", true);
  button->setVisible(card.details_buttons[i].visible);
  grid_->addWidget(button, place, name, Qt::AlignLeft | Qt::AlignVCenter);
  rows_.emplace_back(button, TypeStep::strong);
  add(new_named_label(numbered("fielder", place), shown_caption(card.fielders[i])), fielder, TypeStep::body);
  add(new_named_label(numbered("how_out", place), shown_caption(card.how_out[i])), bowler, TypeStep::body);
  add(new_figure(numbered("runs", place), shown(card.runs[i]), TextRole::strong), runs, TypeStep::strong);
  auto* faced = new_figure(numbered("balls_faced", place), shown(card.balls_faced[i]), TextRole::muted);
  faced->setContentsMargins(0, 0, side_space, 0);
  add(faced, balls, TypeStep::body);
  grid_->setRowMinimumHeight(place, row_height);
  grid_->setRowStretch(place, 1);
}

void BattingCardView::add_rule(int row) {
  auto* rule = new QFrame;
  rule->setProperty("rule", true);
  rule->setFixedHeight(1);
  grid_->addWidget(rule, row, 0, 1, columns);
}

void BattingCardView::add_totals(const batting_screen& card) {
  auto* extras = new_named_label(QStringLiteral("extras_line"), shown(card.extras_line));
  extras->setContentsMargins(side_space, 0, 0, 0);
  grid_->addWidget(extras, 12, name, 1, 3);
  rows_.emplace_back(extras, TypeStep::body);
  auto* sum = new_figure(QStringLiteral("extras_total"), shown(card.extras_total), TextRole::strong);
  grid_->addWidget(sum, 12, runs);
  rows_.emplace_back(sum, TypeStep::strong);
  grid_->setRowMinimumHeight(12, row_height);
  auto* not_counted = new_named_label(QStringLiteral("not_counted"), shown(card.not_counted), TextRole::muted);
  not_counted->setContentsMargins(side_space, 0, 0, 4);
  grid_->addWidget(not_counted, 13, name, 1, 3);
  not_counted->setVisible(!card.not_counted.empty());
  add_rule(14);

  auto* rate = new QHBoxLayout;
  rate->setContentsMargins(side_space, 0, 0, 0);
  rate->setSpacing(8);
  auto* rate_caption = new_named_label(QStringLiteral("rate_caption"), QStringLiteral("Run rate"), TextRole::muted);
  rate_caption->setVisible(!card.run_rate.empty());
  rate->addWidget(rate_caption);
  rate->addWidget(new_named_label(QStringLiteral("run_rate"), shown(card.run_rate), TextRole::heading));
  rate->addStretch(1);
  grid_->addLayout(rate, 15, name);
  grid_->addWidget(new_figure(QStringLiteral("wickets_and_overs"), shown(card.wickets_and_overs), TextRole::heading),
                   15, fielder, 1, 2);
  grid_->addWidget(new_figure(QStringLiteral("total"), shown(card.total), TextRole::score), 15, runs);
}

void BattingCardView::resizeEvent(QResizeEvent* event) {
  QFrame::resizeEvent(event);
  const bool roomy = width() >= large.width() && height() >= large.height();
  if (roomy == roomy_) return;
  roomy_ = roomy;
  for (const auto& [widget, step] : rows_) widget->setFont(type_font(roomy ? TypeStep::heading : step));
}

void BattingCardView::copy() const { QGuiApplication::clipboard()->setText(table_text(table_)); }

void BattingCardView::contextMenuEvent(QContextMenuEvent* event) {
  QMenu menu(this);
  const QAction* copied = menu.addAction(QStringLiteral("&Copy\tCtrl+C"));
  const QAction* saved = menu.addAction(QStringLiteral("Save as CS&V ...\tCtrl+E"));
  const QAction* chosen = menu.exec(event->globalPos());
  if (chosen == nullptr) return;
  if (chosen == copied) copy();
  if (chosen == saved) guarded([this] { save_table(table_, window()); });
}

}  // namespace velorin
