// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/menu_window.h"

#include <QComboBox>
#include <QTest>

#include "desktop/preferences.h"
#include "desktop/program_end.h"
#include "desktop/theme.h"
#include "shell/game_fixture.h"
#include "shell/menu_entry.h"
#include "support/game_in_play.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

class MenuWindowTest : public GameTest {
 protected:
  MenuWindowTest() : in_use_(front_), menu(front_) {
    menu.show();
    menu.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&menu));
    menu.start();
  }

  bool visible(const char* panel) const { return control<QWidget>(menu, panel)->isVisible(); }
  std::vector<std::string> texts(const char* panel) const {
    std::vector<std::string> found;
    for (const MenuEntry* entry : control<QWidget>(menu, panel)->findChildren<MenuEntry*>()) {
      found.push_back(entry->text().remove(QLatin1Char('&')).toStdString());
    }
    return found;
  }

  QtFrontEnd front_{tested_game};
  front_end_scope in_use_;
  MenuWindow menu;
};

TEST_F(MenuWindowTest, EveryPanelPassesTheChecks) {
  take_picture(menu, "opening");
  check_window_at_sizes(menu);
  for (const char* entry : {"start_game", "batting_stats", "bowling_stats", "other_records"}) {
    press(menu, entry);
    check_window_at_sizes(menu);
    take_picture(menu, (std::string("opening_") + entry).c_str());
    menu.reject();
  }
}

TEST_F(MenuWindowTest, PanelsHoldTheirEntries) {
  using list = std::vector<std::string>;
  EXPECT_EQ(texts("main_panel"), (list{"Continue", "Quick Match", "Start Game", "Saved Games", "Batting Stats",
                                       "Bowling Stats", "Other Records", "Configurations", "Credits", "Exit"}));
  EXPECT_EQ(texts("start_panel"), (list{"New Match", "New Series", "Tri Series", "World Cup", "<<Back"}));
  EXPECT_EQ(texts("other_panel"), (list{"Player Profiles", "Team Records", "World Rankings", "Record Book", "<<Back"}));
  EXPECT_EQ(texts("batting_panel"),
            (list{"All Batting Stats", "Highest Totals", "Lowest Totals", "Highest Individual Scores",
                  "Most Runs Scored", "Highest Averages", "% Innings 50 or More", "Top Century Makers",
                  "Highest Strike Rates", "Record Partnerships", "<<Back"}));
  EXPECT_EQ(texts("bowling_panel"), (list{"All Bowling Stats", "Most Wickets", "Best Bowling Averages",
                                          "Best Economy Rates", "Best Bowling Analysis", "<<Back"}));
}

TEST_F(MenuWindowTest, OnePanelIsVisibleAtATime) {
  const std::pair<const char*, const char*> ways[] = {{"start_game", "start_panel"},
                                                      {"other_records", "other_panel"},
                                                      {"batting_stats", "batting_panel"},
                                                      {"bowling_stats", "bowling_panel"}};
  const char* const backs[] = {"start_back", "other_back", "batting_back", "bowling_back"};
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_TRUE(visible("main_panel"));
    press(menu, ways[i].first);
    EXPECT_FALSE(visible("main_panel"));
    EXPECT_TRUE(visible(ways[i].second));
    press(menu, backs[i]);
    EXPECT_FALSE(visible(ways[i].second));
  }
  EXPECT_TRUE(visible("main_panel"));
}

TEST_F(MenuWindowTest, ThePointerHighlightsOneEntryAlone) {
  auto* first = control<MenuEntry>(menu, "start_game");
  auto* third = control<MenuEntry>(menu, "bowling_stats");
  const auto enter = [](MenuEntry* entry) {
    QEnterEvent event(QPointF(5, 5), QPointF(5, 5), entry->mapToGlobal(QPointF(5, 5)));
    QApplication::sendEvent(entry, &event);
  };
  enter(first);
  EXPECT_TRUE(first->highlighted());
  enter(third);
  EXPECT_FALSE(first->highlighted());
  EXPECT_TRUE(third->highlighted());
  QMouseEvent outside(QEvent::MouseMove, QPointF(10, 10), menu.mapToGlobal(QPointF(10, 10)), Qt::NoButton, Qt::NoButton,
                      Qt::NoModifier);
  QApplication::sendEvent(&menu, &outside);
  for (const MenuEntry* entry : menu.findChildren<MenuEntry*>()) EXPECT_FALSE(entry->highlighted());
}

