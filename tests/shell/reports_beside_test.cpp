// SPDX-License-Identifier: GPL-3.0-or-later
// From 1280 pixels on a report stands beside the console, which shows what has room.
#include <QAbstractScrollArea>
#include <QLabel>
#include <QScrollBar>

#include "desktop/form.h"
#include "desktop/frame.h"
#include "engine/forms/console_window.h"
#include "model/match_state.h"
#include "shell/game_fixture.h"
#include "support/game_in_play.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

QRect stands_at(const QWidget& widget) { return {widget.mapTo(widget.window(), QPoint()), widget.size()}; }

class ReportsBeside : public GameTest {
 protected:
  ReportsBeside() { preferences::set_captains({true, false}); }

  static void settle() {
    for (int round = 0; round < 6; ++round) QApplication::processEvents();
  }

  void look(QWidget& report, QSize size) {
    SCOPED_TRACE(report.objectName().toStdString() + " at " + std::to_string(size.width()));
    QWidget& window = *report.window();
    window.resize(size);
    settle();
    auto* console = window.findChild<ConsoleWindow*>(QStringLiteral("main"));
    ASSERT_NE(console, nullptr);
    EXPECT_TRUE(console->isVisible());
    EXPECT_FALSE(stands_at(*console).intersects(stands_at(report)));
    EXPECT_EQ(stands_at(*console).width() + stands_at(report).width(), size.width());
    EXPECT_TRUE(control<QLabel>(*console, "score")->isVisible());
    EXPECT_TRUE(control<QWidget>(*console, "batsman_0")->isVisible());
    for (const auto* area : console->findChildren<QAbstractScrollArea*>()) {
      EXPECT_TRUE(!area->isVisible() || area->horizontalScrollBar()->maximum() == 0)
          << area->objectName().toStdString();
    }
    check_controls(*console);
    check_controls(report);
    ++looks;
  }

  ClickingUser user;
  int looks = 0;
};

TEST_F(ReportsBeside, TheConsoleKeepsTheRestOfTheWindow) {
  const auto look_at = [this](QWidget& report) {
    for (const QSize size :
         {QSize(1280, 800), QSize(1600, 900), QSize(1920, 1080), QSize(2560, 1440), QSize(3840, 2160)}) {
      look(report, size);
    }
    // Where there is no room for both it lies over the console, which is whole again when it goes.
    report.window()->resize(1024, 768);
    settle();
    EXPECT_EQ(report.width(), 1024);
    press(report, "accept");
  };
  for (const char* name : {"scorecard", "worms", "graphs"}) user.robot.next(name, look_at);
  // What a message is about stays in view beside it.
  int messages = 0;
  user.robot.at_sight([&](QWidget& form) {
    const auto* sheet = qobject_cast<const Form*>(&form);
    const auto* console = form.window()->findChild<ConsoleWindow*>(QStringLiteral("main"));
    if (form.objectName() != QStringLiteral("message") || console == nullptr || sheet->about().isEmpty()) return;
    form.window()->resize(1280, 800);
    settle();
    const auto* subject = control<QWidget>(*console, sheet->about().toUtf8().constData());
    EXPECT_FALSE(stands_at(form).intersects(stands_at(*subject))) << form.windowTitle().toStdString();
    ++messages;
  });
  bool done = false;
  user.robot.always("main", [&](QWidget& window) {
    if (match.over_no > 2 && match.first_total != 0 && !done) {
      done = true;
      for (const char* name : {"show_scorecard", "show_worm", "show_overs_graph"}) {
        press(window, name);
        settle();
        EXPECT_EQ(window.width(), window.window()->width()) << "it has the whole window again";
        EXPECT_TRUE(control<QWidget>(window, "next_over")->isVisible());
        EXPECT_TRUE(control<QWidget>(window, "commentary")->isVisible());
      }
    }
    press(window, "next_over");
  });
  user.robot.next("teamfrm", [](QWidget& window) {
    ClickingUser::choose_match(window, 4, 7, true, false);
    press(window, "accept");
  });
  play([&](MenuWindow& menu) { choose(menu, "start_game", "new_match"); });
  EXPECT_EQ(looks, 15);
  EXPECT_GT(messages, 0);
}

}  // namespace
}  // namespace velorin::testing
