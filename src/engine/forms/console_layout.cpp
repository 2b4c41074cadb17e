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
#include <utility>

#include "desktop/controls.h"
#include "desktop/level_segments.h"
#include "desktop/program_end.h"
#include "desktop/table_view.h"
#include "engine/forms/attack_list.h"
#include "engine/forms/commentary_list.h"
#include "engine/forms/console_tables.h"
#include "engine/forms/console_window.h"
#include "engine/forms/course_charts.h"
#include "engine/forms/over_chips.h"
#include "engine/forms/over_strip.h"
#include "engine/forms/player_panels.h"
#include "engine/forms/rates_panel.h"
#include "engine/forms/scoreboard.h"
#include "engine/over_play.h"
#include "model/match_state.h"

// How the console is laid out: the scoreboard above three to five columns.

namespace velorin {

namespace {

QFrame* new_panel() {
  QFrame* card = new_card();
  card->layout()->setContentsMargins(12, 8, 12, 8);
  card_rows(card)->setSpacing(6);
  return card;
}

QFrame* new_rule() {
  auto* rule = new QFrame;
  rule->setFrameShape(QFrame::HLine);
  rule->setObjectName(QStringLiteral("rule"));
  return rule;
}

/// A label with a line at each side, in a row that can be left out.
QWidget* between_rules(QLabel* label) {
  auto* box = new QWidget;
  auto* row = new QHBoxLayout(box);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(new_rule(), 1);
  row->addWidget(label);
  row->addWidget(new_rule(), 1);
  return box;
}

QToolButton* new_step(const QString& name, const QString& sign, const Act& act) {
  auto* button = new QToolButton;
  button->setObjectName(name);
  name_act(*button, act);
  button->setText(sign);
  return button;
}

}  // namespace

QFrame* ConsoleWindow::new_batting_card() {
  QFrame* card = new_panel();
  card->setObjectName(QStringLiteral("batting_card"));
  for (int slot = 0; slot < 2; ++slot) {
    auto* panel = new BatsmanPanel(match_, data_, slot);
    batsmen_[static_cast<std::size_t>(slot)] = panel;
    if (slot > 0) {
      stand_ = new_named_label(QStringLiteral("stand"), {}, TextRole::small_muted);
      stand_->setToolTip(QStringLiteral("The stand at the crease, its balls, and what each has made of it"));
      card_rows(card)->addWidget(between_rules(stand_));
    }
    card_rows(card)->addWidget(panel, 1);
    connect(panel->aggression(), &QPushButton::clicked, this,
            [this, slot] { guarded([&] { act_on_slot(&console_form::change_batsman_aggression, slot); }); });
    panel->levels()->on_chosen(
        [this, slot](int level) { set_in_place([&] { form_.set_batsman_aggression(slot, level); }); });
    const auto profile =
        slot == 0 ? &console_form::show_lower_batsman_profile : &console_form::show_higher_batsman_profile;
    connect(panel->profile(), &QPushButton::clicked, this, [this, profile] { guarded([&] { act(profile); }); });
  }
  return card;
}

QFrame* ConsoleWindow::new_bowling_card() {
  QFrame* card = new_panel();
  card->setObjectName(QStringLiteral("bowling_card"));
  for (int slot = 0; slot < 2; ++slot) {
    auto* panel = new BowlerPanel(match_, data_, slot);
    bowlers_[static_cast<std::size_t>(slot)] = panel;
    if (slot > 0) {
      legend_ = new_named_label(QStringLiteral("levels_legend"),
                                QStringLiteral("1 to 5: runs an over \u00B7 balls a wicket"), TextRole::small_muted);
      legend_->setToolTip(QStringLiteral("What each aggression would bring by the model of a delivery"));
      card_rows(card)->addWidget(between_rules(legend_));
    }
    card_rows(card)->addWidget(panel, 1);
    connect(panel->aggression(), &QPushButton::clicked, this,
            [this, slot] { guarded([&] { act_on_slot(&console_form::change_bowler_aggression, slot); }); });
    panel->levels()->on_chosen(
        [this, slot](int level) { set_in_place([&] { form_.set_bowler_aggression(slot, level); }); });
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
  browser_->setMaximumWidth(160);
  browser_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
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
  head->addWidget(browser_, 1);
  head->addWidget(over_after_);
  card_rows(card)->addLayout(head);
  chips_ = new OverChips;
  card_rows(card)->addWidget(chips_);
  strip_ = new OverStrip;
  strip_->on_chosen([this](int over) { guarded([&] { browse(over); }); });
  card_rows(card)->addWidget(strip_);
  return card;
}

QFrame* ConsoleWindow::new_commentary_card() {
  QFrame* card = new_panel();
  card_rows(card)->addWidget(new_label(QStringLiteral("Ball by ball"), TextRole::strong));
  commentary_ = new CommentaryList(match_);
  card_rows(card)->addWidget(commentary_, 1);
  return card;
}

QWidget* ConsoleWindow::place_of_moments() const { return charts_card_; }

QFrame* ConsoleWindow::new_charts_card() {
  QFrame* card = new_panel();
  card->setObjectName(QStringLiteral("charts"));
  static constexpr std::pair<const char*, CourseChart::Kind> kinds[] = {{"runs_chart", CourseChart::Kind::runs},
                                                                        {"score_chart", CourseChart::Kind::score},
                                                                        {"rates_chart", CourseChart::Kind::rates}};
  charts_grid_ = new QGridLayout;
  charts_grid_->setSpacing(8);
  for (std::size_t i = 0; i < charts_.size(); ++i) {
    charts_[i] = new CourseChart(QString::fromLatin1(kinds[i].first), kinds[i].second, card);
  }
  card_rows(card)->addLayout(charts_grid_, 1);
  return card;
}

QFrame* ConsoleWindow::new_sides_card() {
  QFrame* card = new_panel();
  sides_choice_ = new QWidget;
  auto* head = new QHBoxLayout(sides_choice_);
  head->setContentsMargins(0, 0, 0, 0);
  head->setSpacing(4);
  auto* group = new QButtonGroup(card);
  const auto add = [&](const char* name, const char* caption, Qt::Key key, const char* hint) {
    auto* button = new QPushButton;
    button->setObjectName(QString::fromLatin1(name));
    button->setAutoDefault(false);
    button->setCheckable(true);
    name_act(*button, {.caption = QString::fromLatin1(caption),
                       .mnemonic = QChar(),
                       .key = QKeySequence(key),
                       .hint = QString::fromLatin1(hint)});
    connect(button, &QPushButton::toggled, this, [this](bool) { guarded([this] { show_sides(); }); });
    group->addButton(button);
    head->addWidget(button, 1);
    return button;
  };
  choose_commentary_ = add("choose_commentary", "Ball by ball", Qt::Key_D, "Show the commentary");
  QPushButton* attack = add("choose_attack", "Attack", Qt::Key_A, "Show all who can bowl");
  add("choose_batting", "Batting", Qt::Key_T, "Show the batting side");
  card_rows(card)->addWidget(sides_choice_);
  attack_title_ = new_label(QStringLiteral("Attack"), TextRole::strong);
  attack_title_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  card_rows(card)->addWidget(attack_title_);
  attack_ = new AttackList(match_);
  attack_->on_chosen([this](int position) { set_in_place([&] { form_.choose_bowler(position); }); });
  attack_->on_profile([this](int position) { set_in_place([&] { form_.show_profile_of_bowler(position); }); });
  card_rows(card)->addWidget(attack_, 1);
  batting_title_ = new_label(QStringLiteral("Batting"), TextRole::strong);
  batting_title_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  card_rows(card)->addWidget(batting_title_);
  batting_table_ = new TableView(QStringLiteral("batting_so_far"));
  batting_table_->verticalHeader()->setMinimumSectionSize(22);
  batting_table_->grow_rows(36, men_in_eleven);
  batting_table_->setMinimumHeight(64);
  batting_table_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  batting_table_->on_open([this](int position) { set_in_place([&] { form_.show_profile_of_batsman(position); }); });
  card_rows(card)->addWidget(batting_table_, 1);
  card_rows(card)->addStretch();
  attack->setChecked(true);
  return card;
}

void ConsoleWindow::lay_out() {
  scoreboard_ = new Scoreboard(match_);
  static_cast<QVBoxLayout*>(layout())->insertWidget(0, scoreboard_);
  add_forecast();
  body()->setContentsMargins(16, 4, 16, 4);
  columns_ = new QHBoxLayout;
  columns_->setSpacing(8);
  batting_card_ = new_batting_card();
  bowling_card_ = new_bowling_card();
  over_card_ = new_over_card();
  rates_ = new RatesPanel(match_);
  charts_card_ = new_charts_card();
  commentary_card_ = new_commentary_card();
  sides_card_ = new_sides_card();
  body()->addLayout(columns_, 1);
  place_cards(Arrangement::narrow);
  last_wicket_ = new_named_label(QStringLiteral("last_wicket"), {}, TextRole::muted);
  last_wicket_->setMinimumHeight(20);
  take_back_ = new_take_back_choice();
  take_back_->setProperty("compact", true);
  last_line_ = new QHBoxLayout;
  last_line_->setSpacing(16);
  last_line_->addWidget(last_wicket_, 1);
  last_line_->addWidget(forecast_choices_ = new_forecast_choices());
  last_line_->addWidget(take_back_);
  body()->addLayout(last_line_);
}

QWidget* ConsoleWindow::new_pace_choice() {
  auto* box = new QWidget;
  box->setObjectName(QStringLiteral("pace"));
  auto* row = new QHBoxLayout(box);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(2);
  row->addWidget(new_named_label(QStringLiteral("pace_caption"), QStringLiteral("Pace"), TextRole::muted));
  row->addSpacing(4);
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

void ConsoleWindow::add_reports() {
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
}

void ConsoleWindow::on_match_centre(std::function<void()> open) {
  open_match_centre_ = std::move(open);
  match_centre_->setVisible(open_match_centre_ != nullptr);
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
  apart->setObjectName(QStringLiteral("apart"));
  apart->setFixedWidth(40);
  add_aside(apart);
  add_reports();
  change_bowler_ =
      add_button(QStringLiteral("change_bowler"),
                 {.caption = QStringLiteral("Change Bowler"), .mnemonic = u'C', .key = QKeySequence(Qt::Key_C)},
                 [this] { act(&console_form::change_bowler); });
  add_aside(change_bowler_);
  pace_ = new_pace_choice();
  add_beside_buttons(pace_);
  add_beside_buttons(new_skip_choice());
  next_over_ = add_default_button(
      QStringLiteral("next_over"),
      {.caption = QStringLiteral("Next Over"),
       .mnemonic = u'N',
       .key = QKeySequence(Qt::Key_N),
       .hint = QStringLiteral("Bowl the next over; Return does the same, Escape finishes the over at once")},
      [this] { play_over(); });
  next_over_->setMinimumWidth(112);  // "Finish Over" has room, too
}

}  // namespace velorin
