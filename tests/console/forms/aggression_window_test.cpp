// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/forms/aggression_window.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "console/captain_forms.h"
#include "desktop/level_segments.h"
#include "desktop/meter_bar.h"
#include "model/match_state.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"
#include "windows/robot.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

class AggressionWindowTest : public ::testing::Test {
 protected:
  void SetUp() override {
    set_up_sample_match(false, false);
    match.striker = 2;
    match.non_striker = 1;
    match.batting_card[1].name = "H.Bat1";
    match.batting_card[1].runs = 41;
    match.batting_card[1].balls = 60;
    match.batting_card[2].name = "H.Bat2";
    match.bowler = 8;
    match.next_bowler = 9;
    match.bowling_card[9].name = "A.Bowl9";
    match.bowling_card[9].balls = 27;
    match.bowling_card[9].maidens = 1;
    match.bowling_card[9].runs = 19;
    match.bowling_card[9].wickets = 2;
    match.score_runs = 83;
    match.score_wickets = 1;
    match.innings_balls = 100;
    match.batsman_aggression = {4, 2};
    match.bowling_aggression = {1, 5};
  }
  static QString text(const QWidget& window, const char* label) { return control<QLabel>(window, label)->text(); }
  static int level(const QWidget& window) { return control<LevelSegments>(window, "aggression")->level(); }
  static bool is_shown(const QWidget& window, const char* name) { return control<QWidget>(window, name)->isVisible(); }
};

TEST_F(AggressionWindowTest, ShowsABatsman) {
  aggression_form form = aggression_form::of_batsman(match, 0);
  AggressionWindow window(form);
  window.show();
  take_picture(window, "aggr_batsman");
  check_window_at_sizes(window);
  EXPECT_EQ(text(window, "player_name"), "H.Bat1");
  EXPECT_EQ(text(window, "heading_0"), "Runs");
  EXPECT_EQ(text(window, "figure_0"), "41");
  EXPECT_EQ(text(window, "heading_1"), "Balls");
  EXPECT_EQ(text(window, "figure_1"), "60");
  EXPECT_EQ(text(window, "heading_2"), "SR");
  EXPECT_EQ(text(window, "figure_2"), "68.33");
  EXPECT_EQ(text(window, "heading_3"), "Settled");
  EXPECT_FALSE(is_shown(window, "figure_3"));
  EXPECT_TRUE(is_shown(window, "settled_meter"));
  EXPECT_DOUBLE_EQ(control<MeterBar>(window, "settled_meter")->value(), 5 * (82 + 30));
  EXPECT_EQ(text(window, "score_sentence"), QString::fromStdString(form.score_sentence));
  EXPECT_TRUE(text(window, "score_sentence").endsWith("at 4.98 runs per over."));
  EXPECT_EQ(level(window), 4);
  EXPECT_TRUE(is_shown(window, "accept_for_batsman"));
  EXPECT_FALSE(is_shown(window, "accept_for_bowler"));
}

TEST_F(AggressionWindowTest, TellsWhatEachAggressionWouldBring) {
  aggression_form form = aggression_form::of_batsman(match, 0);
  const aggression_odds odds{ball_odds{3.9, 0}, ball_odds{4.5, 60}, ball_odds{5.2, 41}, ball_odds{5.9, 29},
                             ball_odds{7.1, 14}};
  AggressionWindow window(odds, form);
  window.show();
  check_window_at_sizes(window);
  const auto* segments = control<LevelSegments>(window, "aggression");
  EXPECT_EQ(segments->segment(4)->shown_answer(), QStringLiteral("5.9\u00B729"));
  EXPECT_EQ(segments->segment(1)->toolTip(), "1: 3.9 an over, no wicket");
  EXPECT_TRUE(segments->segment(5)->accessibleName().contains("H.Bat1"));
  EXPECT_EQ(text(window, "level_answer"), "4: 5.9 an over, a wicket every 29 balls");
  press(window, "aggression_5");
  EXPECT_EQ(text(window, "level_answer"), "5: 7.1 an over, a wicket every 14 balls");
  AggressionWindow unknown(form);
  unknown.show();
  EXPECT_FALSE(is_shown(unknown, "level_answer"));
}

