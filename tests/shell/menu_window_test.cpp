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
  for (const char* entry : {"Label1", "Label2", "Label3", "Label4"}) {
    press(menu, entry);
    check_window_at_sizes(menu);
    take_picture(menu, (std::string("opening_") + entry).c_str());
    menu.reject();
  }
}

TEST_F(MenuWindowTest, PanelsHoldTheirEntries) {
  using list = std::vector<std::string>;
  EXPECT_EQ(texts("Picture2"), (list{"Start Game", "Batting Stats", "Bowling Stats", "Other Records", "Configurations",
                                     "Credits", "Exit"}));
  EXPECT_EQ(texts("Picture1_0"), (list{"New Match", "New Series", "Tri Series", "World Cup", "<<Back"}));
  EXPECT_EQ(texts("Picture1_1"), (list{"Player Profiles", "Team Records", "World Rankings", "<<Back"}));
  EXPECT_EQ(texts("Picture1_2"),
            (list{"All Batting Stats", "Highest Totals", "Lowest Totals", "Highest Individual Scores",
                  "Most Runs Scored", "Highest Averages", "% Innings 50 or More", "Top Century Makers",
                  "Highest Strike Rates", "Record Partnerships", "<<Back"}));
  EXPECT_EQ(texts("Picture1_3"), (list{"All Bowling Stats", "Most Wickets", "Best Bowling Averages",
                                       "Best Economy Rates", "Best Bowling Analysis", "<<Back"}));
}

TEST_F(MenuWindowTest, OnePanelIsVisibleAtATime) {
  const std::pair<const char*, const char*> ways[] = {
      {"Label1", "Picture1_0"}, {"Label4", "Picture1_1"}, {"Label2", "Picture1_2"}, {"Label3", "Picture1_3"}};
  const char* const backs[] = {"back1", "back2", "back3", "back4"};
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_TRUE(visible("Picture2"));
    press(menu, ways[i].first);
    EXPECT_FALSE(visible("Picture2"));
    EXPECT_TRUE(visible(ways[i].second));
    press(menu, backs[i]);
    EXPECT_FALSE(visible(ways[i].second));
  }
  EXPECT_TRUE(visible("Picture2"));
}

TEST_F(MenuWindowTest, ThePointerHighlightsOneEntryAlone) {
  auto* first = control<MenuEntry>(menu, "Label1");
  auto* third = control<MenuEntry>(menu, "Label3");
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
  auto* entry = control<MenuEntry>(menu, "Label2");
  const auto move = [&] {
    QMouseEvent over(QEvent::MouseMove, QPointF(6, 6), entry->mapToGlobal(QPointF(6, 6)), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QApplication::sendEvent(entry, &over);
  };
  move();
  EXPECT_TRUE(entry->highlighted());
  press(menu, "Label2");
  press(menu, "back3");
  EXPECT_FALSE(entry->highlighted()) << "the menu is back as it was";
  move();
  EXPECT_TRUE(entry->highlighted());
  EXPECT_FALSE(control<MenuEntry>(menu, "Label1")->highlighted());
}

TEST_F(MenuWindowTest, BackIsSpokenWithoutItsSigns) {
  for (const char* name : {"back1", "back2", "back3", "back4"}) {
    EXPECT_EQ(control<MenuEntry>(menu, name)->accessibleName(), "Back") << name;
  }
}

TEST_F(MenuWindowTest, TheAppearanceHasItsKeyOnEveryPanel) {
  const auto* choice = control<QComboBox>(menu, "appearance");
  for (const char* entry : {"", "Label1", "Label2", "Label3", "Label4"}) {
    if (*entry != '\0') press(menu, entry);
    QTest::keyClick(&menu, Qt::Key_N, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([choice] { return choice->hasFocus(); })) << entry;
    menu.reject();
  }
}

TEST_F(MenuWindowTest, TheKeyboardReachesEverything) {
  EXPECT_TRUE(control<MenuEntry>(menu, "Label1")->hasFocus());
  QTest::keyClick(menu.focusWidget(), Qt::Key_Down);
  EXPECT_TRUE(control<MenuEntry>(menu, "Label2")->hasFocus());
  QTest::keyClick(menu.focusWidget(), Qt::Key_Up);
  QTest::keyClick(menu.focusWidget(), Qt::Key_Up);
  EXPECT_TRUE(control<MenuEntry>(menu, "Label7")->hasFocus());
  QTest::keyClick(menu.focusWidget(), Qt::Key_Down);
  QTest::keyClick(menu.focusWidget(), Qt::Key_Return);
  EXPECT_TRUE(visible("Picture1_0"));
  QTest::keyClick(menu.focusWidget(), Qt::Key_Escape);
  EXPECT_TRUE(visible("Picture2"));
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
  press(menu, "Label7");
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
    press(window, "Command1");
  });
  user.robot.always("allrecs", [&](QWidget& window) {
    titles.push_back(window.windowTitle().toStdString());
    press(window, "Command1");
  });
  play([&](MenuWindow& menu) { choose(menu, "Label2", "Label12"); });
  EXPECT_EQ(user.robot.met(), (std::vector<std::string>{"totrecords", "totrecords", "highinduv", "allrecs", "allrecs",
                                                        "allrecs", "allrecs", "centurytop", "partnrec"}));
  ASSERT_EQ(titles.size(), 9U);
  EXPECT_EQ(titles[0], "Highest Totals in ODI's");
  EXPECT_EQ(titles[1], "Lowest Totals in ODI's");
  EXPECT_EQ(titles[2], "Highest Induvidual Scores");
  EXPECT_EQ(titles[3], "Records - Most Runs");
  EXPECT_EQ(titles[4], "Records - Highest Averages");
  EXPECT_EQ(titles[5], "Records - Highest Strike Rate");
  EXPECT_EQ(titles[6], "Records - Innings% (50 or more)");
  EXPECT_EQ(titles[7], "Top Century Makers");
}

