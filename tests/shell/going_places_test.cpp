// SPDX-License-Identifier: GPL-3.0-or-later
// Ctrl+K goes anywhere by typing; F1 tells what one can do.
#include <gmock/gmock.h>

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <fstream>
#include <regex>

#include "desktop/frame.h"
#include "desktop/help_window.h"
#include "desktop/table_view.h"
#include "shell/filled_careers.h"
#include "shell/game_fixture.h"
#include "shell/jump_window.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

TEST(PlacesWith, TheNearestComeFirst) {
  const QStringList names = {QStringLiteral("New Series"), QStringLiteral("Series"), QStringLiteral("A.New"),
                             QStringLiteral("Renew"), QStringLiteral("Other")};
  EXPECT_EQ(places_with(names, QStringLiteral("new")), (std::vector<int>{0, 2, 3}));
  EXPECT_EQ(places_with(names, QStringLiteral("SERIES ")), (std::vector<int>{1, 0}));
  EXPECT_EQ(places_with(names, QStringLiteral("ies ne")), (std::vector<int>{0}));
  EXPECT_EQ(places_with(names, {}), (std::vector<int>{0, 1, 2, 3, 4}));
  EXPECT_TRUE(places_with(names, QStringLiteral("xyz")).empty());
}

class GoingPlaces : public GameTest {};

TEST_F(GoingPlaces, CtrlKLeadsToAPageATeamAndAPlayer) {
  fill_careers();
  ClickingUser user;
  std::vector<std::string> typed = {"highest tot", "Cork", "Cork4"};
  std::size_t turn = 0;
  user.robot.always("jump", [&](QWidget& window) {
    if (turn == 0) check_window(window);
    auto* words = control<QLineEdit>(window, "words");
    EXPECT_EQ(window.window()->focusWidget(), words) << turn;
    QTest::keyClicks(words, QString::fromStdString(typed[turn]));
    ++turn;
    QTest::keyClick(words, Qt::Key_Return);
  });
  std::vector<std::string> titles;
  user.robot.otherwise([&](QWidget& window) {
    titles.push_back(window.objectName().toStdString() + " " + window.windowTitle().trimmed().toStdString());
    press(window, "accept");
  });
  play([&](MenuWindow& menu) {
    for (int i = 0; i < 3; ++i) QTest::keyClick(menu.focusWidget(), Qt::Key_K, Qt::ControlModifier);
  });
  EXPECT_EQ(turn, 3U);
  ASSERT_EQ(titles.size(), 2U) << ::testing::PrintToString(titles);
  EXPECT_EQ(titles[0].substr(0, 8), "reclists");
  EXPECT_EQ(titles[1].substr(0, 7), "teamdet");
  EXPECT_EQ(user.robot.met("Sqdet"), 1);
}

TEST_F(GoingPlaces, TheBarLeadsBackAndForwardAmongThePagesOfTheArchive) {
  fill_careers();
  ClickingUser user;
  const auto of_bar = [](QWidget& window, const char* name) {
    return window.window()->findChild<QPushButton*>(QLatin1String(name));
  };
  std::vector<std::string> way;
  user.robot.next("jump", [](QWidget& window) {
    QTest::keyClicks(control<QLineEdit>(window, "words"), QStringLiteral("Cork"));
    QTest::keyClick(control<QLineEdit>(window, "words"), Qt::Key_Return);
  });
  user.robot.next("teamdet", [&](QWidget& window) {
    way.emplace_back("records");
    press(window, "page");
    press(window, "accept");
    way.emplace_back("records left");
  });
  int pages = 0;
  user.robot.always("archpage", [&](QWidget& window) {
    way.emplace_back("page");
    if (pages++ == 0) return press(window, "ask");
    EXPECT_TRUE(of_bar(window, "forward")->isVisible());
    of_bar(window, "forward")->click();
  });
  int books = 0;
  user.robot.always("recbook", [&](QWidget& window) {
    way.emplace_back("book");
    if (books++ > 0) return press(window, "accept");
    EXPECT_FALSE(of_bar(window, "forward")->isVisible());
    of_bar(window, "back")->click();
  });
  play([&](MenuWindow& menu) { QTest::keyClick(menu.focusWidget(), Qt::Key_K, Qt::ControlModifier); });
  EXPECT_THAT(way, ::testing::ElementsAre("records", "page", "book", "page", "book", "records left"));
}

TEST_F(GoingPlaces, OverASheetCtrlKDoesNothing) {
  ClickingUser user;
  user.robot.next("help", [](QWidget& window) {
    QTest::keyClick(window.focusWidget(), Qt::Key_K, Qt::ControlModifier);
    press(window, "accept");
  });
  play([&](MenuWindow& menu) { QTest::keyClick(menu.focusWidget(), Qt::Key_F1); });
  EXPECT_EQ(user.robot.met("help"), 1);
  EXPECT_EQ(user.robot.met("jump"), 0);
}

TEST_F(GoingPlaces, F1TellsWhatOneCanDoAndByWhichKeys) {
  ClickingUser user;
  user.robot.next("teamfrm", [](QWidget& window) {
    QTest::keyClick(window.focusWidget(), Qt::Key_F1);
    press(window, "cancel");
  });
  QString told;
  user.robot.next("help", [&](QWidget& window) {
    check_window(window);
    EXPECT_EQ(control<QLabel>(window, "purpose")->text(), purpose_of(QStringLiteral("teamfrm")));
    const auto* acts = control<TableView>(window, "acts");
    for (int row = 0; row < acts->model()->rowCount(); ++row) {
      for (int column = 0; column < 3; ++column) told += acts->model()->index(row, column).data().toString() + u'|';
    }
    press(window, "accept");
  });
  play([&](MenuWindow& menu) { choose(menu, "start_game", "new_match"); });
  for (const char* words : {"OK|Alt+O, Return|", "Cancel|Alt+C|", "Leave|Esc|", "Go to|Ctrl+K|"}) {
    EXPECT_TRUE(told.contains(QLatin1String(words))) << words << " in " << told.toStdString();
  }
}

TEST(Help, KnowsEveryWindow) {
  std::ifstream in(VELORIN_VOCABULARY);
  ASSERT_TRUE(in);
  const std::regex row(R"(^\| `(\w+)` \| [^|]+ \| `src/)");
  int ids = 0;
  for (std::string line; std::getline(in, line);) {
    std::smatch found;
    if (!std::regex_search(line, found, row)) continue;
    ++ids;
    EXPECT_FALSE(purpose_of(QString::fromStdString(found[1])).isEmpty()) << found[1];
  }
  EXPECT_GT(ids, 40);
}

}  // namespace
}  // namespace velorin::testing