TEST_F(AggressionWindowTest, FiguresChooseFromAnywhereInTheSheet) {
  aggression_form form = aggression_form::of_batsman(match, 0);
  AggressionWindow window(form);
  window.show();
  window.activateWindow();
  QApplication::processEvents();
  control<QPushButton>(window, "accept_for_batsman")->setFocus();
  for (int wanted = 1; wanted <= 5; ++wanted) {
    QTest::keyClick(control<QPushButton>(window, "accept_for_batsman"), static_cast<Qt::Key>(Qt::Key_0 + wanted));
    EXPECT_EQ(level(window), wanted);
    EXPECT_EQ(form.aggression, wanted);
  }
}

TEST_F(AggressionWindowTest, AssistiveActionsChoose) {
  aggression_form form = aggression_form::of_batsman(match, 0);
  AggressionWindow window(form);
  window.show();
  QAccessibleInterface* told = QAccessible::queryAccessibleInterface(control<QRadioButton>(window, "aggression_2"));
  ASSERT_NE(told, nullptr);
  EXPECT_EQ(told->role(), QAccessible::RadioButton);
  EXPECT_FALSE(told->state().checked);
  told->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
  EXPECT_TRUE(told->state().checked);
  EXPECT_EQ(form.aggression, 2);
}

TEST_F(AggressionWindowTest, ShowsABowler) {
  aggression_form form = aggression_form::of_bowler(match, 1);
  AggressionWindow window(form);
  window.show();
  take_picture(window, "aggr_bowler");
  check_window_at_sizes(window);
  EXPECT_EQ(text(window, "player_name"), "A.Bowl9");
  EXPECT_EQ(text(window, "heading_0"), "Overs");
  EXPECT_EQ(text(window, "figure_0"), "4.3");
  EXPECT_EQ(text(window, "heading_1"), "Mdns");
  EXPECT_EQ(text(window, "figure_1"), "1");
  EXPECT_EQ(text(window, "heading_2"), "Runs");
  EXPECT_EQ(text(window, "figure_2"), "19");
  EXPECT_EQ(text(window, "heading_3"), "Wkts");
  EXPECT_EQ(text(window, "figure_3"), "2");
  EXPECT_TRUE(is_shown(window, "figure_3"));
  EXPECT_FALSE(is_shown(window, "settled_meter"));
  EXPECT_FALSE(is_shown(window, "score_sentence"));
  EXPECT_EQ(level(window), 5);
  EXPECT_FALSE(is_shown(window, "accept_for_batsman"));
  EXPECT_TRUE(is_shown(window, "accept_for_bowler"));
}

TEST_F(AggressionWindowTest, ABatsmanBeforeHisFirstBall) {
  aggression_form form = aggression_form::of_batsman(match, 1);
  AggressionWindow window(form);
  window.show();
  EXPECT_EQ(text(window, "figure_2"), " - ");
  EXPECT_DOUBLE_EQ(control<MeterBar>(window, "settled_meter")->value(), 0);
}

TEST_F(AggressionWindowTest, OkSetsTheAggression) {
  aggression_form form = aggression_form::of_batsman(match, 1);
  AggressionWindow window(form);
  window.show();
  window.activateWindow();
  QApplication::processEvents();
  ASSERT_NE(window.focusWidget(), nullptr);
  EXPECT_EQ(window.focusWidget()->objectName(), "aggression_2");
  QTest::keyClick(window.focusWidget(), Qt::Key_5);
  press(window, "accept_for_batsman");
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(match.batsman_aggression[0], 4);
  EXPECT_EQ(match.batsman_aggression[1], 5);

  aggression_form bowling = aggression_form::of_bowler(match, 0);
  AggressionWindow other(bowling);
  other.show();
  press(other, "aggression_3");
  press(other, "accept_for_bowler");
  EXPECT_EQ(match.bowling_aggression[0], 3);
  EXPECT_EQ(match.bowling_aggression[1], 5);
}

TEST_F(AggressionWindowTest, EscapeChangesNothing) {
  aggression_form form = aggression_form::of_batsman(match, 0);
  AggressionWindow window(form);
  window.show();
  press(window, "aggression_1");
  window.reject();
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(match.batsman_aggression[0], 4);
}

}  // namespace
}  // namespace velorin::testing
