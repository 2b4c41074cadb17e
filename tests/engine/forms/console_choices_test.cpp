// SPDX-License-Identifier: GPL-3.0-or-later
// How far the console plays on or takes back with one press.
#include <QAccessible>
#include <QMenu>
#include <QPushButton>

#include "desktop/theme.h"
#include "engine/forms/console_fixture.h"
#include "engine/skip.h"
#include "model/match_state.h"
#include "support/whole_match.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

class ConsoleChoices : public ConsoleWindowTest {
 protected:
  void SetUp() override { preferences::set_last_skip({}); }

  ConsoleWindow& open_practice(bool computer_bats, bool computer_bowls) {
    ConsoleWindow& window = open(computer_bats, computer_bowls);
    match.practice = true;
    window.refresh();
    return window;
  }
  /// The menu of a button, open.
  QMenu* menu_of(const char* button) {
    press(*window_, button);
    return control<QMenu>(*window_, (std::string(button) + "_menu").c_str());
  }
  /// Takes an entry of it.
  void choose(const char* button, const char* entry) {
    QMenu* menu = menu_of(button);
    ASSERT_NE(menu, nullptr);
    QTRY_VERIFY(menu->isVisible());
    auto* action = menu->findChild<QAction*>(QString::fromLatin1(entry));
    ASSERT_NE(action, nullptr) << entry;
    menu->setActiveAction(action);
    QTest::keyClick(menu, Qt::Key_Return);
    settle();
    EXPECT_EQ(window_->findChild<QMenu*>(QString::fromLatin1(button) + QStringLiteral("_menu")), nullptr);
  }
  /// What the menu has asked for is done, and it has gone. Without a screen nobody gives the window the keyboard back.
  void settle() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    if (window_->isVisible()) window_->activateWindow();
    QCoreApplication::processEvents();
  }
  QStringList entries_of(const char* button) {
    QStringList names;
    QMenu* menu = menu_of(button);
    for (const QAction* action : menu->actions()) {
      if (!action->isSeparator()) names << action->objectName();
    }
    EXPECT_EQ(menu->activeAction()->objectName(), names.value(0)) << "Return takes the first";
    menu->close();
    settle();
    return names;
  }
};

TEST_F(ConsoleChoices, PlayToGoesWhereItSays) {
  ConsoleWindow& window = open(false, false);
  choose("play_to", "skip_over_10");
  EXPECT_EQ(overs_closed(match), 10);
  EXPECT_EQ(text("overs"), "10.0 Overs");
  choose("play_to", "skip_wicket");
  EXPECT_TRUE(match.deliveries.back().is_wicket());
  choose("play_to", "skip_over_30");
  EXPECT_EQ(overs_closed(match), 30);
  choose("play_to", "skip_innings");
  EXPECT_EQ(match.innings_number, 2);
  EXPECT_EQ(window.focusWidget(), control<QPushButton>(window, "next_over")) << "Return goes on bowling";
  choose("play_to", "skip_innings");
  EXPECT_FALSE(window.isVisible()) << "the match is over";
  EXPECT_TRUE(form_.closed());
}

TEST_F(ConsoleChoices, TheTargetChosenLastIsOfferedFirst) {
  open(false, false);
  const QStringList told = {"skip_wicket",  "skip_spell",   "skip_over_10", "skip_over_20",
                            "skip_over_30", "skip_over_40", "skip_innings"};
  EXPECT_EQ(entries_of("play_to"), told);
  choose("play_to", "skip_over_20");
  EXPECT_EQ(preferences::last_skip(), "over_20");
  const QStringList after = {"skip_over_30", "skip_wicket", "skip_spell", "skip_over_40", "skip_innings"};
  EXPECT_EQ(entries_of("play_to"), after) << "what is past is offered no more";
  choose("play_to", "skip_spell");
  EXPECT_EQ(entries_of("play_to").value(0), "skip_spell");
  preferences::set_last_skip("something else");
  EXPECT_EQ(entries_of("play_to").value(0), "skip_wicket");
}

