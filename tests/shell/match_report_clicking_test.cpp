// SPDX-License-Identifier: GPL-3.0-or-later
// The report of a match, met by whoever plays: before the end is told, and from the results of a competition.
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <algorithm>

#include "desktop/preferences.h"
#include "desktop/shown_text.h"
#include "desktop/table_view.h"
#include "model/match_state.h"
#include "shell/game_fixture.h"
#include "support/game_in_play.h"

namespace velorin::testing {
namespace {

class MatchReports : public GameTest {
 protected:
  MatchReports() {
    user.robot.always("matchrep", [this](QWidget& window) {
      results.push_back(control<QLabel>(window, "result")->text());
      press(window, "accept");
    });
  }
  void play_match(bool first_human) {
    user.robot.next("teamfrm", [first_human](QWidget& window) {
      ClickingUser::choose_match(window, 4, 7, first_human, false);
      press(window, "accept");
    });
    play([&](MenuWindow& menu) { choose(menu, "start_game", "new_match"); });
  }

  ClickingUser user;
  QStringList results;
};

TEST_F(MatchReports, AMatchWithAHumanSideEndsWithOneBeforeTheEndIsTold) {
  play_match(true);
  ASSERT_EQ(results.size(), 1);
  const std::vector<std::string>& met = user.robot.met();
  const auto at = std::find(met.begin(), met.end(), "matchrep");
  ASSERT_GE(met.end() - at, 3);
  EXPECT_EQ(at[1], "message");
  EXPECT_EQ(at[2], "scorecard");
  EXPECT_TRUE(user.messages.back().starts_with("End of Match | "));
  EXPECT_EQ(core_text(results.front()).substr(0, match.result_winner.size()), match.result_winner);
}

TEST_F(MatchReports, AnUnattendedMatchShowsNone) {
  play_match(false);
  EXPECT_TRUE(results.empty());
  EXPECT_FALSE(match.result_margin.empty());
}

TEST_F(MatchReports, TheResultsOfASeriesOpenThem) {
  user.robot.next("series1", [](QWidget& window) {
    control<QLineEdit>(window, "matches")->setText("3");
    press(window, "accept");
  });
  int showing = 0;
  QStringList told;
  user.robot.always("sri_result", [&](QWidget& window) {
    auto* list = control<TableView>(window, "results");
    if (++showing == 3) {
      for (const TableRow& row : list->table().rows) told << row.cells[1].text.simplified();
      for (int row = 0; row < list->model()->rowCount(); ++row) {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualRect(list->model()->index(row, 0)).center());
      }
      list->setCurrentIndex(list->model()->index(0, 0));
      QTest::keyClick(list, Qt::Key_Return);
    }
    press(window, "accept");
  });
  play([&](MenuWindow& menu) { choose(menu, "start_game", "new_series"); });
  EXPECT_EQ(showing, 3);
  ASSERT_FALSE(told.isEmpty());
  EXPECT_EQ(results, told + QStringList(told.front()));
}

TEST_F(MatchReports, TheirNamesLeadToProfilesAfterTheMatchAndFromTheResults) {
  QStringList pressed;
  QStringList met;
  user.robot.always("Sqdet", [&](QWidget& window) {
    met << control<QComboBox>(window, "teams")->currentText() + '/' +
               control<QComboBox>(window, "players")->currentText();
    press(window, "accept");
  });
  user.robot.always("matchrep", [&](QWidget& window) {
    for (const char* name : {"batting_1", "bowling_2"}) {
      auto* view = control<TableView>(window, name);
      const QString side = control<QLabel>(window, "side_1")->text();
      pressed << side + '/' + view->model()->index(1, 0).data().toString();
      view->setCurrentIndex(view->model()->index(1, 0));
      QTest::keyClick(view, Qt::Key_Return);
    }
    press(window, "accept");
  });
  play_match(true);
  ASSERT_EQ(pressed.size(), 2) << "a batsman of the side that batted first, and a bowler of it";
  user.robot.next("series1", [](QWidget& window) {
    control<QLineEdit>(window, "matches")->setText("1");
    press(window, "accept");
  });
  user.robot.always("sri_result", [](QWidget& window) {
    auto* list = control<TableView>(window, "results");
    list->setCurrentIndex(list->model()->index(0, 0));
    QTest::keyClick(list, Qt::Key_Return);
    press(window, "accept");
  });
  play([&](MenuWindow& menu) { choose(menu, "start_game", "new_series"); });
  EXPECT_EQ(pressed.size(), 4);
  EXPECT_EQ(met, pressed);
}

TEST_F(MatchReports, AWorldCupPlayedWithoutStoppingKeepsThemAll) {
  preferences::set_plays_without_stopping("wctable", true);
  QString winners;
  user.robot.always("wcsstab", [&](QWidget& window) {
    for (const char* name : {"report_1", "report_2", "report_3"}) press(window, name);
    winners = control<QLabel>(window, "winners_line")->text();
    press(window, "accept");
  });
  user.robot.next("wctable", pressing("accept"));
  play([&](MenuWindow& menu) { choose(menu, "start_game", "world_cup"); });
  ASSERT_EQ(results.size(), 3) << "the tables are shown once, at the end";
  EXPECT_FALSE(winners.isEmpty());
  const QString champion = results.back().section(" won by ", 0, 0);
  EXPECT_TRUE(winners.contains(champion)) << winners.toStdString() << " | " << champion.toStdString();
  preferences::set_plays_without_stopping("wctable", false);
}

TEST_F(MatchReports, AnotherCompetitionBeginsWithoutThem) {
  int rows_that_lead = 0;
  int showings = 0;
  user.robot.always("sri_result", [&](QWidget& window) {
    ++showings;
    for (const TableRow& row : control<TableView>(window, "results")->table().rows) rows_that_lead += row.opens ? 1 : 0;
    press(window, "accept");
  });
  user.robot.always("series1", [](QWidget& window) {
    control<QLineEdit>(window, "matches")->setText("1");
    press(window, "accept");
  });
  user.robot.next("series2", pressing("accept"));
  user.robot.next("series2", pressing("accept"));
  std::vector<std::size_t> listed;
  user.robot.always("triserresult", [&](QWidget& window) {
    const auto* matches = window.findChild<TableView*>("matches");
    listed.push_back(matches == nullptr ? 0 : matches->table().rows.size());
    press(window, "accept");
  });
  play([&](MenuWindow& menu) {
    choose(menu, "start_game", "new_series");
    choose(menu, "start_game", "tri_series");
    choose(menu, "start_game", "tri_series");
  });
  EXPECT_EQ(showings, 1);
  EXPECT_LE(rows_that_lead, 1);
  EXPECT_EQ(listed, std::vector<std::size_t>({1, 2, 3, 4, 1, 2, 3, 4}));
}

}  // namespace
}  // namespace velorin::testing
