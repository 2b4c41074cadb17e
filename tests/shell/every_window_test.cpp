// SPDX-License-Identifier: GPL-3.0-or-later
// Every window of the game, met on its way through all activities, by its accessible interface: the windows behind it
// are dead, and a control does by an assistive action what it does by a click.
#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QTest>
#include <set>
#include <utility>
#include <vector>

#include "desktop/frame.h"
#include "desktop/modality.h"
#include "model/match_state.h"
#include "shell/game_fixture.h"
#include "shell/menu_entry.h"
#include "support/game_in_play.h"
#include "windows/accessible_user.h"
#include "windows/term_checks.h"

namespace velorin::testing {
namespace {

class EveryWindow : public GameTest {
 protected:
  EveryWindow() {
    user.robot.at_sight([this](QWidget& window) {
      look_behind(window);
      const bool chase = match.first_total != 0;
      if (explained.insert({window.objectName().toStdString(), chase}).second) terms += check_terms(window);
      if (seen.insert(window.objectName().toStdString()).second) ticks += check_toggles(window);
    });
  }

  /// The forms that another one stands over, on show or hidden behind it.
  static std::vector<Form*> forms_behind(const QWidget& top) {
    std::vector<Form*> behind;
    for (QWidget* widget : QApplication::allWidgets()) {
      auto* form = qobject_cast<Form*>(widget);
      if (form == nullptr || form == &top || form->objectName() == "Progressbar") continue;
      if (form->isWindow() ? form->isVisible() : form->parentWidget()->objectName() != "resting")
        behind.push_back(form);
    }
    return behind;
  }

  /// Tries every control of the forms behind, once for each pair.
  void look_behind(const QWidget& top) {
    bool tried = false;
    for (Form* behind : forms_behind(top)) {
      SCOPED_TRACE(behind->objectName().toStdString() + " behind " + top.objectName().toStdString());
      const std::string pair = behind->objectName().toStdString() + " < " + top.objectName().toStdString();
      if (!pairs.insert(pair).second) continue;
      tried = true;
      EXPECT_TRUE(is_covered(*behind));
      for (QWidget* widget : behind->findChildren<QWidget*>()) {
        if (widget->window() != behind->window()) continue;
        EXPECT_TRUE(QAccessible::queryAccessibleInterface(widget)->state().disabled)
            << widget->metaObject()->className() << " " << widget->objectName().toStdString();
      }
      const QString before = state_of(*behind);
      EXPECT_GT(try_everything(*behind), 0);
      EXPECT_EQ(state_of(*behind).toStdString(), before.toStdString());
    }
    if (!tried) return;
    const auto forms = forms_behind(top).size();
    QTest::qWait(120);  // an assistive press takes effect a moment later
    EXPECT_EQ(forms_behind(top).size(), forms) << top.objectName().toStdString();
    EXPECT_EQ(waiting_window(), &top);
  }

