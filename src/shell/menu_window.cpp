// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/menu_window.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QDateTime>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPointer>
#include <QVBoxLayout>

#include "database/agreement.h"
#include "database/configuration.h"
#include "database/open_database.h"
#include "desktop/controls.h"
#include "desktop/frame.h"
#include "desktop/ground_picture.h"
#include "desktop/message_window.h"
#include "desktop/preferences.h"
#include "desktop/program_end.h"
#include "desktop/question.h"
#include "desktop/shown_text.h"
#include "desktop/theme.h"
#include "shell/game_keeper.h"
#include "shell/guide.h"
#include "shell/menu_actions.h"
#include "shell/menu_entry.h"
#include "shell/qt_front_end.h"

namespace velorin {

MenuWindow::MenuWindow(QtFrontEnd& shown_by, QWidget* parent)
    : Form(QStringLiteral("opening"), Dismissal::refused, parent), shown_by_(shown_by) {
  setModal(false);
  set_title(QStringLiteral("Velorin"), {});
  setMouseTracking(true);
  body()->setContentsMargins(0, 0, 0, 0);
  auto* row = new QHBoxLayout;
  row->setSpacing(0);
  auto* picture = new GroundPicture(QStringLiteral("picture"));
  picture->set_words(QStringLiteral("Velorin"), QStringLiteral("One-day international cricket"));
  picture->setMinimumSize(320, 320);
  // The hour of the user's day, at home with the side of his last match; another weather each day.
  const QDateTime now = QDateTime::currentDateTime();
  picture->set_scene(
      {preferences::last_sides().first, now.time().hour() * 60 + now.time().minute(), 1 + now.date().dayOfYear() % 4});
  row->addWidget(picture, 3);
  auto* side = new QWidget;
  side->setMinimumWidth(360);
  auto* rows = new QVBoxLayout(side);
  rows->setContentsMargins(32, 32, 32, 16);
  panels_ = new QVBoxLayout;
  rows->addLayout(panels_, 1);
  database_ = new_named_label(QStringLiteral("database"), {}, TextRole::small_muted);
  rows->addWidget(database_);
  row->addWidget(side, 2);
  body()->addLayout(row);
  add_main_panel();
  add_start_panel();
  add_other_panel();
  add_batting_panel();
  add_bowling_panel();
  rows->addWidget(new_appearance_choice());
  prefer_size(QSize(1000, 660));
  show_panel(main_);
  if (Frame* frame = main_window()) {
    frame->on_trail([menu = QPointer<MenuWindow>(this)] {
      const GameKeeper* keeper = menu ? menu->shown_by_.keeper() : nullptr;
      return keeper == nullptr ? QString() : shown(keeper->competition_in_play());
    });
    frame->on_jump([this, frame] { with_database([this, frame] { menu::jump(shown_by_, frame->top() == this); })(); });
  }
}

open_database& MenuWindow::open_data() { return shown_by_.game().data; }

void MenuWindow::start() {
  guarded([this] {
    std::string cause;
    const first_settings found = take_first_settings(open_data(), &cause);
    if (!cause.empty()) {
      MessageWindow told({"Error", cause});
      run_modal(told);
    }
    if (found == first_settings::not_on_offer) {
      MessageWindow told(
          {"Error", "The database \"" + open_data().settings.database_name + "\" is not on offer (file options.mc)"});
      run_modal(told);
    }
    if (found != first_settings::in_use) menu::configurations(shown_by_);
    show_database();
  });
}

void MenuWindow::offer_guide() {
  guarded([this] {
    if (program_is_ending() || main_window() == nullptr || preferences::guide_offered()) return;
    preferences::set_guide_offered(true);
    const bool guided = ask(*this, QStringLiteral("guide_question"), QStringLiteral("Your first match"),
                            QStringLiteral("Six short hints lead through a first match, each at the place it is "
                                           "about. Play it now?"),
                            true);
    if (!guided) return;
    new Guide(*main_window());
    for_play(menu::quick_match)();
  });
}

void MenuWindow::open_game(const QString& file) {
  with_database([this, file] {
    menu::open(shown_by_, QFileInfo(file).filesystemFilePath());
    show_what_waits();
  })();
}

QWidget* MenuWindow::new_panel(const char* name, const QString& heading, const std::vector<Entry>& entries) {
  auto* panel = new QWidget;
  panel->setObjectName(QString::fromLatin1(name));
  panel->setMouseTracking(true);
  auto* rows = new QVBoxLayout(panel);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(2);
  QLabel* title = new_label(heading, TextRole::title);
  title->setContentsMargins(20, 0, 0, 8);
  title->setMouseTracking(true);
  rows->addWidget(title);
  for (const Entry& entry : entries) {
    auto* button = new MenuEntry(QString::fromLatin1(entry.name), QString::fromLatin1(entry.text), entry.mnemonic);
    connect(button, &MenuEntry::clicked, this, [this, act = entry.act] {
      guarded([&] {
        act();
        clear_highlights();
        show_database();
        show_what_waits();
      });
    });
    rows->addWidget(button);
  }
  rows->addStretch(1);
  panel->hide();
  panels_->addWidget(panel);
  return panel;
}

void MenuWindow::add_main_panel() {
  const auto panel = [this](std::size_t i) { return [this, i] { show_panel(sub_[i]); }; };
  main_ =
      new_panel("main_panel", QStringLiteral("Menu"),
                {{"continue", "Continue", u'T', with_database([this] { menu::go_on(shown_by_, game_that_waits_); })},
                 {"quick_match", "Quick Match", u'Q', for_play(menu::quick_match)},
                 {"start_game", "Start Game", u'S', panel(0)},
                 {"saved_games", "Saved Games", u'G', with_database([this] { menu::saved_games(shown_by_); })},
                 {"batting_stats", "Batting Stats", u'B', panel(2)},
                 {"bowling_stats", "Bowling Stats", u'W', panel(3)},
                 {"other_records", "Other Records", u'O', panel(1)},
                 {"configurations", "Configurations", u'C', [this] { menu::configurations(shown_by_); }},
                 {"credits", "Credits", u'R', [] { menu::credits(); }},
                 {"exit", "Exit", u'X', [this] { leave(); }}});
  continue_ = main_->findChild<MenuEntry*>(QStringLiteral("continue"));
  waits_ = new_named_label(QStringLiteral("waits"), {}, TextRole::small_muted);
  waits_->setWordWrap(true);
  waits_->setContentsMargins(20, 0, 0, 8);
  auto* rows = static_cast<QVBoxLayout*>(main_->layout());
  rows->insertWidget(rows->indexOf(continue_) + 1, waits_);
  main_->findChild<MenuEntry*>(QStringLiteral("saved_games"))->setVisible(shown_by_.keeper() != nullptr);
  show_what_waits();
}

void MenuWindow::add_start_panel() {
  sub_[0] = new_panel("start_panel", QStringLiteral("Start Game"),
                      {{"new_match", "New Match", u'M', for_play(menu::new_match)},
                       {"new_series", "New Series", u'S', for_play(menu::new_series)},
                       {"tri_series", "Tri Series", u'T', for_play(menu::tri_series)},
                       {"world_cup", "World Cup", u'W', for_play(menu::world_cup)},
                       {"start_back", "<<Back", u'B', [this] { show_panel(main_); }}});
}

void MenuWindow::add_other_panel() {
  sub_[1] = new_panel(
      "other_panel", QStringLiteral("Other Records"),
      {{"player_profiles", "Player Profiles", u'P', with_database([this] { menu::player_profiles(shown_by_); })},
       {"team_records", "Team Records", u'T', with_database([this] { menu::team_records(shown_by_); })},
       {"world_rankings", "World Rankings", u'W', with_database([this] { menu::world_rankings(shown_by_); })},
       {"record_book", "Record Book", u'R', with_database([this] { menu::record_book(shown_by_); })},
       {"other_back", "<<Back", u'B', [this] { show_panel(main_); }}});
}

void MenuWindow::add_batting_panel() {
  const auto list = [this](void (*show_list)(QtFrontEnd&, int), int record_mode) {
    return with_database([this, show_list, record_mode] { show_list(shown_by_, record_mode); });
  };
  sub_[2] = new_panel(
      "batting_panel", QStringLiteral("Batting Stats"),
      {{"all_batting", "All Batting Stats", u'A', with_database([this] { menu::all_batting(shown_by_); })},
       {"highest_totals", "Highest Totals", u'H', list(menu::totals, 1)},
       {"lowest_totals", "Lowest Totals", u'L', list(menu::totals, 0)},
       {"highest_scores", "Highest Individual Scores", u'I', list(menu::individual, 1)},
       {"most_runs", "Most Runs Scored", u'M', list(menu::players, 2)},
       {"highest_averages", "Highest Averages", u'V', list(menu::players, 1)},
       {"innings_of_fifty", "% Innings 50 or More", u'5', list(menu::players, 4)},
       {"century_makers", "Top Century Makers", u'C', with_database([this] { menu::century_makers(shown_by_); })},
       {"highest_strike_rates", "Highest Strike Rates", u'S', list(menu::players, 3)},
       {"partnerships", "Record Partnerships", u'P', with_database([this] { menu::partnerships(shown_by_); })},
       {"batting_back", "<<Back", u'B', [this] { show_panel(main_); }}});
}

void MenuWindow::add_bowling_panel() {
  const auto list = [this](void (*show_list)(QtFrontEnd&, int), int record_mode) {
    return with_database([this, show_list, record_mode] { show_list(shown_by_, record_mode); });
  };
  sub_[3] =
      new_panel("bowling_panel", QStringLiteral("Bowling Stats"),
                {{"all_bowling", "All Bowling Stats", u'A', with_database([this] { menu::all_bowling(shown_by_); })},
                 {"most_wickets", "Most Wickets", u'W', list(menu::players, 5)},
                 {"best_averages", "Best Bowling Averages", u'V', list(menu::players, 7)},
                 {"best_economy_rates", "Best Economy Rates", u'E', list(menu::players, 6)},
                 {"best_analysis", "Best Bowling Analysis", u'Y', list(menu::individual, 0)},
                 {"bowling_back", "<<Back", u'B', [this] { show_panel(main_); }}});
}

QWidget* MenuWindow::new_appearance_choice() {
  auto* box = new QWidget;
  auto* row = new QHBoxLayout(box);
  row->setContentsMargins(0, 0, 0, 0);
  auto* choice = new QComboBox;
  choice->setObjectName(QStringLiteral("appearance"));
  choice->addItems({QStringLiteral("As the desktop"), QStringLiteral("Light"), QStringLiteral("Dark"),
                    QStringLiteral("High contrast")});
  choice->setCurrentIndex(static_cast<int>(preferences::appearance()));
  connect(choice, &QComboBox::activated, this, [](int index) {
    preferences::set_appearance(static_cast<Appearance>(index));
    apply_theme(static_cast<Appearance>(index));
  });
  choice->setToolTip(QStringLiteral("Colours of all windows (Alt+N)"));
  row->addWidget(new_caption(QStringLiteral("Appearance"), u'N', choice));
  row->addWidget(choice, 1);
  return box;
}

std::function<void()> MenuWindow::with_database(std::function<void()> act) {
  return [this, act = std::move(act)] {
    if (open_data().files.base.empty()) menu::configurations(shown_by_);
    if (open_data().files.base.empty()) return;
    take_told_fault();
    guarded(act);
    if (take_told_fault()) menu::configurations(shown_by_);
  };
}

std::function<void()> MenuWindow::for_play(void (*activity)(QtFrontEnd&)) {
  return with_database([this, activity] {
    require_database_for_play(open_data());
    activity(shown_by_);
  });
}

void MenuWindow::show_panel(QWidget* panel) {
  if (shown_ != nullptr) shown_->hide();
  shown_ = panel;
  clear_highlights();
  panel->show();
  for (MenuEntry* entry : panel->findChildren<MenuEntry*>()) {
    if (entry->isHidden()) continue;
    entry->setFocus();
    break;
  }
}

void MenuWindow::clear_highlights() {
  for (MenuEntry* entry : findChildren<MenuEntry*>()) entry->set_highlighted(false);
}

void MenuWindow::show_database() {
  database_->setText(open_data().files.base.empty()
                         ? QStringLiteral("No database chosen")
                         : QStringLiteral("Database: %1").arg(shown(open_data().files.base)));
}

void MenuWindow::show_what_waits() {
  if (continue_ == nullptr || program_is_ending()) return;
  game_that_waits_ =
      shown_by_.keeper() == nullptr ? std::filesystem::path() : game_that_waits(shown_by_.keeper()->folder());
  kept_game waiting;
  if (!game_that_waits_.empty()) waiting = look_at_game(game_that_waits_);
  const bool waits = !game_that_waits_.empty() && waiting.fault.empty();
  const QString words = waits ? shown(waiting.words.line()) : QString();
  continue_->setVisible(waits);
  continue_->setAccessibleDescription(words);
  waits_->setText(words);
  waits_->setVisible(waits);
}

void MenuWindow::move_focus(int step) {
  QList<MenuEntry*> entries = shown_->findChildren<MenuEntry*>();
  entries.removeIf([](const MenuEntry* entry) { return entry->isHidden(); });
  qsizetype at = 0;
  while (at < entries.size() && !entries[at]->hasFocus()) ++at;
  if (at == entries.size()) at = step > 0 ? -1 : 0;
  entries[(at + step + entries.size()) % entries.size()]->setFocus();
}

void MenuWindow::keyPressEvent(QKeyEvent* event) {
  auto* entry = qobject_cast<MenuEntry*>(focusWidget());
  switch (event->key()) {
    case Qt::Key_Down:
      return move_focus(1);
    case Qt::Key_Up:
      return move_focus(-1);
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (entry != nullptr) entry->click();
      return;
    default:
      Form::keyPressEvent(event);
  }
}

void MenuWindow::mouseMoveEvent(QMouseEvent* event) {
  clear_highlights();
  Form::mouseMoveEvent(event);
}

void MenuWindow::reject() {
  // Escape goes back; the close box leaves, as "Exit" does.
  if (program_is_ending()) {
    Form::reject();
  } else if (shown_ != main_) {
    show_panel(main_);
  }
}

void MenuWindow::closeEvent(QCloseEvent* event) {
  leave();
  event->accept();
}

void MenuWindow::leave() {
  end_program(0);
  hide();
}

}  // namespace velorin
