// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/forms/match_report_window.h"

#include <QAccessible>
#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <string>
#include <utility>
#include <vector>

#include "database/lasting_records.h"
#include "desktop/modality.h"
#include "desktop/shown_text.h"
#include "desktop/table_view.h"
#include "reports/forms/played_match.h"
#include "reports/match_report.h"
#include "support/game_in_play.h"
#include "windows/robot.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

class MatchReportWindows : public ReportWindowTest {
 protected:
  void SetUp() override {
    ReportWindowTest::SetUp();
    match = played_match().second_all_out;
    const record_lists before;
    report = report_on(match, &before);
  }

  static QString text(const QWidget& window, const char* name) { return control<QLabel>(window, name)->text(); }
  static QRect place(const QWidget& window, const char* name) {
    const auto* widget = control<QWidget>(window, name);
    return {widget->mapTo(&window, QPoint()), widget->size()};
  }

  /// Until everything has its place.
  static void settle() {
    for (int round = 0; round < 10; ++round) {
      QApplication::sendPostedEvents();
      QTest::qWait(5);
    }
  }

  match_report report;
};

QStringList row_texts(const TableRow& row) {
  QStringList all;
  for (const TableCell& cell : row.cells) all << cell.text;
  return all;
}

TEST_F(MatchReportWindows, ShowsTheResultAndBothCardsWhole) {
  MatchReportWindow window(report);
  window.show();
  EXPECT_EQ(text(window, "result"), shown(report.result).simplified());
  EXPECT_EQ(text(window, "match"),
            QStringLiteral("%1 v %2, Lake End").arg(shown(report.innings[0].side), shown(report.innings[1].side)));
  for (const std::size_t i : {0U, 1U}) {
    const reported_innings& innings = report.innings[i];
    const std::string number = std::to_string(i + 1);
    EXPECT_EQ(text(window, ("side_" + number).c_str()), shown(innings.side));
    EXPECT_EQ(text(window, ("total_" + number).c_str()), QStringLiteral("%1/10").arg(innings.total));
    EXPECT_TRUE(text(window, ("overs_" + number).c_str()).startsWith(shown(innings.overs) + " overs"));
    EXPECT_TRUE(
        text(window, ("extras_" + number).c_str()).startsWith(QStringLiteral("Extras %1 (").arg(innings.extras_sum())));
    EXPECT_EQ(text(window, ("falls_" + number).c_str()).count("("), 10);
    const Table& batting = control<TableView>(window, ("batting_" + number).c_str())->table();
    ASSERT_EQ(batting.rows.size(), 11U);
    const reported_batsman& man = innings.batsmen[3];
    EXPECT_EQ(row_texts(batting.rows[3]),
              QStringList({shown_caption(man.name), shown_caption(man.how_out), QString::number(man.runs),
                           QString::number(man.balls), QString::number(man.fours), QString::number(man.sixes),
                           shown(man.strike_rate)}));
    const Table& bowling = control<TableView>(window, ("bowling_" + number).c_str())->table();
    ASSERT_EQ(bowling.rows.size(), innings.bowlers.size());
    const reported_bowler& bowler = innings.bowlers.back();
    EXPECT_EQ(row_texts(bowling.rows.back()),
              QStringList({shown_caption(bowler.name), shown(bowler.overs), QString::number(bowler.maidens),
                           QString::number(bowler.runs), QString::number(bowler.wickets), shown(bowler.economy)}));
  }
}

TEST_F(MatchReportWindows, ThoseWhoDidNotBatStandInALine) {
  report.innings[1].did_not_bat = {"J.Orme", "K.Foss"};
  MatchReportWindow window(report);
  EXPECT_EQ(text(window, "did_not_bat_2"), "Did not bat: J.Orme, K.Foss.");
  EXPECT_EQ(window.findChild<QLabel*>("did_not_bat_1"), nullptr);
}

TEST_F(MatchReportWindows, MilestonesAndRecordsAreTables) {
  report.milestones = {{"A.Harrow", "Northland", "Hundred", "123 (131)"}};
  report.records = {{"Highest scores", 4, "A.Harrow", "123 (131)"}};
  MatchReportWindow window(report);
  EXPECT_EQ(row_texts(control<TableView>(window, "milestones")->table().rows.at(0)),
            QStringList({"Hundred", "A.Harrow", "Northland", "123 (131)"}));
  EXPECT_EQ(row_texts(control<TableView>(window, "records")->table().rows.at(0)),
            QStringList({"Highest scores", "4", "A.Harrow", "123 (131)"}));
}

