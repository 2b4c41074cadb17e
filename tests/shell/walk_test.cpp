// SPDX-License-Identifier: GPL-3.0-or-later
// A walk through every page of the game in its main window: at each size nothing is clipped, out of reach or unnamed.
#include <QLineEdit>
#include <QTest>
#include <set>

#include "desktop/frame.h"
#include "desktop/preferences.h"
#include "model/match_state.h"
#include "shell/game_fixture.h"
#include "support/game_in_play.h"
#include "windows/term_checks.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

/// The fourth is a full screen of 1920x1080 at 200 %.
constexpr QSize sizes[] = {{1024, 768}, {1280, 800}, {1920, 1080}, {960, 540}, {3840, 2160}};

class Walk : public GameTest {
 protected:
  Walk() {
    preferences::set_quick_answers({});
    preferences::set_captains({true, false});
    user.robot.at_sight([this](QWidget& form) {
      if (seen.insert(form.objectName().toStdString()).second) look_at(form);
    });
  }

  static void settle() {
    for (int round = 0; round < 6; ++round) QApplication::processEvents();
  }

  void look_at(QWidget& form) {
    terms += check_terms(form);
    QWidget& window = *form.window();
    if (&window == &form) return;  // a dialog of the desktop
    const QSize before = window.size();
    for (const QSize size : sizes) {
      SCOPED_TRACE(form.objectName().toStdString() + " at " + std::to_string(size.width()) + "x" +
                   std::to_string(size.height()));
      window.resize(size);
      settle();
      EXPECT_EQ(window.size(), size) << "it asks for more";
      const QRect place(form.mapTo(&window, QPoint()), form.size());
      EXPECT_TRUE(window.rect().contains(place));
      EXPECT_FALSE(form.windowTitle().trimmed().isEmpty());
      check_controls(form);
      ++looks;
    }
    window.resize(before);
    settle();
  }

  ClickingUser user;
  std::set<std::string> seen;
  int looks = 0;
  int terms = 0;
};

TEST_F(Walk, AMatchFromTheMenuToItsReport) {
  user.robot.next("teamfrm", [](QWidget& window) {
    ClickingUser::choose_match(window, 4, 7, true, true);
    press(window, "accept");
  });
  bool done = false;
  user.robot.always("main", [&](QWidget& window) {
    if (match.over_no == 3 && match.first_total != 0 && !done) {
      done = true;
      user.robot.next("scorecard", [](QWidget& card) {
        for (const char* name : {"batting_name_1", "show_first_innings", "show_bowling", "show_partnerships",
                                 "show_overs_graph", "show_worm_graph"}) {
          if (card.findChild<QWidget*>(QString::fromLatin1(name)) != nullptr) press(card, name);
        }
        press(card, "accept");
      });
      press(window, "show_scorecard");
      press(window, "change_bowler");
      QTest::keyClick(window.focusWidget(), Qt::Key_F1);
    }
    press(window, "next_over");
  });
  user.robot.always("help", pressing("accept"));
  play([&](MenuWindow& menu) {
    look_at(menu);
    choose(menu, "start_game", "new_match");
  });
  for (const char* name : {"teamfrm", "wecond", "Teamsel", "toss", "batorder", "chgbowler", "main", "message", "help",
                           "scorecard", "batsmandetails", "Bowlcard", "partners", "graphs", "worms", "matchrep"}) {
    EXPECT_TRUE(seen.contains(name)) << name;
  }
  EXPECT_GT(terms, 60);
}

TEST_F(Walk, CompetitionsRecordsAndSettings) {
  user.robot.next("series1", [](QWidget& window) {
    control<QLineEdit>(window, "matches")->setText(QStringLiteral("2"));
    press(window, "accept");
  });
  user.robot.next("series2", pressing("accept"));
  user.robot.next("wctable", pressing("accept"));
  int lists = 0;
  user.robot.always("wc_fix", [&](QWidget& window) { press(window, ++lists == 3 ? "quit" : "accept"); });
  for (const char* name : {"reclists", "teamdet", "optfrm", "frmAbout"}) user.robot.always(name, pressing("accept"));
  user.robot.always("quick", pressing("cancel"));
  user.robot.always("jump", pressing("cancel"));
  play([&](MenuWindow& menu) {
    press(menu, "quick_match");
    QTest::keyClick(menu.focusWidget(), Qt::Key_K, Qt::ControlModifier);
    for (const char* entry : {"new_series", "tri_series", "world_cup"}) choose(menu, "start_game", entry);
    for (const char* entry : {"player_profiles", "team_records", "world_rankings"}) {
      choose(menu, "other_records", entry);
    }
    choose(menu, "batting_stats", "highest_totals");
    press(menu, "configurations");
    press(menu, "credits");
  });
  for (const char* name : {"series1", "sri_result", "series2", "triserresult", "wctable", "wc_fix", "wcsstab", "Sqdet",
                           "teamdet", "reclists", "optfrm", "frmAbout", "quick", "jump"}) {
    EXPECT_TRUE(seen.contains(name)) << name;
  }
}

}  // namespace
}  // namespace velorin::testing
