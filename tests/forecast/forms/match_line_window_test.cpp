// SPDX-License-Identifier: GPL-3.0-or-later
#include "forecast/forms/match_line_window.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <memory>
#include <stdexcept>
#include <vector>

#include "desktop/shown_text.h"
#include "desktop/table_view.h"
#include "engine/over_play.h"
#include "forecast/forms/win_line_chart.h"
#include "headless/headless_user.h"
#include "model/match_state.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"
#include "windows/robot.h"
#include "windows/term_checks.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

constexpr long runs = 30;

/// The states of the first overs of a match.
class state_keeper : public headless_user {
 public:
  explicit state_keeper(const match_state& played) : headless_user(played), played_(played) {}
  void ball_bowled() override { kept.push_back(played_); }

  std::vector<match_state> kept;

 private:
  const match_state& played_;
};

class MatchLineWindowTest : public ::testing::Test {
 protected:
  MatchLineWindowTest() {
    set_up_sample_match(false, true);
    match_state played = match;
    random_source drawn;
    drawn.use_seed(8);
    state_keeper user(played);
    const match_play play{played, drawn, user, data};
    open_console(play);
    states_->push_back(played);
    for (int over = 0; over < 12; ++over) next_over(play);
    states_->insert(states_->end(), user.kept.begin(), user.kept.end());
  }

  MatchStates source() const {
    return [states = states_](const auto& each) {
      const int count = static_cast<int>(states->size());
      for (int place = 0; place < count; ++place) {
        if (!each((*states)[static_cast<std::size_t>(place)], place, count)) return;
      }
    };
  }
  match_line line() const {
    match_line wanted(states_->front(), {.runs = runs, .seed = 1, .threads = 1, .stop = {}});
    for (std::size_t i = 1; i < states_->size(); ++i) wanted.add((*states_)[i]);
    return wanted;
  }
  static void wait_for(const MatchLineWindow& window) {
    ASSERT_TRUE(QTest::qWaitFor([&] { return !window.is_working(); }, 60'000));
  }

  std::shared_ptr<std::vector<match_state>> states_ = std::make_shared<std::vector<match_state>>();
};

TEST_F(MatchLineWindowTest, ShowsTheLineItsTurnsAndEachMansImpact) {
  MatchLineWindow window(source(), runs);
  window.show();
  EXPECT_FALSE(control<QPushButton>(window, "save_picture")->isEnabled());
  wait_for(window);
  const match_line wanted = line();
  const WinLine& drawn = control<WinLineChart>(window, "win_line")->line();
  ASSERT_EQ(drawn.points.size(), wanted.points().size());
  EXPECT_EQ(drawn.points.back().win_first, wanted.points().back().win_first);
  EXPECT_EQ(drawn.turns.size(), 5U);
  const Table& turns = control<TableView>(window, "turning_points")->table();
  ASSERT_EQ(turns.rows.size(), 5U);
  const line_point first = wanted.turning_points().front();
  EXPECT_EQ(turns.rows[0].cells[2].text, QStringLiteral("%1.%2").arg(first.ball.over - 1).arg(first.ball.ball));
  EXPECT_EQ(turns.rows[0].cells[3].text, shown(first.bowler));
  EXPECT_EQ(turns.rows[0].cells[4].text, shown(first.striker));
  const Table& impacts = control<TableView>(window, "impacts")->table();
  ASSERT_EQ(impacts.rows.size(), wanted.impacts().size());
  EXPECT_EQ(impacts.rows[0].cells[0].text, shown(wanted.impacts().front().man));
  EXPECT_TRUE(control<WinLineChart>(window, "win_line")->accessibleDescription().contains(shown(first.striker)));
  EXPECT_EQ(control<QLabel>(window, "line_progress")->text(), "");
  check_window_at_sizes(window);
  check_terms(window);
  take_picture(window, "match_line");
}

TEST_F(MatchLineWindowTest, TheChartIsSavedAsAPicture) {
  MatchLineWindow window(source(), runs);
  wait_for(window);
  const QTemporaryDir folder;
  const auto* chart = control<WinLineChart>(window, "win_line");
  EXPECT_TRUE(chart->save(folder.filePath("line.png")));
  EXPECT_FALSE(QImage(folder.filePath("line.png")).isNull());
  EXPECT_TRUE(chart->save(folder.filePath("line.svg")));
  QFile file(folder.filePath("line.svg"));
  ASSERT_TRUE(file.open(QFile::ReadOnly));
  EXPECT_TRUE(file.readAll().contains("<svg"));
  EXPECT_FALSE(chart->save(folder.filePath("missing/line.svg")));
  EXPECT_FALSE(chart->save(folder.filePath("missing/line.png")));
}

TEST_F(MatchLineWindowTest, ClosedBeforeItIsDoneItStops) {
  for (int i = 0; i < 3; ++i) {
    MatchLineWindow window(source(), 1'000'000);
    window.show();
    QTest::qWait(10 * i);
    EXPECT_TRUE(window.is_working());
  }
}

TEST_F(MatchLineWindowTest, WhatCannotBeReadIsTold) {
  MatchLineWindow window([](const auto&) { throw std::runtime_error("no such game"); }, runs);
  wait_for(window);
  EXPECT_EQ(control<QLabel>(window, "line_progress")->text(), "no such game");
  MatchLineWindow empty([](const auto&) {}, runs);
  wait_for(empty);
  EXPECT_EQ(control<QLabel>(empty, "line_progress")->text(), "No ball has been bowled yet.");
}

}  // namespace
}  // namespace velorin::testing
