// SPDX-License-Identifier: GPL-3.0-or-later
#include <QHeaderView>
#include <QImage>

#include "desktop/shown_text.h"
#include "desktop/table_view.h"
#include "desktop/theme.h"
#include "reports/bowling_figures.h"
#include "reports/forms/bowling_card_window.h"
#include "reports/forms/first_bowling_card_window.h"
#include "reports/forms/first_partnerships_window.h"
#include "reports/forms/partnerships_window.h"
#include "reports/forms/played_match.h"
#include "reports/opened.h"
#include "reports/partnerships.h"
#include "support/game_in_play.h"
#include "windows/robot.h"

namespace velorin::testing {
namespace {

using BowlingWindows = ReportWindowTest;
using StandsWindows = ReportWindowTest;

QStringList texts(const TableRow& row) {
  QStringList all;
  for (const TableCell& cell : row.cells) all << cell.text;
  return all;
}

QStringList headings(const Table& table) {
  QStringList all;
  for (const TableColumn& column : table.columns) all << column.heading;
  return all;
}

void expect_bowlers(const Table& table, const bowling_screen& screen) {
  EXPECT_EQ(headings(table), QStringList({"", "Overs", "Mdns", "Runs", "Wkts", "R.P.O"}));
  ASSERT_EQ(table.rows.size(), 11U);
  for (std::size_t i = 1; i <= 11; ++i) {
    EXPECT_EQ(texts(table.rows[i - 1]),
              QStringList({shown(screen.names[i]), shown(screen.overs[i]), shown(screen.maidens[i]),
                           shown(screen.runs[i]), shown(screen.wickets[i]), shown(screen.economy_rates[i])}));
  }
}

TEST_F(BowlingWindows, ShowsTheBowlersOfTheInnings) {
  const auto screen = opened<bowling_card_form>();
  BowlingCardWindow window(screen);
  window.show();
  EXPECT_EQ(window.windowTitle(), "Bowling Figures");
  const Table& table = control<TableView>(window, "bowlers")->table();
  expect_bowlers(table, screen);
  EXPECT_EQ(texts(table.rows[0]), QStringList({"A.Tamuera", "", "", "", "", ""})) << "he has not bowled";
}

TEST_F(BowlingWindows, ShowsTheBowlersOfTheFirstInnings) {
  const auto screen = opened<first_bowling_card_form>();
  FirstBowlingCardWindow window(screen);
  window.show();
  EXPECT_EQ(window.windowTitle(), "Bowling Figures");
  expect_bowlers(control<TableView>(window, "bowlers")->table(), screen);
}

TEST_F(BowlingWindows, AHeadingSorts) {
  match.bowling_card[3].balls = 6;
  match.bowling_card[3].runs = 99;
  const auto screen = opened<bowling_card_form>();
  BowlingCardWindow window(screen);
  window.show();
  auto* view = control<TableView>(window, "bowlers");
  EXPECT_EQ(view->table_row(0), 0) << "the order of the eleven at first";
  view->sortByColumn(3, Qt::DescendingOrder);
  EXPECT_EQ(view->table_row(0), 2);
}

void expect_stands(const Table& table, const partnership_screen& screen) {
  EXPECT_EQ(headings(table), QStringList({"  Batsmen", "Partnership", "Score", "Overs", "Wkt."}));
  std::size_t at = 0;
  for (const partnership_row& row : screen.rows) {
    if (!row.visible) continue;
    ASSERT_LT(at, table.rows.size());
    EXPECT_EQ(texts(table.rows[at]), QStringList({shown_caption(row.batsmen), shown(row.partnership), shown(row.score),
                                                  shown(row.overs), shown(row.wicket)}));
    ++at;
  }
  EXPECT_EQ(table.rows.size(), at);
}

TEST_F(StandsWindows, ShowsTheStandsOfTheInnings) {
  const auto screen = opened<partnerships_form>();
  PartnershipsWindow window(screen);
  window.show();
  EXPECT_EQ(window.windowTitle(), "Partnerships");
  const Table& table = control<TableView>(window, "stands")->table();
  expect_stands(table, screen);
  EXPECT_EQ(static_cast<int>(table.rows.size()), match.score_wickets + 1);
  EXPECT_TRUE(table.rows.back().cells[1].text.contains("*  ("));
  EXPECT_EQ(table.order, RowOrder::told) << "stands stand in their order";
}

TEST_F(StandsWindows, BarsTellWhoMadeTheRuns) {
  auto screen = opened<partnerships_form>();
  screen.shares = {{.batsmen = {"A.Harrow", "D.Moss"}, .runs = {12, 30}, .extras = 3},
                   {.batsmen = {"A.Harrow", "K.Foss"}, .runs = {1, 2}, .unbroken = true}};
  PartnershipsWindow window(screen);
  window.show();
  auto* bars = control<QWidget>(window, "stand_bars");
  EXPECT_TRUE(bars->isVisible());
  EXPECT_EQ(bars->accessibleName(), "Who made the runs: A.Harrow 12, D.Moss 30, extras 3; A.Harrow 1, K.Foss 2");
  const QImage picture = bars->grab().toImage();
  const auto colour_at = [&](double share, int row) {
    const int bar = bars->height() * (row + 1) / 2 - 8;
    return picture.pixelColor(static_cast<int>(share * (picture.width() - 1)), bar);
  };
  EXPECT_EQ(colour_at(0.1, 0), theme().accent);
  EXPECT_EQ(colour_at(0.99, 0), theme().muted) << "the extras";
  EXPECT_EQ(colour_at(0.5, 1), theme().card_raised) << "as long as its runs";
}

TEST_F(StandsWindows, NamesAreJoinedByOneAmpersandAndByTwoInFiles) {
  const auto screen = opened<partnerships_form>();
  PartnershipsWindow window(screen);
  const Table& table = control<TableView>(window, "stands")->table();
  EXPECT_TRUE(table.rows[0].cells[0].text.contains("  &  "));
  EXPECT_TRUE(table_csv(table).contains(shown(screen.rows[1].batsmen)));
  EXPECT_TRUE(table_csv(table).contains("  &&  "));
}

TEST_F(StandsWindows, ShowsTheStandsOfTheFirstInnings) {
  const auto screen = opened<first_partnerships_form>();
  FirstPartnershipsWindow window(screen);
  window.show();
  EXPECT_EQ(window.windowTitle(), "1st Innings Partnerships");
  const Table& table = control<TableView>(window, "stands")->table();
  expect_stands(table, screen);
  EXPECT_EQ(table.rows.size(), 10U);
}

TEST_F(StandsWindows, BeforeTheFirstInningsIsOverItHasNoStand) {
  match = played_match().first_innings;
  const auto screen = opened<first_partnerships_form>();
  FirstPartnershipsWindow window(screen);
  window.show();
  EXPECT_TRUE(control<TableView>(window, "stands")->table().rows.empty());
}

}  // namespace
}  // namespace velorin::testing