TEST_F(MatchReportWindows, WithoutThemALineSaysSo) {
  report.milestones.clear();
  report.records.clear();
  {
    MatchReportWindow window(report);
    EXPECT_EQ(text(window, "no_milestones"), "No fifty, no hundred, no five wickets.");
    EXPECT_EQ(text(window, "no_records"), "No line of the record lists.");
  }
  report.records_known = false;
  EXPECT_EQ(text(MatchReportWindow(report), "no_records"), "The record lists do not take this match.");
}

TEST_F(MatchReportWindows, APracticeMatchIsCalledSo) {
  report.practice = true;
  report.records_known = false;
  report.records.clear();
  MatchReportWindow window(report);
  window.show();
  EXPECT_TRUE(text(window, "match").endsWith("Lake End. Practice: counts for no career"));
  EXPECT_EQ(text(window, "no_records"), "The record lists take no practice match.");
  check_window_at_sizes(window);
}

TEST_F(MatchReportWindows, TheChartEndsWithBothTotals) {
  const LineChart chart = worm_chart(report);
  ASSERT_EQ(chart.lines.size(), 2U);
  for (const std::size_t i : {0U, 1U}) {
    EXPECT_EQ(chart.lines[i].points.back().y(), report.innings[i].total);
    EXPECT_DOUBLE_EQ(chart.lines[i].points.back().x(), report.innings[i].balls / 6.0);
  }
  EXPECT_TRUE(chart.described.contains(shown(report.innings[1].side)));
}

TEST_F(MatchReportWindows, TheInningsStandSideBySideWhereThereIsRoom) {
  MatchReportWindow window(report);
  window.show();
  window.resize(1400, 900);
  settle();
  check_window(window);
  EXPECT_EQ(place(window, "batting_1").top(), place(window, "batting_2").top());
  EXPECT_EQ(place(window, "bowling_1").top(), place(window, "bowling_2").top());
  EXPECT_GT(place(window, "batting_2").left(), place(window, "batting_1").right());
  window.resize(1000, 700);
  settle();
  check_window(window);
  EXPECT_GT(place(window, "batting_2").top(), place(window, "bowling_1").bottom());
  EXPECT_EQ(place(window, "batting_2").left(), place(window, "batting_1").left());
}

TEST_F(MatchReportWindows, NoCardScrollsByItself) {
  MatchReportWindow window(report);
  window.show();
  check_window_at_sizes(window);
  for (const QSize size : {QSize(1024, 700), QSize(1280, 800), QSize(1920, 1080)}) {
    window.resize(size);
    settle();
    for (const char* name : {"batting_1", "bowling_1", "batting_2", "bowling_2", "records"}) {
      const auto* view = control<TableView>(window, name);
      EXPECT_FALSE(view->horizontalScrollBar()->isVisible()) << name << " " << size.width();
      EXPECT_EQ(view->verticalScrollBar()->maximum(), 0) << name << " " << size.width();
    }
  }
}

TEST_F(MatchReportWindows, ThePageKeysTurnThePage) {
  MatchReportWindow window(report);
  window.show();
  window.resize(1000, 700);
  settle();
  const auto* bar = control<QScrollArea>(window, "page")->verticalScrollBar();
  QTest::keyClick(&window, Qt::Key_PageDown);
  EXPECT_EQ(bar->value(), bar->pageStep());
  QTest::keyClick(&window, Qt::Key_PageUp);
  EXPECT_EQ(bar->value(), 0);
}

TEST_F(MatchReportWindows, TheKeyboardBringsWhatItReachesIntoView) {
  MatchReportWindow window(report);
  window.show();
  window.resize(1000, 700);
  settle();
  auto* records = control<TableView>(window, "records");
  const auto is_in_view = [&] {
    const QPoint at = records->mapTo(control<QScrollArea>(window, "page"), QPoint(1, 1));
    return at.y() >= 0 && at.y() < control<QScrollArea>(window, "page")->height();
  };
  EXPECT_FALSE(is_in_view());
  for (int tab = 0; tab < 20 && !records->hasFocus(); ++tab) QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_TRUE(records->hasFocus());
  EXPECT_TRUE(is_in_view());
}

