// SPDX-License-Identifier: GPL-3.0-or-later
#include <QCoreApplication>
#include <QImage>
#include <QLabel>
#include <QPushButton>

#include <algorithm>

#include "desktop/line_chart.h"
#include "desktop/shown_text.h"
#include "desktop/table_view.h"
#include "desktop/team_colors.h"
#include "desktop/theme.h"
#include "reports/forms/over_bars_view.h"
#include "reports/forms/overs_graph_window.h"
#include "reports/forms/played_match.h"
#include "reports/forms/worm_graph_window.h"
#include "reports/overs_graph.h"
#include "reports/worm_graph.h"
#include "support/deliveries.h"
#include "support/game_in_play.h"
#include "windows/robot.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

using OversGraphWindowTest = ReportWindowTest;
using WormGraphWindowTest = ReportWindowTest;

template <class Screen>
Screen opened() {
  Screen screen(match);
  screen.open();
  return screen;
}

/// Puts an over in the place of what was bowled in it.
void set_over(delivery_list& deliveries, int over, std::initializer_list<std::string_view> entries) {
  std::erase_if(deliveries, [over](const delivery& ball) { return ball.over == over; });
  delivery_list balls;
  add_over(balls, over, entries);
  const auto place =
      std::find_if(deliveries.begin(), deliveries.end(), [over](const delivery& ball) { return ball.over > over; });
  deliveries.insert(place, balls.begin(), balls.end());
}

QColor color_at(const QImage& picture, QPointF point) { return picture.pixelColor(point.toPoint()); }

TEST_F(OversGraphWindowTest, OneScaleServesBothHalves) {
  set_over(match.deliveries, 3, {"6", "6", "0", "0", "0", "0"});
  set_over(match.first_deliveries, 50, {"1", "1", "1", "1", "1", "1"});
  const auto form = opened<overs_graph_form>();
  OversGraphWindow window(form);
  window.show();
  const auto* bars = control<OverBarsView>(window, "bars");
  EXPECT_DOUBLE_EQ(bars->bar_of(0, 3).bottom(), bars->y_of(0, 3300));
  EXPECT_DOUBLE_EQ(bars->bar_of(1, 50).bottom(), bars->y_of(1, 6840));
  EXPECT_NEAR(bars->bar_of(0, 3).height(), 2 * bars->bar_of(1, 50).height(), 1e-6);
  EXPECT_NEAR(bars->bar_of(0, 3).height() / 12, (bars->y_of(0, 165) - bars->y_of(0, 0)), 1e-6) << "165 units a run";
  EXPECT_GT(bars->x_of(50), bars->x_of(3));
}

TEST_F(OversGraphWindowTest, ThePictureShowsBarsMarksAndTheRate) {
  set_over(match.deliveries, 3, {"6", "6", "W", "0", "0", "0"});
  const auto form = opened<overs_graph_form>();
  OversGraphWindow window(form);
  window.show();
  auto* bars = control<OverBarsView>(window, "bars");
  const QImage picture = bars->grab().toImage();
  const QRectF bar = bars->bar_of(0, 3);
  EXPECT_EQ(color_at(picture, bar.center() + QPointF(0, bar.height() / 4)), chart_color(sides_of(form), form.side[0]));
  const QRectF mark = bars->mark_of(0, 3);
  EXPECT_LT(mark.bottom(), bar.top());
  EXPECT_EQ(color_at(picture, QPointF(mark.center().x(), mark.bottom() - 2)), theme().ball);
  EXPECT_EQ(color_at(picture, QPointF(bars->x_of(50), bars->y_of(0, 3300 - 2 * 165))), theme().card)
      << "not bowled yet";
}

TEST_F(OversGraphWindowTest, ASideHasTheColourOfItsLineInBothInnings) {
  set_over(match.deliveries, 3, {"6", "6", "0", "0", "0", "0"});
  set_over(match.first_deliveries, 3, {"6", "6", "0", "0", "0", "0"});
  const auto chase = opened<overs_graph_form>();
  const auto lines = opened<worm_graph_form>();
  OversGraphWindow window(chase);
  window.show();
  auto* bars = control<OverBarsView>(window, "bars");
  const QImage picture = bars->grab().toImage();
  // The side that batted first has the first line, and stands below in the chase.
  ASSERT_EQ(lines.first_side, match.team2_name);
  const auto color_of = [&](int half) {
    const QRectF bar = bars->bar_of(half, 3);
    return color_at(picture, bar.center() + QPointF(0, bar.height() / 4));
  };
  const auto colors = match_colors(shown(lines.first_side), shown(lines.second_side), theme());
  EXPECT_EQ(color_of(0), colors[1]);
  EXPECT_EQ(color_of(1), colors[0]);
  EXPECT_EQ(chart_color(sides_of(chase), 0), colors[0]);
}