TEST_F(ConsoleChoices, KeysOpenTheMenuAndTakeTheFirstAtOnce) {
  ConsoleWindow& window = open(false, false);
  preferences::set_last_skip("over_10");
  QTest::keyClick(&window, Qt::Key_G, Qt::ShiftModifier);
  EXPECT_EQ(overs_closed(match), 10);
  QTest::keyClick(&window, Qt::Key_G);
  auto* menu = control<QMenu>(window, "play_to_menu");
  ASSERT_NE(menu, nullptr);
  QTRY_VERIFY(menu->isVisible());
  QTest::keyClick(menu, Qt::Key_4);
  settle();
  EXPECT_EQ(overs_closed(match), 40) << "by its letter";
  QTest::keyClick(&window, Qt::Key_G);
  menu = control<QMenu>(window, "play_to_menu");
  QTRY_VERIFY(menu->isVisible());
  QTest::keyClick(menu, Qt::Key_Escape);
  settle();
  EXPECT_EQ(overs_closed(match), 40);
  EXPECT_TRUE(window.isVisible());
}

TEST_F(ConsoleChoices, EscapeStopsASkipAfterTheBall) {
  ConsoleWindow& window = open(false, true);
  preferences::set_pace(Pace::quick);
  user.on_ball = [&] {
    if (match.deliveries.size() == 9) {
      QTimer::singleShot(0, &window, [&] { QTest::keyClick(&window, Qt::Key_Escape); });
    }
  };
  choose("play_to", "skip_innings");
  EXPECT_EQ(match.deliveries.size(), 9U);
  EXPECT_EQ(match.next_step, play_step::ball_bowled);
  EXPECT_EQ(control<QPushButton>(window, "next_over")->accessibleName(), "Finish Over");
  EXPECT_EQ(text("over_title"), "This over");
  EXPECT_FALSE(control<QPushButton>(window, "change_bowler")->isEnabled());
  window.resize(1280, 800);
  check_window_at_sizes(window);
  user.on_ball = nullptr;
  preferences::set_pace(Pace::instant);
  press(window, "next_over");
  EXPECT_EQ(overs_closed(match), 2);
  EXPECT_EQ(control<QPushButton>(window, "next_over")->accessibleName(), "Next Over");
  EXPECT_EQ(text("over_title"), "Over 2");
}

TEST_F(ConsoleChoices, ASkipShowsItsBallsUnlessThePaceIsInstant) {
  open(false, true);
  int shown = 0;
  user.on_ball = [&] { shown += text("overs") != QStringLiteral("%1 Overs").arg("0.0") ? 1 : 0; };
  choose("play_to", "skip_over_10");
  EXPECT_EQ(shown, 0) << "nothing is drawn on the way";
  EXPECT_EQ(text("overs"), "10.0 Overs");
  preferences::set_pace(Pace::quick);
  std::set<std::string> seen;
  user.on_ball = [&] { seen.insert(text("overs").toStdString()); };
  const std::size_t before = match.deliveries.size();
  choose("play_to", "skip_spell");
  EXPECT_GT(seen.size(), (match.deliveries.size() - before) / 2);
}

TEST_F(ConsoleChoices, NothingIsOfferedWhileAnOverIsBowled) {
  ConsoleWindow& window = open(false, true);
  preferences::set_pace(Pace::quick);
  bool looked = false;
  user.on_ball = [&] {
    if (std::exchange(looked, true)) return;
    QTimer::singleShot(0, &window, [&] {
      control<QPushButton>(window, "play_to")->click();
      QTest::keyClick(&window, Qt::Key_G);
      QTest::keyClick(&window, Qt::Key_G, Qt::ShiftModifier);
      EXPECT_EQ(window.findChild<QMenu*>("play_to_menu"), nullptr);
      QTest::keyClick(&window, Qt::Key_Escape);
    });
  };
  press(window, "next_over");
  EXPECT_TRUE(looked);
  EXPECT_EQ(overs_closed(match), 1);
}

TEST_F(ConsoleChoices, OnlyAPracticeMatchTakesBack) {
  ConsoleWindow& window = open(false, true);
  press(window, "next_over");
  EXPECT_FALSE(control<QPushButton>(window, "take_back")->isVisible());
  EXPECT_FALSE(control<QLabel>(window, "practice")->isVisible());
  EXPECT_FALSE(window.windowTitle().contains("practice"));
  const std::string there = whole_match(match);
  QTest::keyClick(&window, Qt::Key_Z);
  QTest::keyClick(&window, Qt::Key_Z, Qt::ShiftModifier);
  settle();
  EXPECT_EQ(whole_match(match), there);
}

