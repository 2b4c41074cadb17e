// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/walk.h"

#include <QApplication>
#include <QLabel>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QTimer>
#include <algorithm>

#include "desktop/frame.h"
#include "desktop/message_kinds.h"
#include "desktop/preferences.h"
#include "desktop/program_end.h"
#include "model/match_state.h"
#include "support/game_in_play.h"
#include "windows/layout_checks.h"
#include "windows/room_checks.h"
#include "windows/term_checks.h"
#include "windows/window_checks.h"

namespace velorin::testing {

namespace {

/// At 200 % a window has half the pixels of its screen: the first two are whole screens of 1920x1080 and 2560x1440.
constexpr QSize sizes[] = {{1024, 768}, {1280, 800}, {1920, 1080}, {2560, 1440}, {3840, 2160}};
constexpr QSize scaled_sizes[] = {{960, 540}, {1280, 720}, {1024, 768}, {1280, 800}, {1920, 1080}};

/// The size in which the pages are worked.
constexpr QSize at_work(1280, 800);

std::vector<QSize> sizes_for(Way way) {
  const auto& all = qEnvironmentVariable("QT_SCALE_FACTOR") == QStringLiteral("2") ? scaled_sizes : sizes;
  if (qEnvironmentVariable("VELORIN_WALK") == QStringLiteral("whole")) return {std::begin(all), std::end(all)};
  switch (way) {
    case Way::mouse:
      return {all[0], all[3]};
    case Way::keyboard:
      return {all[1], all[4]};
    case Way::assistant:
      return {all[2]};
  }
  return {};
}

void settle_forms() {
  for (int round = 0; round < 6; ++round) QApplication::processEvents();
}

}  // namespace

Walk::Walk() {
  preferences::set_quick_answers({});
  preferences::set_captains({true, false});
  QApplication::setDoubleClickInterval(10);
  qApp->installEventFilter(this);
}

/// What closes itself waits for nobody, so that the robot never meets it.
bool Walk::eventFilter(QObject* watched, QEvent* event) {
  auto* form = qobject_cast<QWidget*>(watched);
  if (event->type() == QEvent::Show && form != nullptr && form->objectName() == QStringLiteral("Progressbar")) {
    QTimer::singleShot(0, form, [this, form] {
      if (form->isVisible() && !looking_) look_once(*form);
    });
  }
  return false;
}

Walk::~Walk() {
  qApp->removeEventFilter(this);
  for (const message_kind kind : passing_kinds()) preferences::set_stops_for(kind, true);
  preferences::set_plays_without_stopping(QStringLiteral("series2"), false);
}

void Walk::begin(Way way) {
  way_ = way;
  hand_ = Hand(way);
  robot_ = std::make_unique<Robot>();
  robot_->at_sight([this](QWidget& form) {
    // A walk that has lost its way would go on for ever.
    constexpr int too_many = 300;
    const auto* result = ::testing::UnitTest::GetInstance()->current_test_info()->result();
    if (result->total_part_count() > too_many) return end_program(1);
    look_once(form);
    if (!form.isWindow() && form.window()->size() != at_work) form.window()->resize(at_work);
  });
  answer_set_up();
  answer_captain();
  answer_the_rest();
}

void Walk::walk(const std::function<void(MenuWindow&)>& then) {
  QtFrontEnd shown_by(tested_game, std::filesystem::path(place_.path().toStdString()) / "games");
  play_shown_by(shown_by, then);
  EXPECT_EQ(robot_->left(), 0);
  EXPECT_GT(terms_, 0);
}

void Walk::choose_by_hand(MenuWindow& menu, const char* panel, const char* entry) {
  hand_.press(menu, panel);
  hand_.press(menu, entry);
  for (const char* back : {"start_back", "other_back", "batting_back", "bowling_back"}) {
    auto* button = menu.findChild<QAbstractButton*>(QString::fromLatin1(back));
    if (button != nullptr && button->isVisible()) hand_.press(*button);
  }
}

QAbstractButton& Walk::of_bar(QWidget& form, const char* name) {
  return *control<QAbstractButton>(*form.window(), name);
}

void Walk::answer_set_up() {
  robot_->always("teamfrm", [this](QWidget& form) { hand_.press(form, "accept"); });
  robot_->always("wecond", [this](QWidget& form) { hand_.press(form, "accept"); });
  robot_->always("Teamsel", [this](QWidget& form) {
    hand_.press(form, "auto_select");
    hand_.press(form, match.first_team_done ? "accept_second_team" : "accept_first_team");
  });
  robot_->always("toss", [this](QWidget& form) {
    if (control<QAbstractButton>(form, "heads")->isVisible()) hand_.press(form, "heads");
    hand_.press(form, control<QAbstractButton>(form, "bat")->isEnabled() ? "bat" : "bowl");
  });
}

void Walk::choose_first_man(QWidget& form) {
  const bool bowler = form.objectName() == QStringLiteral("chgbowler");
  for (int row = 1; row <= 11; ++row) {
    auto* man = control<QRadioButton>(form, ("man_" + std::to_string(row)).c_str());
    if (!man->isEnabled() || (bowler && match.bowling_card[row].balls >= 60)) continue;
    return hand_.press(*man);
  }
  ADD_FAILURE() << "nobody is left";
}

void Walk::answer_captain() {
  robot_->always("main", [this](QWidget& form) { hand_.press(form, "next_over"); });
  const auto choose_man = [this](QWidget& form) {
    choose_first_man(form);
    for (const char* ok : {"accept", "accept_change", "accept_first_opener", "accept_second_opener"}) {
      auto* button = form.findChild<QAbstractButton*>(QString::fromLatin1(ok));
      if (button != nullptr && button->isVisible()) return hand_.press(*button);
    }
    ADD_FAILURE() << "no OK in " << form.objectName().toStdString();
  };
  robot_->always("batorder", choose_man);
  robot_->always("chgbowler", choose_man);
  robot_->always("aggr", [this](QWidget& form) {
    const bool batsman = control<QAbstractButton>(form, "accept_for_batsman")->isVisible();
    hand_.press(form, batsman ? "accept_for_batsman" : "accept_for_bowler");
  });
}

void Walk::answer_the_rest() {
  for (const char* name :
       {"message",   "batsmandetails", "scorecard", "scorecard2",  "Bowlcard", "bowlcard2nd", "partners",
        "partners2", "graphs",         "worms",     "matchrep",    "help",     "sri_result",  "triserresult",
        "wc_fix",    "wcsstab",        "Sqdet",     "teamdet",     "reclists", "optfrm",      "frmAbout",
        "messages",  "recbook",        "archpage",  "matchcentre", "captaincy"}) {
    robot_->always(name, [this](QWidget& form) { hand_.press(form, "accept"); });
  }
  for (const char* name : {"Progressbar", "unstopped"}) robot_->always(name, [](QWidget&) {});
}

void Walk::look_once(QWidget& form) {
  const std::string name = form.objectName().toStdString();
  if (seen.insert(name + (match.first_total != 0 ? " 2" : "")).second) look_at(form);
  seen.insert(name);
}

void Walk::look_at(QWidget& form) {
  QWidget& window = *form.window();
  if (&window == &form || looking_) return;  // a dialog of the desktop; what passes while another form is looked at
  const QScopedValueRollback<bool> one_at_a_time(looking_, true);
  for (const QSize size : sizes_for(way_)) {
    window.resize(size);
    settle_forms();
    look_in_size(form, size);
  }
  window.resize(at_work);
  settle_forms();
}

void Walk::look_in_size(QWidget& form, QSize size) {
  QWidget& window = *form.window();
  SCOPED_TRACE(form.objectName().toStdString() + " at " + std::to_string(size.width()) + "x" +
               std::to_string(size.height()));
  EXPECT_EQ(window.size(), size) << "it asks for more";
  EXPECT_TRUE(window.rect().contains(QRect(form.mapTo(&window, QPoint()), form.size())));
  EXPECT_FALSE(form.windowTitle().trimmed().isEmpty());
  check_controls(form);
  check_layout(form);
  check_painted_texts(form);
  if (form.objectName() != QLatin1String("main")) check_room(form);
  const auto* of_game = qobject_cast<const Form*>(&form);
  if (of_game != nullptr && of_game->place() == Form::Place::sheet) check_end_of_sheet(form);
  terms_ += check_terms(form);
  // What passes by stands whole in the bar.
  const auto* passing = window.findChild<QLabel*>(QStringLiteral("passing"));
  if (passing != nullptr && passing->isVisible()) {
    EXPECT_LE(passing->fontMetrics().horizontalAdvance(passing->text()), passing->width())
        << passing->text().toStdString();
    seen.insert("passing strip");
  }
}

void Walk::look_at_torn(QWidget& form) {
  EXPECT_EQ(form.window(), &form);
  form.resize(at_work);
  settle_forms();
  check_window(form);
  check_layout(form);
  check_painted_texts(form);
  seen.insert("torn off");
}

void Walk::expect_seen(std::initializer_list<const char*> names) {
  for (const char* name : names) EXPECT_TRUE(seen.contains(name)) << name;
}

}  // namespace velorin::testing