TEST_F(OversGraphWindowTest, AnOverBeyondTheScaleIsNotCutOff) {
  set_over(match.deliveries, 3, {"6", "6", "6", "6", "6", "12"});
  const auto form = opened<overs_graph_form>();
  OversGraphWindow window(form);
  window.show();
  take_picture(window, "graphs-tall_over");
  auto* bars = control<OverBarsView>(window, "bars");
  EXPECT_GT(bars->bar_of(0, 3).top(), 0);
  EXPECT_GT(bars->mark_of(0, 3).top(), 0);
  EXPECT_LT(bars->y_of(0, 3300 - 42 * 165), bars->y_of(0, 0));
  EXPECT_EQ(color_at(bars->grab().toImage(), bars->bar_of(0, 3).center()), chart_color(sides_of(form), form.side[0]));
  check_window_at_sizes(window);
}

TEST_F(OversGraphWindowTest, WithoutABallTheRateLiesOnTheBaseLine) {
  match = played_match().no_ball;
  const auto form = opened<overs_graph_form>();
  OversGraphWindow window(form);
  window.show();
  const auto* bars = control<OverBarsView>(window, "bars");
  EXPECT_EQ(bars->bar_of(0, 1).height(), 0);
  EXPECT_EQ(control<QLabel>(window, "caption_0")->text(), "South Isles   ( 0/0 )");
  EXPECT_TRUE(bars->accessibleDescription().startsWith("South Isles   ( 0/0 ), 0 an over. no over.")) << "in words";
}

TEST_F(OversGraphWindowTest, TheBarsInWords) {
  set_over(match.deliveries, 1, {"4", "0", "W", "0", "0", "0"});
  set_over(match.deliveries, 2, {"1", "0", "0", "0", "0", "0"});
  const auto form = opened<overs_graph_form>();
  OversGraphWindow window(form);
  const QString words = control<OverBarsView>(window, "bars")->accessibleDescription();
  EXPECT_TRUE(words.contains("an over. Over 1: 4 runs, wicket; Over 2: 1 run; Over 3: ")) << words.toStdString();
  EXPECT_TRUE(words.contains("South Isles   ( "));
}

TEST_F(OversGraphWindowTest, TheSameFiguresAsATable) {
  set_over(match.deliveries, 2, {"4", "0", "W", "0", "0", "3"});
  const auto form = opened<overs_graph_form>();
  OversGraphWindow window(form);
  window.show();
  EXPECT_FALSE(window.shows_table());
  press(window, "show_as_table");
  EXPECT_TRUE(window.shows_table());
  EXPECT_FALSE(control<OverBarsView>(window, "bars")->isVisible());
  take_picture(window, "graphs-table");
  check_window_at_sizes(window);
  for (const int half : {0, 1}) {
    const Table& table = control<TableView>(window, half == 0 ? "overs_0" : "overs_1")->table();
    EXPECT_EQ(table.name, shown(form.captions[static_cast<std::size_t>(half)]));
    ASSERT_EQ(static_cast<int>(table.rows.size()), form.overs[static_cast<std::size_t>(half)]);
    for (const TableRow& row : table.rows) {
      const OverFigures figures = over_figures(form, half, row.cells[0].text.toInt());
      EXPECT_EQ(row.cells[1].text.toInt(), figures.runs);
      EXPECT_EQ(row.cells[2].text, figures.wicket ? "W" : "");
    }
  }
  const Table& innings = control<TableView>(window, "overs_0")->table();
  EXPECT_EQ(innings.rows[1].cells[1].text, "7");
  EXPECT_EQ(innings.rows[1].cells[2].text, "W");
  press(window, "show_as_table");
  EXPECT_FALSE(window.shows_table());
  EXPECT_TRUE(control<OverBarsView>(window, "bars")->isVisible());
}

TEST_F(WormGraphWindowTest, EachLineStandsOverItsOvers) {
  const auto form = opened<worm_graph_form>();
  WormGraphWindow window(form);
  window.show();
  const LineChart& chart = control<LineChartView>(window, "worm")->chart();
  ASSERT_EQ(chart.lines.size(), 2U);
  for (const std::size_t side : {0U, 1U}) {
    const auto& points = chart.lines[side].points;
    ASSERT_EQ(points.size(), form.series[side].size());
    for (std::size_t i = 0; i < points.size(); ++i) {
      EXPECT_EQ(points[i], QPointF(form.series[side][i].row - 1, form.series[side][i].value));
    }
  }
  EXPECT_EQ(chart.across_to, 50);
  EXPECT_EQ(control<QLabel>(window, "first_side")->text(), "South Isles");
  EXPECT_EQ(control<QLabel>(window, "second_side")->text(), "Northland");
  EXPECT_EQ(control<QLabel>(window, "first_score")->text(), shown(form.first_score));
  EXPECT_EQ(control<QLabel>(window, "second_score")->text(), shown(form.second_score));
}