TEST_F(ConsoleChoices, TakeBackGoesBackAndShowsIt) {
  ConsoleWindow& window = open_practice(false, false);
  EXPECT_TRUE(control<QLabel>(window, "practice")->isVisible());
  EXPECT_TRUE(window.windowTitle().contains("practice"));
  EXPECT_FALSE(control<QPushButton>(window, "take_back")->isEnabled()) << "nothing has been bowled";
  for (int over = 0; over < 3; ++over) press(window, "next_over");
  const std::string there = whole_match(match);
  choose("take_back", "take_back_over_same");
  EXPECT_EQ(text("overs"), "2.0 Overs");
  EXPECT_EQ(entries_of("take_back").value(0), "take_back_over_same") << "as it was last done";
  QTest::keyClick(&window, Qt::Key_Z, Qt::ShiftModifier);
  EXPECT_EQ(text("overs"), "1.0 Overs");
  for (int over = 0; over < 2; ++over) press(window, "next_over");
  EXPECT_EQ(whole_match(match), there);
  choose("take_back", "take_back_ball_fresh");
  EXPECT_EQ(text("overs"), "2.5 Overs");
  EXPECT_EQ(control<QPushButton>(window, "next_over")->accessibleName(), "Finish Over");
  for (int ball = 0; ball < 17; ++ball) choose("take_back", "take_back_ball_same");
  EXPECT_EQ(text("overs"), "0.0 Overs");
  EXPECT_EQ(text("score"), "0/0");
  EXPECT_FALSE(control<QPushButton>(window, "take_back")->isEnabled());
  EXPECT_EQ(control<QListView>(window, "commentary")->model()->rowCount(), 0);
}

TEST_F(ConsoleChoices, TheInningsBeforeComesBackToTheWindow) {
  ConsoleWindow& window = open_practice(false, true);
  choose("play_to", "skip_innings");
  ASSERT_EQ(match.innings_number, 2);
  press(window, "next_over");
  EXPECT_TRUE(control<QLabel>(window, "target")->isVisible());
  for (int over = 0; over < 2; ++over) choose("take_back", "take_back_over_fresh");
  ASSERT_EQ(match.innings_number, 1);
  EXPECT_FALSE(control<QLabel>(window, "target")->isVisible());
  window.resize(1280, 800);
  check_window_at_sizes(window);
  choose("play_to", "skip_innings");
  EXPECT_EQ(match.innings_number, 2);
}

TEST_F(ConsoleChoices, PassesTheChecksAtAllSizesAndLooks) {
  ConsoleWindow& window = open_practice(false, false);
  choose("play_to", "skip_wicket");
  for (const QSize size : {QSize(1024, 768), QSize(1280, 800), QSize(1920, 1080)}) {
    window.resize(size);
    QTest::qWait(10);
    SCOPED_TRACE(size.width());
    check_window(window);
  }
  check_window_at_sizes(window);
}

TEST_F(ConsoleChoices, AssistantsPressTheButtons) {
  ConsoleWindow& window = open_practice(false, false);
  for (int over = 0; over < 2; ++over) press(window, "next_over");
  for (const char* name : {"play_to", "take_back"}) {
    auto* button = control<QPushButton>(window, name);
    QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(button);
    ASSERT_NE(seen->actionInterface(), nullptr);
    seen->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QMenu* menu = nullptr;
    const QString menu_name = QString::fromLatin1(name) + QStringLiteral("_menu");
    ASSERT_TRUE(QTest::qWaitFor([&] { return (menu = window.findChild<QMenu*>(menu_name)) != nullptr; })) << name;
    QAccessibleInterface* list = QAccessible::queryAccessibleInterface(menu);
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->text(QAccessible::Name).toStdString(), button->accessibleName().toStdString());
    QAccessibleInterface* first = list->child(0);
    ASSERT_NE(first, nullptr);
    const int before = static_cast<int>(match.deliveries.size());
    first->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    menu->close();
    settle();
    EXPECT_NE(static_cast<int>(match.deliveries.size()), before) << name;
  }
}

}  // namespace
}  // namespace velorin::testing