TEST_F(MatchReportWindows, NamesLeadToTheirMen) {
  std::vector<std::pair<std::string, std::string>> met;
  MatchReportWindow window(report,
                           [&](const std::string& side, const std::string& player) { met.emplace_back(side, player); });
  window.show();
  settle();
  const auto click = [&](const char* name, int row) {
    auto* view = control<TableView>(window, name);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(view->model()->index(row, 0)).center());
  };
  click("batting_1", 2);
  click("bowling_1", 0);
  click("batting_2", 10);
  click("milestones", 0);
  auto* view = control<TableView>(window, "bowling_2");
  view->setCurrentIndex(view->model()->index(1, 0));
  QTest::keyClick(view, Qt::Key_Return);
  const auto& [first, second] = report.innings;
  const std::vector<std::pair<std::string, std::string>> wanted = {
      {first.side, first.batsmen[2].name},
      {first.bowling_side, first.bowlers[0].name},
      {second.side, second.batsmen[10].name},
      {report.milestones[0].side, report.milestones[0].player},
      {second.bowling_side, second.bowlers[1].name}};
  EXPECT_EQ(met, wanted);
  EXPECT_TRUE(window.isVisible());
}

TEST_F(MatchReportWindows, NamesInItsParagraphsLeadToTheirMen) {
  report.innings[1].did_not_bat = {"J.Orme", "K.Foss"};
  std::vector<std::pair<std::string, std::string>> met;
  MatchReportWindow window(report,
                           [&](const std::string& side, const std::string& player) { met.emplace_back(side, player); });
  window.show();
  window.resize(1400, 900);
  settle();
  const auto& [first, second] = report.innings;
  auto* out = control<QLabel>(window, "did_not_bat_2");
  EXPECT_EQ(out->accessibleName(), "Did not bat: J.Orme, K.Foss.");
  out->setFocus();
  for (int name = 0; name < 2; ++name) {
    QTest::keyClick(out, Qt::Key_Tab);
    EXPECT_TRUE(out->hasFocus()) << "the names come one after another";
    QTest::keyClick(out, Qt::Key_Return);
  }
  auto* falls = control<QLabel>(window, "falls_1");
  QAccessibleActionInterface* acts = QAccessible::queryAccessibleInterface(falls)->actionInterface();
  const QString third = shown_caption(first.falls[2].batsman);
  EXPECT_TRUE(acts->actionNames().contains(third));
  acts->doAction(third);
  settle();
  cover(window);
  acts->doAction(third);
  settle();
  uncover(window);
  const std::vector<std::pair<std::string, std::string>> wanted = {
      {second.side, "J.Orme"}, {second.side, "K.Foss"}, {first.side, first.falls[2].batsman}};
  EXPECT_EQ(met, wanted);
  check_window(window);
}

TEST_F(MatchReportWindows, LinesOfTheRecordsLeadToTheirMen) {
  report.records = {{"Highest scores", 4, "A.Harrow", "123 (131)", "Northland", "A.Harrow"},
                    {"Highest totals", 1, "Northland", "261/10 (48.2)", "Northland"},
                    {"Partnerships", 2, "A.Harrow && B.Ito", "104 (88)", "Northland", "A.Harrow"}};
  std::vector<std::string> met;
  MatchReportWindow window(
      report, [&](const std::string& side, const std::string& player) { met.push_back(side + " " + player); });
  window.show();
  auto* view = control<TableView>(window, "records");
  for (int row = 0; row < 3; ++row) {
    view->setCurrentIndex(view->model()->index(row, 0));
    EXPECT_EQ(view->can_open(view->currentIndex()), row != 1) << "a side has no profile";
    if (row != 1) QTest::keyClick(view, Qt::Key_Return);
  }
  EXPECT_EQ(met, std::vector<std::string>({"Northland A.Harrow", "Northland A.Harrow"}));
}

TEST_F(MatchReportWindows, NamesLeadTheSameWayWhenTheCardIsSorted) {
  std::string met;
  MatchReportWindow window(report, [&](const std::string&, const std::string& player) { met = player; });
  window.show();
  settle();
  auto* view = control<TableView>(window, "batting_1");
  view->sortByColumn(2, Qt::DescendingOrder);
  view->setCurrentIndex(view->model()->index(0, 0));
  QTest::keyClick(view, Qt::Key_Return);
  EXPECT_EQ(shown_caption(met), view->model()->index(0, 0).data().toString());
  EXPECT_NE(met, report.innings[0].batsmen[0].name) << "the first row is another man's now";
}

TEST_F(MatchReportWindows, ReturnAndEscapeCloseIt) {
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
    MatchReportWindow window(report);
    window.show();
    QTest::keyClick(&window, key);
    EXPECT_FALSE(window.isVisible());
  }
}

}  // namespace
}  // namespace velorin::testing
