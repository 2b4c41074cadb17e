// SPDX-License-Identifier: GPL-3.0-or-later
// The forecast in the windows of the whole game, and the game that is the same with it.
#include <QComboBox>
#include <QTemporaryDir>
#include <QTest>
#include <filesystem>

#include "desktop/back_work.h"
#include "desktop/preferences.h"
#include "desktop/table_view.h"
#include "forecast/forms/match_line_window.h"
#include "forecast/forms/win_line_chart.h"
#include "model/match_state.h"
#include "shell/game_fixture.h"
#include "support/game_in_play.h"
#include "windows/term_checks.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

class ForecastClicking : public GameTest {
 protected:
  ForecastClicking() { preferences::set_forecast(true); }
  ~ForecastClicking() override { preferences::set_forecast(false); }
};

TEST_F(ForecastClicking, TheConsoleOpensTheLineOfTheMatchInPlay) {
  const QTemporaryDir place;
  QtFrontEnd shown_by(tested_game, std::filesystem::path(place.path().toStdString()) / "games");
  ClickingUser user;
  user.robot.next("teamfrm", [](QWidget& window) {
    ClickingUser::choose_match(window, 4, 7, true, false);
    press(window, "accept");
  });
  user.robot.next("matchline", [](QWidget& window) {
    const auto* chart = control<WinLineChart>(window, "win_line");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !chart->line().points.empty(); }, 60'000));
    EXPECT_LE(chart->line().points.size(), match.deliveries.size());
    check_controls(window);
    check_terms(window);
    press(window, "accept");
  });
  user.robot.always("keep_question", pressing("discard"));
  user.robot.always("main", [](QWidget& window) {
    if (match.over_no < 4) return press(window, "next_over");
    press(window, "show_match_line");
    press(window, "quit");
  });
  play_shown_by(shown_by, [&](MenuWindow& menu) { choose(menu, "start_game", "new_match"); });
  EXPECT_EQ(user.robot.met("matchline"), 1);
}

TEST_F(ForecastClicking, TheTableOfATriSeriesTellsTheChances) {
  ClickingUser user;
  user.robot.next("series2", [](QWidget& window) {
    control<QComboBox>(window, "first_team")->setCurrentIndex(0);
    control<QComboBox>(window, "second_team")->setCurrentIndex(3);
    control<QComboBox>(window, "third_team")->setCurrentIndex(6);
    press(window, "accept");
  });
  int tables = 0;
  user.robot.always("triserresult", [&](QWidget& window) {
    auto* chances = window.findChild<BackWork*>(QStringLiteral("chances"));
    ASSERT_NE(chances, nullptr);
    if (tables == 0) {
      EXPECT_TRUE(QTest::qWaitFor([&] { return !chances->is_working(); }, 60'000));
      const Table& table = control<TableView>(window, "table")->table();
      ASSERT_EQ(table.columns.back().heading, "Title");
      double titles = 0;
      for (const TableRow& row : table.rows) {
        const QString text = row.cells.back().text;
        titles += text.startsWith('<') ? 0.5 : text.startsWith('>') ? 99.5 : text.chopped(2).toDouble();
      }
      EXPECT_NEAR(titles, 100, 5) << "a tied final has no winner";
      check_terms(window);
      take_picture(window, "tri_chances");
    }
    ++tables;
    press(window, "accept");
  });
  play([&](MenuWindow& menu) { choose(menu, "start_game", "tri_series"); });
  EXPECT_GT(tables, 1);
}

TEST_F(ForecastClicking, TheFixturesOfTheWorldCupTellTheChances) {
  ClickingUser user;
  user.robot.next("wctable", [](QWidget& window) { press(window, "accept"); });
  int lists = 0;
  user.robot.always("wc_fix", [&](QWidget& window) {
    if (++lists > 1) return press(window, "quit");
    auto* chances = window.findChild<BackWork*>(QStringLiteral("chances"));
    ASSERT_NE(chances, nullptr);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !chances->is_working(); }, 60'000));
    const auto* list = control<TableView>(window, "fixtures");
    const Table& table = list->table();
    ASSERT_EQ(table.columns.back().heading, "B wins");
    for (const TableRow& row : table.rows) {
      EXPECT_EQ(row.cells.size(), table.columns.size());
      EXPECT_TRUE(row.cells.back().text.endsWith(" %")) << row.id;
    }
    check_terms(window);
    take_picture(window, "cup_fixture_chances");
    press(window, "quit");
  });
  play([&](MenuWindow& menu) { choose(menu, "start_game", "world_cup"); });
  EXPECT_EQ(lists, 1);
}

}  // namespace
}  // namespace velorin::testing
