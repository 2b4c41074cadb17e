// SPDX-License-Identifier: GPL-3.0-or-later
// The pages and boxes beside a match: reports, competitions' forms, questions, settings, games that are kept.
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <optional>
#include <string>

#include "desktop/moment.h"
#include "desktop/preferences.h"
#include "model/match_state.h"
#include "model/random.h"
#include "shell/clicking_user.h"
#include "shell/menu_window.h"
#include "shell/pictures.h"
#include "support/failing_disk.h"
#include "support/game_in_play.h"

namespace velorin::testing {

namespace {

Robot::answer taking(const char* name, const char* then) {
  return [name, then](QWidget& window) {
    take(window, name);
    press(window, then);
  };
}

/// The reports of both innings, what the captain is asked, and what passes by or is celebrated.
void show_reports(QWidget& console, ClickingUser& user) {
  user.robot.next("aggr", taking("aggression-batsman", "accept_for_batsman"));
  user.robot.next("aggr", taking("aggression-bowler", "accept_for_bowler"));
  press(console, "batsman_aggression_0");
  press(console, "bowler_aggression_0");
  user.robot.next("scorecard", [](QWidget& card) {
    for (const char* name : {"batting_name_1", "show_first_innings", "show_bowling", "show_partnerships", "accept"}) {
      press(card, name);
    }
  });
  user.robot.next("batsmandetails", taking("batsman-details", "accept"));
  user.robot.next("scorecard2", [](QWidget& card) {
    take(card, "first-scorecard");
    for (const char* name : {"show_bowling", "show_partnerships", "accept"}) press(card, name);
  });
  user.robot.next("bowlcard2nd", taking("first-bowling", "accept"));
  user.robot.next("partners2", taking("first-partnerships", "accept"));
  user.robot.next("Bowlcard", taking("bowling", "accept"));
  user.robot.next("partners", taking("partnerships", "accept"));
  press(console, "show_scorecard");
  preferences::set_moments(true);
  const QString batsman = control<QPushButton>(console, "batsman_profile_1")->text().section(u' ', 0, 0);
  celebrate(console, MomentKind::hundred, batsman + QStringLiteral(" 100(116) has reached his century!"),
            control<QWidget>(console, "charts"));
  QTest::qWait(500);
  take(console, "moment");
  end_moment(console);
  preferences::set_moments(false);
}

}  // namespace

void picture_reports(MenuWindow& menu) {
  chance.use_seed(7);
  ClickingUser user;
  user.robot.next("teamfrm", [](QWidget& window) {
    ClickingUser::choose_match(window, 0, 2, true, true);
    press(window, "accept");
  });
  user.robot.next("wecond", [&](QWidget& window) {
    user.robot.next("leave_question", taking("leave-question", "no"));
    QTest::keyClick(&window, Qt::Key_Escape);
    press(window, "accept");
  });
  bool shown = false;
  user.robot.always("main", [&](QWidget& console) {
    if (match.first_total != 0 && match.over_no >= 24 && !shown) {
      shown = true;
      show_reports(console, user);
    }
    press(console, "next_over");
  });
  open(menu, "start_game", "new_match");
}

void picture_places(MenuWindow& menu) {
  ClickingUser user;
  for (const char* panel : {"start_game", "other_records", "batting_stats", "bowling_stats"}) {
    press(menu, panel);
    take(menu, (std::string("menu-") + panel).c_str());
    menu.reject();
  }
  user.robot.next("teamdet", [](QWidget& window) {
    auto* teams = control<QComboBox>(window, "teams");
    teams->setCurrentIndex(1);
    emit teams->activated(1);
    take(window, "team-records");
    press(window, "accept");
  });
  open(menu, "other_records", "team_records");
  user.robot.next("optfrm", [&](QWidget& window) {
    user.robot.next("anew_question", taking("anew-question", "no"));
    user.robot.next("messages", taking("messages", "accept"));
    user.robot.next("captaincy", taking("captaincy", "accept"));
    for (const char* name : {"begin_anew", "messages", "captaincy", "accept"}) press(window, name);
  });
  press(menu, "configurations");
  user.robot.next("frmAbout", taking("credits", "accept"));
  press(menu, "credits");
}

void picture_entries(MenuWindow& menu) {
  chance.use_seed(5);
  ClickingUser user;
  user.robot.next("series1", [](QWidget& window) {
    take(window, "series-form");
    control<QLineEdit>(window, "matches")->setText(QStringLiteral("1"));
    press(window, "accept");
  });
  std::optional<small_disk> full;
  user.robot.always("message", [&](QWidget& window) {
    if (window.windowTitle() == QStringLiteral("End of Match")) {
      take(window, "end-of-match");
      full.emplace(1000);
    }
    press(window, "accept");
  });
  user.robot.always("save_failed", [&](QWidget& window) {
    full.reset();
    take(window, "save-failed");
    press(window, "retry");
  });
  open(menu, "start_game", "new_series");
  preferences::set_plays_without_stopping(QStringLiteral("series2"), true);
  user.robot.next("series2", taking("tri-series-form", "accept"));
  bool taken = false;
  user.robot.always("unstopped", [&](QWidget& window) {
    if (!taken) take(window, "unstopped");
    taken = true;
  });
  open(menu, "start_game", "tri_series");
  preferences::set_plays_without_stopping(QStringLiteral("series2"), false);
  user.robot.next("wctable", [&](QWidget& window) { press(window, "accept"); });
  user.robot.next("wc_fix", [&](QWidget& window) {
    user.robot.next("quit_question", taking("quit-question", "yes"));
    press(window, "quit");
  });
  open(menu, "start_game", "world_cup");
}

void picture_keeping(MenuWindow& menu) {
  chance.use_clock();  // as a game needs that is kept
  ClickingUser user;
  user.robot.always("quick", pressing("accept"));
  int overs = 0;
  user.robot.always("main", [&](QWidget& console) {
    if (++overs < 9) return press(console, "next_over");
    user.robot.next("game_name", [](QWidget& window) {
      control<QLineEdit>(window, "name")->setText(QStringLiteral("A fine evening"));
      take(window, "game-name");
      press(window, "accept");
    });
    press(*console.window(), "save_game");
    user.robot.next("keep_question", [](QWidget& window) {
      take(window, "keep-question");
      press(window, "stay");
    });
    press(console, "quit");
    user.robot.always("main", pressing("next_over"));
    press(console, "next_over");
  });
  press(menu, "quick_match");
  take(menu, "menu-with-games");
  user.robot.next("savedgames", [&](QWidget& window) {
    take(window, "saved-games");
    user.robot.next("delete_question", taking("delete-question", "no"));
    press(window, "delete_game");
    press(window, "watch");
  });
  user.robot.next("savedgames", pressing("close"));
  user.robot.next("watch", [&](QWidget& window) {
    for (int over = 0; over < 20; ++over) press(window, "over_on");
    press(window, "next_wicket");
    QTest::qWait(1500);  // for the forecast
    take(window, "watch");
    user.robot.next("scorecard", taking("watch-scorecard", "accept"));
    press(window, "show_scorecard");
    press(window, "close");
  });
  press(menu, "saved_games");
}

}  // namespace velorin::testing
