// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/forms/batting_card_view.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>
#include <map>
#include <utility>

#include "desktop/button_table.h"
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

constexpr int side_space = 10;
constexpr int lowest_row = 26;  // pixels
constexpr int highest_row = 56;

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

TableCell figure(const std::string& text, CellLook look = CellLook::normal) {
  return {.text = shown(text).remove(QLatin1Char('(')).remove(QLatin1Char(')')), .look = look};
}

/// Both parts of a dismissal in one line.
QString dismissal_of(const batting_screen& card, std::size_t i) {
  return (shown_caption(card.fielders[i]).trimmed() + QLatin1Char(' ') + shown_caption(card.how_out[i]).trimmed())
      .trimmed();
}

}  // namespace

Table batsmen_table(const batting_screen& card) {
  Table table{.name = shown(card.batting_side), .columns = {}, .rows = {}};
  table.columns = {{.heading = QStringLiteral("Batsman")}, {.heading = QStringLiteral("Dismissal"), .stretches = true}};
  const std::pair<const char*, const char*> figures[] = {
      {"Runs", "Runs"}, {"Balls", "Balls"}, {"4s", "Fours"}, {"6s", "Sixes"}, {"SR", "Strike rate"}};
  for (const auto& [heading, spoken] : figures) {
    table.columns.push_back({.heading = QLatin1String(heading), .numbers = true, .spoken = QLatin1String(spoken)});
  }
  for (std::size_t i = 1; i <= men_in_eleven; ++i) {
    if (!card.details_buttons[i].visible) continue;
    table.rows.push_back({.cells = {{.text = shown_caption(card.details_buttons[i].caption), .look = CellLook::strong},
                                    {.text = dismissal_of(card, i)},
                                    figure(card.runs[i], CellLook::strong),
                                    figure(card.balls_faced[i]),
                                    figure(card.fours[i]),
                                    figure(card.sixes[i]),
                                    {.text = shown(card.strike_rates[i])}},
                          .id = static_cast<int>(i)});
  }
  for (const std::string& man : card.to_come) {
    const TableCell words{.text = shown(card.to_come_words), .look = CellLook::muted};
    table.rows.push_back({{{.text = shown_caption(man), .look = CellLook::muted}, words, {}, {}, {}, {}, {}}});
  }
  return table;
}

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
    : QFrame(parent), details_(std::move(details)), table_(batting_table(card)) {
  setProperty("card", true);
  setObjectName(QStringLiteral("card"));
  setAccessibleName(QStringLiteral("Batting card, %1").arg(shown(card.batting_side)));
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(12, 12, 12, 8);
  rows->setSpacing(6);
  rows->addWidget(new_men(card), 1);
  add_totals(*rows, card);

  connect(new QShortcut(QKeySequence::Copy, this), &QShortcut::activated, this, [this] { copy(); });
  connect(new QShortcut(Qt::CTRL | Qt::Key_E, this), &QShortcut::activated, this,
          [this] { guarded([this] { save_table(table_, window()); }); });
}

QWidget* BattingCardView::new_men(const batting_screen& card) {
  auto* men = new ButtonTable(QStringLiteral("batsmen"));
  std::map<int, QAbstractButton*> names;
  for (int place = 1; place <= men_in_eleven; ++place) {
    const auto i = static_cast<std::size_t>(place);
    const QString man = shown_caption(card.details_buttons[i].caption);
    auto* button = new_report_button(numbered("batting_name", place),
                                     {.caption = man,
                                      .key = QKeySequence(Qt::Key_F1 + place - 1),
                                      .hint = QStringLiteral("Details of %1").arg(man),
                                      .spoken = spoken_row(card, i)},
                                     [this, place] { details_(place); });
    button->setProperty("link", true);
    button->setProperty("flush", true);
    names[place] = button;
  }
  men->set_table(batsmen_table(card), std::move(names));
  men->set_row_heights(lowest_row, highest_row);
  men->view().grow_type();
  men->view().keep_as([this] { return table_; });
  return men;
}

void BattingCardView::add_totals(QVBoxLayout& rows, const batting_screen& card) {
  auto* extras = new QHBoxLayout;
  extras->setContentsMargins(side_space, 0, side_space, 0);
  extras->addWidget(new_named_label(QStringLiteral("extras_line"), shown(card.extras_line)));
  extras->addStretch(1);
  extras->addWidget(new_figure(QStringLiteral("extras_total"), shown(card.extras_total), TextRole::strong));
  rows.addLayout(extras);
  auto* not_counted = new_named_label(QStringLiteral("not_counted"), shown(card.not_counted), TextRole::muted);
  not_counted->setContentsMargins(side_space, 0, 0, 4);
  rows.addWidget(not_counted);
  not_counted->setVisible(!card.not_counted.empty());
  auto* rule = new QFrame;
  rule->setProperty("rule", true);
  rule->setFixedHeight(1);
  rows.addWidget(rule);

  auto* total = new QHBoxLayout;
  total->setContentsMargins(side_space, 0, side_space, 0);
  total->setSpacing(8);
  auto* rate_caption = new_named_label(QStringLiteral("rate_caption"), QStringLiteral("Run rate"), TextRole::muted);
  rate_caption->setVisible(!card.run_rate.empty());
  total->addWidget(rate_caption);
  total->addWidget(new_named_label(QStringLiteral("run_rate"), shown(card.run_rate), TextRole::heading));
  total->addStretch(1);
  total->addWidget(new_figure(QStringLiteral("wickets_and_overs"), shown(card.wickets_and_overs), TextRole::heading));
  total->addWidget(new_figure(QStringLiteral("total"), shown(card.total), TextRole::score));
  rows.addLayout(total);
}

void BattingCardView::copy() const { QGuiApplication::clipboard()->setText(table_text(table_)); }

}  // namespace velorin