  ClickingUser user;
  std::set<std::string> seen;
  std::set<std::string> pairs;
  int ticks = 0;
  int terms = 0;
  std::set<std::pair<std::string, bool>> explained;  // windows, in each innings
};

TEST_F(EveryWindow, AMatchAndItsReports) {
  user.robot.next("teamfrm", [](QWidget& window) {
    ClickingUser::choose_match(window, 4, 7, true, true);
    press(window, "accept");
  });
  user.robot.next("nextball", pressing("accept"));
  // At the second over every report and every dialog of the console, from them what they open.
  bool done = false;
  user.robot.always("main", [&](QWidget& window) {
    if (match.over_no == 2 && !done) {
      done = true;
      for (const char* name :
           {"forecast", "next_ball", "forecast", "batsman_aggression_0", "bowler_aggression_0", "change_bowler",
            "show_worm", "show_overs_graph", "show_match_centre", "batsman_profile_0"}) {
        press(window, name);
      }
      user.robot.next("scorecard", [](QWidget& card) {
        for (const char* name :
             {"batting_name_1", "show_bowling", "show_partnerships", "show_overs_graph", "show_worm_graph", "accept"}) {
          press(card, name);
        }
      });
      press(window, "show_scorecard");
    }
    press(window, "next_over");
  });
  play([&](MenuWindow& menu) { choose(menu, "start_game", "new_match"); });
  for (const char* name :
       {"teamfrm", "wecond", "Teamsel", "toss", "batorder", "chgbowler", "main", "aggr", "message", "scorecard",
        "batsmandetails", "Bowlcard", "partners", "graphs", "worms", "matchrep", "matchcentre", "nextball"}) {
    EXPECT_TRUE(seen.contains(name)) << name;
  }
  for (const char* pair :
       {"opening < teamfrm", "opening < main", "opening < scorecard", "main < scorecard", "main < batsmandetails",
        "main < matchrep", "scorecard < batsmandetails", "scorecard < graphs", "main < aggr"}) {
    EXPECT_TRUE(pairs.contains(pair)) << pair;
  }
  EXPECT_GT(ticks, 40);
  EXPECT_GT(terms, 60);
  EXPECT_FALSE(match.result_margin.empty());
}

TEST_F(EveryWindow, Competitions) {
  for (const char* name : {"series1", "series2", "wctable"}) {
    user.robot.next(name, [](QWidget& window) {
      for (auto* list : window.findChildren<QComboBox*>()) EXPECT_FALSE(list->accessibleName().isEmpty());
      press(window, "cancel");
    });
  }
  play([&](MenuWindow& menu) {
    for (const char* entry : {"new_series", "tri_series", "world_cup"}) choose(menu, "start_game", entry);
  });
  EXPECT_EQ(seen, (std::set<std::string>{"series1", "series2", "wctable"}));
  EXPECT_GT(ticks, 20);
}

TEST_F(EveryWindow, RecordsSettingsAndCredits) {
  user.robot.otherwise([](QWidget& window) { press(window, "accept"); });
  play([&](MenuWindow& menu) {
    menu.window()->resize(1280, 800);  // the record lists stand beside their table
    for (const char* entry : {"player_profiles", "team_records", "world_rankings", "record_book"})
      choose(menu, "other_records", entry);
    choose(menu, "batting_stats", "all_batting");
    choose(menu, "bowling_stats", "all_bowling");
    press(menu, "configurations");
    press(menu, "credits");
  });
  for (const char* name : {"Sqdet", "teamdet", "reclists", "recbook", "optfrm", "frmAbout"}) {
    EXPECT_TRUE(pairs.contains(std::string("opening < ") + name)) << name;
  }
  EXPECT_EQ(user.robot.met("reclists"), 1 + 9 + 4) << "the ranking, then list after list";
  EXPECT_GT(ticks, 13) << "each list is chosen by a press and by an assistive action";
}

TEST_F(EveryWindow, NoSecondMatchStartsBehindTheFirst) {
  user.robot.next("teamfrm", [](QWidget& window) {
    ClickingUser::choose_match(window, 4, 7, true, false);
    press(window, "accept");
  });
  int tries = 0;
  user.robot.always("main", [&](QWidget& window) {
    if (++tries <= 3) {
      auto* menu = window.window()->findChild<QWidget*>(QStringLiteral("opening"));
      auto* entry = control<MenuEntry>(*menu, "new_match");
      QAccessible::queryAccessibleInterface(entry)->actionInterface()->doAction(
          QAccessibleActionInterface::pressAction());
      QTest::qWait(150);
    }
    press(window, "next_over");
  });
  play([&](MenuWindow& menu) {
    press(menu, "start_game");
    press(menu, "new_match");
  });
  EXPECT_EQ(user.robot.met("teamfrm"), 1);
  EXPECT_EQ(user.robot.met("toss"), 1);
  EXPECT_FALSE(match.result_margin.empty());
}

}  // namespace
}  // namespace velorin::testing