TEST_F(WormGraphWindowTest, TheLinesInWordsAndAsATable) {
  const auto form = opened<worm_graph_form>();
  WormGraphWindow window(form);
  window.show();
  const QString words = control<LineChartView>(window, "worm")->accessibleDescription();
  EXPECT_TRUE(words.startsWith(QStringLiteral("South Isles %1. over 0: ").arg(shown(form.first_score))));
  EXPECT_TRUE(words.contains(QStringLiteral("Northland %1. over 0: ").arg(shown(form.second_score))));
  press(window, "show_as_table");
  take_picture(window, "worms-table");
  check_window_at_sizes(window);
  const Table& table = control<TableView>(window, "scores")->table();
  ASSERT_EQ(table.rows.size(), std::max(form.series[0].size(), form.series[1].size()));
  EXPECT_EQ(table.columns[1].heading, "South Isles");
  EXPECT_EQ(table.rows[10].cells[0].text, "10");
  EXPECT_EQ(table.rows[10].cells[1].text, QString::number(form.series[0][10].value));
  EXPECT_EQ(table.rows[10].cells[2].text, QString::number(form.series[1][10].value));
  EXPECT_EQ(table.rows.back().cells[2].text, "") << "the second side has batted fewer overs";
}

TEST_F(WormGraphWindowTest, ClosingKeepsTheLines) {
  const auto form = opened<worm_graph_form>();
  WormGraphWindow window(form);
  window.show();
  press(window, "accept");
  EXPECT_FALSE(window.isVisible());
  EXPECT_TRUE(match.loaded);
  EXPECT_EQ(opened<worm_graph_form>().series[0].size(), form.series[0].size());
}

TEST_F(WormGraphWindowTest, TheChartFollowsTheLook) {
  const auto before = theme().high_contrast ? Appearance::high_contrast
                      : theme().dark        ? Appearance::dark
                                            : Appearance::light;
  const auto form = opened<worm_graph_form>();
  WormGraphWindow window(form);
  window.show();
  auto* chart = control<LineChartView>(window, "worm");
  for (const Appearance look : {Appearance::light, Appearance::dark, Appearance::high_contrast}) {
    apply_theme(look);
    QCoreApplication::processEvents();
    EXPECT_EQ(color_at(chart->grab().toImage(), QPointF(chart->width() / 2.0, 8)), theme().card);
  }
  apply_theme(before);
}

TEST_F(WormGraphWindowTest, ItsTableAndItsWordsKeepToTheMatchInPlay) {
  const auto now = opened<worm_graph_form>();
  WormGraphWindow window(now);
  window.show();
  EXPECT_FALSE(control<QLabel>(window, "old_rows")->isVisible());
  const auto rows = control<TableView>(window, "scores")->table().rows.size();

  worm_line& line = match.worm[0];
  const int last = line.team == match.team1_name ? match.innings_balls / 6 + 1 : match.first_balls / 6 + 1;
  match.worm[1] = worm_line{.team = "Strangers", .score_runs = 321, .score_set = true};
  match.worm[1].row[40] = 277;
  match.worm[1].row_set[40] = true;
  const auto mixed = opened<worm_graph_form>();
  WormGraphWindow other(mixed);
  other.show();
  take_picture(other, "worms_old_rows");
  check_window_at_sizes(other);
  EXPECT_TRUE(control<QLabel>(other, "old_rows")->isVisible());
  EXPECT_LE(control<TableView>(other, "scores")->table().rows.size(), rows);
  for (const TableRow& row : control<TableView>(other, "scores")->table().rows) {
    EXPECT_EQ(row.cells[2].text, "") << "of another match";
    EXPECT_LT(row.cells[0].text.toInt(), last);
  }
  const LineChart chart = worm_chart(mixed);
  EXPECT_FALSE(chart.described.contains("277"));
  EXPECT_FALSE(chart.described.contains("321"));
  ASSERT_EQ(chart.lines[1].points.size(), 1);
  EXPECT_EQ(chart.lines[1].points[0].y(), 277) << "the lines themselves are as told";
}

}  // namespace
}  // namespace velorin::testing