TEST_F(AllStats, AllBowlingStatsOpensFourListsInTheirOrder) {
  ClickingUser user;
  std::vector<std::string> titles;
  const auto note = [&](QWidget& window) {
    titles.push_back(window.windowTitle().toStdString());
    press(window, "Command1");
  };
  user.robot.otherwise(note);
  user.robot.always("allrecs", note);
  play([&](MenuWindow& menu) { choose(menu, "Label3", "Label22"); });
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
      {"Label2", "Label13", "totrecords", "Highest Totals in ODI's"},
      {"Label2", "Label14", "totrecords", "Lowest Totals in ODI's"},
      {"Label2", "Label15", "highinduv", "Highest Induvidual Scores"},
      {"Label2", "Label16", "allrecs", "Records - Most Runs"},
      {"Label2", "Label17", "allrecs", "Records - Highest Averages"},
      {"Label2", "Label18", "allrecs", "Records - Innings% (50 or more)"},
      {"Label2", "Label19", "centurytop", "Top Century Makers"},
      {"Label2", "Label20", "allrecs", "Records - Highest Strike Rate"},
      {"Label2", "Label21", "partnrec", nullptr},
      {"Label3", "Label23", "allrecs", "Bowling Records - Most Wickets"},
      {"Label3", "Label24", "allrecs", "Bowling Records - Best Average"},
      {"Label3", "Label25", "allrecs", "Bowling Records - Best Economy Rate"},
      {"Label3", "Label26", "highinduv", "Best Bowling Figures"},
      {"Label4", "Label27", "Sqdet", "Player Profiles"},
      {"Label4", "Label28", "teamdet", nullptr},
      {"Label4", "Label29", "wldrank", "Top Ten Teams"},
      {"Label1", "Label9", "series1", nullptr},
      {"Label1", "Label10", "series2", nullptr},
      {"Label1", "Label11", "wctable", nullptr},
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
      const bool competition = std::string(way.panel) == "Label1";
      press(window, competition ? "Command2" : "Command1");
    };
    user.robot.always(way.window, note);
    play([&](MenuWindow& menu) { choose(menu, way.panel, way.entry); });
    EXPECT_EQ(user.robot.met().size(), 1U);
  }
}

}  // namespace
}  // namespace velorin::testing
