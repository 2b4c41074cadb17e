// SPDX-License-Identifier: GPL-3.0-or-later
// The results of a competition lead on to the reports of its matches.
#include "competitions/forms/played_matches.h"

#include <QAccessible>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "competitions/cup_fixture.h"
#include "competitions/forms/series_results_window.h"
#include "competitions/forms/tri_series_table_window.h"
#include "competitions/forms/world_cup_fixtures_window.h"
#include "competitions/forms/world_cup_tables_window.h"
#include "competitions/series.h"
#include "competitions/tri_series.h"
#include "competitions/world_cup_fixtures.h"
#include "competitions/world_cup_tables.h"
#include "desktop/table_view.h"
#include "support/game_in_play.h"
#include "windows/robot.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

class PlayedMatchRows : public CupTest {
 protected:
  /// Reports of these matches are at hand.
  PlayedMatches reports_of(std::initializer_list<int> numbers) {
    PlayedMatches played;
    for (const int number : numbers) {
      played.all.push_back({number, "Ardell v Brava", "Lake End", "Ardell won by 7 runs"});
    }
    played.open = [this](int number) { opened.push_back(number); };
    return played;
  }
  static void press_row(const TableView& view, int row) {
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(view.model()->index(row, 1)).center());
  }
  static void return_on_row(TableView& view, int row) {
    view.setFocus();
    view.setCurrentIndex(view.model()->index(row, 0));
    QTest::keyClick(&view, Qt::Key_Return);
  }

  std::vector<int> opened;
};

TEST_F(PlayedMatchRows, OfASeriesOpenTheirReports) {
  series = {};
  series.home.team = "Ardell";
  series.away.team = "Brava";
  series.matches = 3;
  series.match_no = 2;
  for (int i : {1, 2}) {
    series.series_ground[i] = "Lake End";
    series.series_winner[i] = "Ardell";
    series.series_margin[i] = "  won by  7  runs";
  }
  series_results_form form(match, series);
  form.open();
  SeriesResultsWindow window(form);
  window.lead_to(reports_of({2}));
  window.show();
  check_window_at_sizes(window);
  EXPECT_EQ(control<QLabel>(window, "leads_on")->text(), leads_on);
  auto* results = control<TableView>(window, "results");
  EXPECT_EQ(results->table().rows[0].cells[1].text, "Ardell  won by  7  runs") << "the rows stay as told";
  press_row(*results, 0);
  EXPECT_TRUE(opened.empty()) << "of the first match there is none";
  press_row(*results, 1);
  EXPECT_EQ(opened, std::vector<int>({2}));
  return_on_row(*results, 1);
  EXPECT_EQ(opened, std::vector<int>({2, 2}));
  EXPECT_TRUE(window.isVisible());
  return_on_row(*results, 0);
  EXPECT_FALSE(window.isVisible()) << "Return on a row that leads nowhere is the default button's";
  series = {};
}

TEST_F(PlayedMatchRows, WithoutAReportTheWindowsSayNothingOfThem) {
  series_results_form form(match, series);
  form.open();
  SeriesResultsWindow window(form);
  window.lead_to({});
  EXPECT_EQ(window.findChild<QLabel*>("leads_on"), nullptr);
  tri_series_table_form tri_form(tri);
  tri_form.open();
  TriSeriesTableWindow tri_window(tri_form);
  tri_window.lead_to({});
  EXPECT_EQ(tri_window.findChild<TableView*>("matches"), nullptr);
  tri = {};
}

TEST_F(PlayedMatchRows, OfATriSeriesStandUnderItsTable) {
  tri_series_table_form form(tri);
  form.open();
  TriSeriesTableWindow window(form);
  window.lead_to(reports_of({1, 2, 3, 4}));
  window.show();
  check_window_at_sizes(window);
  auto* matches = control<TableView>(window, "matches");
  ASSERT_EQ(matches->table().rows.size(), 4U);
  EXPECT_EQ(matches->table().rows[3].cells[1].text, "Ardell v Brava");
  press_row(*matches, 1);
  return_on_row(*matches, 3);
  EXPECT_EQ(opened, std::vector<int>({2, 4}));
  tri = {};
}

TEST_F(PlayedMatchRows, OfTheFixtureListOpenTheirReports) {
  choose_groups();
  draw_group_fixtures(chance, world_cup);
  world_cup_fixtures_form form(user_in_use(), world_cup);
  form.open();
  WorldCupFixturesWindow window(world_cup, form);
  window.lead_to(reports_of({1, 2, 11}));
  window.show();
  check_window_at_sizes(window);
  auto* list = control<TableView>(window, "fixtures");
  press_row(*list, 0);
  press_row(*list, 5);
  return_on_row(*list, 10);
  EXPECT_EQ(opened, std::vector<int>({1, 11}));
}

TEST_F(PlayedMatchRows, TiesHaveAButtonForTheirReports) {
  choose_groups();
  draw_group_fixtures(chance, world_cup);
  world_cup_tables_form form(world_cup);
  form.open();
  WorldCupTablesWindow window(world_cup, form);
  window.lead_to(reports_of({29, 30, 32}));
  window.show();
  check_window_at_sizes(window);
  press(window, "report_1");
  EXPECT_EQ(window.findChild<QPushButton*>("report_2"), nullptr);
  QAccessible::queryAccessibleInterface(control<QPushButton>(window, "report_3"))
      ->actionInterface()
      ->doAction(QAccessibleActionInterface::pressAction());
  QTest::qWait(150);  // an assistive press takes effect a moment later
  QTest::keyClick(&window, Qt::Key_F2);
  EXPECT_EQ(opened, std::vector<int>({30, 32, 30}));
}

}  // namespace
}  // namespace velorin::testing