TEST_F(MenuWindowTest, APointerThatStayedOverAnEntryHighlightsItAgain) {
  auto* entry = control<MenuEntry>(menu, "batting_stats");
  const auto move = [&] {
    QMouseEvent over(QEvent::MouseMove, QPointF(6, 6), entry->mapToGlobal(QPointF(6, 6)), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QApplication::sendEvent(entry, &over);
  };
  move();
  EXPECT_TRUE(entry->highlighted());
  press(menu, "batting_stats");
  press(menu, "batting_back");
  EXPECT_FALSE(entry->highlighted()) << "the menu is back as it was";
  move();
  EXPECT_TRUE(entry->highlighted());
  EXPECT_FALSE(control<MenuEntry>(menu, "start_game")->highlighted());
}

TEST_F(MenuWindowTest, BackIsSpokenWithoutItsSigns) {
  for (const char* name : {"start_back", "other_back", "batting_back", "bowling_back"}) {
    EXPECT_EQ(control<MenuEntry>(menu, name)->accessibleName(), "Back") << name;
  }
}

TEST_F(MenuWindowTest, TheAppearanceHasItsKeyOnEveryPanel) {
  const auto* choice = control<QComboBox>(menu, "appearance");
  for (const char* entry : {"", "start_game", "batting_stats", "bowling_stats", "other_records"}) {
    if (*entry != '\0') press(menu, entry);
    QTest::keyClick(&menu, Qt::Key_N, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([choice] { return choice->hasFocus(); })) << entry;
    menu.reject();
  }
}

TEST_F(MenuWindowTest, TheKeyboardReachesEverything) {
  EXPECT_TRUE(control<MenuEntry>(menu, "quick_match")->hasFocus());
  QTest::keyClick(menu.focusWidget(), Qt::Key_Down);
  EXPECT_TRUE(control<MenuEntry>(menu, "start_game")->hasFocus());
  QTest::keyClick(menu.focusWidget(), Qt::Key_Down);
  EXPECT_TRUE(control<MenuEntry>(menu, "batting_stats")->hasFocus());
  for (int i = 0; i < 3; ++i) QTest::keyClick(menu.focusWidget(), Qt::Key_Up);
  EXPECT_TRUE(control<MenuEntry>(menu, "exit")->hasFocus());
  QTest::keyClick(menu.focusWidget(), Qt::Key_Down);
  QTest::keyClick(menu.focusWidget(), Qt::Key_Down);
  QTest::keyClick(menu.focusWidget(), Qt::Key_Return);
  EXPECT_TRUE(visible("start_panel"));
  QTest::keyClick(menu.focusWidget(), Qt::Key_Escape);
  EXPECT_TRUE(visible("main_panel"));
  QTest::keyClick(menu.focusWidget(), Qt::Key_Escape);
  EXPECT_TRUE(menu.isVisible());
}

TEST_F(MenuWindowTest, TheAppearanceIsAppliedAndRemembered) {
  auto* choice = control<QComboBox>(menu, "appearance");
  const Appearance before = theme().dark ? Appearance::dark : Appearance::light;
  emit choice->activated(static_cast<int>(Appearance::high_contrast));
  EXPECT_TRUE(theme().high_contrast);
  EXPECT_EQ(preferences::appearance(), Appearance::high_contrast);
  take_picture(menu, "opening_contrast");
  emit choice->activated(static_cast<int>(before));
  EXPECT_FALSE(theme().high_contrast);
}

TEST_F(MenuWindowTest, ExitEndsTheProgram) {
  press(menu, "exit");
  EXPECT_TRUE(program_is_ending());
  EXPECT_FALSE(menu.isVisible());
  begin_again();
}

class AllStats : public GameTest {};

TEST_F(AllStats, AllBattingStatsOpensNineListsInTheirOrder) {
  ClickingUser user;
  std::vector<std::string> titles;
  user.robot.otherwise([&](QWidget& window) {
    titles.push_back(window.windowTitle().toStdString());
    press(window, "accept");
  });
  play([&](MenuWindow& menu) { choose(menu, "batting_stats", "all_batting"); });
  EXPECT_EQ(user.robot.met("reclists"), 9);
  ASSERT_EQ(titles.size(), 9U);
  EXPECT_EQ(titles[0], "Highest Totals in ODI's");
  EXPECT_EQ(titles[1], "Lowest Totals in ODI's");
  EXPECT_EQ(titles[2], "Highest Induvidual Scores");
  EXPECT_EQ(titles[3], "Records - Most Runs");
  EXPECT_EQ(titles[4], "Records - Highest Averages");
  EXPECT_EQ(titles[5], "Records - Highest Strike Rate");
  EXPECT_EQ(titles[6], "Records - Innings% (50 or more)");
  EXPECT_EQ(titles[7], "Top Century Makers");
  EXPECT_EQ(titles[8], "Record Partnerships");
}

TEST_F(AllStats, AllBowlingStatsOpensFourListsInTheirOrder) {
  ClickingUser user;
  std::vector<std::string> titles;
  const auto note = [&](QWidget& window) {
    titles.push_back(window.windowTitle().toStdString());
    press(window, "accept");
  };
  user.robot.otherwise(note);
  play([&](MenuWindow& menu) { choose(menu, "bowling_stats", "all_bowling"); });
  EXPECT_EQ(titles, (std::vector<std::string>{"Bowling Records - Most Wickets", "Bowling Records - Best Average",
                                              "Bowling Records - Best Economy Rate", "Best Bowling Figures"}));
}

TEST_F(AllStats, EveryEntryOpensItsList) {
  struct Way {
    const char* panel;
    const char* entry;
    const char* window;
    const char* title;
  };
  const Way ways[] = {
      {"batting_stats", "highest_totals", "reclists", "Highest Totals in ODI's"},
      {"batting_stats", "lowest_totals", "reclists", "Lowest Totals in ODI's"},
      {"batting_stats", "highest_scores", "reclists", "Highest Induvidual Scores"},
      {"batting_stats", "most_runs", "reclists", "Records - Most Runs"},
      {"batting_stats", "highest_averages", "reclists", "Records - Highest Averages"},
      {"batting_stats", "innings_of_fifty", "reclists", "Records - Innings% (50 or more)"},
      {"batting_stats", "century_makers", "reclists", "Top Century Makers"},
      {"batting_stats", "highest_strike_rates", "reclists", "Records - Highest Strike Rate"},
      {"batting_stats", "partnerships", "reclists", "Record Partnerships"},
      {"bowling_stats", "most_wickets", "reclists", "Bowling Records - Most Wickets"},
      {"bowling_stats", "best_averages", "reclists", "Bowling Records - Best Average"},
      {"bowling_stats", "best_economy_rates", "reclists", "Bowling Records - Best Economy Rate"},
      {"bowling_stats", "best_analysis", "reclists", "Best Bowling Figures"},
      {"other_records", "player_profiles", "Sqdet", "Player Profiles"},
      {"other_records", "team_records", "teamdet", nullptr},
      {"other_records", "world_rankings", "reclists", "Top Ten Teams"},
      {"other_records", "record_book", "recbook", "Record Book"},
      {"start_game", "new_series", "series1", nullptr},
      {"start_game", "tri_series", "series2", nullptr},
      {"start_game", "world_cup", "wctable", nullptr},
  };
  for (const Way& way : ways) {
    SCOPED_TRACE(way.entry);
    ClickingUser user;
    const auto note = [&](QWidget& window) {
      EXPECT_EQ(window.objectName(), QLatin1String(way.window));
      if (way.title != nullptr) {
        EXPECT_EQ(window.windowTitle(), QLatin1String(way.title));
      }
      check_window_at_sizes(window);
      const bool competition = std::string(way.panel) == "start_game";
      press(window, competition ? "cancel" : "accept");
    };
    user.robot.always(way.window, note);
    play([&](MenuWindow& menu) { choose(menu, way.panel, way.entry); });
    EXPECT_EQ(user.robot.met().size(), 1U);
  }
}

}  // namespace
}  // namespace velorin::testing
