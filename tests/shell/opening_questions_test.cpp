// SPDX-License-Identifier: GPL-3.0-or-later
// The captains are asked for the opening of a match over its console.
#include <QLabel>
#include <QPushButton>

#include "desktop/frame.h"
#include "model/match_state.h"
#include "shell/game_fixture.h"
#include "support/game_in_play.h"

namespace velorin::testing {
namespace {

class OpeningQuestions : public GameTest {
 protected:
  OpeningQuestions() {
    preferences::set_quick_answers({});
    preferences::set_captains({true, false});
    user.robot.at_sight([this](QWidget& window) { look(window); });
  }

  /// What stands under a question that comes before the first ball.
  void look(QWidget& window) {
    const QString name = window.objectName();
    if (!match.deliveries.empty() || !match.console_open) return;
    if (name != QStringLiteral("batorder") && name != QStringLiteral("chgbowler")) return;
    ++asked;
    auto* console = window.window()->findChild<QWidget*>(QStringLiteral("main"));
    ASSERT_NE(console, nullptr) << name.toStdString();
    EXPECT_TRUE(console->isVisible());
    EXPECT_TRUE(control<QLabel>(*console, "score")->isVisible());
    QPushButton* next_over = control<QPushButton>(*console, "next_over");
    EXPECT_EQ(next_over->text().remove(u'&'), "Next Over");
    const std::size_t bowled = match.deliveries.size();
    next_over->click();
    EXPECT_EQ(match.deliveries.size(), bowled) << "the console is dead until it is handed over";
    if (!match.batting_card[match.lower_batsman()].name.empty()) return;
    EXPECT_EQ(control<QPushButton>(*console, "batsman_profile_0")->text(), "To come");
    EXPECT_FALSE(control<QWidget>(*console, "batsman_level_0")->isVisible());
    ++before_openers;
  }

  ClickingUser user;
  int asked = 0;
  int before_openers = 0;
};

TEST_F(OpeningQuestions, StandOverTheConsole) {
  user.robot.next("teamfrm", [](QWidget& window) {
    ClickingUser::choose_match(window, 4, 7, true, true);
    press(window, "accept");
  });
  QWidget* seen = nullptr;
  user.robot.next("main", [&](QWidget& window) {
    seen = &window;
    EXPECT_FALSE(control<QPushButton>(window, "batsman_profile_0")->text() == QStringLiteral("To come"));
    EXPECT_TRUE(control<QWidget>(window, "batsman_level_0")->isVisible());
    press(window, "next_over");
  });
  play([&](MenuWindow& menu) {
    choose(menu, "start_game", "new_match");
    EXPECT_EQ(menu.window()->findChild<QWidget*>(QStringLiteral("main")), nullptr) << "it goes with its match";
  });
  EXPECT_NE(seen, nullptr);
  EXPECT_EQ(asked, 8) << "four in each innings";
  EXPECT_EQ(before_openers, 8);
  EXPECT_FALSE(match.result_margin.empty());
}

}  // namespace
}  // namespace velorin::testing
