// SPDX-License-Identifier: GPL-3.0-or-later
#include <QButtonGroup>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QToolButton>
#include <QVBoxLayout>

#include "console/console_view.h"
#include "desktop/controls.h"
#include "desktop/program_end.h"
#include "desktop/shown_text.h"
#include "desktop/table_view.h"
#include "engine/forms/commentary_list.h"
#include "engine/forms/console_tables.h"
#include "engine/forms/console_window.h"
#include "engine/forms/over_chips.h"
#include "engine/forms/player_panels.h"
#include "engine/forms/rates_panel.h"
#include "engine/forms/scoreboard.h"
#include "engine/over_play.h"
#include "model/match_state.h"

// How the console is laid out: the scoreboard above three columns.

namespace velorin {

namespace {

QFrame* new_panel() {
  QFrame* card = new_card();
  card->layout()->setContentsMargins(16, 8, 16, 8);
  return card;
}

QFrame* new_rule() {
  auto* rule = new QFrame;
  rule->setFrameShape(QFrame::HLine);
  rule->setObjectName(QStringLiteral("rule"));
  return rule;
}

QToolButton* new_step(const QString& name, const QString& sign, const Act& act) {
  auto* button = new QToolButton;
  button->setObjectName(name);
  name_act(*button, act);
  button->setText(sign);
  return button;
}

}  // namespace

Table bowlers_table(const match_state& match) {
  Table table;
  table.name = QStringLiteral("Bowlers of this innings");
  table.columns = {{QStringLiteral("Bowlers")},
                   {QStringLiteral("O"), true, QStringLiteral("Overs")},
                   {QStringLiteral("M"), true, QStringLiteral("Maidens")},
                   {QStringLiteral("R"), true, QStringLiteral("Runs")},
                   {QStringLiteral("W"), true, QStringLiteral("Wickets")}};
  for (const bowler_line& line : view_bowler_list(match)) {
    TableRow row;
    row.id = line.position;
    row.cells.push_back({shown(line.name)});
    for (const std::string& figure : line.figures) row.cells.push_back({shown(figure)});
    table.rows.push_back(std::move(row));
  }
  return table;
}

std::string last_wicket_line(const match_state& match) {
  const std::string line = view_last_wicket(match);
  return line.empty() ? line : "Last wicket: " + line;
}

QFrame* ConsoleWindow::new_batting_card() {
  QFrame* card = new_panel();
  for (int slot = 0; slot < 2; ++slot) {
    auto* panel = new BatsmanPanel(match_, data_, slot);
    batsmen_[static_cast<std::size_t>(slot)] = panel;
    if (slot > 0) card_rows(card)->addWidget(new_rule());
    card_rows(card)->addWidget(panel);
    connect(panel->aggression(), &QPushButton::clicked, this,
            [this, slot] { guarded([&] { act_on_slot(&console_form::change_batsman_aggression, slot); }); });
    const auto profile =
        slot == 0 ? &console_form::show_lower_batsman_profile : &console_form::show_higher_batsman_profile;
    connect(panel->profile(), &QPushButton::clicked, this, [this, profile] { guarded([&] { act(profile); }); });
  }
  return card;
}

QFrame* ConsoleWindow::new_bowling_card() {
  QFrame* card = new_panel();
  for (int slot = 0; slot < 2; ++slot) {
    auto* panel = new BowlerPanel(match_, data_, slot);
    bowlers_[static_cast<std::size_t>(slot)] = panel;
    if (slot > 0) card_rows(card)->addWidget(new_rule());
    card_rows(card)->addWidget(panel);
    connect(panel->aggression(), &QPushButton::clicked, this,
            [this, slot] { guarded([&] { act_on_slot(&console_form::change_bowler_aggression, slot); }); });
    const auto profile = slot == 0 ? &console_form::show_bowler_profile : &console_form::show_next_bowler_profile;
    connect(panel->profile(), &QPushButton::clicked, this, [this, profile] { guarded([&] { act(profile); }); });
  }
  return card;
}

QFrame* ConsoleWindow::new_over_card() {
  QFrame* card = new_panel();
  over_title_ = new_named_label(QStringLiteral("over_title"), {}, TextRole::strong);
  over_bowler_ = new_named_label(QStringLiteral("over_bowler"), {}, TextRole::muted);
  browser_ = new QScrollBar(Qt::Horizontal);
  browser_->setObjectName(QStringLiteral("past_overs"));
  browser_->setAccessibleName(QStringLiteral("Past overs"));
  browser_->setFocusPolicy(Qt::TabFocus);
  browser_->setPageStep(5);
  browser_->setMinimumWidth(48);
  connect(browser_, &QScrollBar::valueChanged, this, [this](int over) { guarded([&] { browse(over); }); });
  over_before_ = new_step(QStringLiteral("over_before"), QStringLiteral("\u2039"),
                          {.caption = QStringLiteral("Over before"), .key = QKeySequence(Qt::Key_Comma)});
  over_after_ = new_step(QStringLiteral("over_after"), QStringLiteral("\u203A"),
                         {.caption = QStringLiteral("Over after"), .key = QKeySequence(Qt::Key_Period)});
  connect(over_before_, &QToolButton::clicked, this, [this] { browser_->setValue(browser_->value() - 1); });
  connect(over_after_, &QToolButton::clicked, this, [this] { browser_->setValue(browser_->value() + 1); });
  auto* head = new QHBoxLayout;
  head->addWidget(over_title_);
  head->addWidget(over_bowler_);
  head->addStretch(1);
  head->addWidget(over_before_);
  head->addWidget(browser_);
  head->addWidget(over_after_);
  card_rows(card)->addLayout(head);
  chips_ = new OverChips;
  card_rows(card)->addWidget(chips_);
  return card;
}

QFrame* ConsoleWindow::new_commentary_card() {
  QFrame* card = new_panel();
  card_rows(card)->addWidget(new_label(QStringLiteral("Ball by ball"), TextRole::strong));
  commentary_ = new CommentaryList(match_);
  card_rows(card)->addWidget(commentary_, 1);
  return card;
}

void ConsoleWindow::lay_out() {
  scoreboard_ = new Scoreboard(match_);
  static_cast<QVBoxLayout*>(layout())->insertWidget(0, scoreboard_);
  body()->setContentsMargins(16, 12, 16, 8);
  auto* columns = new QHBoxLayout;
  columns->setSpacing(12);

  auto* left = new QVBoxLayout;
  left->setSpacing(12);
  left->addWidget(new_batting_card());
  left->addWidget(new_bowling_card());
  left->addStretch(1);

  auto* middle = new QVBoxLayout;
  middle->setSpacing(12);
  middle->addWidget(new_over_card());
  rates_ = new RatesPanel(match_);
  middle->addWidget(rates_);
  bowler_table_ = new TableView(QStringLiteral("bowlers"));
  bowler_table_->verticalHeader()->setDefaultSectionSize(22);
  middle->addWidget(bowler_table_, 1);

  columns->addLayout(left, 5);
  columns->addLayout(middle, 5);
  columns->addWidget(new_commentary_card(), 4);
  body()->addLayout(columns, 1);
  last_wicket_ = new_named_label(QStringLiteral("last_wicket"), {}, TextRole::muted);
  last_wicket_->setMinimumHeight(20);
  body()->addWidget(last_wicket_);
}

QWidget* ConsoleWindow::new_pace_choice() {
  auto* box = new QWidget;
  box->setObjectName(QStringLiteral("pace"));
  auto* row = new QHBoxLayout(box);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(4);
  row->addWidget(new_label(QStringLiteral("Pace"), TextRole::muted));
  auto* group = new QButtonGroup(box);
  struct Choice {
    Pace pace;
    const char* name;
    const char* caption;
    char16_t mnemonic;
    const char* hint;
  };
  static constexpr Choice choices[] = {
      {Pace::instant, "pace_instant", "Instant", u'I', "An over is bowled at once"},
      {Pace::quick, "pace_quick", "Quick", u'Q', "An over takes a moment"},
      {Pace::ball_by_ball, "pace_ball_by_ball", "Ball by Ball", u'B', "Each ball stays for a while"},
  };
  for (const Choice& choice : choices) {
    auto* button = new QPushButton;
    button->setObjectName(QString::fromLatin1(choice.name));
    button->setAutoDefault(false);
    button->setCheckable(true);
    name_act(*button, {.caption = QString::fromLatin1(choice.caption),
                       .mnemonic = choice.mnemonic,
                       .key = {},
                       .hint = QString::fromLatin1(choice.hint)});
    button->setChecked(preferences::pace() == choice.pace);
    connect(button, &QPushButton::clicked, this, [this, pace = choice.pace] { choose_pace(pace); });
    // Assistive technology toggles without a click.
    connect(button, &QPushButton::toggled, this, [this, pace = choice.pace](bool on) {
      if (on) choose_pace(pace);
    });
    group->addButton(button);
    row->addWidget(button);
  }
  return box;
}

void ConsoleWindow::add_foot() {
  add_aside(add_button(QStringLiteral("quit"),
                       {.caption = QStringLiteral("Quit"),
                        .mnemonic = QChar(),
                        .key = QKeySequence(Qt::CTRL | Qt::Key_Q),
                        .hint = QStringLiteral("End the program; the match is lost")},
                       [this] { ask_to_quit(); }));
  // Quit stands apart, so that a press beside a report does not hit it.
  auto* apart = new QWidget;
  apart->setFixedWidth(40);
  add_aside(apart);
  struct Report {
    const char* name;
    const char* caption;
    char16_t mnemonic;
    Qt::Key key;
    void (console_form::*handler)();
  };
  static constexpr Report reports[] = {
      {"show_scorecard", "Scorecard", u'S', Qt::Key_S, &console_form::show_scorecard},
      {"show_worm", "Worm", u'W', Qt::Key_W, &console_form::show_worm},
      {"show_overs_graph", "Overs", u'O', Qt::Key_O, &console_form::show_overs_graph},
  };
  for (const Report& report : reports) {
    add_aside(add_button(
        QString::fromLatin1(report.name),
        {.caption = QString::fromLatin1(report.caption), .mnemonic = report.mnemonic, .key = QKeySequence(report.key)},
        [this, handler = report.handler] { act(handler); }));
  }
  change_bowler_ =
      add_button(QStringLiteral("change_bowler"),
                 {.caption = QStringLiteral("Change Bowler"), .mnemonic = u'C', .key = QKeySequence(Qt::Key_C)},
                 [this] { act(&console_form::change_bowler); });
  add_aside(change_bowler_);
  pace_ = new_pace_choice();
  add_beside_buttons(pace_);
  next_over_ = add_default_button(
      QStringLiteral("next_over"),
      {.caption = QStringLiteral("Next Over"),
       .mnemonic = u'N',
       .key = QKeySequence(Qt::Key_N),
       .hint = QStringLiteral("Bowl the next over; Return does the same, Escape finishes the over at once")},
      [this] { play_over(); });
  next_over_->setMinimumWidth(120);
}

}  // namespace velorin
