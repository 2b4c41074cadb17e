// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/forms/forecast_bar.h"

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <vector>

#include "desktop/program_end.h"
#include "desktop/shown_text.h"
#include "desktop/table_view.h"
#include "engine/forms/console_fixture.h"
#include "engine/forms/next_ball_window.h"
#include "forecast/forecast.h"
#include "forecast/forecast_words.h"
#include "model/delivery.h"
#include "model/match_state.h"
#include "support/game_in_play.h"
#include "windows/term_checks.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

class ForecastOnTheConsole : public ConsoleWindowTest {
 protected:
  ForecastOnTheConsole() {
    // Where a test before has ended the program, the toolkit's loops run again once its main loop has run.
    QTimer::singleShot(0, qApp, &QCoreApplication::quit);
    QCoreApplication::exec();
    begin_again();
    preferences::set_forecast(true);
  }
  ~ForecastOnTheConsole() override {
    window_.reset();
    preferences::set_forecast(false);
  }

  ForecastBar& bar() const { return *control<ForecastBar>(*window_, "forecast_bar"); }
  forecast_answer answered() const {
    EXPECT_TRUE(QTest::qWaitFor([this] { return !bar().is_waiting(); }, 60'000));
    return bar().answer().value_or(forecast_answer{});
  }
};

TEST_F(ForecastOnTheConsole, PassesTheChecks) {
  ConsoleWindow& window = open(false, true);
  for (int over = 0; over < 12; ++over) press(window, "next_over");
  answered();
  window.resize(1280, 800);
  check_window_at_sizes(window);
  check_terms(window);
  take_picture(window, "console_forecast");
}

TEST_F(ForecastOnTheConsole, TellsTheChancesOfTheMatchAsItStands) {
  ConsoleWindow& window = open(false, true);
  for (int over = 0; over < 3; ++over) {
    press(window, "next_over");
    const forecast_answer shown_now = answered();
    const forecast_answer wanted = forecast_rest(match, {.runs = 2'500, .seed = 1, .threads = 2, .stop = {}});
    EXPECT_EQ(shown_now.win_first, wanted.win_first);
    EXPECT_EQ(text("forecast_first"), shown(wanted.first + ' ' + chance_words(wanted.win_first)));
    EXPECT_EQ(text("forecast_second"), shown(wanted.second + ' ' + chance_words(wanted.win_second)));
    EXPECT_EQ(text("forecast_total"), QStringLiteral("Forecast %1").arg(shown(total_words(wanted.first_total))));
    EXPECT_TRUE(
        control<QWidget>(window, "forecast_shares")->accessibleName().contains(shown(chances_sentence(wanted))));
  }
}

TEST_F(ForecastOnTheConsole, TheAnswerOfTheMomentBeforeIsMutedUntilTheNextOneComes) {
  ConsoleWindow& window = open(false, true);
  answered();
  const auto is_muted = [&] {
    const auto* shares = control<QWidget>(window, "forecast_shares");
    const bool muted = !control<QLabel>(window, "forecast_first")->isEnabled();
    EXPECT_EQ(muted, !control<QLabel>(window, "forecast_second")->isEnabled());
    EXPECT_EQ(muted, !control<QLabel>(window, "forecast_total")->isEnabled());
    EXPECT_EQ(muted, shares->accessibleName().startsWith("Being reckoned. Before: Chance of winning: "));
    return muted;
  };
  EXPECT_FALSE(is_muted());
  for (int ball = 0; ball < 2; ++ball) {
    form_.bowl_ball();
    window.refresh();
    EXPECT_TRUE(is_muted());
  }
  answered();
  EXPECT_FALSE(is_muted());
}

TEST_F(ForecastOnTheConsole, AnAnswerThatComesLateIsDropped) {
  open(false, true);
  answered();
  std::vector<double> answers;
  bar().on_answer(
      [&](const forecast_answer* answer) { answers.push_back(answer == nullptr ? -1 : answer->win_first); });
  for (int over = 0; over < 4; ++over) {
    form_.bowl_next_over();
    bar().refresh();
    // The threads have time to answer, the window none to take it.
    QThread::msleep(over < 3 ? 30 : 0);
  }
  answered();
  const forecast_answer wanted = forecast_rest(match, {.runs = 2'500, .seed = 1, .threads = 2, .stop = {}});
  EXPECT_THAT(answers, ::testing::ElementsAre(wanted.win_first));
}

TEST_F(ForecastOnTheConsole, HiddenItStaysHiddenAndAsksNothing) {
  ConsoleWindow& first = open(false, true);
  EXPECT_TRUE(bar().isVisible());
  QTest::keyClick(&first, Qt::Key_F);
  EXPECT_FALSE(bar().isVisible());
  EXPECT_FALSE(control<QLabel>(first, "forecast_total")->isVisible());
  EXPECT_FALSE(bar().answer());
  press(first, "next_over");
  EXPECT_FALSE(bar().is_waiting());
  ConsoleWindow& second = open(false, true);
  EXPECT_FALSE(bar().isVisible());
  EXPECT_FALSE(preferences::forecast());
  press(second, "forecast");
  EXPECT_TRUE(bar().isVisible());
  answered();
  EXPECT_TRUE(bar().answer());
}

TEST_F(ForecastOnTheConsole, TheMatchIsTheSameWithAndWithoutIt) {
  std::vector<delivery_list> innings;
  std::vector<std::uint64_t> draws;
  for (const bool on : {true, false}) {
    preferences::set_forecast(on);
    chance.use_seed(31);
    ConsoleWindow& window = open(false, true);
    while (match.console_open) {
      if (match.over_no % 10 == 3 && on) answered();
      form_.bowl_next_over();
      if (match.console_open) window.refresh();
    }
    EXPECT_FALSE(match.result_margin.empty());
    innings.push_back(match.first_deliveries);
    innings.push_back(match.deliveries);
    draws.push_back(chance.draws_used());
  }
  EXPECT_EQ(innings[0], innings[2]);
  EXPECT_EQ(innings[1], innings[3]);
  EXPECT_EQ(draws[0], draws[1]);
}

TEST_F(ForecastOnTheConsole, ScreenReadersAreToldAtTheEndOfAnOverAndAtAWicket) {
  ConsoleWindow& window = open(false, true);
  int alerts = 0;
  bar().on_announced([&alerts](const QString& words) {
    EXPECT_TRUE(words.startsWith("Chance of winning: ")) << words.toStdString();
    ++alerts;
  });
  answered();
  alerts = 0;
  int told = 0;
  int over = match.over_no;
  int wickets = match.score_wickets;
  for (int ball = 0; ball < 16; ++ball) {
    form_.bowl_ball();
    window.refresh();
    answered();
    if (match.over_no != over || match.score_wickets != wickets) ++told;
    over = match.over_no;
    wickets = match.score_wickets;
    EXPECT_EQ(alerts, told);
  }
  EXPECT_GT(told, 1);
  EXPECT_LT(told, 8);
}

TEST_F(ForecastOnTheConsole, TheNextBallIsToldExactly) {
  ConsoleWindow& window = open(false, true);
  press(window, "next_over");
  const auto odds = odds_of_next_ball(match);
  ASSERT_TRUE(odds);
  Robot robot;
  robot.next("nextball", [&](QWidget& sheet) {
    check_controls(sheet);
    check_terms(sheet);
    const Table& table = control<TableView>(sheet, "next_ball_chances")->table();
    ASSERT_EQ(table.rows.size(), 11U);
    EXPECT_EQ(table.rows[6].cells[0].text, "Wicket");
    EXPECT_EQ(table.rows[6].cells[1].text, QStringLiteral("%1 %").arg(100 * odds->wicket, 0, 'f', 1));
    double sum = 0;
    for (const TableRow& row : table.rows) sum += row.cells[1].text.chopped(2).toDouble();
    EXPECT_NEAR(sum, 100, 0.6);
    press(sheet, "accept");
  });
  press(window, "next_ball");
  EXPECT_EQ(robot.left(), 0);
}

}  // namespace
}  // namespace velorin::testing
